#include "platform/text/view/CompletionList.h"

#include "platform/text/view/TextView.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::CompletionList;
using platform::LayoutManager;
using platform::TextView;

namespace {

class CompletionListTest : public testing::Test
{
protected:
    CompletionListTest() : view(std::make_unique<LayoutManager>()), list(new CompletionList(&view))
    {
        view.resize(400, 200);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
        view.setFocus();
        open();
    }

    void open()
    {
        view.textStorage()->setString(u"<b> b\n"_s);
        view.setSelectedRange({5, 0});
        list->open({u"big"_s, u"body"_s, u"Border"_s, u"div"_s}, {4, 1});
        EXPECT_TRUE(list->isVisible());
    }

    TextView view;
    CompletionList *list;
};

} // namespace

TEST_F(CompletionListTest, FiltersAlongWithTyping)
{
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(list->shown(), (QStringList{u"big"_s, u"body"_s, u"Border"_s}));
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClicks(&view, u"o"_s);
    EXPECT_EQ(list->shown(), (QStringList{u"body"_s, u"Border"_s}));
    EXPECT_EQ(list->currentIndex().data().toString(), u"body"_s); // stays chosen
    QTest::keyClick(&view, Qt::Key_Backspace);
    EXPECT_EQ(list->shown().size(), 3);
    QTest::keyClicks(&view, u"od"_s);
    QTest::keyClicks(&view, u"y"_s);
    EXPECT_FALSE(list->isVisible()); // the word is complete
    EXPECT_EQ(view.string(), u"<b> body\n"_s);
}

TEST_F(CompletionListTest, KeysChooseAndTake)
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up})
        QTest::keyClick(&view, key);
    EXPECT_EQ(list->currentIndex().row(), 2); // round both ends
    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_EQ(view.string(), u"<b> Border\n"_s);
    EXPECT_EQ(view.selectedRange(), (platform::TextRange{10, 0}));
    EXPECT_FALSE(list->isVisible());
    view.undo();
    EXPECT_EQ(view.string(), u"<b> b\n"_s);
    QTest::keyClick(&view, Qt::Key_Return); // the view's own again
    EXPECT_EQ(view.textStorage()->lineCount(), 3);
}

TEST_F(CompletionListTest, AClickTakes)
{
    const QRect row = list->visualRect(list->model()->index(1, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(view.string(), u"<b> body\n"_s);
}

TEST_F(CompletionListTest, ClosesWhenTheWordIsLeft)
{
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    open();
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_FALSE(list->isVisible());
    open();
    QTest::keyClicks(&view, u";"_s);
    EXPECT_FALSE(list->isVisible());
    open();
    view.clearFocus();
    EXPECT_FALSE(list->isVisible());
    list->open({}, {4, 1});
    EXPECT_FALSE(list->isVisible());
    list->open({u"zzz"_s}, {4, 1});
    EXPECT_FALSE(list->isVisible());
}
