// The mouse: double clicks on brackets and dotted names, scrolling by hand.
#include "editor/MGSBracePair.h"
#include "editor/MGSFolding.h"
#include "editor/SMLTextView.h"
#include "platform/text/TextSearch.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;

namespace {

constexpr qreal handScrollFactor = 3;

/// That a key stands for itself.
Qt::KeyboardModifiers modifierOf(int key)
{
    if (key == Qt::Key_Control)
        return Qt::ControlModifier;
    return key == Qt::Key_Alt ? Qt::AltModifier : Qt::NoModifier;
}

} // namespace

void SMLTextView::modifiersDidChange(Qt::KeyboardModifiers modifiers)
{
    constexpr Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;
    const bool isDragging = (modifiers & both) == both;
    if (isDragging == m_isDragging)
        return;
    m_isDragging = isDragging;
    viewport()->setCursor(isDragging ? Qt::OpenHandCursor : Qt::IBeamCursor);
}

void SMLTextView::keyPressEvent(QKeyEvent *event)
{
    modifiersDidChange(event->modifiers() | modifierOf(event->key()));
    TextView::keyPressEvent(event);
}

void SMLTextView::keyReleaseEvent(QKeyEvent *event)
{
    modifiersDidChange(event->modifiers() & ~modifierOf(event->key()));
    TextView::keyReleaseEvent(event);
}

void SMLTextView::mousePressEvent(QMouseEvent *event)
{
    modifiersDidChange(event->modifiers());
    const qsizetype folded = m_folding->foldedLineAt(event->position());
    if (folded != platform::NotFound && event->button() == Qt::LeftButton) {
        m_folding->toggle(folded);
        return;
    }
    m_startPoint.reset();
    if (!m_isDragging || event->button() != Qt::LeftButton)
        return TextView::mousePressEvent(event);
    m_startPoint = event->position();
    m_startOrigin = scrollPosition();
}

void SMLTextView::mouseMoveEvent(QMouseEvent *event)
{
    modifiersDidChange(event->modifiers());
    if (m_startPoint && m_isDragging) {
        setScrollPosition(m_startOrigin);
        scrollByPixels(-handScrollFactor * (event->position() - *m_startPoint));
    } else if (!m_startPoint && !m_isDragging) {
        TextView::mouseMoveEvent(event);
    }
}

void SMLTextView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_startPoint)
        return TextView::mouseReleaseEvent(event);
    m_startPoint.reset();
}

void SMLTextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    modifiersDidChange(event->modifiers());
    if (m_isDragging)
        return mousePressEvent(event);
    const QScopedValueRollback doubleClick(m_isDoubleClick, event->button() == Qt::LeftButton);
    m_lacksPartner = false;
    TextView::mouseDoubleClickEvent(event);
    if (m_lacksPartner)
        beep();
}

TextRange SMLTextView::selectionRange(TextRange proposed, qsizetype clicked,
                                      platform::TextGranularity granularity)
{
    const TextRange word = TextView::selectionRange(proposed, clicked, granularity);
    if (!m_isDoubleClick || granularity != platform::TextGranularity::Word ||
        clicked >= textStorage()->length())
        return word;
    const char16_t unit = textStorage()->character(clicked);
    if (const char16_t *pair = mgs_bracePair(unit)) {
        const qsizetype partner = unit == pair[0]
                                      ? findEndOfNestedBlock(clicked, pair[0], pair[1])
                                      : findBeginningOfNestedBlock(clicked, pair[0], pair[1]);
        m_lacksPartner = partner == NotFound;
        const TextRange brace{clicked, 1};
        return m_lacksPartner ? brace : brace.united({partner, 1});
    }
    const auto isSeparator = [](char16_t c) {
        return c == u'.' || c == u':';
    };
    if (!word.contains(clicked) || isSeparator(unit))
        return word;
    const qsizetype left = platform::indexOfCharacter(*textStorage(), isSeparator,
                                                      TextRange::between(word.location, clicked),
                                                      SearchDirection::Backward);
    const qsizetype right = platform::indexOfCharacter(*textStorage(), isSeparator,
                                                       TextRange::between(clicked, word.end()));
    return TextRange::between(left == NotFound ? word.location : left + 1,
                              right == NotFound ? word.end() : right);
}
