#include "platform/Format.h"
#include "platform/Assert.h"

#include <gtest/gtest.h>
#include <limits>

using platform::format;

namespace {

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(Format, FillsEveryConversion)
{
    const struct
    {
        QString made;
        const char *expected;
    } cases[] = {
        {format(text("no conversion")), "no conversion"},
        {format(text("%@ and %@"), text("ä"), "ö"), "ä and ö"},
        {format(text("100%% of %@"), 5), "100% of 5"},
        {format(text("%d|%i|%ld|%lld|%zd|%jd"), -1, 2, -3L, 4LL, -5, 6), "-1|2|-3|4|-5|6"},
        {format(text("%u|%lu|%llu"), 1U, 2UL, std::numeric_limits<quint64>::max()),
         "1|2|18446744073709551615"},
        {format(text("%d"), std::numeric_limits<qint64>::min()), "-9223372036854775808"},
        {format(text("%x|%X|%#x|%o|%08lx"), 255, 255, 255, 8, 0xBEEF), "ff|FF|0xff|10|0000beef"},
        {format(text("%02hhx%02hhx"), char(-1), 0x101), "ff01"},
        {format(text("%hd|%hu"), 0x18000, 0x1FFFF), "-32768|65535"},
        {format(text("[%5d|%-5d|%05d|%+d]"), 42, 42, 42, 42), "[   42|42   |00042|+42]"},
        {format(text("%f|%.2f|%6.1f|%g|%e"), 0.5, 0.125, 3.14159, 1e20, 1.5),
         "0.500000|0.12|   3.1|1e+20|1.500000e+00"},
        {format(text("%@|%@"), 0.1, 1.0), "0.1|1"},
        {format(text("[%5@|%-5s|%.2s]"), text("ab"), "cd", "efg"), "[   ab|cd   |ef]"},
        {format(text("%C%C%c"), 0xE4, quint16(0x20AC), 'x'), "ä€x"},
        {format(text("%p"), reinterpret_cast<const void *>(quintptr(0xABC))), "0xabc"},
        {format(text("%@"), QStringList{text("a"), text("b")}), "(a, b)"},
        {format(text("%@"), true), "1"},
    };
    for (const auto &[made, expected] : cases)
        EXPECT_EQ(made, QString::fromUtf8(expected)) << made.toStdString();
}

TEST(Format, SurvivesWhatDoesNotFit)
{
    const struct
    {
        QString made;
        const char *expected;
    } cases[] = {
        {format(text("%@|%d|%@"), 1), "1|(null)|(null)"},
        {format(text("%@"), QString()), "(null)"},
        {format(text("%@"), 1, 2), "1"},
        {format(text("%@ %@"), "%@", "%n"), "%@ %n"},
        {format(text("%d|%f"), 1.9, 2), "1|2.000000"},
        {format(text("%x|%u|%lx"), -1, -1, -1), "ffffffff|4294967295|ffffffffffffffff"},
        {format(text("%d"), "seven"), "seven"},
        {format(text("%n %y 5% %"), 1), "%n %y 5% %"},
        {format(text("%.3d|%5.3d"), 7, 7), "007|  007"},
        {format(text("%@"), static_cast<const char *>(nullptr)), "(null)"},
        {format(text("%d"), 1e300), "9223372036854775807"},
        {format(text("%d"), -1e300), "-9223372036854775808"},
    };
    for (const auto &[made, expected] : cases)
        EXPECT_EQ(made, QString::fromUtf8(expected)) << made.toStdString();
    EXPECT_EQ(format(text("%999d"), 1).size(), 999);
    EXPECT_EQ(format(text("%.400f"), 1e300).size(), 301 + 1 + 400);
    EXPECT_EQ(format(text("%999@"), "x").size(), 999);
}

TEST(Assert, ThrowsItsExactText)
{
    try {
        PLATFORM_ASSERT(1 > 2, "File %@ not found!", "ä");
        FAIL();
    } catch (const platform::AssertionFailure &failure) {
        EXPECT_EQ(failure.text(), QStringLiteral("File ä not found!"));
    }
    EXPECT_NO_THROW(PLATFORM_ASSERT(true, "never"));
}
