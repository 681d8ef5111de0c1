#include "platform/TextEncoding.h"

#include <array>
#include <QStringDecoder>
#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

namespace platform {

namespace {

struct Mark
{
    QByteArrayView bytes;
    const char *encoding;
};

// The mark of UTF-32LE begins with that of UTF-16LE.
constexpr std::array<Mark, 5> marks = {{
    {"\xEF\xBB\xBF", "UTF-8"},
    {QByteArrayView("\xFF\xFE\0\0", 4), "UTF-32LE"},
    {QByteArrayView("\0\0\xFE\xFF", 4), "UTF-32BE"},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
}};

constexpr const char *fallback = "windows-1252";
constexpr qsizetype largestText = 0x3FFF'FFFE;

using Detector = std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)>;
using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

enum class IllFormed { Refuse, Replace };

// Nullopt for ill-formed bytes that are refused, and for more text than ICU counts.
std::optional<QString> decode(QByteArrayView bytes, const char *encoding, IllFormed illFormed)
{
    if (bytes.size() > largestText)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const Converter converter(ucnv_open(encoding, &status), &ucnv_close);
    if (illFormed == IllFormed::Refuse)
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                            &status);
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const auto length =
        ucnv_toUChars(converter.get(), reinterpret_cast<UChar *>(text.data()), int32_t(text.size()),
                      bytes.data(), int32_t(bytes.size()), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    text.resize(length);
    return text;
}

// EBCDIC and unmarked UTF-16 and UTF-32 are what the detector sees in noise.
bool isPlausible(const char *encoding)
{
    return qstrncmp(encoding, "IBM", 3) != 0 && qstrncmp(encoding, "UTF-", 4) != 0;
}

// The part that tells: the detector looks at a few kilobytes only, and ASCII says nothing.
QByteArrayView sample(const QByteArray &bytes)
{
    constexpr qsizetype context = 4096;
    constexpr qsizetype length = 65536;
    const auto telling =
        std::find_if(bytes.begin(), bytes.end(), [](uchar byte) { return byte > 0x7F; });
    const qsizetype start = qMax<qsizetype>(0, telling - bytes.begin() - context);
    return QByteArrayView(bytes).sliced(start, qMin(length, bytes.size() - start));
}

std::optional<DecodedText> guess(const QByteArray &bytes)
{
    UErrorCode status = U_ZERO_ERROR;
    const Detector detector(ucsdet_open(&status), &ucsdet_close);
    ucsdet_enableInputFilter(detector.get(), true); // markup tells nothing of the language
    const QByteArrayView part = sample(bytes);
    ucsdet_setText(detector.get(), part.data(), int32_t(part.size()), &status);
    int32_t count = 0;
    const UCharsetMatch **matches = ucsdet_detectAll(detector.get(), &count, &status);
    for (int32_t i = 0; U_SUCCESS(status) && i < count; ++i) {
        const char *name = ucsdet_getName(matches[i], &status);
        if (!isPlausible(name))
            continue;
        if (auto text = decode(bytes, name, IllFormed::Refuse))
            return DecodedText{std::move(*text), QString::fromLatin1(name)};
    }
    return std::nullopt;
}

} // namespace

DecodedText decodeText(const QByteArray &bytes)
{
    if (auto text = decodeUtf8(bytes))
        return {std::move(*text), QStringLiteral("UTF-8")};
    for (const Mark &mark : marks) {
        if (!bytes.startsWith(mark.bytes))
            continue;
        const bool keepsMark = qstrcmp(mark.encoding, "UTF-8") == 0;
        auto text = decode(QByteArrayView(bytes).sliced(keepsMark ? 0 : mark.bytes.size()),
                           mark.encoding, IllFormed::Replace);
        if (text)
            return {std::move(*text), QString::fromLatin1(mark.encoding)};
    }
    if (auto guessed = guess(bytes))
        return std::move(*guessed);
    return {decode(bytes, fallback, IllFormed::Replace).value_or(QString::fromLatin1(bytes)),
            QString::fromLatin1(fallback)};
}

std::optional<QString> decodeUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless |
                                                     QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

std::optional<QByteArray> encodeUtf8(const QString &text, Error *error)
{
    if (text.isValidUtf16())
        return text.toUtf8();
    qsizetype index = 0;
    const auto isPair = [&] {
        return text[index].isHighSurrogate() && index + 1 < text.size() &&
               text[index + 1].isLowSurrogate();
    };
    while (!text[index].isSurrogate() || isPair())
        index += text[index].isSurrogate() ? 2 : 1;
    fail(error, QStringLiteral("platform.textencoding"), int(index),
         QStringLiteral("The text cannot be written as UTF-8: half a character pair stands at "
                        "position %1.")
             .arg(index));
    return std::nullopt;
}

} // namespace platform
