#include "platform/TextEncoding.h"

#include <gtest/gtest.h>

using platform::decodeText;
using platform::decodeUtf8;
using platform::encodeUtf8;
using platform::Error;

namespace {

struct Case
{
    QByteArray bytes;
    QString text;
    const char *encoding;
};

const QByteArray germanInLatin1 =
    "<html><head><title>Gr\xFC\xDF Gott</title></head><body><p>Die sch\xF6nen Dinge f\xFCr den "
    "Haushalt, wie neu und preiswert: K\xFC"
    "chenstuhl, T\xFCr und S\xE4ge.</p></body></html>";

} // namespace

TEST(TextEncoding, ReadsWhatTheMarkOrTheBytesSay)
{
    const Case cases[] = {
        {"", QStringLiteral(""), "UTF-8"},
        {"plain\r\n", QStringLiteral("plain\r\n"), "UTF-8"},
        {"\xC3\xA4", QStringLiteral("ä"), "UTF-8"},
        {"\xEF\xBB\xBFx", QStringLiteral("\uFEFFx"), "UTF-8"},
        {QByteArray("\xFF\xFEx\0\xE4\0", 6), QStringLiteral("xä"), "UTF-16LE"},
        {QByteArray("\xFE\xFF\0x\0\xE4", 6), QStringLiteral("xä"), "UTF-16BE"},
        {QByteArray("\xFF\xFE\0\0x\0\0\0", 8), QStringLiteral("x"), "UTF-32LE"},
        {QByteArray("\0\0\xFE\xFF\0\0\0x", 8), QStringLiteral("x"), "UTF-32BE"},
        {germanInLatin1, QString::fromLatin1(germanInLatin1), "ISO-8859-1"},
    };
    for (const Case &c : cases) {
        const auto decoded = decodeText(c.bytes);
        EXPECT_EQ(decoded.text, c.text) << c.bytes.toHex().toStdString();
        EXPECT_EQ(decoded.encodingName, QLatin1String(c.encoding));
        EXPECT_FALSE(decoded.text.isNull());
    }
}

TEST(TextEncoding, TakesAnyBytes)
{
    QByteArray every;
    for (int byte = 255; byte >= 0; --byte)
        every += char(byte);
    for (const QByteArray &bytes : {every, QByteArray("\xFF"), QByteArray("\xFF\xFE\xD8"),
                                    QByteArray("a\x81z"), QByteArray(100'000, '\xE4')})
        EXPECT_FALSE(decodeText(bytes).text.isEmpty());
    EXPECT_EQ(decodeText("caf\xE9").text, QStringLiteral("café"));
}

TEST(TextEncoding, StrictUtf8RefusesWhatIsIllFormed)
{
    for (const QByteArray &bytes : {QByteArray("\xC3"), QByteArray("\xC0\x80"), QByteArray("a\xFF"),
                                    QByteArray("\xED\xA0\x80"), QByteArray("\xF4\x90\x80\x80")})
        EXPECT_FALSE(decodeUtf8(bytes)) << bytes.toHex().toStdString();
    const QByteArray marked = "\xEF\xBB\xBF"
                              "a\xF0\x9F\x98\x80";
    EXPECT_EQ(encodeUtf8(*decodeUtf8(marked)), marked);
}

TEST(TextEncoding, HalfAPairIsNotWritten)
{
    const QString pair = QString::fromUtf8("\xF0\x9F\x98\x80");
    const struct
    {
        QString text;
        int index;
    } cases[] = {
        {pair + pair.left(1), 2}, {pair.right(1) + pair, 0}, {u'a' + pair.left(1) + u'b', 1}};
    for (const auto &[text, index] : cases) {
        Error error;
        EXPECT_FALSE(encodeUtf8(text, &error));
        EXPECT_EQ(error.code, index);
    }
}
