#include "editor/colouring/DelimiterIndex.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;
using enum platform::SearchDirection;

TEST(DelimiterIndex, FindsWhatASearchFindsWhateverIsEdited)
{
    const QStringList parts = {u"<!"_s,  u"--"_s, u"-"_s, u">"_s, u"-->"_s, u"</a"_s,
                               u"</A"_s, u" "_s,  u"€"_s, u"<"_s, u"<!--"_s};
    for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto below = [&random](qsizetype bound) {
            return qsizetype(random() % unsigned(bound));
        };
        const auto rangeIn = [&](qsizetype length) {
            const qsizetype location = below(length + 1);
            return TextRange{location, below(length - location + 1)};
        };
        TextStorage storage(1 + below(20));
        DelimiterIndex index(1 + below(9));
        QObject::connect(
            &storage, &TextStorage::charactersReplaced,
            [&index](TextRange range, qsizetype change) { index.textDidChange(range, change); });
        for (int step = 0; step < 60; ++step) {
            QString added;
            for (qsizetype left = below(step == 0 ? 60 : 4); left > 0; --left)
                added += parts[below(parts.size())];
            TextRange replaced = rangeIn(storage.length());
            replaced.length = std::min<qsizetype>(replaced.length, 5);
            storage.replaceCharacters(replaced, added);
            for (const QString &delimiter : {u"<!--"_s, u"-->"_s, u"--"_s, u"</a"_s}) {
                for (qsizetype looks = below(4); looks > 0; --looks)
                    index.lookAhead(storage, delimiter);
                const TextRange range = rangeIn(storage.length());
                const auto direction = below(2) == 0 ? Forward : Backward;
                const auto sensitivity = below(2) == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
                EXPECT_EQ(index.find(storage, delimiter, range, direction, sensitivity),
                          rangeOfString(storage, delimiter, range, direction, sensitivity).location)
                    << storage.string().toStdString();
            }
        }
        int looks = 0;
        while (index.lookAhead(storage, u"-->"_s) && looks < 100)
            ++looks;
        EXPECT_LT(looks, 100);
        EXPECT_EQ(index.find(storage, QString(), {0, storage.length()}), NotFound);
    }
}
