#include "platform/text/view/TextViewFixture.h"

using platform::TextRange;

namespace {

class HiddenLinesInView : public support::TextViewTest
{
protected:
    void SetUp() override
    {
        TextViewTest::SetUp();
        QString text;
        for (int line = 0; line < 100; ++line)
            text += QString("line %1\n").arg(line);
        set(text + "|");
        view.setSelectedRange({0, 0});
        support::settle();
        view.layoutManager()->hideLines(3, 90);
    }
    qsizetype lineOfCaret() { return view.textStorage()->lineAt(view.selectedRange().location); }
    bool isHidden() { return view.layoutManager()->hiddenLines().contains(50); }
};

} // namespace

TEST_F(HiddenLinesInView, TakeNoRoom)
{
    EXPECT_TRUE(view.rectOfLine(50).isNull());
    EXPECT_EQ(view.rectOfLine(91).top(), view.rectOfLine(2).bottom());
    EXPECT_EQ(view.lineAtY(3.5 * rowHeight()), 91);
    EXPECT_TRUE(view.rectsOf({view.textStorage()->lineStart(50), 3}).empty());
    const QPointF place(50, 3.5 * rowHeight());
    click(place.toPoint());
    EXPECT_EQ(lineOfCaret(), 91);
    press("Up");
    EXPECT_EQ(lineOfCaret(), 2);
    press("Down, Shift+Up, Shift+Down");
    EXPECT_EQ(lineOfCaret(), 91);
    press("PgUp, PgDown");
    EXPECT_TRUE(isHidden());
}

TEST_F(HiddenLinesInView, AreScrolledOver)
{
    view.resize(400, int(5 * rowHeight()));
    support::settle();
    view.scrollByPixels({0, 3 * rowHeight()});
    EXPECT_EQ(view.scrollPosition().line, 91);
    view.scrollByPixels({0, -rowHeight()});
    EXPECT_EQ(view.scrollPosition().line, 2);
    view.setScrollPosition({50, 0, 0});
    EXPECT_EQ(view.scrollPosition().line, 91);
    view.setScrollPosition({99, 0, 0});
    EXPECT_EQ(view.scrollPosition().line, 96) << "five lines fit";
    view.resize(400, int(50 * rowHeight()));
    support::settle();
    EXPECT_EQ(view.scrollPosition(), platform::ScrollPosition()) << "all that is shown fits";
}

TEST_F(HiddenLinesInView, ComeBackWhereACaretOrAnEditGoes)
{
    const auto hide = [this] {
        view.setSelectedRange({0, 0});
        view.layoutManager()->hideLines(3, 90);
        ASSERT_TRUE(isHidden());
    };
    const qsizetype end = view.textStorage()->lineContents(2).end();
    view.setSelectedRange({end, 0});
    press("Right");
    EXPECT_FALSE(isHidden());
    hide();
    view.setSelectedRange({view.textStorage()->lineStart(91), 0});
    press("Left");
    EXPECT_FALSE(isHidden());
    hide();
    view.scrollRangeToVisible({view.textStorage()->lineStart(50), 4});
    EXPECT_FALSE(isHidden());
    hide();
    press("Ctrl+A");
    EXPECT_TRUE(isHidden());
    view.setSelectedRange({end, 0});
    type("x");
    EXPECT_TRUE(isHidden()) << "typing above them";
    press("Return");
    EXPECT_FALSE(isHidden());
    EXPECT_EQ(view.rectOfLine(5).top(), 5 * rowHeight());
    hide();
    view.textStorage()->replaceCharacters({view.textStorage()->lineStart(40), 0}, u"x");
    EXPECT_FALSE(isHidden());
    EXPECT_FALSE(view.rectOfLine(4).isNull());
}

// What was painted bit by bit must look as what is painted at once.
TEST_F(HiddenLinesInView, TypingBesideThemPaintsWhatChanged)
{
    view.setSelectedRange({view.textStorage()->lineStart(92), 0});
    support::settle();
    view.painted = {};
    type("x");
    support::settle();
    EXPECT_EQ(view.painted.boundingRect(), view.rectOfLine(92).toAlignedRect());
}
