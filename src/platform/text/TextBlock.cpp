#include "platform/text/TextBlock.h"

#include "platform/TextEncoding.h"
#include <QStringDecoder>

namespace platform {

namespace {

constexpr char16_t cr = u'\r';
constexpr char16_t lf = u'\n';

// Of `units`, the line ends that are complete within the first `count`, which `Sum` can hold.
template <class Sum = qint32, class Unit>
Sum countLineEnds(const Unit *units, qsizetype count, qsizetype length)
{
    Sum ends = 0;
    for (qsizetype i = 0; i < count; ++i)
        ends = Sum(ends + endsLine(units[i]));
    const qsizetype pairs = qMin(count, length - 1);
    for (qsizetype i = 0; i < pairs; ++i)
        ends = Sum(ends - (int(units[i] == cr) & int(units[i + 1] == lf)));
    return ends;
}

// Moves the offset on by whole strides, as long as `left` line ends are not behind it. Sums as wide
// as the units make it four times as fast.
template <qsizetype stride, class Unit>
void skipLineEnds(const Unit *units, qsizetype length, qsizetype &offset, qsizetype &left)
{
    while (offset + stride < length) {
        const Unit ends = countLineEnds<Unit>(units + offset, stride, length - offset);
        if (ends >= left)
            return;
        left -= ends;
        offset += stride;
    }
}

bool fitsOneByte(QStringView text)
{
    char16_t all = 0;
    for (const char16_t unit : std::u16string_view(text.utf16(), size_t(text.size())))
        all |= unit;
    return all < 0x100;
}

bool isAscii(QByteArrayView bytes)
{
    uchar all = 0;
    for (const char byte : bytes)
        all |= uchar(byte);
    return all < 0x80;
}

bool isPair(QStringView text, qsizetype second)
{
    return (text[second - 1] == cr && text[second] == lf) ||
           (text[second - 1].isHighSurrogate() && text[second].isLowSurrogate());
}

bool startsCharacter(QByteArrayView bytes, qsizetype index)
{
    return (uchar(bytes[index]) & 0xC0) != 0x80 &&
           !(bytes[index - 1] == '\r' && bytes[index] == '\n');
}

} // namespace

TextBlock::TextBlock(QStringView text) : m_length(qint32(text.size())), m_wide(!fitsOneByte(text))
{
    if (m_wide) {
        m_units = QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    } else {
        m_units = QByteArray(text.size(), Qt::Uninitialized);
        std::copy_n(text.utf16(), text.size(), reinterpret_cast<uchar *>(m_units.data()));
    }
    m_lineEnds = qint32(lineEndsBefore(m_length));
}

TextBlock::TextBlock(QByteArrayView ascii)
    : m_units(ascii.toByteArray()), m_length(qint32(ascii.size()))
{
    m_lineEnds = qint32(lineEndsBefore(m_length));
}

std::vector<TextBlock> TextBlock::cut(QStringView text, qsizetype limit)
{
    const qsizetype count = (text.size() + limit - 1) / limit;
    std::vector<TextBlock> blocks;
    blocks.reserve(size_t(count));
    qsizetype start = 0;
    for (qsizetype i = 1; i <= count; ++i) {
        qsizetype end = qMax(start, text.size() / count * i + qMin(i, text.size() % count));
        if (end > start && end < text.size() && isPair(text, end))
            ++end;
        if (end > start)
            blocks.push_back(TextBlock(text.sliced(start, end - start)));
        start = end;
    }
    return blocks;
}

std::optional<std::vector<TextBlock>> TextBlock::cutUtf8(QByteArrayView bytes, qsizetype limit)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless |
                                                     QStringConverter::Flag::ConvertInitialBom);
    QString decoded; // kept for its memory
    std::vector<TextBlock> blocks;
    blocks.reserve(size_t(bytes.size() / limit + 1));
    for (qsizetype start = 0; start < bytes.size();) {
        qsizetype end = qMin(start + limit, bytes.size());
        while (end < bytes.size() && !startsCharacter(bytes, end))
            ++end;
        const QByteArrayView slice = bytes.sliced(start, end - start);
        if (isAscii(slice)) {
            blocks.push_back(TextBlock(slice));
        } else {
            decoded.resize(qMax(decoded.size(), decoder.requiredSpace(slice.size())));
            const QChar *last = decoder.appendToBuffer(decoded.data(), slice);
            if (decoder.hasError())
                return std::nullopt;
            blocks.push_back(TextBlock(QStringView(decoded.constData(), last)));
        }
        start = end;
    }
    return blocks;
}

void TextBlock::appendTo(QString &text, qsizetype offset, qsizetype length) const
{
    if (m_wide)
        text +=
            QStringView(reinterpret_cast<const char16_t *>(m_units.constData()) + offset, length);
    else
        text += QLatin1StringView(m_units.constData() + offset, length);
}

std::optional<QByteArray> TextBlock::utf8() const
{
    if (!m_wide && isAscii(m_units))
        return m_units;
    QString text;
    appendTo(text, 0, m_length);
    return encodeUtf8(text);
}

qsizetype TextBlock::lineEndsBefore(qsizetype offset) const
{
    return visit([offset](const auto *units, qsizetype length) {
        return countLineEnds(units, offset, length);
    });
}

qsizetype TextBlock::offsetAfterLineEnd(qsizetype index) const
{
    return visit([index](const auto *units, qsizetype length) {
        qsizetype offset = 0;
        qsizetype left = index + 1;
        skipLineEnds<128>(units, length, offset, left);
        skipLineEnds<16>(units, length, offset, left);
        for (; left > 0; ++offset)
            left -= countLineEnds(units + offset, 1, length - offset);
        return offset;
    });
}

} // namespace platform
