#include "platform/text/LayoutManager.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QImage>
#include <random>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

QFont codeFont()
{
    QFont font(u"DejaVu Sans Mono"_s);
    font.setPixelSize(13);
    return font;
}

QImage picture(LayoutManager &layout, qsizetype line)
{
    QImage image(600, 120, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    layout.drawLine(&painter, line, {0, 0}, image.rect());
    return image;
}

TEST(LayoutManager, KeptLinesFollowEveryEdit)
{
    const QStringList inserts = {u"x"_s,          u"\n"_s, u"\r"_s, u"\r\n"_s,
                                 u"ab\ncd\nef"_s, u""_s,   u"😀"_s,  u"long "_s.repeated(900)};
    for (const qreal wrapWidth : {0.0, 200.0}) {
        LayoutManager layout;
        layout.setFont(codeFont());
        layout.setWrapWidth(wrapWidth);
        TextStorage &text = *layout.textStorage();
        std::minstd_rand random(3);
        for (int i = 0; i < 500; ++i) {
            const auto at = qsizetype(random() % size_t(text.length() + 1));
            const auto length = qMin<qsizetype>(qsizetype(random() % 12), text.length() - at);
            text.replaceCharacters({at, length},
                                   inserts[qsizetype(random() % size_t(inserts.size()))]);
            for (qsizetype line = 0; line < text.lineCount(); line += 1 + text.lineCount() / 8) {
                const TextRange contents = text.lineContents(line);
                ASSERT_EQ(layout.line(line).length(), contents.length) << "step " << i;
            }
            if (i % 20 == 0) {
                const auto line = qsizetype(random() % size_t(text.lineCount()));
                LayoutManager fresh(layout.sharedTextStorage());
                fresh.setFont(codeFont());
                fresh.setWrapWidth(wrapWidth);
                if (fresh.line(line).length() < 1000) {
                    ASSERT_EQ(picture(layout, line), picture(fresh, line)) << "step " << i;
                }
            }
        }
    }
}

TEST(LayoutManager, AttributesShowAtOnceAndMoveWithTheText)
{
    LayoutManager layout;
    layout.setFont(codeFont());
    TextStorage &text = *layout.textStorage();
    text.setString(u"first\nsecond line\nthird"_s);
    const TextAttributes red{{TextAttribute::ForegroundColor, QColor(Qt::red)}};
    const QImage plain = picture(layout, 1);
    int told = 0;
    QObject::connect(&layout, &LayoutManager::displayDidChange, [&](TextRange) { ++told; });

    layout.addTemporaryAttributes(red, {6, 6});
    const QImage coloured = picture(layout, 1);
    EXPECT_NE(coloured, plain);
    EXPECT_EQ(told, 1);
    text.replaceCharacters({0, 0}, u"zeroth\n");
    EXPECT_EQ(picture(layout, 2), coloured);
    layout.removeTemporaryAttributes(TextAttribute::ForegroundColor, {0, text.length()});
    EXPECT_EQ(picture(layout, 2), plain);

    layout.addTemporaryAttributes({{TextAttribute::UnderlineStyle, 15}}, {13, 6});
    EXPECT_EQ(picture(layout, 2), plain) << "heirs draw errors";
    layout.addTemporaryAttributes({{TextAttribute::UnderlineStyle, 1}}, {13, 6});
    EXPECT_NE(picture(layout, 2), plain);
}

TEST(LayoutManager, AnotherTextOrStyleForgetsWhatWasLaidOut)
{
    LayoutManager layout;
    layout.setFont(codeFont());
    layout.textStorage()->setString(u"word "_s.repeated(50));
    EXPECT_EQ(layout.line(0).rowCount(), 1);
    layout.setWrapWidth(200);
    EXPECT_GT(layout.line(0).rowCount(), 5);
    EXPECT_EQ(layout.heightOfLine(0), layout.line(0).rowCount() * layout.style().rowHeight);
    const qreal height = layout.style().rowHeight;
    layout.setLineHeightMultiple(2);
    EXPECT_NEAR(layout.style().rowHeight, 2 * height, 1);
    layout.setLineHeightMultiple(0);
    EXPECT_EQ(layout.style().rowHeight, height);

    layout.addTemporaryAttributes({{TextAttribute::Group, u"g"_s}}, {0, 5});
    const auto other = std::make_shared<TextStorage>();
    other->setString(u"short"_s);
    layout.replaceTextStorage(other);
    EXPECT_EQ(layout.line(0).rowCount(), 1);
    EXPECT_TRUE(layout.temporaryAttributes().attributes(0).isEmpty());
}

} // namespace
