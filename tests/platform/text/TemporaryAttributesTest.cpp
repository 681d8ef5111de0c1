#include "platform/text/TemporaryAttributes.h"

#include "platform/Assert.h"
#include "RandomText.h"
#include <gtest/gtest.h>
#include <QColor>

using platform::TemporaryAttributes;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;
using support::RandomText;

namespace {

using Naive = std::vector<std::array<QVariant, platform::textAttributeCount>>;

std::array<QVariant, platform::textAttributeCount> valuesOf(const TextAttributes &attributes)
{
    std::array<QVariant, platform::textAttributeCount> values;
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = attributes.value(platform::allTextAttributes[i]);
    return values;
}

template <class Equal>
TextRange naiveRun(const Naive &naive, qsizetype index, TextRange limit, Equal equal)
{
    qsizetype start = index;
    qsizetype end = index + 1;
    while (start > limit.location && equal(naive[size_t(start) - 1], naive[size_t(index)]))
        --start;
    while (end < limit.end() && equal(naive[size_t(end)], naive[size_t(index)]))
        ++end;
    return TextRange::between(start, end);
}

const std::vector<TextAttributes> &samples()
{
    using enum TextAttribute;
    static const std::vector<TextAttributes> sets = {
        {},
        {{ForegroundColor, QColor(Qt::red)}, {Group, "strings"}},
        {{ForegroundColor, QColor(Qt::red)}, {Group, "comments"}},
        {{ForegroundColor, QColor(255, 0, 0, 128)}, {Group, "strings"}},
        {{BackgroundColor, QColor(Qt::red)}},
        {{UnderlineStyle, 15}, {ToolTip, "15"}},
        {{ToolTip, "an error"}},
        {{Group, "strings"}},
    };
    return sets;
}

/// The same changes to both.
class Pair
{
public:
    explicit Pair(qsizetype blockRuns) : runs(0, blockRuns) {}

    void change(RandomText &random)
    {
        const TextRange range =
            random.range(qsizetype(naive.size()), random.below(4) == 0 ? 200 : 12);
        const TextAttributes set = samples()[size_t(random.below(qsizetype(samples().size())))];
        const platform::TextAttributeKeys keys =
            platform::TextAttributeKeys::fromInt(int(random.below(32)));
        const auto values = valuesOf(set);
        const qsizetype kind = random.below(9);
        if (kind < 2) {
            edit(range, random.below(naive.size() > 300 ? 3 : 12));
            return;
        }
        if (kind == 8) {
            replace(keys, range, random);
            return;
        }
        if (kind == 2)
            runs.set(set, range);
        else if (kind < 6)
            runs.add(set, range);
        else
            runs.remove(keys, range);
        for (qsizetype i = range.location; i < range.end(); ++i) {
            for (size_t k = 0; k < values.size(); ++k) {
                QVariant &value = naive[size_t(i)][k];
                if (kind == 2 || (kind < 6 && values[k].isValid()))
                    value = values[k];
                else if (kind >= 6 && (keys & platform::allTextAttributes[k]))
                    value = {};
            }
        }
    }

    // By stretches that know nothing of the runs.
    void replace(platform::TextAttributeKeys keys, TextRange range, RandomText &random)
    {
        qsizetype index = range.location;
        runs.replace(keys, range, [&]() -> TemporaryAttributes::Stretch {
            EXPECT_LT(index, range.end());
            const auto &set = samples()[size_t(random.below(qsizetype(samples().size())))];
            const qsizetype length = 1 + random.below(range.end() - index);
            const auto values = valuesOf(set);
            for (const qsizetype end = index + length; index < end; ++index) {
                for (size_t k = 0; k < values.size(); ++k) {
                    if (values[k].isValid() || (keys & platform::allTextAttributes[k]))
                        naive[size_t(index)][k] = values[k];
                }
            }
            return {length, &set};
        });
        EXPECT_EQ(index, range.end());
    }

    void edit(TextRange old, qsizetype length)
    {
        Naive::value_type inherited;
        if (!naive.empty())
            inherited = naive[size_t(!old.isEmpty() ? old.location
                                                    : std::max<qsizetype>(old.location, 1) - 1)];
        const auto at = naive.begin() + old.location;
        naive.insert(naive.erase(at, at + old.length), size_t(length), inherited);
        runs.textDidChange({old.location, length}, length - old.length);
    }

    void expectEqual(RandomText &random) const
    {
        ASSERT_EQ(runs.length(), qsizetype(naive.size()));
        const TextRange part = random.range(runs.length(), 100);
        qsizetype index = part.location;
        runs.forEachRun(part, [&](TextRange range, const TextAttributes &attributes) {
            for (; index < range.location; ++index)
                EXPECT_EQ(naive[size_t(index)], Naive::value_type());
            EXPECT_FALSE(attributes.isEmpty());
            EXPECT_EQ(range, naiveRun(naive, range.location, part, std::equal_to<>()));
            EXPECT_EQ(valuesOf(attributes), naive[size_t(range.location)]);
            index = range.end();
        });
        for (; index < part.end(); ++index)
            EXPECT_EQ(naive[size_t(index)], Naive::value_type());
        for (int i = 0; i < 10 && !naive.empty(); ++i)
            expectEqualAt(random.below(runs.length()), random);
    }

    void expectEqualAt(qsizetype index, RandomText &random) const
    {
        TextRange run;
        EXPECT_EQ(valuesOf(runs.attributes(index, &run)), naive[size_t(index)]);
        EXPECT_EQ(run, naiveRun(naive, index, {0, runs.length()}, std::equal_to<>()));
        const size_t k = size_t(random.below(platform::textAttributeCount));
        const TextRange limit = TextRange{index, 1}.united(random.range(runs.length(), 60));
        EXPECT_EQ(runs.value(platform::allTextAttributes[k], index, limit, &run),
                  naive[size_t(index)][k]);
        EXPECT_EQ(run, naiveRun(naive, index, limit,
                                [k](const auto &a, const auto &b) { return a[k] == b[k]; }));
    }

    TemporaryAttributes runs;
    Naive naive;
};

} // namespace

TEST(TemporaryAttributes, AnyChangesGiveWhatCharactersOneByOneGive)
{
    for (const qsizetype blockRuns : {1, 2, 3, 8, 30}) {
        for (unsigned seed = 1; seed <= 8; ++seed) {
            SCOPED_TRACE(testing::Message() << blockRuns << " runs, seed " << seed);
            RandomText random(seed);
            Pair pair(blockRuns);
            pair.edit({0, 0}, 200);
            for (int step = 0; step < 500; ++step) {
                pair.change(random);
                ASSERT_NO_FATAL_FAILURE(pair.expectEqual(random)) << step;
                if (step % 150 == 149)
                    pair.edit({0, pair.runs.length()}, random.below(200)); // all of it anew
                if (testing::Test::HasFailure())
                    return;
            }
        }
    }
}

TEST(TemporaryAttributes, NewTextTakesTheAttributesThatTheRuleSays)
{
    const auto edited = [](TextRange old, qsizetype length) {
        TemporaryAttributes attributes(6);
        attributes.set({{TextAttribute::Group, "a"}}, {0, 2});
        attributes.set({{TextAttribute::Group, "b"}}, {2, 2});
        attributes.textDidChange({old.location, length}, length - old.length);
        QString groups;
        for (qsizetype i = 0; i < attributes.length(); ++i)
            groups += attributes.value(TextAttribute::Group, i).toString().leftJustified(1, '.');
        return groups.toStdString();
    };
    EXPECT_EQ(edited({1, 0}, 2), "aaaabb..");
    EXPECT_EQ(edited({2, 0}, 2), "aaaabb.."); // at a run's end: the run before
    EXPECT_EQ(edited({0, 0}, 1), "aaabb..");  // at the start: the run behind
    EXPECT_EQ(edited({1, 3}, 2), "aaa..");    // in place of others: the first of them
    EXPECT_EQ(edited({3, 3}, 2), "aabbb");
    EXPECT_EQ(edited({2, 2}, 0), "aa..");
    EXPECT_EQ(edited({0, 6}, 0), "");
}

TEST(TemporaryAttributes, SetsOutOfUseAreForgotten)
{
    TemporaryAttributes attributes(100);
    for (int i = 0; i < 5000; ++i)
        attributes.add({{TextAttribute::ToolTip, QString::number(i)}}, {i % 100, 1});
    for (qsizetype i = 0; i < 100; ++i)
        EXPECT_EQ(attributes.value(TextAttribute::ToolTip, i), QString::number(4900 + i));
    EXPECT_LT(attributes.attributeSetCount(), 2100u);
}

TEST(TemporaryAttributes, RefusesWhatLiesBeyondTheText)
{
    TemporaryAttributes attributes(4);
    const TextAttributes group = {{TextAttribute::Group, "a"}};
    EXPECT_THROW(attributes.add(group, {2, 3}), platform::AssertionFailure);
    EXPECT_THROW(attributes.attributes(4), platform::AssertionFailure);
    EXPECT_THROW(attributes.textDidChange({3, 0}, -2), platform::AssertionFailure);
    EXPECT_EQ(attributes.length(), 4);
    EXPECT_TRUE(attributes.attributes(3).isEmpty());
}
