#include "TextViewFixture.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>

using namespace platform;
using namespace Qt::StringLiterals;
using support::TextViewTest;

namespace {

class TextViewScrollingTest : public TextViewTest
{
protected:
    void wheel(QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWheelEvent event(QPointF(20, 20), view.mapToGlobal(QPointF(20, 20)), pixels, angle,
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    void paint()
    {
        view.viewport()->repaint();
        support::settle();
        view.painted = {};
        view.announced.clear();
    }
};

} // namespace

TEST_F(TextViewScrollingTest, TenMillionLinesOpenAndScrollAtOnce)
{
    view.textStorage()->setString(u"\n"_s.repeated(10'000'000));
    QElapsedTimer clock;
    clock.start();
    for (const double wrapWidth : {0.0, 380.0}) {
        view.layoutManager()->setWrapWidth(wrapWidth);
        press(u"Ctrl+End"_s);
        view.grab();
        EXPECT_EQ(view.selectedRange().location, 10'000'000);
        EXPECT_EQ(view.rectOfLine(10'000'000).bottom(), view.viewport()->height());
        EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
        for (int part = 0; part < 100; ++part) {
            view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 100 * part);
            view.grab();
        }
        EXPECT_NEAR(double(view.scrollPosition().line), 9'900'000, 1000);
        press(u"Ctrl+Home, x, Ctrl+Z"_s);
        EXPECT_EQ(view.scrollPosition(), ScrollPosition());
    }
    EXPECT_LT(clock.elapsed(), 5000);
}

TEST_F(TextViewScrollingTest, AnEditAboveLeavesWhatIsSeenInPlace)
{
    TextStorage &text = *view.textStorage();
    text.setString(u"line\n"_s.repeated(1000));
    view.setScrollPosition({500, 7, 0});
    text.replaceCharacters({0, 0}, u"a\nb\nc\n"_s);
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{503, 7, 0}));
    text.replaceCharacters({0, 106}, {});
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{480, 7, 0}));
    text.replaceCharacters({text.lineStart(490), 0}, u"x\ny\n"_s); // in sight
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{480, 7, 0}));
    text.replaceCharacters({0, text.length()}, u"short"_s);
    EXPECT_EQ(view.scrollPosition(), ScrollPosition());
}

TEST_F(TextViewScrollingTest, TheCaretStaysInSight)
{
    view.textStorage()->setString(u"line\n"_s.repeated(100));
    const auto isInSight = [this] {
        const QRectF caret = view.caretRect(view.selectedRange().location);
        return !caret.isNull() && QRectF(view.viewport()->rect()).contains(caret.center());
    };
    for (int i = 0; i < 100; ++i) {
        press(u"Down"_s);
        ASSERT_TRUE(isInSight()) << i;
    }
    press(u"PgUp"_s);
    EXPECT_TRUE(isInSight());
    EXPECT_LT(view.scrollPosition().line, 80);
    view.setScrollPosition({});
    type(u"x"_s);
    EXPECT_TRUE(isInSight());
    press(u"Ctrl+End"_s);
    view.resize(400, 100);
    EXPECT_TRUE(isInSight()) << "a narrower view";
    view.setScrollPosition({});
    view.resize(400, 300);
    EXPECT_EQ(view.scrollPosition(), ScrollPosition()) << "what is read does not move";
    press(u"Ctrl+Home"_s);

    type(u"a long line "_s.repeated(20));
    EXPECT_TRUE(isInSight());
    EXPECT_GT(view.scrollPosition().left, 500);
    press(u"Home"_s);
    EXPECT_EQ(view.scrollPosition().left, 0);
    press(u"Shift+End, Del"_s);
    view.grab();
    support::settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(TextViewScrollingTest, WheelsAndBarsScrollByPixelsAndRows)
{
    view.textStorage()->setString(u"line\n"_s.repeated(100));
    wheel({0, -5}, {0, -120});
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{0, 5, 0}));
    wheel({0, 500}, {0, 120});
    EXPECT_EQ(view.scrollPosition(), ScrollPosition());
    wheel({}, {0, -120});
    EXPECT_EQ(view.scrollPosition().line, 3);
    for (int i = 0; i < 8; ++i)
        wheel({}, {0, -15}); // a fine wheel comes as far
    EXPECT_EQ(view.scrollPosition().line, 6);
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{7, 0, 0}));
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{7, 0, 0}));
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + 3);
    EXPECT_EQ(view.scrollPosition(), (ScrollPosition{7, 3, 0}));

    const QFont font = view.layoutManager()->style().font;
    wheel({}, {0, 120}, Qt::ControlModifier);
    wheel({}, {0, 120}, Qt::ControlModifier);
    EXPECT_EQ(view.layoutManager()->style().font.pixelSize(), 15);
    press(u"Ctrl+-, Ctrl+-"_s);
    EXPECT_EQ(view.layoutManager()->style().font.pixelSize(), 13);
    press(u"Ctrl++, Ctrl+="_s);
    EXPECT_EQ(view.layoutManager()->style().font.pixelSize(), 15);
    press(u"Ctrl+0"_s);
    EXPECT_EQ(view.layoutManager()->style().font, font);
}

TEST_F(TextViewScrollingTest, ALineOfAMillionCharactersCanBeEditedAnywhere)
{
    const QString line = u"<td class=\"cell\">some words of a line</td> "_s.repeated(25'000);
    for (const double wrapWidth : {0.0, 380.0}) {
        view.textStorage()->setString(line + u"\nend"_s);
        view.layoutManager()->setWrapWidth(wrapWidth);
        view.setSelectedRange({line.size() / 2, 0});
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < 20; ++i) {
            type(u"x"_s);
            press(u"Up, Down, Left, Backspace"_s);
            view.grab();
            const QRectF caret =
                view.caretRect(view.selectedRange().location, view.selections().main().affinity);
            ASSERT_TRUE(QRectF(view.viewport()->rect()).contains(caret.center())) << wrapWidth;
        }
        EXPECT_LT(clock.elapsed(), 2000) << wrapWidth;
        for (const TextRange range : view.announced)
            ASSERT_LT(range.length, 20'000);
        view.announced.clear();
        press(u"Ctrl+End, Up"_s);
        EXPECT_TRUE(view.lineAtY(0) == 0 && !view.rectOfLine(0).isNull());
    }
}

TEST_F(TextViewScrollingTest, ScrollingUpIntoALongLineMovesBySmallSteps)
{
    view.layoutManager()->setWrapWidth(380);
    view.textStorage()->setString(u"wide 字字字字 and narrow iiii words "_s.repeated(4000) +
                                  u"\nend\n"_s);
    press(u"Ctrl+End"_s);
    for (int i = 0; i < 400; ++i) {
        const qsizetype index = view.indexAt({0, 20});
        const qreal y = view.caretRect(index).y();
        view.scrollByPixels({0, -10});
        view.grab();
        ASSERT_NEAR(view.caretRect(index).y(), y + 10, 0.5) << i;
    }
}

TEST_F(TextViewScrollingTest, OnlyWhatChangesIsPainted)
{
    view.textStorage()->setString(u"some words\n"_s.repeated(10));
    view.setSelectedRange({12, 0});
    paint();
    type(u"x"_s);
    support::settle();
    EXPECT_EQ(view.painted.boundingRect(), view.rectOfLine(1).toAlignedRect());
    EXPECT_EQ(view.announced, (QList<TextRange>{{11, 12}}));
    paint();
    press(u"Down"_s);
    support::settle();
    EXPECT_EQ(view.painted.boundingRect(),
              view.rectOfLine(1).united(view.rectOfLine(2)).toAlignedRect());
    paint();
    press(u"Return"_s); // all below moves
    support::settle();
    EXPECT_EQ(view.painted.boundingRect().top(), view.rectOfLine(2).top());
    EXPECT_EQ(view.painted.boundingRect().bottom(), view.viewport()->rect().bottom());
    paint();
    EXPECT_TRUE(support::waitUntil([this] { return !view.painted.isEmpty(); }, 3)); // blinks
    EXPECT_LE(view.painted.boundingRect().width(), 3);
    EXPECT_LE(view.painted.boundingRect().height(), int(rowHeight()));
    paint();
    view.layoutManager()->addTemporaryAttributes(
        {{TextAttribute::ForegroundColor, QColor(Qt::red)}}, {0, 4});
    support::settle();
    EXPECT_TRUE(view.painted.contains(view.rectOfLine(0).toAlignedRect()));
    EXPECT_FALSE(view.painted.intersects(view.rectOfLine(5).toAlignedRect()));

    // A row more or less in a wrapped line moves all below it.
    view.layoutManager()->setWrapWidth(100);
    view.setSelectedRange({4, 0});
    paint();
    type(u"wwwwwwww"_s);
    support::settle();
    EXPECT_EQ(view.painted.boundingRect().bottom(), view.viewport()->rect().bottom());
}

TEST_F(TextViewScrollingTest, ColoursMadeWhilePaintingNeedNoSecondFrame)
{
    view.textStorage()->setString(u"some words\n"_s.repeated(10));
    view.colour = [this](TextRange range) {
        view.layoutManager()->addTemporaryAttributes(
            {{TextAttribute::ForegroundColor, QColor(Qt::red)}}, range);
    };
    paint();
    view.layoutManager()->removeTemporaryAttributes(TextAttribute::ForegroundColor, {0, 110});
    support::settle();
    const qsizetype frames = view.announced.size();
    support::settle();
    EXPECT_EQ(view.announced.size(), frames);
    const QImage image = view.viewport()->grab().toImage();
    bool hasRed = false;
    for (int x = 0; x < image.width(); ++x)
        hasRed = hasRed || image.pixelColor(x, 8).red() > image.pixelColor(x, 8).green() + 80;
    EXPECT_TRUE(hasRed);
}

TEST_F(TextViewScrollingTest, CaretsAndSelectionsAreSeen)
{
    const QColor caret(0, 0, 255);
    view.setBackgroundColor(Qt::white);
    view.setTextColor(Qt::white); // so that only they are
    view.setInsertionPointColor(caret);
    set(u"|abc\nd[  \n ]hi\nk|"_s);
    const QImage image = view.viewport()->grab().toImage();
    const auto colorAt = [&](qsizetype index, int dx) {
        const QRectF rect = view.caretRect(index);
        return image.pixelColor(int(rect.x()) + dx, int(rect.center().y()));
    };
    EXPECT_EQ(colorAt(0, 0), caret);
    EXPECT_EQ(colorAt(13, 0), caret);
    EXPECT_EQ(colorAt(0, 3), QColor(Qt::white));
    EXPECT_EQ(colorAt(5, 3).rgb(), view.selectionColor().rgb());
    EXPECT_EQ(colorAt(7, 2).rgb(), view.selectionColor().rgb()); // the line end
    EXPECT_EQ(colorAt(8, 3).rgb(), view.selectionColor().rgb());
    EXPECT_EQ(colorAt(4, 3), QColor(Qt::white));
    EXPECT_EQ(colorAt(10, 3), QColor(Qt::white));
    view.clearFocus();
    EXPECT_NE(view.viewport()->grab().toImage().pixelColor(5, 8), caret);
}

TEST_F(TextViewScrollingTest, AnotherTextStartsAtItsTop)
{
    view.textStorage()->setString(u"line\n"_s.repeated(1000));
    press(u"Ctrl+End"_s);
    const auto old = view.layoutManager()->sharedTextStorage();
    auto other = std::make_shared<TextStorage>();
    other->setString(u"other"_s);
    view.layoutManager()->replaceTextStorage(other);
    EXPECT_EQ(marked(), u"|other"_s);
    EXPECT_EQ(view.scrollPosition(), ScrollPosition());
    old->setString(u"gone"_s); // is nobody's business now
    type(u"x"_s);
    EXPECT_EQ(marked(), u"x|other"_s);
    press(u"Ctrl+Z, Ctrl+Z"_s);
    EXPECT_EQ(marked(), u"|other"_s);
}

TEST_F(TextViewScrollingTest, ARulerStandsLeftOfTheText)
{
    auto *ruler = new QLabel(u"12"_s);
    ruler->setFixedWidth(40);
    view.setRuler(ruler);
    support::settle();
    EXPECT_EQ(ruler->geometry(), QRect(0, 0, 40, view.height()));
    EXPECT_EQ(view.viewport()->x(), 40);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorRectangle).toRectF().x(),
              view.caretRect(0).x() + 40);
}
