#include "platform/text/IndexSet.h"

#include "RandomText.h"
#include <gtest/gtest.h>

using platform::IndexSet;
using platform::TextRange;
using support::RandomText;

namespace {

constexpr qsizetype size = 40;

void expectEqual(const IndexSet &set, const std::vector<bool> &naive, RandomText &random)
{
    qsizetype previousEnd = -1;
    std::vector<bool> members(naive.size());
    for (const TextRange range : set.ranges()) {
        EXPECT_GT(range.location, previousEnd); // apart, or they would be one
        EXPECT_FALSE(range.isEmpty());
        previousEnd = range.end();
        std::fill_n(members.begin() + range.location, range.length, true);
    }
    ASSERT_EQ(members, naive);

    const TextRange asked = random.range(size, size);
    const auto isGap = [&](qsizetype index) {
        return !naive[size_t(index)];
    };
    qsizetype first = asked.location;
    while (first < asked.end() && !isGap(first))
        ++first;
    qsizetype firstEnd = first;
    while (firstEnd < asked.end() && isGap(firstEnd))
        ++firstEnd;
    qsizetype last = asked.end();
    while (last > asked.location && !isGap(last - 1))
        --last;
    qsizetype lastStart = last;
    while (lastStart > asked.location && isGap(lastStart - 1))
        --lastStart;
    EXPECT_EQ(set.firstGap(asked), TextRange::between(first, firstEnd));
    EXPECT_EQ(set.lastGap(asked), TextRange::between(lastStart, last));
    EXPECT_EQ(set.contains(asked), first == asked.end());
}

} // namespace

TEST(IndexSet, HoldsWhatIndexesOneByOneHold)
{
    for (unsigned seed = 1; seed <= 300; ++seed) {
        RandomText random(seed);
        IndexSet set;
        std::vector<bool> naive(size + 60);
        for (int step = 0; step < 60 && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            const TextRange range = random.range(size, 8);
            const auto at = naive.begin() + range.location;
            switch (random.below(5)) {
            case 0:
                set.remove(range);
                std::fill_n(at, range.length, false);
                break;
            case 1:
                set.shift(range.location, range.length);
                naive.insert(at, size_t(range.length), false);
                break;
            case 2:
                set.shift(range.end(), -range.length);
                naive.erase(at, at + range.length);
                break;
            default:
                set.insert(range);
                std::fill_n(at, range.length, true);
            }
            naive.resize(size + 60);
            set.remove({size, 60});
            std::fill(naive.begin() + size, naive.end(), false);
            expectEqual(set, naive, random);
        }
    }
}
