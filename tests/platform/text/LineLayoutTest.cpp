#include "platform/text/LineLayout.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QFontMetricsF>
#include <QImage>
#include <random>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

class NoFormats final : public LineFormats
{
public:
    std::vector<Run> runs(TextRange) const override { return {}; }
};

LineStyle styleOf(qreal wrapWidth)
{
    LineStyle style;
    style.font = QFont(u"DejaVu Sans Mono"_s);
    style.font.setPixelSize(13);
    style.characterWidth = QFontMetricsF(style.font).horizontalAdvance(u' ');
    style.wrapWidth = wrapWidth;
    return style;
}

QString randomLine(std::minstd_rand &random, int length)
{
    static const QStringList parts = {u"a"_s,
                                      u"word "_s,
                                      u"<b class=\"x\">"_s,
                                      u"\t"_s,
                                      u"é"_s,
                                      u"e\u0301"_s,
                                      u"😀"_s,
                                      u"漢字"_s,
                                      u"\u0001"_s,
                                      u"\u2028"_s,
                                      QString(QChar(0xD800))};
    QString line;
    while (line.size() < length)
        line += parts[qsizetype(random() % size_t(parts.size()))];
    return line;
}

class LineLayoutTest : public testing::TestWithParam<int>
{
protected:
    NoFormats formats;
    LineStyle style = styleOf(GetParam());
};

INSTANTIATE_TEST_SUITE_P(WrapWidths, LineLayoutTest, testing::Values(0, 60, 400));

TEST_P(LineLayoutTest, RowsCoverTheLineOnceAndCaretsComeBack)
{
    std::minstd_rand random(7);
    for (const int length : {0, 1, 40, 900, 20'000}) {
        const QString text = randomLine(random, length);
        LineLayout line(text, style, formats);
        ASSERT_EQ(line.length(), text.size());
        qsizetype covered = 0;
        for (qsizetype row = 0; row < line.rowCount(); ++row) {
            const TextRange range = line.rowRange(row); // may make the line higher by knowing it
            ASSERT_EQ(range.location, covered) << "row " << row;
            covered = range.end();
        }
        EXPECT_EQ(covered, text.size());
        for (int i = 0; i < 200; ++i) {
            const QPointF anywhere(qreal(random() % unsigned(line.width() + 1)),
                                   qreal(random() % unsigned(line.height())));
            TextAffinity affinity;
            const qsizetype offset = line.offsetAt(anywhere, &affinity);
            const QRectF caret = line.caretRect(offset, affinity);
            ASSERT_EQ(qsizetype(caret.top() / style.rowHeight), line.rowAt(offset, affinity));
            const qsizetype again = line.offsetAt(caret.topLeft() + QPointF(0.01, 1), &affinity);
            ASSERT_NEAR(line.caretRect(again, affinity).x(), caret.x(), 20) << offset;
            EXPECT_TRUE(style.wrapWidth == 0 || caret.x() <= style.wrapWidth + 20) << caret.x();
        }
    }
}

TEST_P(LineLayoutTest, AnEditLeavesWhatLayingOutAnewWouldGive)
{
    std::minstd_rand random(11);
    QString text(u"word "_s.repeated(4000));
    LineLayout edited(text, style, formats);
    for (int i = 0; i < 60; ++i) {
        const auto at = qsizetype(random() % size_t(text.size()));
        const TextRange range{at, qMin<qsizetype>(qsizetype(random() % 3000), text.size() - at)};
        const QString with = u"<i>ab</i> "_s.repeated(int(random() % 300));
        text.replace(range.location, range.length, with);
        edited.replace(range, with);
        ASSERT_EQ(edited.length(), text.size());
        qsizetype covered = 0;
        for (qsizetype row = 0; row < edited.rowCount(); ++row)
            covered += edited.rowRange(row).length;
        ASSERT_EQ(covered, text.size());
        if (style.wrapWidth == 0) {
            for (qsizetype offset = 0; offset <= text.size(); offset += 500)
                ASSERT_NEAR(edited.caretRect(offset).x(), qreal(offset) * style.characterWidth, 4);
        }
    }
}

// Who paints goes from line to line by their heights.
TEST_P(LineLayoutTest, TheHeightOfALineOfUsualLengthHoldsFromTheStart)
{
    std::minstd_rand random(5);
    for (int i = 0; i < 30; ++i) {
        LineLayout line(randomLine(random, 100 * i), style, formats);
        const qreal height = line.height();
        for (qsizetype offset = 0; offset <= line.length(); ++offset)
            line.caretRect(offset);
        ASSERT_EQ(line.height(), height);
    }
}

TEST_P(LineLayoutTest, SelectionsCoverWhatIsBetweenTheCarets)
{
    LineLayout line(u"one שתיים two"_s, style, formats);
    const QRectF everything(0, 0, 10'000, 10'000);
    qreal width = 0;
    for (const QRectF &rect : line.rectsOf({0, line.length()}, everything))
        width += rect.width();
    qreal sum = 0;
    for (qsizetype offset = 0; offset < line.length(); ++offset) {
        for (const QRectF &rect : line.rectsOf({offset, 1}, everything))
            sum += rect.width();
    }
    EXPECT_NEAR(sum, width, 1);
    if (style.wrapWidth != 60) {
        EXPECT_EQ(line.rectsOf({2, 4}, everything).size(), 2U) << "two directions";
    }
    EXPECT_TRUE(line.rectsOf({0, 5}, QRectF(0, 5000, 10, 10)).empty());
}

TEST_P(LineLayoutTest, CaretsWalkOverWholeClustersInBothDirections)
{
    for (const QString &text : {u"ae\u0301😀b"_s, u"x שלום y"_s, u"a"_s.repeated(9000)}) {
        LineLayout line(text, style, formats);
        QList<qsizetype> right{0};
        while (line.rightOf(right.last()) != right.last() && right.size() < 20'000)
            right.append(line.rightOf(right.last()));
        EXPECT_EQ(right.last(), text.size());
        EXPECT_FALSE(right.contains(2) && text.startsWith(u"ae\u0301"));
        qsizetype at = text.size();
        for (qsizetype step = right.size() - 1; step > 0; --step)
            at = line.leftOf(at);
        EXPECT_EQ(at, 0);
    }
}

TEST_P(LineLayoutTest, DrawsAllThatIsInTheClip)
{
    LineLayout line(u"0123456789 "_s.repeated(2'000), style, formats);
    const auto drawn = [&](QPointF origin, const QRectF &clip) {
        QImage image(400, 200, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        line.draw(&painter, origin, clip);
        painter.end();
        return image.copy(100, 0, 50, 200);
    };
    for (const qreal far : {0.0, 300.0, 3000.0}) {
        const QPointF origin = style.wrapWidth > 0 ? QPointF(90, -far) : QPointF(-far, 0);
        const QImage all = drawn(origin, {-1e6, -1e6, 2e6, 2e6});
        EXPECT_EQ(drawn(origin, {100, 0, 50, 200}), all) << far;
        QImage blank = all;
        blank.fill(Qt::white);
        EXPECT_NE(all, blank) << far;
    }
}

} // namespace
