#include "editor/MGSFolding.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSMarkupTags.h"
#include "editor/SMLTextView.h"
#include <QPainter>

using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;

namespace {

constexpr int rest = 150;       // milliseconds
constexpr qreal gap = 6;        // pixels between the line and its "…"
constexpr qreal radius = 3;     // pixels
constexpr float ground = 0.12F; // of the text's colour
constexpr float ink = 0.7F;
const QString ellipsis = QStringLiteral("…");

} // namespace

MGSFolding::MGSFolding(SMLTextView *view) : m_view(view)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest);
    connect(&m_rest, &QTimer::timeout, this, &MGSFolding::look);
    connect(view, &SMLTextView::scrollPositionDidChange, this, &MGSFolding::lookSoon);
    connect(view, &SMLTextView::frameDidChange, this, &MGSFolding::lookSoon);
    connect(view->layoutManager(), &SMLLayoutManager::layoutDidChange, this, &MGSFolding::lookSoon);
    connect(view->layoutManager(), &SMLLayoutManager::charactersReplaced, this,
            &MGSFolding::textDidChange);
    connect(view->layoutManager(), &SMLLayoutManager::textStorageDidChange, this,
            &MGSFolding::takeTextStorage);
    takeTextStorage();
}

void MGSFolding::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    if (!enabled && !m_view->layoutManager()->hiddenLines().isEmpty())
        m_view->layoutManager()->showAllLines();
    look();
    Q_EMIT didChange();
}

void MGSFolding::takeTextStorage()
{
    m_regions.clear();
    m_lineCount = m_view->textStorage()->lineCount();
    lookSoon();
}

// Until it looks again, marks stay with their lines.
void MGSFolding::textDidChange(TextRange range)
{
    const TextStorage &text = *m_view->textStorage();
    const qsizetype added = text.lineCount() - std::exchange(m_lineCount, text.lineCount());
    if (!m_isEnabled)
        return;
    m_rest.start();
    if (added == 0 || m_regions.empty())
        return;
    const qsizetype last = text.lineAt(range.end()) - added;
    MGSFoldRegions moved;
    for (const auto &[first, end] : m_regions)
        moved[first > last ? first + added : first] = end + added;
    m_regions = std::move(moved);
}

void MGSFolding::lookSoon()
{
    if (m_isEnabled && !m_rest.isActive())
        m_rest.start();
}

void MGSFolding::look()
{
    MGSFoldRegions regions;
    if (m_isEnabled && mgs_isMarkup(m_view->syntaxColouring()->syntaxDefinitionName()))
        regions = mgs_foldRegions(*m_view->textStorage(), m_view->scrollPosition().line,
                                  m_view->lineAtY(m_view->viewport()->height()));
    if (regions == m_regions)
        return;
    m_regions = std::move(regions);
    Q_EMIT didChange();
}

bool MGSFolding::isFolded(qsizetype line) const
{
    const platform::HiddenLines &hidden = m_view->layoutManager()->hiddenLines();
    return hidden.contains(line + 1) && !hidden.contains(line);
}

bool MGSFolding::toggle(qsizetype line)
{
    if (isFolded(line)) {
        m_view->layoutManager()->showLine(line + 1);
        return true;
    }
    const MGSFoldRegions regions = mgs_foldRegions(*m_view->textStorage(), line, line);
    if (!m_isEnabled || regions.empty())
        return false;
    const qsizetype last = regions.begin()->second - 1;
    moveCaretsOutOf(line + 1, last);
    m_view->layoutManager()->hideLines(line + 1, last);
    return true;
}

void MGSFolding::moveCaretsOutOf(qsizetype first, qsizetype last)
{
    const TextStorage &text = *m_view->textStorage();
    const TextRange hidden{text.lineStart(first), text.lineStart(last + 1) - text.lineStart(first)};
    for (const TextRange range : m_view->selectedRanges()) {
        if (hidden.contains(range.location) || hidden.contains(range.end()))
            return m_view->setSelectedRange({text.lineContents(first - 1).end(), 0});
    }
}

std::vector<qsizetype> MGSFolding::foldedLinesInSight() const
{
    std::vector<qsizetype> lines;
    if (m_view->layoutManager()->hiddenLines().isEmpty())
        return lines;
    const qsizetype last = m_view->lineAtY(m_view->viewport()->height());
    for (qsizetype line = m_view->scrollPosition().line; line <= last;
         line = m_view->lineAfter(line)) {
        if (isFolded(line))
            lines.push_back(line);
    }
    return lines;
}

QRectF MGSFolding::rectOfEllipsis(qsizetype line) const
{
    const QRectF end = m_view->caretRect(m_view->textStorage()->lineContents(line).end());
    const QFontMetricsF metrics(m_view->layoutManager()->style().font);
    return {end.left() + gap, end.top() + 2, metrics.horizontalAdvance(ellipsis) + gap,
            end.height() - 4};
}

qsizetype MGSFolding::foldedLineAt(QPointF point) const
{
    const std::vector<qsizetype> lines = foldedLinesInSight();
    const auto found = std::ranges::find_if(
        lines, [&](qsizetype line) { return rectOfEllipsis(line).contains(point); });
    return found == lines.end() ? NotFound : *found;
}

void MGSFolding::draw(QPainter *painter)
{
    const std::vector<qsizetype> lines = foldedLinesInSight();
    if (lines.empty())
        return;
    const auto shade = [this](float alpha) {
        QColor colour = m_view->textColor();
        colour.setAlphaF(alpha);
        return colour;
    };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(m_view->layoutManager()->style().font);
    for (const qsizetype line : lines) {
        const QRectF rect = rectOfEllipsis(line);
        painter->setPen(Qt::NoPen);
        painter->setBrush(shade(ground));
        painter->drawRoundedRect(rect, radius, radius);
        painter->setPen(shade(ink));
        painter->drawText(rect, Qt::AlignCenter, ellipsis);
    }
    painter->restore();
}
