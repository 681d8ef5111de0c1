#include "platform/text/PlainLayout.h"

#include "platform/text/ShapedLayout.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>
#include <random>

using namespace platform;

namespace {

LineStyle styleOf(const QString &family)
{
    LineStyle style;
    style.font = QFont(family);
    style.font.setPixelSize(13);
    style.font.setHintingPreference(QFont::PreferFullHinting);
    style.plainGlyphs = std::make_shared<PlainGlyphs>(style.font);
    return style;
}

// Knows the text afterwards, if it can be known.
void teach(const LineStyle &style, QString text)
{
    text.remove(u'\t');
    style.plainGlyphs->learn(text, ShapedLayout(text, style), style.baseline);
}

QImage pictureOf(const PieceLayout &layout, TextRange range)
{
    QImage image(int(layout.width()) + 20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const QGlyphRun &run : layout.glyphsOf(range, 0))
        painter.drawGlyphRun({0, 0}, run);
    return image;
}

} // namespace

TEST(PlainLayoutTest, AnswersLikeShapedTextOnRandomLines)
{
    const LineStyle style = styleOf(QStringLiteral("DejaVu Sans Mono"));
    std::minstd_rand random(7);
    const QString alphabet = QStringLiteral("ab fi\t<=!-->\"x=éßÿ§");
    for (int i = 0; i < 300; ++i) {
        QString text;
        for (unsigned length = random() % 40; length > 0; --length)
            text += alphabet[qsizetype(random() % size_t(alphabet.size()))];
        SCOPED_TRACE(text.toStdString());
        teach(style, text);
        for (const QString &part : text.split(u'\t'))
            teach(style, part);
        const auto plain = PlainLayout::of(text, style);
        ASSERT_TRUE(plain);
        const ShapedLayout shaped(text, style);
        EXPECT_NEAR(plain->width(), shaped.width(), 0.01);
        for (qsizetype offset = 0; offset <= text.size(); ++offset) {
            EXPECT_NEAR(plain->xOf(offset, 0), shaped.xOf(offset, 0), 0.01);
            EXPECT_EQ(plain->leftOf(offset), shaped.leftOf(offset));
            EXPECT_EQ(plain->rightOf(offset), shaped.rightOf(offset));
        }
        for (qreal x = -3.31; x < shaped.width() + 10; x += 3.71) {
            EXPECT_EQ(plain->offsetAt(x, 0), shaped.offsetAt(x, 0)) << x;
            EXPECT_EQ(plain->clusterAt(x, 0), shaped.clusterAt(x, 0)) << x;
        }
        const auto start = qsizetype(random() % size_t(text.size() + 1));
        const auto end = start + qsizetype(random() % size_t(text.size() - start + 1));
        const TextRange range = TextRange::between(start, end);
        EXPECT_EQ(plain->spansOf(range, 0), shaped.spansOf(range, 0));
        EXPECT_EQ(pictureOf(*plain, range), pictureOf(shaped, range));
    }
}

TEST(PlainLayoutTest, LeavesToShapingWhatNeedsIt)
{
    const LineStyle style = styleOf(QStringLiteral("DejaVu Sans Mono"));
    EXPECT_FALSE(PlainLayout::of(QStringLiteral("ab"), style)) << "nothing learned yet";
    teach(style, QStringLiteral("abc"));
    EXPECT_TRUE(PlainLayout::of(QStringLiteral("abc"), style));
    EXPECT_FALSE(PlainLayout::of(QStringLiteral("acb"), style)) << "other neighbours";
    for (const QString &text :
         {QStringLiteral("e\u0301"), QStringLiteral("日"), QStringLiteral("א"),
          QStringLiteral("\u00AD"), QStringLiteral("\u2400")}) {
        teach(style, text);
        EXPECT_FALSE(PlainLayout::of(text, style)) << text.toStdString();
    }
    EXPECT_TRUE(PlainLayout::of(QStringLiteral("abc"), style)) << "they taught nothing wrong";

    LineStyle wrapped = style;
    wrapped.wrapWidth = 20;
    EXPECT_FALSE(PlainLayout::of(QStringLiteral("abc"), wrapped)) << "more than a row";
}

TEST(PlainLayoutTest, KnowsNothingOfFontsWithManyAdvances)
{
    const LineStyle style = styleOf(QStringLiteral("DejaVu Sans"));
    teach(style, QStringLiteral("iW"));
    teach(style, QStringLiteral("W"));
    EXPECT_FALSE(PlainLayout::of(QStringLiteral("iW"), style));
    EXPECT_FALSE(PlainLayout::of(QStringLiteral("W"), style));
}
