#include "platform/text/PlainGlyphs.h"

#include "platform/text/ShapedLayout.h"

#include <cmath>
#include <QFontMetricsF>

namespace platform {

namespace {

constexpr qreal precision = 1.0 / 64; // of places in a font

bool hasOwnGlyph(size_t character)
{
    constexpr size_t softHyphen = 0xAD;
    return (character >= u' ' && character < 0x7F) || (character > 0xA0 && character != softHyphen);
}

bool isNear(const QPointF &a, const QPointF &b)
{
    return std::abs(a.x() - b.x()) < precision && std::abs(a.y() - b.y()) < precision;
}

} // namespace

PlainGlyphs::PlainGlyphs(const QFont &font)
    : m_font(QRawFont::fromFont(font)), m_advance(QFontMetricsF(font).horizontalAdvance(u' '))
{
    for (size_t character = 0; character < characters; ++character) {
        if (hasOwnGlyph(character))
            m_glyphs[character] = m_font.glyphIndexesForString(QChar(char16_t(character))).value(0);
    }
}

// Tabs part what stands on their sides.
template <class Function>
bool PlainGlyphs::allNeighbours(QStringView text, Function function) const
{
    size_t before = characters;
    for (const QChar c : text) {
        const size_t character = c.unicode();
        const bool isTab = character == u'\t';
        if (!isTab && (character >= characters || m_glyphs[character] == 0))
            return false;
        if (!isTab && !function((before % characters) * characters + character))
            return false;
        before = isTab ? characters : character;
    }
    return true;
}

bool PlainGlyphs::know(QStringView text) const
{
    return allNeighbours(text, [this](size_t pair) { return m_neighbours[pair]; });
}

std::vector<qreal> PlainGlyphs::placesIn(QStringView text, qreal tabInterval) const
{
    std::vector<qreal> places;
    places.reserve(size_t(text.size()) + 1);
    qreal x = 0;
    for (const QChar c : text) {
        places.push_back(x);
        x = c == u'\t' ? (std::floor(x / tabInterval) + 1) * tabInterval : x + m_advance;
    }
    places.push_back(x);
    return places;
}

void PlainGlyphs::learn(QStringView text, const ShapedLayout &layout, qreal baseline)
{
    const auto isPlain = [](size_t) {
        return true;
    };
    if (layout.rowCount() > 1 || text.contains(u'\t') || !allNeighbours(text, isPlain))
        return;
    qsizetype at = 0;
    bool isAsExpected = std::abs(layout.width() - qreal(text.size()) * m_advance) < precision;
    for (const QGlyphRun &run : layout.glyphsOf({0, text.size()}, 0)) {
        const QList<quint32> indexes = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        isAsExpected &= run.rawFont() == m_font && !run.underline() && !run.strikeOut();
        for (qsizetype i = 0; isAsExpected && i < indexes.size(); ++i, ++at) {
            isAsExpected = at < text.size() && indexes[i] == glyphOf(text[at]) &&
                           isNear(positions[i], {qreal(at) * m_advance, baseline});
        }
    }
    if (!isAsExpected || at != text.size())
        return m_glyphs.fill(0);
    allNeighbours(text, [this](size_t pair) {
        m_neighbours.set(pair);
        return true;
    });
}

} // namespace platform
