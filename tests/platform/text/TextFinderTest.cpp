#include "platform/text/TextFinder.h"

#include "RandomText.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using platform::Error;
using platform::TextFinder;
using platform::TextQuery;
using platform::TextRange;
using platform::TextStorage;
using support::RandomText;

namespace {

const TextQuery plain{};
const TextQuery withCase{{}, false, true, false};
const TextQuery wholeWords{{}, false, false, true};
const TextQuery expression{{}, true, true, false};

TextQuery query(const QString &string, TextQuery options)
{
    options.string = string;
    return options;
}

struct Search
{
    explicit Search(const QString &text, qsizetype blockLength = 5)
        : storage(std::make_shared<TextStorage>(blockLength)), finder(storage)
    {
        storage->setString(text);
    }

    QStringList found(const TextQuery &looked)
    {
        EXPECT_TRUE(finder.setQuery(looked)) << finder.obstacle().toStdString();
        return matches();
    }

    QStringList matches()
    {
        finder.hurry();
        EXPECT_TRUE(support::waitUntil([this] { return !finder.isSearching(); }, 60));
        QStringList all;
        for (qsizetype i = 0; i < finder.matchCount(); ++i) {
            const TextRange match = finder.match(i);
            all += u"%1 %2"_s.arg(match.location).arg(storage->substring(match));
        }
        return all;
    }

    std::shared_ptr<TextStorage> storage;
    TextFinder finder;
};

} // namespace

TEST(TextFinder, FindsByTheOptions)
{
    const QString text = u"Auto auto_auto\r\nautos äAUTO 😀auto x*+"_s;
    const struct
    {
        TextQuery query;
        QStringList found;
    } cases[] = {
        {query(u"auto"_s, plain),
         {u"0 Auto"_s, u"5 auto"_s, u"10 auto"_s, u"16 auto"_s, u"23 AUTO"_s, u"30 auto"_s}},
        {query(u"auto"_s, withCase), {u"5 auto"_s, u"10 auto"_s, u"16 auto"_s, u"30 auto"_s}},
        {query(u"auto"_s, wholeWords), {u"0 Auto"_s, u"30 auto"_s}},
        {query(u"x*+"_s, wholeWords), {u"35 x*+"_s}},
        {query(u"a+(.)t?o"_s, expression), {u"5 auto"_s, u"10 auto"_s, u"16 auto"_s, u"30 auto"_s}},
        {query(u"^A.*$"_s, {{}, true, false, false}),
         {u"0 Auto auto_auto"_s, u"16 autos äAUTO 😀auto x*+"_s}},
        {query(u"$"_s, expression), {u"14 "_s, u"38 "_s}},
        {query(u"(?<=\\p{So})a\\w+|o$"_s, expression), {u"13 o"_s, u"30 auto"_s}},
        {query(u"o\\R\\w"_s, expression), {u"13 o\r\na"_s}},
        {query(u"\\w+"_s, {{}, true, false, true}),
         {u"0 Auto"_s, u"5 auto_auto"_s, u"16 autos"_s, u"22 äAUTO"_s, u"30 auto"_s, u"35 x"_s}},
        {query({}, plain), {}},
    };
    for (const auto &each : cases) {
        for (const qsizetype blockLength : {1, 3, 2048})
            EXPECT_EQ(Search(text, blockLength).found(each.query), each.found)
                << each.query.string.toStdString() << " in blocks of " << blockLength;
    }
}

TEST(TextFinder, RandomTextsGiveWhatAnotherEngineFinds)
{
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomText random(seed);
        Search search(random.text(200), 1 + random.below(9));
        for (const char16_t *pattern : {u"a+b?", u"[^a]", u"(?<=a).", u".\\n", u"a.*?k|-"}) {
            SCOPED_TRACE(QString::fromUtf16(pattern).toStdString() + " " + std::to_string(seed));
            // Half pairs are no text to the other engine, and its dot takes other line ends.
            QString text = search.storage->string();
            for (QChar &c : text) {
                if (c.isSurrogate() || c.unicode() == 0x85 || (c.unicode() | 1) == 0x2029 ||
                    c == u'\r')
                    c = u'x';
            }
            search.storage->setString(text);
            QStringList wanted;
            for (const auto &match :
                 QRegularExpression(QString::fromUtf16(pattern)).globalMatch(text))
                wanted += u"%1 %2"_s.arg(match.capturedStart()).arg(match.captured());
            EXPECT_EQ(search.found(query(QString::fromUtf16(pattern), expression)), wanted);
        }
    }
}

TEST(TextFinder, GoesRoundInBothDirections)
{
    Search search(u"-ab--ab-ab"_s);
    search.found(query(u"ab"_s, plain));
    EXPECT_EQ(search.finder.next(0)->location, 1);
    EXPECT_EQ(search.finder.next(2)->location, 5);
    EXPECT_EQ(search.finder.next(9)->location, 1);
    EXPECT_EQ(search.finder.previous(7)->location, 5);
    EXPECT_EQ(search.finder.previous(6)->location, 1);
    EXPECT_EQ(search.finder.previous(2)->location, 8);
    EXPECT_EQ(search.finder.indexOf({5, 2}), 1);
    EXPECT_EQ(search.finder.indexOf({5, 1}), platform::NotFound);
    search.found(query(u"c"_s, plain));
    EXPECT_FALSE(search.finder.next(0)->isFound());
    EXPECT_FALSE(search.finder.previous(9)->isFound());
}

TEST(TextFinder, StaysInStepWithEdits)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        RandomText random(seed);
        Search search(random.text(80));
        const TextQuery looked = query(seed % 2 ? u"a"_s : u"a*"_s, seed % 2 ? plain : expression);
        search.found(looked);
        for (int i = 0; i < 4; ++i) {
            search.storage->replaceCharacters(random.range(search.storage->length(), 9),
                                              random.text(4));
            const qsizetype length = search.storage->length();
            for (qsizetype j = 0; j < search.finder.matchCount(); ++j) { // the former ones
                ASSERT_LE(search.finder.match(j).end(), length);
                ASSERT_TRUE(j == 0 ||
                            search.finder.match(j - 1).end() <= search.finder.match(j).location);
            }
        }
        EXPECT_EQ(search.matches(), Search(search.storage->string()).found(looked));
    }
}

TEST(TextFinder, AnotherTextIsSearchedForTheSame)
{
    Search search(u"ab"_s);
    search.found(query(u"b$"_s, expression));
    search.storage = std::make_shared<TextStorage>();
    search.storage->setString(u"b\nabb"_s);
    search.finder.setTextStorage(search.storage);
    EXPECT_EQ(search.matches(), (QStringList{u"0 b"_s, u"4 b"_s}));
}

TEST(TextFinder, ReplacesByGroups)
{
    const struct
    {
        QString replacement;
        QString result; ///< Null: an error.
    } cases[] = {
        {u"$2-$1"_s, u"12-ab"_s},
        {u"${name}$0"_s, u"12ab12"_s},
        {u"$10"_s, u"ab0"_s},
        {u"a$"_s, u"a$"_s},
        {u"\\$1\\n\\\\"_s, u"$1\n\\"_s},
        {u"$ ${}{"_s, u"$ ${}{"_s},
        {u""_s, u""_s},
        {u"x\\"_s, u"x\\"_s},
        {u"$3|"_s, u"|"_s},
        {u"$4"_s, {}},
        {u"${other}"_s, {}},
    };
    Search search(u"=ab12"_s);
    search.found(query(u"([a-z]+)(?<name>\\d+)(z)?"_s, expression));
    for (const auto &each : cases) {
        Error error;
        const auto result = search.finder.replacement({1, 4}, each.replacement, &error);
        EXPECT_EQ(result.has_value(), !each.result.isNull()) << each.replacement.toStdString();
        EXPECT_EQ(result.value_or(QString()), each.result);
        EXPECT_EQ(error.isNull(), result.has_value());
    }
    search.storage->replaceCharacters({1, 1}, u"-");
    EXPECT_FALSE(search.finder.replacement({1, 4}, u"x"_s, nullptr));
    search.found(query(u"12"_s, plain));
    EXPECT_EQ(search.finder.replacement({3, 2}, u"$1\\n"_s, nullptr), u"$1\\n"_s);
}

TEST(TextFinder, WhatCannotBeReadSaysWhy)
{
    Search search(u"abc"_s);
    for (const QString &pattern : {u"(a"_s, u"[a"_s, u"*"_s, u"a{2,1}"_s, u"\\"_s, u"(?<=a+)b"_s}) {
        EXPECT_FALSE(search.finder.setQuery(query(pattern, expression)));
        EXPECT_NE(search.finder.obstacle(), u"The expression cannot be read."_s);
        EXPECT_FALSE(search.finder.obstacle().isEmpty()) << pattern.toStdString();
        EXPECT_EQ(search.finder.matchCount(), 0);
        EXPECT_FALSE(search.finder.isSearching());
    }
}

TEST(TextFinder, NoTextAndNoExpressionFreezesTheWindow)
{
    Search search(QString(20'000'000, 'a') + u"b\n"_s, 2048);
    QElapsedTimer timer;
    qint64 longest = 0;
    const auto turns = [&](const TextQuery &looked) {
        timer.start();
        EXPECT_TRUE(search.finder.setQuery(looked));
        longest = qMax(longest, timer.elapsed());
        while (search.finder.isSearching()) {
            timer.start();
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            longest = qMax(longest, timer.elapsed());
        }
    };
    turns(query(u"b"_s, plain));
    EXPECT_EQ(search.finder.matchCount(), 1);
    turns(query(u"ac|b"_s, expression));
    EXPECT_EQ(search.finder.matchCount(), 1);
    EXPECT_EQ(search.finder.obstacle(), QString());
    turns(query(u"a"_s, plain));
    EXPECT_EQ(search.finder.matchCount(), TextFinder::mostMatches);
    EXPECT_FALSE(search.finder.obstacle().isNull());
    EXPECT_LT(longest, 2'000);
    search.storage->setString(u"x"_s.repeated(200) + u"y\n"_s.repeated(300) + QString(24, 'a') +
                              u"\n"_s.repeated(300)); // 24 places that take longer and longer
    turns(query(u"(a+)+$z|x"_s, expression));
    EXPECT_EQ(search.finder.matchCount(), 200);
    search.storage->setString(QString(1'000'000, 'a'));
    turns(query(u"(a+)+c"_s, expression));
    EXPECT_FALSE(search.finder.obstacle().isNull());
    EXPECT_LT(longest, 5'000);
}
