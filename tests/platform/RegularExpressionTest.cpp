#include "platform/RegularExpression.h"

#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using platform::RegularExpression;

namespace {

QStringList matches(const QString &pattern, const QString &text)
{
    auto expression = RegularExpression::compile(pattern);
    EXPECT_TRUE(expression) << pattern.toStdString();
    QStringList found;
    for (const QStringView match : expression->matches(text))
        found += match.toString();
    return found;
}

} // namespace

TEST(RegularExpression, GivesAllMatchesInOrder)
{
    EXPECT_EQ(matches(u"[a-z]+"_s, u"one, two;THREE four"_s),
              (QStringList{u"one"_s, u"two"_s, u"four"_s}));
    EXPECT_EQ(matches(u"^."_s, u"ab\ncd"_s), QStringList{u"a"_s});
    EXPECT_EQ(matches(u"(?m)^."_s, u"ab\ncd"_s), (QStringList{u"a"_s, u"c"_s}));
    EXPECT_EQ(matches(u"a*+b"_s, u"aab 😀 ab"_s), (QStringList{u"aab"_s, u"ab"_s}));
    EXPECT_EQ(matches(u"x*"_s, QString()), QStringList{u""_s});
}

TEST(RegularExpression, MatchesAreViewsIntoTheText)
{
    const QString text = u"äöü key = value"_s;
    auto expression = RegularExpression::compile(u"key"_s);
    const auto found = expression->matches(text);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().data() - QStringView(text).data(), 4);
}

TEST(RegularExpression, ABrokenPatternSaysWhereAndWhy)
{
    for (const QString &pattern : {u"("_s, u"[a"_s, u"*"_s, u"(?<=a+)b"_s, u"\\"_s}) {
        platform::Error error;
        EXPECT_FALSE(RegularExpression::compile(pattern, &error)) << pattern.toStdString();
        EXPECT_TRUE(error.description.contains(u" at line "_s)) << error.description.toStdString();
    }
}

TEST(RegularExpression, ASearchWithoutEndIsStopped)
{
    auto expression = RegularExpression::compile(u"start|(a+)+b"_s);
    QElapsedTimer timer;
    timer.start();
    const QString text = u"start "_s + QString(60, u'a');
    EXPECT_EQ(expression->matches(text).size(), 1U);
    EXPECT_LT(timer.elapsed(), 20'000);
    EXPECT_EQ(expression->matches(u"aab"_s).size(), 1U);
}
