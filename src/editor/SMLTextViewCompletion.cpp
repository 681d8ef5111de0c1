// Completion of words, and scrolling by hand.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSFolding.h"
#include "editor/SMLTextView.h"
#include "platform/CharacterSet.h"
#include "platform/text/TextSearch.h"
#include "platform/text/view/CompletionList.h"

#include <QKeyEvent>

using platform::CharacterSet;
using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;

namespace {

constexpr qreal handScrollFactor = 3;

bool isEndOfWord(char16_t unit)
{
    static const CharacterSet ends = CharacterSet::symbols()
                                         .include(CharacterSet::punctuation())
                                         .include(CharacterSet::whitespaceAndNewlines());
    return ends.contains(unit);
}

bool isOfCompletion(char16_t unit)
{
    const bool isLetter = (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
    return isLetter || (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'\\';
}

/// That a key stands for itself.
Qt::KeyboardModifiers modifierOf(int key)
{
    if (key == Qt::Key_Control)
        return Qt::ControlModifier;
    return key == Qt::Key_Alt ? Qt::AltModifier : Qt::NoModifier;
}

} // namespace

void SMLTextView::scheduleAutocomplete()
{
    m_autocompleteWordsTimer.start(qMax(0, qRound(autoCompleteDelay() * 1000)));
}

void SMLTextView::autocompleteWordsTimerDidFire()
{
    const qsizetype length = textStorage()->length();
    const TextRange selection = selectedRange();
    const bool isOpen = m_completionList->isVisible(); // and follows what is typed by itself
    if (isOpen || length == 0 || !selection.isEmpty())
        return;
    if (selection.location == length || isEndOfWord(textStorage()->character(selection.location)))
        complete();
}

void SMLTextView::complete()
{
    m_autocompleteWordsTimer.stop();
    TextView::complete();
}

TextRange SMLTextView::rangeForUserCompletion() const
{
    const TextRange selection = selectedRange();
    if (!selection.isEmpty() || selection.location == 0)
        return TextRange::notFound();
    const qsizetype before = platform::indexOfCharacter(
        *textStorage(), [](char16_t unit) { return !isOfCompletion(unit); },
        {0, selection.location}, SearchDirection::Backward);
    const qsizetype start = before == NotFound ? 0 : before + 1;
    return start == selection.location ? TextRange::notFound()
                                       : TextRange::between(start, selection.location);
}

const QStringList &SMLTextView::keywords()
{
    const auto &definition = m_syntaxColouring->syntaxDefinition();
    if (definition != m_syntaxDefOfCachedKeywords.lock()) {
        m_cachedKeywords = definition ? definition->keywords().values() : QStringList();
        m_cachedKeywords.sort();
        m_syntaxDefOfCachedKeywords = definition;
    }
    return m_cachedKeywords;
}

QStringList SMLTextView::completionsForPartialWord(TextRange range)
{
    const SMLAutoCompleteDelegate *source = autoCompleteDelegate();
    if (!source)
        source = m_syntaxColouring->syntaxDefinition().get();
    if (!source)
        return {};
    QStringList words = source->completions();
    if (autoCompleteWithKeywords())
        words += keywords();
    const QString start = textStorage()->substring(range);
    words.removeIf(
        [&](const QString &word) { return !word.startsWith(start, Qt::CaseInsensitive); });
    return words;
}

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
    if (!m_isDragging)
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
