#pragma once

#include <array>
#include <bitset>
#include <QFont>
#include <QRawFont>
#include <vector>

namespace platform {

class ShapedLayout;

/// The glyphs of a font for texts that need no shaping: of Latin-1 characters that all are equally
/// wide, each with its own glyph. Which of them may stand side by side it learns from texts that
/// were shaped. When one came out otherwise, by a ligature say, it knows no text any more.
class PlainGlyphs
{
public:
    explicit PlainGlyphs(const QFont &font);

    const QRawFont &font() const { return m_font; }
    quint32 glyphOf(QChar character) const { return m_glyphs[character.unicode()]; }

    /// Whether shaping the text would add nothing.
    bool know(QStringView text) const;

    /// Left edge of each character, and the right one of the last, in pixels; tabs go to the next
    /// multiple of `tabInterval`.
    std::vector<qreal> placesIn(QStringView text, qreal tabInterval) const;

    /// From a text and how it was shaped.
    void learn(QStringView text, const ShapedLayout &layout, qreal baseline);

private:
    static constexpr size_t characters = 256;
    template <class Function>
    bool allNeighbours(QStringView text, Function function) const;

    QRawFont m_font;
    qreal m_advance;
    std::array<quint32, characters> m_glyphs{};        ///< 0: not plain.
    std::bitset<characters * characters> m_neighbours; ///< Seen side by side.
};

} // namespace platform
