#include "editor/EditorFixture.h"

#include "editor/MGSBreakpointDelegate.h"
#include "editor/MGSLineNumberView.h"
#include "platform/Assert.h"
#include "support/TestSupport.h"
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QTest>

using platform::TextRange;

namespace {

class Breakpoints : public MGSBreakpointDelegate
{
public:
    std::optional<QSet<qsizetype>> breakpointsForFragaria(MGSFragariaView *) override
    {
        return lines;
    }
    QColor breakpointColourForLine(qsizetype line, MGSFragariaView *) override
    {
        return line == 1 ? QColor(Qt::blue) : QColor();
    }
    void toggleBreakpointForFragaria(MGSFragariaView *, qsizetype line) override
    {
        toggled << line;
        if (!lines.remove(line))
            lines.insert(line);
    }
    void fixBreakpointsOfAddedLines(qsizetype delta, TextRange range, MGSFragariaView *) override
    {
        fixed << QString("%1 at %2, %3").arg(delta).arg(range.location).arg(range.length);
    }
    QSet<qsizetype> lines;
    QList<qsizetype> toggled;
    QStringList fixed;
};

class Gutter : public support::EditorFixture
{
protected:
    Gutter() : gutter(*editor.gutterView()) { editor.setBreakpointDelegate(&breakpoints); }
    ~Gutter() override { editor.setBreakpointDelegate(nullptr); }

    QPoint middleOf(qsizetype row) { return gutter.wholeLineRectForLine(row).center().toPoint(); }
    QRgb pixel(QPoint place) { return gutter.grab().toImage().pixel(place); }

    MGSLineNumberView &gutter;
    Breakpoints breakpoints;
};

TEST_F(Gutter, ItsWidthFollowsWhatItShows)
{
    QFont font = editor.gutterFont();
    const auto width = [&](const QString &text) {
        editor.setString(text);
        return gutter.requiredThickness();
    };
    editor.setMinimumGutterWidth(0);
    const double one = width("");
    const double digit = QFontMetricsF(font).horizontalAdvance('0');
    EXPECT_EQ(one, std::ceil(digit + 10));
    EXPECT_EQ(width(QString("\n").repeated(8)), one);
    EXPECT_EQ(width(QString("\n").repeated(9)), std::ceil(2 * digit + 10));
    EXPECT_EQ(width(QString("\n").repeated(999)), std::ceil(4 * digit + 10));
    editor.setStartingLineNumber(0);
    EXPECT_EQ(width(""), one);
    editor.setStartingLineNumber(100);
    EXPECT_EQ(width(""), std::ceil(3 * digit + 10));
    editor.setShowsLineNumbers(false);
    EXPECT_EQ(width(""), 5);
    gutter.setDecorations({{1, QPixmap(40, 20)}, {7, QPixmap(400, 20)}});
    EXPECT_GT(width(""), 5 + digit);
    EXPECT_LT(width(""), 100); // there is no line 7
    gutter.setDecorations({{1, QPixmap(20, 20)}});
    const double withDecoration = width("");
    gutter.setDecorations({});
    gutter.setReservesDecorationColumn(true);
    EXPECT_EQ(width(""), withDecoration);
    editor.setMinimumGutterWidth(120);
    EXPECT_EQ(width(""), 120);
    EXPECT_EQ(gutter.width(), 120);
}

TEST_F(Gutter, AClickTogglesAndADragOffTheLineTogglesBack)
{
    setMarked("a\nb\nc\nd");
    QTest::mouseClick(&gutter, Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(breakpoints.toggled, QList<qsizetype>{3});
    EXPECT_EQ(gutter.selectedLineNumber(), 3);
    QTest::mousePress(&gutter, Qt::LeftButton, {}, middleOf(1));
    QTest::mouseRelease(&gutter, Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(breakpoints.toggled, (QList<qsizetype>{3, 2, 2}));
    EXPECT_EQ(breakpoints.lines, QSet<qsizetype>{3});
    QTest::mouseClick(&gutter, Qt::RightButton, {}, middleOf(1));
    EXPECT_EQ(breakpoints.toggled.size(), 3);
}

TEST_F(Gutter, MarkersHaveTheColourOfTheirLine)
{
    setMarked("a\nb\nc");
    breakpoints.lines = {1, 2};
    editor.reloadBreakpointData();
    const auto left = [&](qsizetype row) {
        return pixel({2, int(gutter.wholeLineRectForLine(row).center().y())});
    };
    EXPECT_EQ(left(0), QColor(Qt::blue).rgb());
    EXPECT_EQ(left(1), QColor::fromRgbF(1, 0.5F, 1).rgb());
    EXPECT_EQ(left(2), editor.gutterBackgroundColour().rgb());
}

TEST_F(Gutter, ItStaysWithTheTextThatIsScrolledOrWrapped)
{
    setMarked("¦" + QString("word ").repeated(100) + "\nb\n" + QString("c\n").repeated(500));
    editor.setLineWrap(true);
    EXPECT_GT(gutter.wholeLineRectForLine(1).top(), 3 * gutter.wholeLineRectForLine(0).height());
    view.setScrollPosition({300, 0, 0});
    EXPECT_TRUE(gutter.wholeLineRectForLine(0).isNull());
    EXPECT_EQ(gutter.lineNumberForLocation(middleOf(303).y()), 303);
    QTest::mouseClick(&gutter, Qt::LeftButton, {}, middleOf(303));
    EXPECT_EQ(breakpoints.toggled, QList<qsizetype>{304});
}

TEST_F(Gutter, TheDelegateIsToldOfLinesThatComeAndGo)
{
    setMarked("a\nb\nc¦\nd");
    breakpoints.fixed.clear();
    type("x");
    EXPECT_EQ(breakpoints.fixed, QStringList());
    type("\n");
    EXPECT_EQ(breakpoints.fixed, QStringList{"1 at 3, 2"});
    view.setSelectedRange({0, 4});
    press(Qt::Key_Delete);
    EXPECT_EQ(breakpoints.fixed.value(1), "-2 at 1, 1");
}

class PaintRecorder : public QObject
{
public:
    QRegion painted;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

TEST_F(Gutter, TypingPaintsTheLinesThatLookDifferent)
{
    setMarked("a\nb¦\nc");
    PaintRecorder recorder;
    gutter.installEventFilter(&recorder);
    const auto paintedBy = [&](const QString &keys) {
        support::settle();
        recorder.painted = {};
        type(keys);
        support::settle();
        return recorder.painted.boundingRect();
    };
    EXPECT_EQ(paintedBy("x"), QRect());
    editor.setMarksChangedLines(true);
    EXPECT_EQ(paintedBy("x"), gutter.wholeLineRectForLine(1).toAlignedRect());
    EXPECT_EQ(paintedBy("\n"), gutter.rect());
    EXPECT_EQ(paintedBy(QString(200, 'w')).bottom(), gutter.rect().bottom()) << "it is wrapped";
}

TEST_F(Gutter, AnotherTextIsFollowedAndTheOldOneLeft)
{
    const auto old = view.layoutManager()->sharedTextStorage();
    auto storage = std::make_shared<platform::TextStorage>();
    storage->setString(u"1\n2\n3");
    editor.replaceTextStorage(storage);
    EXPECT_EQ(view.string(), "1\n2\n3");
    EXPECT_EQ(gutter.lineCount(), 3);
    breakpoints.fixed.clear();
    old->setString(u"\n\n\n");
    EXPECT_EQ(breakpoints.fixed, QStringList());
    storage->replaceCharacters({0, 0}, u"\n");
    EXPECT_EQ(breakpoints.fixed, QStringList{"1 at 1, 2"});
}

TEST_F(Gutter, ADelegateThatKnowsNoBreakpointsIsAFault)
{
    MGSBreakpointDelegate broken;
    try {
        editor.setBreakpointDelegate(&broken);
        ADD_FAILURE();
    } catch (const platform::Exception &exception) {
        EXPECT_EQ(exception.name(), "MGSBrokenBreakpointDelegate");
        EXPECT_TRUE(exception.reason().endsWith(
            "does not implement at least one of the following methods: "
            "-colouredBreakpointsForFragaria:, -breakpointsForFragaria:."));
    }
}

class DecorationTarget : public QObject
{
    Q_OBJECT
public:
    QList<QObject *> senders;
public Q_SLOTS:
    void clickedError(QObject *sender) { senders << sender; }
};

TEST_F(Gutter, ADecorationTakesItsOwnClicks)
{
    setMarked("a\nb\nc");
    QPixmap badge(16, 16);
    badge.fill(Qt::red);
    DecorationTarget target;
    gutter.setDecorations({{2, badge}});
    gutter.setDecorationAction(&target, "clickedError");
    const QRectF place = gutter.decorationRectOfLine(1);
    ASSERT_FALSE(place.isNull());
    EXPECT_TRUE(gutter.wholeLineRectForLine(1).contains(place));
    EXPECT_EQ(pixel(place.center().toPoint()), QColor(Qt::red).rgb());
    QTest::mouseClick(&gutter, Qt::LeftButton, {}, place.center().toPoint());
    EXPECT_EQ(target.senders, QList<QObject *>{&gutter});
    EXPECT_EQ(gutter.selectedLineNumber(), 1);
    EXPECT_TRUE(breakpoints.toggled.isEmpty());
    QTest::mousePress(&gutter, Qt::LeftButton, {}, place.center().toPoint());
    QTest::mouseRelease(&gutter, Qt::LeftButton, {}, middleOf(0));
    EXPECT_EQ(target.senders.size(), 1);
    EXPECT_TRUE(breakpoints.toggled.isEmpty());
    EXPECT_EQ(gutter.testHit({-1, 5}).kind, MGSLineNumberView::HitKind::Outside);
}

TEST_F(Gutter, HidingItGivesTheRoomToTheText)
{
    const int width = view.viewport()->width();
    const int room = gutter.width();
    editor.setShowsGutter(false);
    EXPECT_EQ(view.viewport()->width(), width + room);
    EXPECT_FALSE(editor.showsGutter());
    editor.setShowsGutter(true);
    EXPECT_EQ(view.viewport()->width(), width);
}

} // namespace

#include "GutterTest.moc"
