#include "platform/text/LayoutManager.h"

#include <gtest/gtest.h>
#include <random>

using platform::HiddenLines;
using platform::LayoutManager;
using platform::TextRange;
using platform::TextStorage;
using namespace Qt::StringLiterals;

namespace {

QString linesOf(const TextStorage &text, HiddenLines::Stretch lines)
{
    return text.substring(
        TextRange::between(text.lineStart(lines.first), text.lineContents(lines.last).end()));
}

QStringList hiddenTexts(const LayoutManager &layout)
{
    QStringList texts;
    for (const HiddenLines::Stretch &lines : layout.hiddenLines().stretches())
        texts << linesOf(*layout.textStorage(), lines);
    return texts;
}

} // namespace

TEST(HiddenLines, KeepTheirTextUntilAnEditTouchesThem)
{
    std::minstd_rand random(7);
    const auto below = [&random](qsizetype limit) {
        return qsizetype(random() % size_t(limit));
    };
    const QStringList inserts = {u""_s, u"x"_s, u"\n"_s, u"\r"_s, u"\r\n"_s, u"a\nb"_s, u"c\n"_s};
    for (int round = 0; round < 60; ++round) {
        LayoutManager layout;
        TextStorage &text = *layout.textStorage();
        QString string;
        for (int line = 0; line < 60; ++line)
            string += u"line %1\n"_s.arg(line);
        text.setString(string);
        for (qsizetype first = 1 + below(5); first < 50; first += 10)
            layout.hideLines(first, first + below(5));
        for (int step = 0; step < 20; ++step) {
            const qsizetype at = below(text.length() + 1);
            const TextRange range{at, qMin(below(14), text.length() - at)};
            QStringList untouched;
            for (const HiddenLines::Stretch &lines : layout.hiddenLines().stretches()) {
                const qsizetype from = text.lineStart(lines.first - 1);
                if (range.end() < from || at > text.lineStart(lines.last + 1))
                    untouched << linesOf(text, lines);
            }
            const QStringList before = hiddenTexts(layout);
            text.replaceCharacters(range, inserts[below(inserts.size())]);
            const QStringList after = hiddenTexts(layout);
            for (const QString &lines : after)
                ASSERT_TRUE(before.contains(lines)) << "round " << round << " step " << step;
            for (const QString &lines : untouched)
                ASSERT_TRUE(after.contains(lines)) << "round " << round << " step " << step;
            const HiddenLines &hidden = layout.hiddenLines();
            ASSERT_FALSE(hidden.contains(0) || hidden.contains(text.lineCount() - 1));
        }
    }
}

TEST(HiddenLines, AnswersAreThoseOfASetOfLines)
{
    std::minstd_rand random(11);
    HiddenLines hidden;
    std::vector<bool> naive(40);
    for (int step = 0; step < 2000; ++step) {
        const auto line = qsizetype(1 + random() % 34);
        if (random() % 3 != 0) {
            const HiddenLines::Stretch lines{line, line + qsizetype(random() % 4)};
            hidden.hide(lines);
            std::fill(naive.begin() + lines.first, naive.begin() + lines.last + 1, true);
        } else {
            const bool wasHidden = naive[size_t(line)];
            ASSERT_EQ(hidden.show(line), wasHidden);
            for (qsizetype i = line; wasHidden && naive[size_t(i)]; ++i)
                naive[size_t(i)] = false;
            for (qsizetype i = line - 1; wasHidden && naive[size_t(i)]; --i)
                naive[size_t(i)] = false;
        }
        ASSERT_EQ(hidden.count(), std::ranges::count(naive, true));
        for (qsizetype i = 0; i < 40; ++i) {
            qsizetype after = i;
            qsizetype before = i;
            for (; naive[size_t(after)]; ++after) {
            }
            for (; naive[size_t(before)]; --before) {
            }
            ASSERT_EQ(hidden.contains(i), naive[size_t(i)]);
            ASSERT_EQ(hidden.shownAtOrAfter(i), after);
            ASSERT_EQ(hidden.shownAtOrBefore(i), before);
        }
    }
}
