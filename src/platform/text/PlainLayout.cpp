#include "platform/text/PlainLayout.h"

#include <algorithm>

namespace platform {

std::unique_ptr<PlainLayout> PlainLayout::of(const QString &text, const LineStyle &style)
{
    if (!style.plainGlyphs || !style.plainGlyphs->know(text))
        return nullptr;
    std::vector<qreal> places = style.plainGlyphs->placesIn(text, style.tabInterval);
    if (style.wrapWidth > 0 && places.back() > style.wrapWidth)
        return nullptr;
    return std::unique_ptr<PlainLayout>(new PlainLayout(text, std::move(places), style));
}

PlainLayout::PlainLayout(const QString &text, std::vector<qreal> places, const LineStyle &style)
    : m_text(text), m_places(std::move(places)), m_glyphs(style.plainGlyphs),
      m_baseline(style.baseline)
{
}

qsizetype PlainLayout::offsetAt(qreal x, qsizetype) const
{
    const auto right = std::ranges::lower_bound(m_places, x);
    if (right == m_places.begin() || right == m_places.end())
        return right == m_places.begin() ? 0 : length();
    const bool isNearer = *right - x <= x - *std::prev(right);
    return right - m_places.begin() - (isNearer ? 0 : 1);
}

TextRange PlainLayout::clusterAt(qreal x, qsizetype row) const
{
    if (x < 0 || x >= width())
        return {offsetAt(x, row), 0};
    return {std::ranges::upper_bound(m_places, x) - m_places.begin() - 1, 1};
}

std::vector<std::pair<qreal, qreal>> PlainLayout::spansOf(TextRange offsets, qsizetype row) const
{
    const TextRange part = rowRange(row).intersected(offsets);
    if (part.isEmpty())
        return {};
    return {{xOf(part.location, row), xOf(part.end(), row)}};
}

QList<QGlyphRun> PlainLayout::glyphsOf(TextRange offsets, qsizetype) const
{
    QList<quint32> indexes;
    QList<QPointF> positions;
    indexes.reserve(offsets.length);
    positions.reserve(offsets.length);
    for (qsizetype i = offsets.location; i < offsets.end(); ++i) {
        if (m_text[i] == u'\t')
            continue;
        indexes.push_back(m_glyphs->glyphOf(m_text[i]));
        positions.push_back({m_places[size_t(i)], m_baseline});
    }
    QGlyphRun run;
    run.setRawFont(m_glyphs->font());
    run.setGlyphIndexes(indexes);
    run.setPositions(positions);
    return {run};
}

} // namespace platform
