#include "editor/colouring/StringPattern.h"

#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using platform::TextRange;
using enum StringPattern::Lines;

namespace {

std::vector<TextRange> matchesOf(const QString &pattern, const QString &text)
{
    std::vector<TextRange> ranges;
    const QStringView view = text;
    for (const QStringView match : platform::RegularExpression::compile(pattern)->matches(view)) {
        if (!match.isEmpty())
            ranges.push_back({match.utf16() - view.utf16(), match.size()});
    }
    return ranges;
}

} // namespace

TEST(StringPattern, FindsWhatItsPatternFinds)
{
    const QStringList parts = {u"\""_s,
                               u"\""_s,
                               u"'"_s,
                               u"\\"_s,
                               u"\\"_s,
                               u"\\\""_s,
                               u"\n"_s,
                               u"\r"_s,
                               u"\r\n"_s,
                               u"\v"_s,
                               u"\f"_s,
                               u"\u0085"_s,
                               u"\u2028"_s,
                               u"\u2029"_s,
                               u"a"_s,
                               u" "_s,
                               u"_"_s,
                               u"é"_s,
                               u"\u0301"_s,
                               u"\u200C"_s,
                               u"😀"_s,
                               u"\U00010400"_s,
                               QString(QChar(0xD801)),
                               QString(QChar(0xDC00)),
                               u"="_s,
                               QString(QChar(0))};
    std::mt19937 random(1);
    for (const QString &delimiter :
         {u"\""_s, u"'"_s, u"a"_s, u" "_s, u"="_s, u"\""_s + u"'"_s, u"['\"]"_s, u"."_s, u"|"_s}) {
        for (const auto lines : {One, BehindBackslash, Many}) {
            StringPattern pattern(delimiter, lines);
            for (int i = 0; i < 1500; ++i) {
                QString text;
                for (unsigned left = random() % 25; left > 0; --left)
                    text += parts[qsizetype(random() % unsigned(parts.size()))];
                ASSERT_EQ(pattern.matches(text), matchesOf(pattern.pattern(), text))
                    << pattern.pattern().toStdString() << " in " << text.toStdString();
            }
        }
    }
}

TEST(StringPattern, TellsWordsAsPatternsDo)
{
    QString all;
    for (char32_t character = 1; character <= 0x10FFFF; ++character) {
        if (character < 0xD800 || character > 0xDFFF)
            all += QString::fromUcs4(&character, 1);
    }
    const QStringView view = all;
    const auto words = platform::RegularExpression::compile(u"\\w"_s)->matches(view);
    auto word = words.begin();
    for (qsizetype at = 0; at < all.size();) {
        const bool isPair = view[at].isHighSurrogate();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(view[at], view[at + 1]) : char32_t(view[at].unicode());
        const bool isWord = word != words.end() && word->utf16() == view.utf16() + at;
        ASSERT_EQ(platform::isWordCharacter(character), isWord) << uint(character);
        word += isWord ? 1 : 0;
        at += isPair ? 2 : 1;
    }
}

TEST(StringPattern, NoTextMakesItSlow)
{
    StringPattern pattern(u"\""_s, Many);
    EXPECT_TRUE(pattern.matches(u" \\\""_s.repeated(1'000'000)).empty()); // all of them escaped
    EXPECT_TRUE(StringPattern(QString(), Many).matches(u" ''"_s).empty());
}
