#include "platform/RegularExpression.h"

#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QRandomGenerator>

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

TEST(RegularExpression, TheStartOfAPatternIsSeen)
{
    const std::pair<QString, QString> plain[] = {
        {u"ab|c"_s, u"ac"_s},
        {u"\\b[0-2]++(?:\\.[0-9]++)?+|#(?:[0-9A-F]{3,4})(?=\\s*[;}])"_s, u"#012"_s},
        {u"\\[\\[(?:[^\\[\\]\\r\\n]++)*+\\]\\]|&(?:[a-z]+|#[0-9]+);"_s, u"&["_s},
        {u"a?b{0,2}(?:[cd-]|e)*f"_s, u"-abcdef"_s},
        {u"(?:0[xX]|[ab]+?)\\)(?!\\w)"_s, u"0ab"_s},
    };
    for (const auto &[pattern, characters] : plain) {
        const auto start = platform::startOfPattern(pattern);
        ASSERT_TRUE(start) << pattern.toStdString();
        QString found;
        for (char16_t unit = 0; unit < start->size(); ++unit) {
            if (start->test(unit))
                found += QChar(unit);
        }
        EXPECT_EQ(found, characters) << pattern.toStdString();
    }
    for (const QString &pattern :
         {u""_s,      u"a*"_s,    u"a|"_s,        u"(?:a?)"_s,  u"(?:a?)b?"_s, u"."_s,
          u"\\d"_s,   u"[^a]"_s,  u"[\\w]"_s,     u"[a[b]]"_s,  u"[a&&b]"_s,   u"é"_s,
          u"[a-é]"_s, u"(?i)a"_s, u"a|(?i)b"_s,   u"x(?i:b)"_s, u"(?<!a)b"_s,  u"(?m)^a"_s,
          u"^a"_s,    u"(a)"_s,   u"a\\Q|b\\E"_s, u"a\\Gb"_s,   u"\\"_s,       u"[a"_s,
          u"(?:a"_s,  u"a)"_s})
        EXPECT_FALSE(platform::startOfPattern(pattern)) << pattern.toStdString();
}

// The empty look-ahead has ICU walk over all of the text.
TEST(RegularExpression, PassingByWhatNoMatchBeginsWithLosesNone)
{
    const QString patterns[] = {
        u"\\b[0-9]++(?:\\.[0-9]++)?+(?:(?=[a-z])(?:px|em)\\b|%(?=\\s*[;}]))|#(?:[0-9a-f]{3,4})(?=\\s*[;}])"_s,
        u"\\[\\[(?:[^\\[\\]\\r\\n]++|\\[[^\\[\\]]*+\\])*+\\]\\]|&(?:[a-z]+|#[0-9]+);"_s,
        u"a?b{0,2}(?:[pm-]|e)*x"_s,
        u"\\b(?:0[xX][0-9a-f]+|[0-9][0-9_]*(?:\\.[0-9]+)?)(?!\\w)"_s,
        u"\\$(?:[a-z]\\w*|\\{[^}\\n]*\\})"_s,
    };
    const QStringView letters = u"ab012pxem#%;}{[]&.$-_ \né";
    QRandomGenerator random(7);
    for (const QString &pattern : patterns) {
        ASSERT_TRUE(platform::startOfPattern(pattern)) << pattern.toStdString();
        for (int round = 0; round < 500; ++round) {
            QString text;
            while (text.size() < 60)
                text += letters[random.bounded(int(letters.size()))];
            EXPECT_EQ(matches(pattern, text), matches(u"(?=)(?:"_s + pattern + u')', text))
                << pattern.toStdString() << " in " << text.toStdString();
        }
    }
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
