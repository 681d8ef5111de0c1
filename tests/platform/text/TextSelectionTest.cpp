#include "platform/text/TextSelection.h"
#include "platform/text/TextBoundaries.h"
#include "RandomText.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

// "a-c" from a to c, "c-a" with the caret in front, "5" a caret; "*" behind the main one.
QString described(const TextSelections &selections)
{
    QStringList all;
    for (const TextSelection &selection : selections.all()) {
        const QString caret = QString::number(selection.caret);
        all << (selection.isEmpty() ? caret : QString::number(selection.anchor) + u'-' + caret) +
                   (selection == selections.main() ? u"*"_s : u""_s);
    }
    return all.join(u' ');
}

TextSelections made(const std::vector<std::pair<int, int>> &places, size_t main)
{
    std::vector<TextSelection> all;
    all.reserve(places.size());
    for (const auto &[anchor, caret] : places)
        all.push_back({anchor, caret});
    return TextSelections(all, main);
}

} // namespace

TEST(TextSelectionTest, SelectionsAreOrderedAndApart)
{
    const struct
    {
        std::vector<std::pair<int, int>> places;
        size_t main;
        QString expected;
    } cases[] = {
        {{}, 0, u"0*"_s},
        {{{7, 9}, {1, 3}}, 0, u"1-3 7-9*"_s},
        {{{1, 5}, {4, 8}}, 1, u"1-8*"_s},
        {{{5, 1}, {8, 4}}, 0, u"8-1*"_s},
        {{{1, 5}, {8, 4}}, 0, u"1-8*"_s},
        {{{1, 3}, {3, 6}}, 0, u"1-3* 3-6"_s}, // nothing is in both
        {{{1, 3}, {3, 3}, {3, 6}}, 1, u"1-3* 3-6"_s},
        {{{4, 4}, {4, 4}, {2, 2}}, 0, u"2 4*"_s},
        {{{9, 0}, {3, 4}, {5, 5}}, 2, u"9-0*"_s},
    };
    for (const auto &c : cases)
        EXPECT_EQ(described(made(c.places, c.main)), c.expected);
}

TEST(TextSelectionTest, FollowsEditsOfOthers)
{
    const TextSelections selections = made({{2, 5}, {8, 8}, {14, 10}}, 1);
    const struct
    {
        TextRange range; // of the new text
        int change;
        QString expected;
    } cases[] = {
        {{0, 3}, 3, u"5-8 11* 17-13"_s},
        {{2, 3}, 3, u"5-8 11* 17-13"_s}, // at the start of a selection: stays out of it
        {{5, 3}, 3, u"2-5 11* 17-13"_s}, // and at its end
        {{8, 3}, 3, u"2-5 8* 17-13"_s},
        {{20, 3}, 3, u"2-5 8* 14-10"_s},
        {{3, 0}, -1, u"2-4 7* 13-9"_s},
        {{0, 0}, -20, u"0*"_s},
        {{4, 2}, -6, u"2-5 8-6*"_s}, // what lay beyond the new text goes to its end
    };
    for (const auto &c : cases) {
        TextSelections moved = selections;
        moved.textDidChange(c.range, c.change);
        EXPECT_EQ(described(moved), c.expected) << c.range.location << " " << c.change;
    }
    EXPECT_EQ(described(selections.within(9)), u"2-5 8* 9"_s);
}

TEST(TextBoundariesTest, ClustersAreWhatIsSeenAsOneCharacter)
{
    // Each string is one cluster; the number is what Backspace leaves of it.
    const struct
    {
        QString cluster;
        int left;
    } cases[] = {
        {u"a"_s, 0},
        {u"\r\n"_s, 0},
        {u"\u2029"_s, 0},
        {u"e\u0301"_s, 1},
        {u"e\u0301\u0323"_s, 2},
        {u"\u0915\u094D"_s, 1},
        {u"😀"_s, 0},
        {u"👍🏽"_s, 0},
        {u"👩‍👩‍👧"_s, 0},
        {u"🇩🇪"_s, 0},
        {u"1\uFE0F\u20E3"_s, 0},
        {u"❤\uFE0F"_s, 0},
        {QString(QChar(0xD800)), 0},
        {u"e"_s + QString(300, QChar(0x301)), 300},
    };
    QString all;
    for (const auto &c : cases)
        all += c.cluster;
    TextStorage storage(7);
    storage.setString(all);
    qsizetype at = 0;
    for (const auto &c : cases) {
        const qsizetype end = at + c.cluster.size();
        EXPECT_EQ(nextCluster(storage, at), end) << at;
        EXPECT_EQ(previousCluster(storage, end), at) << at;
        EXPECT_EQ(startOfBackspace(storage, end), at + c.left) << at;
        at = end;
    }
    EXPECT_EQ(nextCluster(storage, at), at);
    EXPECT_EQ(previousCluster(storage, 0), 0);
}

TEST(TextBoundariesTest, WordsAreReachedFromBothSides)
{
    // "|": where a caret stops, besides where it comes from.
    for (const QString &stops : {u"foo |bar_1|.|b2  |!= |x|\r\n|  |end"_s,
                                 u"<|div |class|=\"|é\u0301te|\">"_s, u"日本|カタ|ひら |abc"_s}) {
        TextStorage storage;
        storage.setString(QString(stops).remove(u'|'));
        QString left = storage.string();
        for (qsizetype at = storage.length(); at > 0;)
            left.insert(at = previousWord(storage, at), u'|');
        EXPECT_EQ(left, u'|' + stops);
        QString right;
        for (qsizetype at = 0, from = 0; at < storage.length(); from = at) {
            at = nextWord(storage, at);
            right += storage.substring(TextRange::between(from, at)) + u'|';
        }
        EXPECT_EQ(right, stops + u'|');
    }
    TextStorage storage;
    storage.setString(u"foo bar_1.b2  !=\r\n  end"_s);
    const auto word = [&storage](qsizetype index) {
        return storage.substring(wordRange(storage, index));
    };
    EXPECT_EQ(word(0), u"foo"_s);
    EXPECT_EQ(word(2), u"foo"_s);
    EXPECT_EQ(word(3), u" "_s);
    EXPECT_EQ(word(9), u"."_s);
    EXPECT_EQ(word(16), u"!="_s); // at the line's end: what stands before it
    EXPECT_EQ(word(23), u"end"_s);
}

TEST(TextBoundariesTest, ReturnPutsInWhatEndsTheFirstLine)
{
    const QString cases[][2] = {
        {u""_s, u"\n"_s},
        {u"a"_s, u"\n"_s},
        {u"a\r\nb\n"_s, u"\r\n"_s},
        {u"\rb\n"_s, u"\r"_s},
        {u"a\u2028b\n"_s, u"\u2028"_s},
    };
    for (const auto &[text, end] : cases) {
        TextStorage storage;
        storage.setString(text);
        EXPECT_EQ(lineEnding(storage), end);
    }
}

TEST(TextBoundariesTest, StepsForwardAndBackwardMeetInAnyText)
{
    support::RandomText random(11);
    for (int round = 0; round < 50; ++round) {
        TextStorage storage(5);
        storage.setString(random.text(60));
        std::vector<qsizetype> forward{0};
        while (forward.back() < storage.length()) {
            const qsizetype next = nextCluster(storage, forward.back());
            ASSERT_GT(next, forward.back());
            forward.push_back(next);
        }
        for (size_t i = forward.size() - 1; i > 0; --i) {
            ASSERT_EQ(previousCluster(storage, forward[i]), forward[i - 1]) << round;
            const qsizetype word = previousWord(storage, forward[i]);
            ASSERT_LT(word, forward[i]);
            ASSERT_TRUE(std::ranges::binary_search(forward, word));
            ASSERT_GT(nextWord(storage, forward[i - 1]), forward[i - 1]);
        }
    }
}
