#include "editor/MGSTagHighlight.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSMarkupTags.h"
#include "editor/SMLTextView.h"
#include <QPainter>

using platform::TextRange;

namespace {

constexpr int rest = 120;         // milliseconds
constexpr float strength = 0.14F; // of the text's colour
constexpr qreal radius = 2;       // pixels

} // namespace

MGSTagHighlight::MGSTagHighlight(SMLTextView *view) : m_view(view)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest);
    connect(&m_rest, &QTimer::timeout, this, &MGSTagHighlight::look);
    connect(view, &SMLTextView::selectionDidChange, this, &MGSTagHighlight::waitForRest);
    connect(view->layoutManager(), &SMLLayoutManager::charactersReplaced, this,
            &MGSTagHighlight::textDidChange);
    connect(view->layoutManager(), &SMLLayoutManager::textStorageDidChange, this,
            &MGSTagHighlight::textDidChange);
}

void MGSTagHighlight::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    look();
}

void MGSTagHighlight::textDidChange()
{
    m_pair.reset();
    update(m_drawn);
    waitForRest();
}

void MGSTagHighlight::waitForRest()
{
    if (m_isEnabled)
        m_rest.start();
}

void MGSTagHighlight::look()
{
    const std::optional<MGSTagPair> pair = pairAtCaret();
    if (pair == m_pair)
        return;
    update(m_drawn);
    m_pair = pair;
    update(rects());
}

std::optional<MGSTagPair> MGSTagHighlight::pairAtCaret() const
{
    const bool isHtml = mgs_isMarkup(m_view->syntaxColouring()->syntaxDefinitionName());
    if (!m_isEnabled || !isHtml || m_view->selections().all().size() > 1 ||
        !m_view->selectedRange().isEmpty())
        return std::nullopt;
    return MGSTagPartner(*m_view->textStorage(), m_view->selectedRange().location);
}

std::vector<QRectF> MGSTagHighlight::rects()
{
    std::vector<QRectF> rects;
    if (m_pair) {
        for (const TextRange range : {m_pair->tag, m_pair->partner})
            std::ranges::copy(m_view->rectsOf(range), std::back_inserter(rects));
    }
    return rects;
}

void MGSTagHighlight::update(const std::vector<QRectF> &rects)
{
    for (const QRectF &rect : rects)
        m_view->viewport()->update(rect.toAlignedRect());
}

void MGSTagHighlight::draw(QPainter *painter)
{
    m_drawn = rects();
    if (m_drawn.empty())
        return;
    QColor colour = m_view->textColor();
    colour.setAlphaF(strength);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(colour);
    for (const QRectF &rect : m_drawn)
        painter->drawRoundedRect(rect, radius, radius);
    painter->restore();
}
