#include "platform/text/TextSearch.h"

#include "RandomText.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>

using platform::NotFound;
using platform::rangeOfString;
using platform::TextRange;
using platform::TextStorage;
using support::RandomText;
using enum platform::SearchDirection;

TEST(TextSearch, FindsWhatAStringFinds)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        TextStorage storage(1 + random.below(9));
        const QString text = random.text(60);
        storage.setString(text);
        for (int i = 0; i < 30; ++i) {
            const TextRange range = random.range(text.size(), 80);
            const QString part = text.mid(range.location, range.length);
            const TextRange wanted = random.range(part.size(), 5);
            QString string = part.mid(wanted.location, wanted.length);
            if (i % 3 == 0)
                string = random.text(2);
            if (string.isEmpty())
                continue;
            for (const auto sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
                if (sensitivity == Qt::CaseInsensitive && !string.isValidUtf16())
                    continue; // what case has half a pair?
                const auto expected = [&](qsizetype index) {
                    return index < 0 ? NotFound : range.location + index;
                };
                EXPECT_EQ(rangeOfString(storage, string, range, Forward, sensitivity).location,
                          expected(part.indexOf(string, 0, sensitivity)))
                    << string.toStdString();
                EXPECT_EQ(rangeOfString(storage, string, range, Backward, sensitivity).location,
                          expected(part.lastIndexOf(string, -1, sensitivity)))
                    << string.toStdString();
            }
        }
    }
}

TEST(TextSearch, CharactersOfASetOnBothSides)
{
    TextStorage storage(3);
    storage.setString(QStringLiteral("ab-c€d-ef"));
    const auto isMark = [](char16_t unit) {
        return unit == u'-' || unit == u'€';
    };
    EXPECT_EQ(indexOfCharacter(storage, isMark, {3, 6}), 4);
    EXPECT_EQ(indexOfCharacter(storage, isMark, {0, 4}, Backward), 2);
    EXPECT_EQ(indexOfCharacter(storage, isMark, {0, 2}), NotFound);
    EXPECT_EQ(indexOfCharacter(storage, isMark, {7, 2}, Backward), NotFound);
    EXPECT_EQ(indexOfCharacter(storage, isMark, {9, 0}), NotFound);
}

TEST(TextSearch, NoTextMakesItSlow)
{
    TextStorage storage;
    storage.setString(QString(2'000'000, 'a'));
    const QString almost = QString(1'000'000, 'a') + 'b';
    EXPECT_FALSE(rangeOfString(storage, almost, {0, storage.length()}).isFound());
    storage.replaceCharacters({storage.length(), 0}, u"b");
    EXPECT_EQ(rangeOfString(storage, almost, {0, storage.length()}).location, 1'000'000);
}
