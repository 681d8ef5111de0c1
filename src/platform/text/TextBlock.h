#pragma once

#include <optional>
#include <QByteArray>
#include <QString>
#include <vector>

namespace platform {

/// Whether a line ends with the unit; CR LF together are one end. Without branches, so that whole
/// blocks are counted many units at a time.
constexpr bool endsLine(char16_t unit)
{
    return int(unit == u'\n') | int(unit == u'\r') | int(unit == 0x85) | int((unit | 1) == 0x2029);
}
constexpr bool endsLine(uchar unit)
{
    return int(unit == '\n') | int(unit == '\r') | int(unit == 0x85);
}

/// Lengths and line ends add up, since no block parts a CR from its LF.
struct TextMeasure
{
    qsizetype length = 0; ///< In UTF-16 units.
    qsizetype lineEnds = 0;

    friend TextMeasure operator+(TextMeasure a, TextMeasure b)
    {
        return {a.length + b.length, a.lineEnds + b.lineEnds};
    }
};

/// A short piece of a text storage: an immutable value, never empty. One byte a unit (Latin-1) when
/// all units are below U+0100, else two. Blocks that follow each other part neither CR LF nor a
/// surrogate pair.
///
/// A line ends with LF, CR, CR LF, U+0085, U+2028 or U+2029.
class TextBlock
{
public:
    using Summary = TextMeasure;

    /// The text cut into blocks of about equal length, at most `limit` units, one more where a pair
    /// would be parted.
    static std::vector<TextBlock> cut(QStringView text, qsizetype limit);

    /// The same straight from UTF-8, cut about every `limit` bytes; ASCII is copied as it is.
    /// Nullopt for ill-formed bytes.
    static std::optional<std::vector<TextBlock>> cutUtf8(QByteArrayView bytes, qsizetype limit);

    Summary summary() const { return {m_length, m_lineEnds}; }

    /// Calls `function(units, length)`; the units are `const uchar *` or `const char16_t *`.
    template <class Function>
    decltype(auto) visit(Function function) const
    {
        return m_wide ? function(reinterpret_cast<const char16_t *>(m_units.constData()), m_length)
                      : function(reinterpret_cast<const uchar *>(m_units.constData()), m_length);
    }

    /// `length` units from `offset` on, put behind `text`.
    void appendTo(QString &text, qsizetype offset, qsizetype length) const;

    /// Nullopt where a lone surrogate stands.
    std::optional<QByteArray> utf8() const;

    /// Line ends that are complete before `offset`, which is at most the length.
    qsizetype lineEndsBefore(qsizetype offset) const;

    /// The offset behind the line end that has `index` others before it in this block.
    qsizetype offsetAfterLineEnd(qsizetype index) const;

private:
    explicit TextBlock(QStringView text);
    explicit TextBlock(QByteArrayView ascii);

    QByteArray m_units;
    qint32 m_length = 0;
    qint32 m_lineEnds = 0;
    bool m_wide = false;
};

} // namespace platform
