#include "platform/Assert.h"
#include "platform/UserDefaults.h"
#include "workbench/WorkbenchFixture.h"

#include <QTest>

class AppControllerTest : public WorkbenchTest
{
protected:
    void launchWithUnsavedDesign()
    {
        writeDesign(QStringLiteral("Alpha"));
        launch();
        clickToolbarItem("toolbar_item_new");
    }
};

TEST_F(AppControllerTest, ClosingWithoutUnsavedDesignsAsksNothing)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    launch();
    design(QStringLiteral("Built"))->setTemplateShouldBeSaved(true);
    const support::AlertAnswers answers;
    EXPECT_TRUE(window()->close());
    EXPECT_TRUE(answers.shown.isEmpty());
}

TEST_F(AppControllerTest, ClosingWithUnsavedDesignsAsksOnce)
{
    launchWithUnsavedDesign();
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    EXPECT_FALSE(window()->close());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_TRUE(window()->isActiveWindow());
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Unsaved Changes"));
    EXPECT_EQ(
        answers.shown[0].informativeText,
        QStringLiteral("Some designs have not been saved. Should the Layoutsmith quit anyway?"));
    EXPECT_EQ(answers.shown[0].buttonTitles,
              QStringList({QStringLiteral("Quit"), QStringLiteral("Cancel")}));
    EXPECT_TRUE(window()->close());
    EXPECT_EQ(answers.shown.size(), 2);
}

TEST_F(AppControllerTest, QuittingGoesThroughTheSameGuardOnce)
{
    launchWithUnsavedDesign();
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    QTimer::singleShot(0, window(), [this, &answers] {
        pressShortcut("actionQuit");
        EXPECT_TRUE(support::waitUntil([&answers] { return answers.shown.size() == 1; }));
        EXPECT_TRUE(window()->isVisible());
        pressShortcut("actionQuit");
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(window()->isVisible());
    EXPECT_EQ(answers.shown.size(), 2);
}
