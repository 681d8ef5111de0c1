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
