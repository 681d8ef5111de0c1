#include "editor/EditorFixture.h"

#include <QScrollBar>
#include <QTest>

namespace {

class TextViewDrawing : public support::EditorFixture
{
protected:
    TextViewDrawing()
    {
        editor.setTextColor(Qt::black);
        editor.setBackgroundColor(Qt::white);
        editor.setInsertionPointColor(Qt::white);
    }

    QImage picture()
    {
        return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    int count(const QColor &colour, const QRect &where = {})
    {
        const QImage image = where.isNull() ? picture() : picture().copy(where);
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found += image.pixel(x, y) == colour.rgb();
        }
        return found;
    }
    /// Leftmost x that has another colour than white, over the whole height.
    int columnOf(const QColor &colour)
    {
        const QImage image = picture();
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, image.height() - 5) == colour.rgb())
                return x;
        }
        return -1;
    }
};

TEST_F(TextViewDrawing, TheCurrentLineIsThatOfTheWholeSelection)
{
    editor.setHighlightsCurrentLine(true);
    editor.setCurrentLineHighlightColour(Qt::green);
    const auto highlighted = [&](const QString &marked) {
        setMarked(marked);
        QList<qsizetype> lines;
        const QImage image = picture();
        for (qsizetype line = 0; line < 3; ++line) {
            const QPoint place(image.width() - 3, int(view.rectOfLine(line).center().y()));
            if (image.pixelColor(place) == QColor(Qt::green))
                lines << line;
        }
        return lines;
    };
    EXPECT_EQ(highlighted("a\nb¦\nc"), QList<qsizetype>{1});
    EXPECT_EQ(highlighted("a\n‹bb›\nc"), QList<qsizetype>{1});
    EXPECT_EQ(highlighted("a\n‹b\n›c"), QList<qsizetype>{1}); // its line end is its own
    EXPECT_EQ(highlighted("a‹\nb›\nc"), QList<qsizetype>{});
    EXPECT_EQ(highlighted("a\nb\n¦"), QList<qsizetype>{2});
    press(Qt::Key_Up);
    EXPECT_GT(count(Qt::green, view.rectOfLine(1).toRect()), 1000);
    EXPECT_EQ(count(Qt::green, view.rectOfLine(2).toRect()), 0);
    editor.setHighlightsCurrentLine(false);
    EXPECT_EQ(count(Qt::green), 0);
}

TEST_F(TextViewDrawing, ThePageGuideStandsBehindItsColumn)
{
    setMarked("¦" + QString("0").repeated(40));
    editor.setLineWrap(false);
    editor.setPageGuideColumn(30);
    const QColor guide(QColor::fromRgbF(0.75F, 0.75F, 0.75F));
    EXPECT_EQ(count(guide, {0, 100, 700, 100}), 0);
    editor.setShowsPageGuide(true);
    EXPECT_EQ(count(guide, {0, 100, 700, 100}), 100);
    const int x = columnOf(guide);
    EXPECT_GE(x, int(view.caretRect(30).left()) - 1);
    EXPECT_LE(x, int(view.caretRect(31).left()));
}

TEST_F(TextViewDrawing, LinesWrapInThreeWays)
{
    setMarked("¦" + QString("0123456789 ").repeated(30));
    const auto rows = [&] {
        view.setScrollPosition({});
        view.viewport()->grab();
        return qRound(view.rectOfLine(0).height() / view.layoutManager()->style().rowHeight);
    };
    editor.setPageGuideColumn(22);
    editor.setLineWrap(false);
    EXPECT_EQ(rows(), 1);
    EXPECT_TRUE(view.horizontalScrollBar()->isVisible());
    editor.setLineWrap(true);
    const int wrapped = rows();
    EXPECT_GT(wrapped, 3);
    EXPECT_LT(wrapped, 15);
    editor.setLineWrapsAtPageGuide(true);
    EXPECT_EQ(rows(), 15);
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
    editor.setPageGuideColumn(220);
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(view.horizontalScrollBar()->isVisible());
    editor.setLineWrapsAtPageGuide(false);
    EXPECT_EQ(rows(), wrapped);
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
    editor.resize(350, 400);
    EXPECT_GT(rows(), wrapped);
}

TEST_F(TextViewDrawing, TabsAreAsWideAsTheirBlanks)
{
    setMarked("¦\tx\n        x\n     x");
    const auto left = [&](qsizetype index) {
        return view.caretRect(index).left();
    };
    editor.setTabWidth(8);
    EXPECT_NEAR(left(1), left(11), 0.6);
    editor.setTabWidth(5);
    EXPECT_NEAR(left(1), left(18), 0.6);
    editor.setTextFont(QFont("DejaVu Sans Mono", 20));
    EXPECT_NEAR(left(1), left(18), 0.6);
    view.zoom(5);
    EXPECT_NEAR(left(1), left(18), 0.6);
    EXPECT_EQ(editor.textFont().pointSize(), 20);
    EXPECT_EQ(view.layoutManager()->invisibleCharactersFont().pointSize(), 25);
}

TEST_F(TextViewDrawing, InvisibleCharactersShowWhenAskedTo)
{
    editor.setTextInvisibleCharactersColour(Qt::blue);
    setMarked("¦a\tb c\r\nd\n");
    const auto signsAt = [&](qsizetype index) {
        const QRectF place = view.caretRect(index);
        return count(Qt::blue, QRectF(place.left(), place.top(), 9, place.height()).toRect()) > 0;
    };
    EXPECT_FALSE(signsAt(1) || signsAt(3) || signsAt(5));
    editor.setShowsInvisibleCharacters(true);
    EXPECT_TRUE(signsAt(1)) << "tab";
    EXPECT_TRUE(signsAt(3)) << "blank";
    EXPECT_TRUE(signsAt(5)) << "line end";
    EXPECT_FALSE(signsAt(9)) << "the end of the text";
    editor.setTextInvisibleCharactersColour(Qt::red);
    EXPECT_EQ(count(Qt::blue), 0);
}

TEST_F(TextViewDrawing, ErrorsAreUnderlinedInRed)
{
    setMarked("¦abc def\nghi");
    const auto underline = [&](int style) {
        view.layoutManager()->setTemporaryAttributes(
            {{platform::TextAttribute::UnderlineStyle, style}}, {4, 3});
        QSet<int> rows; // a straight line is in one or two
        const QImage image = picture();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                const bool isRed = colour.red() > 200 && colour.green() < 160;
                if (isRed)
                    rows.insert(y);
                const bool isBelowWord =
                    x >= view.caretRect(4).left() - 1 && x <= view.caretRect(7).left() + 1;
                EXPECT_TRUE(isBelowWord || !isRed) << x;
            }
        }
        return rows.size();
    };
    EXPECT_EQ(underline(1), 0);
    EXPECT_GT(underline(0x0F), 2);
    EXPECT_GT(underline(0x1F), 2);
}

TEST_F(TextViewDrawing, OnlyWhatIsSeenIsColoured)
{
    editor.setSyntaxDefinitionName("C");
    editor.setString(QString("return 1;\n").repeated(5000));
    view.viewport()->grab();
    const auto group = [&](qsizetype index) {
        return view.layoutManager()->temporaryAttributes().value(platform::TextAttribute::Group,
                                                                 index);
    };
    EXPECT_EQ(group(0), "keyword");
    EXPECT_FALSE(group(40000).isValid());
    editor.setSyntaxColoured(false);
    view.viewport()->grab();
    EXPECT_FALSE(group(0).isValid());
}

} // namespace
