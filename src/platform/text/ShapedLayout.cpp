#include "platform/text/ShapedLayout.h"

#include <algorithm>

namespace platform {

namespace {

constexpr qreal unlimited = 1 << 24; // pixels; beyond, fixed-point places overflow
constexpr char16_t firstRightToLeft = 0x590;

} // namespace

ShapedLayout::ShapedLayout(const QString &text, const LineStyle &style)
    : m_layout(text, style.font),
      m_hasRightToLeft(
          std::ranges::any_of(text, [](QChar c) { return c.unicode() >= firstRightToLeft; }))
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTabStopDistance(style.tabInterval);
    option.setWrapMode(style.wrapWidth > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                           : QTextOption::NoWrap);
    m_layout.setCacheEnabled(true);
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    qreal top = 0;
    for (QTextLine row = m_layout.createLine(); row.isValid(); row = m_layout.createLine()) {
        row.setLineWidth(style.wrapWidth > 0 ? style.wrapWidth : unlimited);
        row.setPosition({0, top + style.baseline - row.ascent()});
        m_width = qMax(m_width, row.cursorToX(row.textStart() + row.textLength()));
        top += style.rowHeight;
    }
    m_layout.endLayout();
}

qsizetype ShapedLayout::rowAt(qsizetype offset, TextAffinity affinity) const
{
    const QTextLine row = m_layout.lineForTextPosition(int(offset));
    if (!row.isValid())
        return rowCount() - 1;
    const bool isBefore =
        affinity == TextAffinity::Upstream && row.lineNumber() > 0 && row.textStart() == offset;
    return row.lineNumber() - (isBefore ? 1 : 0);
}

TextRange ShapedLayout::rowRange(qsizetype row) const
{
    return {line(row).textStart(), line(row).textLength()};
}

qreal ShapedLayout::xOf(qsizetype offset, qsizetype row) const
{
    return line(row).cursorToX(int(offset));
}

qsizetype ShapedLayout::offsetAt(qreal x, qsizetype row) const
{
    return line(row).xToCursor(x);
}

TextRange ShapedLayout::clusterAt(qreal x, qsizetype row) const
{
    const QTextLine at = line(row);
    if (x < at.x() || x >= at.x() + at.horizontalAdvance() || at.textLength() == 0)
        return {offsetAt(x, row), 0};
    const qsizetype offset = at.xToCursor(x, QTextLine::CursorOnCharacter);
    return TextRange::between(offset, nextCluster(offset));
}

qsizetype ShapedLayout::leftOf(qsizetype offset) const
{
    return m_layout.leftCursorPosition(int(offset));
}

qsizetype ShapedLayout::rightOf(qsizetype offset) const
{
    return m_layout.rightCursorPosition(int(offset));
}

qsizetype ShapedLayout::nextCluster(qsizetype offset) const
{
    return m_layout.nextCursorPosition(int(offset));
}

std::vector<std::pair<qreal, qreal>> ShapedLayout::spansOf(TextRange offsets, qsizetype row) const
{
    const TextRange part = rowRange(row).intersected(offsets);
    std::vector<std::pair<qreal, qreal>> spans;
    if (part.isEmpty())
        return spans;
    if (!m_hasRightToLeft)
        return {{xOf(part.location, row), xOf(part.end(), row)}};
    for (qsizetype at = part.location; at < part.end(); at = nextCluster(at)) {
        const qreal leading = line(row).cursorToX(int(at));
        const qreal trailing = line(row).cursorToX(int(at), QTextLine::Trailing);
        spans.emplace_back(qMin(leading, trailing), qMax(leading, trailing));
    }
    std::ranges::sort(spans);
    std::vector<std::pair<qreal, qreal>> joined;
    for (const auto &span : spans) {
        if (!joined.empty() && span.first <= joined.back().second + 0.5)
            joined.back().second = qMax(joined.back().second, span.second);
        else
            joined.push_back(span);
    }
    return joined;
}

QList<QGlyphRun> ShapedLayout::glyphsOf(TextRange offsets, qsizetype row) const
{
    return line(row).glyphRuns(int(offsets.location), int(offsets.length));
}

} // namespace platform
