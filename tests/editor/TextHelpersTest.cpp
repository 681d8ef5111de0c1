#include "editor/MGSMutableSubstring.h"
#include "editor/MGSStringExtensions.h"
#include "editor/MGSTextActions.h"
#include "editor/MGSTextStorageExtensions.h"
#include "platform/Assert.h"

#include "platform/text/RandomText.h"
#include <gtest/gtest.h>

using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;

namespace {

/// What the line functions should answer, by walking over the text.
struct NaiveLines
{
    explicit NaiveLines(const QString &text) : length(text.size())
    {
        for (qsizetype i = 0; i < text.size(); ++i) {
            const bool isCRLF = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
            if (!isCRLF && QStringLiteral("\n\r\u0085\u2028\u2029").contains(text[i])) {
                const bool isPair = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
                ends.push_back(isPair ? i - 1 : i);
                starts.push_back(i + 1);
            }
        }
        ends.push_back(length);
    }
    qsizetype row(qsizetype index) const
    {
        return std::ranges::upper_bound(starts, index) - starts.begin() - 1;
    }

    qsizetype length;
    std::vector<qsizetype> starts = {0};
    std::vector<qsizetype> ends; // of the contents
};

void expectSameLines(const TextStorage &text)
{
    const NaiveLines lines(text.string());
    const auto count = qsizetype(lines.starts.size());
    ASSERT_EQ(mgs_lineCount(text), count);
    for (qsizetype index = 0; index <= text.length(); ++index)
        ASSERT_EQ(mgs_rowOfCharacter(text, index), lines.row(index)) << index;
    for (qsizetype row = 0; row < count; ++row) {
        const qsizetype start = lines.starts[size_t(row)];
        const qsizetype end = lines.ends[size_t(row)];
        ASSERT_EQ(mgs_firstCharacterInRow(text, row), start);
        for (const qsizetype offset : {qsizetype(0), qsizetype(1), qsizetype(3), NotFound - 1})
            ASSERT_EQ(mgs_characterAtIndex(text, offset, row),
                      offset > end - start ? end : start + offset);
    }
}

TEST(TextStorageExtensions, RowsAgreeWithAWalkOverTheText)
{
    support::RandomText random(7);
    TextStorage text(16);
    for (int edit = 0; edit < 300; ++edit) {
        const TextRange range = random.range(text.length(), 12);
        text.replaceCharacters(range, random.text(16));
        expectSameLines(text);
    }
}

TEST(TextStorageExtensions, WhatDoesNotExistIsNotFound)
{
    TextStorage text;
    EXPECT_EQ(mgs_lineCount(text), 1);
    EXPECT_EQ(mgs_rowOfCharacter(text, 0), 0);
    text.setString(u"a\n");
    EXPECT_EQ(mgs_firstCharacterInRow(text, 1), 2);
    EXPECT_EQ(mgs_characterAtIndex(text, 5, 1), 2);
    for (const qsizetype beyond : {qsizetype(3), qsizetype(-1), NotFound}) {
        EXPECT_EQ(mgs_rowOfCharacter(text, beyond), NotFound);
        EXPECT_EQ(mgs_firstCharacterInRow(text, beyond), NotFound);
        EXPECT_EQ(mgs_characterAtIndex(text, 0, beyond), NotFound);
        EXPECT_FALSE(mgs_lineRangeForCharacterIndex(text, beyond).isFound());
    }
    EXPECT_EQ(mgs_lineRangeForCharacterIndex(text, 1), (TextRange{0, 2}));
    EXPECT_EQ(mgs_lineRangeForCharacterIndex(text, 2), (TextRange{2, 0}));
}

TEST(TextStorageExtensions, BlocksNest)
{
    TextStorage text;
    text.setString(u"{a{b}c}d");
    EXPECT_EQ(mgs_beginningOfNestedBlock(text, 6, u'{', u'}'), 0);
    EXPECT_EQ(mgs_beginningOfNestedBlock(text, 4, u'{', u'}'), 2);
    EXPECT_EQ(mgs_beginningOfNestedBlock(text, 7, u'{', u'}'), NotFound);
    EXPECT_EQ(mgs_endOfNestedBlock(text, 0, u'{', u'}'), 6);
    EXPECT_EQ(mgs_endOfNestedBlock(text, 2, u'{', u'}'), 4);
    EXPECT_EQ(mgs_endOfNestedBlock(text, 6, u'{', u'}'), NotFound);
    for (const qsizetype index : {qsizetype(-1), qsizetype(0), qsizetype(8), NotFound}) {
        mgs_beginningOfNestedBlock(text, index, u'{', u'}'); // no fault
        mgs_endOfNestedBlock(text, index, u'{', u'}');
    }
    EXPECT_EQ(mgs_beginningOfNestedBlock(text, 0, u'{', u'}'), NotFound);
}

TEST(StringExtensions, TabsReachTheNextStop)
{
    struct Case
    {
        const char16_t *string;
        qsizetype index, tabWidth, column;
    };
    for (const Case &c : {Case{u"abc", 3, 4, 3}, Case{u"\tx", 1, 4, 4}, Case{u"ab\tx", 3, 4, 4},
                          Case{u"abcd\tx", 5, 4, 8}, Case{u"a\tb", 2, 0, 1}, Case{u"a\nb", 2, 4, 0},
                          Case{u"a\u2028bc", 3, 4, 1}, Case{u"", 0, 4, 0}})
        EXPECT_EQ(mgs_columnOfCharacter(c.string, c.index, c.tabWidth), c.column)
            << QString::fromUtf16(c.string).toStdString() << " at " << c.index;
}

TEST(StringExtensions, ATabCoversAllItsColumns)
{
    struct Case
    {
        const char16_t *string;
        qsizetype column, tabWidth, index;
    };
    for (const Case &c : {Case{u"abc", 2, 4, 2}, Case{u"\tx", 0, 4, 0}, Case{u"\tx", 3, 4, 0},
                          Case{u"\tx", 4, 4, 1}, Case{u"a\tx", 1, 0, 2}, Case{u"ab\ncd", 7, 4, 2},
                          Case{u"abc", 3, 4, NotFound}, Case{u"", 0, 4, NotFound}})
        EXPECT_EQ(mgs_characterInColumn(c.string, c.column, c.tabWidth), c.index)
            << QString::fromUtf16(c.string).toStdString() << " at " << c.column;
}

TEST(MutableSubstring, EditsItsTextAndItsParent)
{
    TextStorage text;
    text.setString(u"one two three");
    MGSMutableSubstring words(text, {4, 9});
    MGSMutableSubstring two(words, {0, 3});
    two.setString(u"2");
    EXPECT_EQ(text.string(), u"one 2 three");
    EXPECT_EQ(two.superstringRange(), (TextRange{4, 1}));
    EXPECT_EQ(words.string(), u"2 three");
    words.replaceCharacters({2, 5}, u"drei!!");
    EXPECT_EQ(text.string(), u"one 2 drei!!");
    EXPECT_EQ(words.superstringRangeFromRange({2, 4}), (TextRange{6, 4}));
    EXPECT_EQ(words.superstringRangeFromRange({7, 2}).length, NotFound);
}

TEST(MutableSubstring, RefusesRangesOutOfBounds)
{
    const auto reason = [](const auto &work) {
        try {
            work();
        } catch (const platform::Exception &exception) {
            return exception.name() + ": " + exception.reason();
        }
        return QString();
    };
    TextStorage text;
    text.setString(u"abc");
    EXPECT_EQ(
        reason([&] {
            MGSMutableSubstring(text, {2, 2});
        }),
        u"NSRangeException: Attempted to create a MGSMutableSubstring from an invalid range!");
    MGSMutableSubstring all(text, {1, 2});
    EXPECT_EQ(reason([&] {
                  all.replaceCharacters({1, 2}, u"x");
              }),
              u"NSRangeException: Range {1, 2} is out of bounds!");
    EXPECT_EQ(text.string(), u"abc");
}

TEST(MutableSubstring, VisitsRangesAsTheyMove)
{
    TextStorage text;
    text.setString(u"a-b-c");
    const auto ranges = enumerateMutableSubstringsFromRangeArray(
        text, {{0, 1}, {2, 1}, {4, 1}}, [](MGSMutableSubstring &substring, bool &stop) {
            stop = substring.string() == u"b";
            substring.setString(QString(substring.string()).repeated(3));
        });
    EXPECT_EQ(text.string(), u"aaa-bbb-c");
    EXPECT_EQ(ranges, (std::vector<TextRange>{{0, 3}, {4, 3}}));
}

TEST(MutableSubstring, VisitsEachLineOnceWhateverHappensToIt)
{
    const auto visited = [](const QString &string) {
        TextStorage text;
        text.setString(string);
        QStringList lines;
        enumerateMutableSubstringsOfLines(text, [&](MGSMutableSubstring &line, bool &) {
            lines << line.string();
            line.setString(u"-"); // its line end is gone: the next line begins right behind it
        });
        return lines;
    };
    EXPECT_EQ(visited("a\r\nb\nc"), (QStringList{"a\r\n", "b\n", "c"}));
    EXPECT_EQ(visited("a\n"), QStringList{"a\n"});
    EXPECT_EQ(visited(""), QStringList{""});
}

TEST(TextActions, SelectionsWidenToLinesThatMeet)
{
    TextStorage text;
    text.setString(u"ab\ncd\nef\n");
    using Ranges = std::vector<TextRange>;
    EXPECT_EQ(mgs::alignedToLines(text, {{1, 0}}), (Ranges{{0, 3}}));
    EXPECT_EQ(mgs::alignedToLines(text, {{1, 2}, {2, 0}, {4, 0}}), (Ranges{{0, 6}}));
    EXPECT_EQ(mgs::alignedToLines(text, {{0, 0}, {7, 0}}), (Ranges{{0, 3}, {6, 3}}));
    EXPECT_EQ(mgs::alignedToLines(text, {{7, 0}, {9, 0}}), (Ranges{{6, 3}, {9, 0}}));
}

TEST(TextActions, TakeTimeInProportionToTheText)
{
    const QString lines = QStringLiteral("  x\n").repeated(200'000);
    EXPECT_EQ(mgs::shifted(lines, 2, {2, false}).size(), lines.size());
    TextStorage text;
    text.setString(QStringLiteral("</a").repeated(300'000) + u'>');
    EXPECT_TRUE(mgs::closingTag(text, text.length()).isNull());
}

} // namespace
