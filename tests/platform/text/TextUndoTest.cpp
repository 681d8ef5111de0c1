#include "platform/text/TextUndo.h"
#include "RandomText.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace Qt::StringLiterals;
using Kind = TextUndo::Kind;

namespace {

class TextUndoTest : public testing::Test
{
protected:
    void change(Kind kind, const std::vector<std::pair<TextRange, QString>> &replacements)
    {
        TextUndo::Change change;
        for (const auto &[range, text] : replacements)
            change.push_back({range, storage.substring(range), text});
        history.record(kind, change, TextSelections::of({change.front().range}));
        carryOut({change});
    }

    void type(qsizetype at, const QString &text)
    {
        for (const QChar c : text)
            change(Kind::Typing, {{{at++, 0}, c}});
    }

    bool undo() { return carryOut(history.take(TextUndo::Direction::Undo)); }
    bool redo() { return carryOut(history.take(TextUndo::Direction::Redo)); }

    bool carryOut(const std::optional<TextUndo::Step> &step)
    {
        if (step)
            carryOut(step->changes);
        return step.has_value();
    }

    void carryOut(const std::vector<TextUndo::Change> &changes)
    {
        for (const TextUndo::Change &change : changes) {
            for (size_t i = change.size(); i > 0; --i) {
                const TextUndo::Replacement &one = change[i - 1];
                ASSERT_EQ(storage.substring(one.range), one.removed);
                storage.replaceCharacters(one.range, one.inserted);
            }
        }
    }

    TextStorage storage;
    TextUndo &history = TextUndo::of(&storage);
};

} // namespace

TEST_F(TextUndoTest, IsFoundByItsStorage)
{
    EXPECT_EQ(&TextUndo::of(&storage), &history);
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(undo());
    EXPECT_FALSE(redo());
}

TEST_F(TextUndoTest, RunsOfOneKindAtOnePlaceAreOneStep)
{
    type(0, u"hello"_s);
    type(5, u" you"_s);
    change(Kind::DeletingBackward, {{{8, 1}, {}}});
    change(Kind::DeletingBackward, {{{7, 1}, {}}});
    change(Kind::DeletingForward, {{{1, 1}, {}}});
    change(Kind::DeletingForward, {{{1, 1}, {}}});
    EXPECT_EQ(storage.string(), u"hlo y"_s);
    type(1, u"e"_s);
    type(0, u">"_s); // elsewhere: a step of its own
    const QStringList steps = {u"helo y"_s, u"hlo y"_s, u"hello y"_s, u"hello you"_s, u""_s};
    for (const QString &step : steps) {
        ASSERT_TRUE(undo());
        EXPECT_EQ(storage.string(), step);
    }
    EXPECT_FALSE(undo());
    for (qsizetype i = steps.size() - 2; i >= 0; --i) {
        ASSERT_TRUE(redo());
        EXPECT_EQ(storage.string(), steps[i]);
    }
    ASSERT_TRUE(redo());
    EXPECT_EQ(storage.string(), u">helo y"_s);
    EXPECT_FALSE(redo());
}

TEST_F(TextUndoTest, LineEndsCaretsAndOtherChangesPartRuns)
{
    type(0, u"a\nb"_s);
    change(Kind::Other, {{{3, 0}, u"pasted"_s}});
    type(9, u"c"_s);
    history.breakCoalescing();
    type(10, u"d"_s);
    for (const QString &step : {u"a\nbpastedc"_s, u"a\nbpasted"_s, u"a\nb"_s, u"a"_s, u""_s}) {
        ASSERT_TRUE(undo());
        EXPECT_EQ(storage.string(), step);
    }
    type(0, u"new"_s);
    EXPECT_FALSE(history.canRedo());
}

TEST_F(TextUndoTest, SeveralCaretsTypeAndDeleteInOneStep)
{
    storage.setString(u"1\n2\n3"_s);
    for (int i = 0; i < 3; ++i)
        change(Kind::Typing,
               {{{1 + i, 0}, u"x"_s}, {{3 + 2 * i, 0}, u"x"_s}, {{5 + 3 * i, 0}, u"x"_s}});
    EXPECT_EQ(storage.string(), u"1xxx\n2xxx\n3xxx"_s);
    change(Kind::DeletingBackward, {{{3, 1}, {}}, {{8, 1}, {}}, {{13, 1}, {}}});
    change(Kind::DeletingBackward, {{{2, 1}, {}}, {{6, 1}, {}}, {{10, 1}, {}}});
    EXPECT_EQ(storage.string(), u"1x\n2x\n3x"_s);
    ASSERT_TRUE(undo());
    EXPECT_EQ(storage.string(), u"1xxx\n2xxx\n3xxx"_s);
    ASSERT_TRUE(undo());
    EXPECT_EQ(storage.string(), u"1\n2\n3"_s);
    const auto step = history.take(TextUndo::Direction::Redo);
    ASSERT_TRUE(step && carryOut(step));
    EXPECT_EQ(step->selections.ranges(), (std::vector<TextRange>{{4, 0}, {9, 0}, {14, 0}}));
}

TEST_F(TextUndoTest, AGroupIsOneStepAndGivesTheSelectionsBeforeIt)
{
    storage.setString(u"one two"_s);
    {
        const TextUndo::Group group(history);
        change(Kind::Other, {{{0, 3}, u"1"_s}});
        {
            const TextUndo::Group inner(history);
            change(Kind::Other, {{{2, 3}, u"2"_s}});
        }
        EXPECT_FALSE(history.canUndo());
        type(3, u"!"_s);
    }
    type(4, u"?"_s);
    ASSERT_TRUE(undo());
    EXPECT_EQ(storage.string(), u"1 2!"_s);
    const auto step = history.take(TextUndo::Direction::Undo);
    ASSERT_TRUE(step && carryOut(step));
    EXPECT_EQ(storage.string(), u"one two"_s);
    EXPECT_EQ(step->selections.ranges(), (std::vector<TextRange>{{0, 3}}));
}

TEST_F(TextUndoTest, AnEditThatNobodyRecordedForgetsAll)
{
    type(0, u"abc"_s);
    ASSERT_TRUE(undo());
    storage.replaceCharacters({0, 0}, u"x"_s);
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    type(1, u"abc"_s);
    history.record(Kind::Other, {{{0, 1}, u"x"_s, u"y"_s}}, {}); // never carried out
    storage.replaceCharacters({1, 1}, u"z"_s);
    EXPECT_FALSE(history.canUndo());
}

TEST_F(TextUndoTest, KnowsWhetherTheTextIsAsItWasSaved)
{
    EXPECT_TRUE(history.isClean());
    type(0, u"a"_s);
    EXPECT_FALSE(history.isClean());
    history.markClean();
    type(1, u"b"_s);
    EXPECT_FALSE(history.isClean());
    undo();
    EXPECT_TRUE(history.isClean());
    EXPECT_EQ(storage.string(), u"a"_s);
    undo();
    EXPECT_FALSE(history.isClean());
    type(0, u"c"_s); // the saved state cannot be reached any more
    undo();
    EXPECT_FALSE(history.isClean());
    history.markClean();
    storage.setString(u"other"_s);
    EXPECT_FALSE(history.isClean());
}

TEST_F(TextUndoTest, OldStepsGoWhenTheyHoldTooMuch)
{
    history.setMemoryLimit(10'000);
    for (int i = 0; i < 10; ++i)
        change(Kind::Other, {{{0, 0}, QString(1000, QChar(u'0' + i))}});
    int steps = 0;
    while (undo())
        ++steps;
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(storage.length(), 6000);
    change(Kind::Other, {{{0, 6000}, {}}}); // too much by itself
    EXPECT_TRUE(undo());
    EXPECT_EQ(storage.length(), 6000);
}

TEST_F(TextUndoTest, AnyWalkThroughTheHistoryGivesTheTextOfThen)
{
    support::RandomText random(5);
    QStringList states{storage.string()}; // by steps done
    qsizetype at = 0;
    for (int round = 0; round < 2000; ++round) {
        const qsizetype what = random.below(10);
        if (what < 3 && at > 0) {
            ASSERT_TRUE(undo());
            --at;
        } else if (what < 5 && at + 1 < states.size()) {
            ASSERT_TRUE(redo());
            ++at;
        } else {
            std::optional<TextUndo::Group> group(history);
            for (qsizetype changes = random.below(3); changes >= 0; --changes) {
                std::vector<std::pair<TextRange, QString>> replacements;
                for (qsizetype from = 0; from < storage.length() && replacements.size() < 3;) {
                    TextRange range = random.range(storage.length() - from, 6);
                    range.location += from;
                    replacements.push_back({range, random.text(4)});
                    from = range.end() + 1;
                }
                if (replacements.empty())
                    replacements.push_back({{0, 0}, u"start"_s});
                change(Kind::Typing, replacements);
            }
            group.reset();
            states.resize(++at);
            states << storage.string();
            if (!history.canUndo() || history.next(TextUndo::Direction::Undo)->changes.empty())
                FAIL();
        }
        ASSERT_EQ(storage.string(), states[at]) << "round " << round;
    }
}
