#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignTemplateManager.h"

#include <gtest/gtest.h>
#include <QSet>
#include <random>
#include <unicode/uregex.h>

using namespace Qt::StringLiterals;

namespace {

QStringList extractedUrls(const QString &text)
{
    return LSMDesignTemplateManager::extractImageUrlsFromString(text);
}

// The expression itself, run by ICU.
QStringList matchedUrls(const QString &text)
{
    static const QString pattern = u"(http|https)://(\\S)+\\.(png|jpg|gif)"_s;
    UErrorCode status = U_ZERO_ERROR;
    URegularExpression *expression =
        uregex_open(reinterpret_cast<const UChar *>(pattern.utf16()), int(pattern.size()),
                    UREGEX_CASE_INSENSITIVE, nullptr, &status);
    uregex_setText(expression, reinterpret_cast<const UChar *>(text.utf16()), int(text.size()),
                   &status);
    QStringList urls;
    while (uregex_findNext(expression, &status)) {
        const int start = uregex_start(expression, 0, &status);
        const QString url = text.mid(start, uregex_end(expression, 0, &status) - start);
        if ((url.startsWith(u"http:") || url.startsWith(u"https:")) && !urls.contains(url))
            urls.append(url);
    }
    uregex_close(expression);
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return urls;
}

QString randomText(std::mt19937 &random, const QStringList &words, int count)
{
    QString text;
    for (int word = 0; word < count; ++word)
        text += words[qsizetype(random() % std::size_t(words.size()))];
    return text;
}

} // namespace

TEST(DesignText, LayoutNames)
{
    const struct
    {
        const char *fault;
        QString text;
        QStringList names;
        QString byDefault;
    } cases[] = {
        {"no marker", u"<b>plain</b>"_s, {}, {}},
        {"empty", {}, {}, {}},
        {"one, with underscores",
         u"<p>[[if LBLayoutEnabled_Two_Columns]]"_s,
         {u"Two Columns"_s},
         {}},
        {"several times",
         u"[[LBLayoutEnabled_A]] [[LBLayoutEnabled_B]] [[lblayoutENABLED_A ]]"_s,
         {u"A"_s, u"B"_s},
         {}},
        {"at the very start", u"LBLayoutEnabled_A]] x LBLayoutEnabled_B"_s, {}, {}},
        {"after blanks alone", u" \n\u00A0LBLayoutEnabled_A]]"_s, {}, {}},
        {"two with only a blank between",
         u"[[LBLayoutEnabled_A LBLayoutEnabled_B] LBLayoutEnabled_C]]"_s,
         {u"A"_s},
         {}},
        {"default",
         u"[[if LBLayoutEnabled_Two_Columns or LBLayoutNotDefined]]"_s,
         {u"Two Columns"_s},
         u"Two Columns"_s},
        {"default with two markers",
         u"[[LBLayoutEnabled_A or LBLayoutEnabled_B_C or LBLayoutNotDefined]]"_s,
         {u"A"_s, u"B C"_s},
         u"A or LBLayoutEnabled B C"_s},
        {"the suffix minds case", u"[[LBLayoutEnabled_A or lblayoutnotdefined]]"_s, {u"A"_s}, {}},
        {"not directly before the brackets",
         u"[[LBLayoutEnabled_A or LBLayoutNotDefined ]] [[LBLayoutEnabled_B]]"_s,
         {u"A"_s, u"B"_s},
         {}},
        {"the second is the default",
         u"[[LBLayoutEnabled_A]][[LBLayoutEnabled_B or LBLayoutNotDefined]]"_s,
         {u"A"_s, u"B"_s},
         u"B"_s},
    };
    for (const auto &[fault, text, names, byDefault] : cases) {
        EXPECT_EQ(LSMDesignLayouts::layoutNames(text), names) << fault;
        EXPECT_EQ(LSMDesignLayouts::defaultLayoutName(text), byDefault) << fault;
        EXPECT_EQ(LSMDesignLayouts::defaultLayoutName(text).isNull(), byDefault.isNull()) << fault;
    }
}

TEST(DesignText, ASampleNeverLeavesItsFolder)
{
    EXPECT_EQ(LSMDesignLayouts::sampleFileName(u"Two Columns"_s), u"Two_Columns.html");
    EXPECT_EQ(LSMDesignLayouts::sampleFileName(u"../body"_s), u"%2E.%2Fbody.html");
}

TEST(DesignText, ImageUrls)
{
    const struct
    {
        QString text;
        QStringList urls;
    } cases[] = {
        {u"no address"_s, {}},
        {u"<img src=\"http://a/b.PNG\"> https://c/d.jpg http://a/b.PNG"_s,
         {u"http://a/b.PNG"_s, u"https://c/d.jpg"_s}},
        {u"HTTP://a/b.png Https://a/b.png"_s, {}},
        {u"http://a/1.png,http://a/2.gif\"x"_s, {u"http://a/1.png,http://a/2.gif"_s}},
        {u"http://.png http://x.jpeg http://a\u00A0b.png"_s, {}},
        {u"xhttps://a.gifx"_s, {u"https://a.gif"_s}},
    };
    for (const auto &[text, urls] : cases)
        EXPECT_EQ(extractedUrls(text), urls) << text.toStdString();
}

TEST(DesignText, ImageUrlsAgreeWithTheExpression)
{
    QStringList words = {u"http"_s, u"https"_s, u"HTTP"_s,       u"s"_s,       u"\u017F"_s,
                         u":"_s,    u"/"_s,     u"://"_s,        u"http://"_s, u"https://"_s,
                         u".png"_s, u".JPG"_s,  u".gif"_s,       u".gi"_s,     u"."_s,
                         u"a"_s,    u"é"_s,     u"\U0001F600"_s, u"\""_s};
    for (const char16_t c :
         {0x0,    0x9,    0xA,    0xB,    0xC,    0xD,    0x1C,   0x1F,   0x20,   0x85,   0xA0,
          0x1680, 0x180E, 0x200A, 0x200B, 0x2028, 0x202F, 0x205F, 0x3000, 0xFEFF, 0xD83D, 0xDE00})
        words.append(QString(QChar(c)));
    std::mt19937 random(12);
    for (int round = 0; round < 60'000; ++round) {
        const QString text = randomText(random, words, int(random() % 16));
        ASSERT_EQ(extractedUrls(text), matchedUrls(text)) << text.toUtf8().toHex(' ').toStdString();
    }
}

TEST(DesignText, ImageUrlsOfAMinifiedBodyTakeNoTime)
{
    const QString run = u"http://a.x"_s.repeated(200'000);
    EXPECT_TRUE(extractedUrls(run).isEmpty());
    EXPECT_EQ(extractedUrls(run + u".png"_s).size(), 1);
}
