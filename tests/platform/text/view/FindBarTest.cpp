#include "platform/text/view/FindBar.h"

#include "platform/text/view/TextView.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::FindBar;
using platform::LayoutManager;
using platform::TextRange;
using platform::TextView;

namespace {

class FindBarTest : public testing::Test
{
protected:
    FindBarTest()
    {
        window.resize(500, 300);
        auto *layout = new QVBoxLayout(&window);
        view = new TextView(std::make_unique<LayoutManager>());
        layout->addWidget(view);
        bar = new FindBar(view);
        layout->addWidget(bar);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        view->setFocus();
    }

    void setText(const QString &text)
    {
        view->textStorage()->setString(text);
        view->setSelectedRange({0, 0});
    }

    void open(const QString &query)
    {
        QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(field("findField"), query);
    }

    QLineEdit *field(const char *name) { return bar->findChild<QLineEdit *>(QLatin1String(name)); }
    QAbstractButton *button(const char *name)
    {
        return bar->findChild<QAbstractButton *>(QLatin1String(name));
    }
    QString status() { return bar->findChild<QLabel *>(u"statusLabel"_s)->text(); }
    bool statusIs(const QString &wanted)
    {
        return support::waitUntil([&] { return status() == wanted; }, 5);
    }
    bool selects(TextRange range)
    {
        return support::waitUntil([&] { return view->selectedRange() == range; }, 5);
    }

    QWidget window;
    TextView *view;
    FindBar *bar;
};

} // namespace

TEST_F(FindBarTest, GoesFromMatchToMatchAndRound)
{
    setText(u"one two one two one"_s);
    EXPECT_FALSE(bar->isVisible());
    open(u"one"_s);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(status(), u"3 found"_s);
    QTest::keyClick(field("findField"), Qt::Key_Return);
    EXPECT_TRUE(selects({0, 3}));
    EXPECT_EQ(status(), u"1 of 3"_s);
    QTest::keyClick(field("findField"), Qt::Key_F3);
    EXPECT_TRUE(selects({8, 3}));
    QTest::keyClick(field("findField"), Qt::Key_Return);
    QTest::keyClick(field("findField"), Qt::Key_Return);
    EXPECT_TRUE(selects({0, 3}));
    QTest::keyClick(field("findField"), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(selects({16, 3}));
    EXPECT_EQ(status(), u"3 of 3"_s);
    QTest::keyClick(field("findField"), Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(view->hasFocus());
    QTest::keyClick(view, Qt::Key_F3, Qt::ShiftModifier); // without the bar, too
    EXPECT_TRUE(selects({8, 3}));
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(FindBarTest, OptionsAndTheSelectionSayWhatIsLookedFor)
{
    setText(u"Cat cat category c.t\n"_s);
    view->setSelectedRange({0, 3});
    QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(field("findField")->text(), u"Cat"_s);
    EXPECT_EQ(status(), u"1 of 3"_s);
    button("caseButton")->click();
    EXPECT_EQ(status(), u"1 of 1"_s);
    button("caseButton")->click();
    button("wordsButton")->click();
    EXPECT_EQ(status(), u"1 of 2"_s);
    button("wordsButton")->click();
    button("expressionButton")->click();
    field("findField")->setText(u"c.t"_s);
    EXPECT_EQ(status(), u"1 of 4"_s);
    field("findField")->setText(u"c(t"_s);
    EXPECT_TRUE(status().contains(u"parenthesis"_s)) << status().toStdString();
    QTest::keyClick(field("findField"), Qt::Key_Return);
    EXPECT_TRUE(status().contains(u"parenthesis"_s)) << status().toStdString();
    field("findField")->setText(u"dog"_s);
    EXPECT_EQ(status(), u"Not found"_s);
    view->setSelectedRange({0, 21}); // over a line end: nothing that fits into the field
    QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(field("findField")->text(), u"dog"_s);
}

TEST_F(FindBarTest, ReplacesOneAfterTheOther)
{
    setText(u"a1 b2 c3"_s);
    QTest::keyClick(view, Qt::Key_H, Qt::ControlModifier);
    button("expressionButton")->click();
    field("findField")->setText(u"([a-z])(\\d)"_s);
    field("replaceField")->setText(u"$2$1"_s);
    field("replaceField")->setFocus();
    QTest::keyClick(field("replaceField"), Qt::Key_Return); // to the first
    EXPECT_TRUE(selects({0, 2}));
    QTest::keyClick(field("replaceField"), Qt::Key_Return);
    EXPECT_TRUE(selects({3, 2}));
    QTest::mouseClick(button("replaceButton"), Qt::LeftButton);
    EXPECT_TRUE(selects({6, 2}));
    EXPECT_EQ(view->string(), u"1a 2b c3"_s);
    field("replaceField")->setText(u"$3"_s);
    QTest::mouseClick(button("replaceButton"), Qt::LeftButton);
    EXPECT_TRUE(status().contains(u"no group"_s)) << status().toStdString();
    EXPECT_EQ(view->string(), u"1a 2b c3"_s);
}

TEST_F(FindBarTest, ReplacesAllInOneStepOfUndo)
{
    const QString text = u"<b>x</b>\r\n"_s.repeated(500);
    setText(text);
    view->setSelectedRange({13, 0}); // before the "x" of the second line
    QTest::keyClick(view, Qt::Key_H, Qt::ControlModifier);
    field("findField")->setText(u"b>"_s);
    field("replaceField")->setText(u"strong>"_s);
    QTest::mouseClick(button("replaceAllButton"), Qt::LeftButton);
    EXPECT_EQ(status(), u"1000 replaced"_s);
    EXPECT_EQ(view->string(), u"<strong>x</strong>\r\n"_s.repeated(500));
    EXPECT_EQ(view->selectedRanges(), (std::vector<TextRange>{{28, 0}}));
    EXPECT_TRUE(support::waitUntil([this] { return !bar->finder()->isSearching(); }));
    EXPECT_EQ(bar->finder()->matchCount(), 0);
    view->undo();
    EXPECT_EQ(view->string(), text);
    EXPECT_TRUE(support::waitUntil([this] { return !bar->finder()->isSearching(); }));
    EXPECT_EQ(bar->finder()->matchCount(), 1000);
}

TEST_F(FindBarTest, AReadOnlyTextIsOnlySearched)
{
    setText(u"one"_s);
    view->setEditable(false);
    QTest::keyClick(view, Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(field("findField")->isVisible());
    EXPECT_FALSE(field("replaceField")->isVisible());
    field("findField")->setText(u"one"_s);
    bar->replaceAll();
    EXPECT_EQ(view->string(), u"one"_s);
}

TEST_F(FindBarTest, CountsAlongWithTyping)
{
    setText(u"ab\n"_s);
    open(u"ab"_s);
    EXPECT_EQ(status(), u"1 found"_s);
    view->setSelectedRange({0, 0});
    QTest::keyClicks(view, u"ab"_s);
    EXPECT_TRUE(statusIs(u"2 found"_s)) << status().toStdString();
    QTest::keyClick(view, Qt::Key_F3); // at once, though the last key was just hit
    EXPECT_TRUE(selects({2, 2}));
}

TEST_F(FindBarTest, MarksWhatIsInSight)
{
    const auto marked = [this](TextRange range) {
        const QRect at = view->rectsOf(range).front().toAlignedRect();
        const QImage shot = view->viewport()->grab(at).toImage();
        for (int y = 0; y < shot.height(); ++y) {
            for (int x = 0; x < shot.width(); ++x) {
                const QColor color = shot.pixelColor(x, y);
                if (color.red() > color.blue() + 60)
                    return true;
            }
        }
        return false;
    };
    setText(u"one two one\n"_s + u"x"_s.repeated(100'000) + u"one"_s);
    open(u"one"_s);
    support::settle();
    EXPECT_TRUE(marked({0, 3}));
    EXPECT_FALSE(marked({4, 3}));
    EXPECT_TRUE(marked({8, 3}));
    view->scrollRangeToVisible({100'012, 3});
    support::settle();
    EXPECT_TRUE(marked({100'012, 3}));
    QTest::keyClick(field("findField"), Qt::Key_Escape);
    support::settle();
    EXPECT_FALSE(marked({100'012, 3}));
}

TEST_F(FindBarTest, OutlivesItsView)
{
    setText(u"one"_s);
    open(u"one"_s);
    delete view;
    bar->findNext();
    bar->replaceAll();
    bar->closeBar();
    EXPECT_FALSE(bar->isVisible());
}
