#include "workbench/WorkbenchFixture.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "watching/CDEvents.h"

/// Another program writes the HTML of a design.
class OutsideChanges : public WorkbenchTest
{
protected:
    SMLTextView *source() const { return child<MGSFragariaView>("fragariaView")->textView(); }

    /// Without the wait for the latency.
    void writeOutside(const QString &title, const QByteArray &html)
    {
        const QString path = design(title)->bodyPath();
        support::writeFile(path, html);
        controller->designTemplateManager()->eventWatchers().at(path)->flushSynchronously();
    }
    bool shows(const QString &text) const
    {
        return support::waitUntil([&] { return source()->string() == text; }, 2);
    }
};

TEST_F(OutsideChanges, ACleanDesignTakesThemAsOneUndoableEditThatMarksNothing)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>one</p>\n<p>two</p>\n<p>three</p>\n");
    writeDesign(QStringLiteral("Beta"), Group::Custom, "<p>b</p>");
    launch();
    select(QStringLiteral("Alpha"));
    pressShortcut("actionViewHtml");
    source()->setSelectedRange({24, 0});
    writeOutside(QStringLiteral("Alpha"), "<p>one</p>\n<p>TWO</p>\n<p>three</p>\n");
    ASSERT_TRUE(shows(QStringLiteral("<p>one</p>\n<p>TWO</p>\n<p>three</p>\n")));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    EXPECT_FALSE(window()->isWindowModified());
    EXPECT_EQ(source()->selectedRange().location, 24);
    source()->undo();
    EXPECT_EQ(source()->string(), QStringLiteral("<p>one</p>\n<p>two</p>\n<p>three</p>\n"));
    EXPECT_FALSE(source()->undoHistory().canUndo());
    EXPECT_TRUE(selected()->templateShouldBeSaved()) << "undone, it differs from the file";

    writeOutside(QStringLiteral("Beta"), "<p>beta</p>");
    ASSERT_TRUE(support::waitUntil(
        [&] { return design(QStringLiteral("Beta"))->htmlSourceCode() == u"<p>beta</p>"; }, 2));
    select(QStringLiteral("Beta"));
    EXPECT_EQ(source()->string(), QStringLiteral("<p>beta</p>"));
}

TEST_F(OutsideChanges, ASaveAsksBeforeItWritesOverThem)
{
    const QString body = writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>a</p>") +
                         QStringLiteral("/body.html");
    launch();
    pressShortcut("actionViewHtml");
    for (const bool replaces : {false, true}) {
        type(source(), QStringLiteral("mine "));
        const QByteArray mine = source()->string().toUtf8();
        const QByteArray theirs = replaces ? "newer" : "new";
        support::writeFile(body, theirs);
        support::AlertAnswers answers(
            {replaces ? ZQAlertSecondButtonReturn : ZQAlertFirstButtonReturn});
        pressShortcut("actionSave");
        ASSERT_EQ(answers.shown.size(), 1);
        EXPECT_EQ(support::readFile(body), replaces ? theirs : mine);
        EXPECT_EQ(source()->string().toUtf8(), replaces ? theirs : mine);
        EXPECT_FALSE(selected()->templateShouldBeSaved());
    }
    support::AlertAnswers answers;
    type(source(), QStringLiteral("mine "));
    pressShortcut("actionSave");
    EXPECT_TRUE(answers.shown.isEmpty());
}

TEST_F(OutsideChanges, ADirtyDesignIsAskedFor)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>a</p>");
    launch();
    pressShortcut("actionViewHtml");
    type(source(), QStringLiteral("mine "));
    const QString mine = source()->string();
    {
        support::AlertAnswers answers({ZQAlertFirstButtonReturn});
        writeOutside(QStringLiteral("Alpha"), "theirs");
        ASSERT_TRUE(support::waitUntil([&] { return answers.shown.size() == 1; }, 2));
        EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Attention"));
        EXPECT_EQ(answers.shown[0].informativeText,
                  QStringLiteral(
                      "The file containing the HTML of the design template \"Alpha\" has been "
                      "changed externally, as well as in the Layoutsmith. Do you want to replace "
                      "the HTML with the one on disk, or keep your current one?"));
        EXPECT_EQ(answers.shown[0].buttonTitles,
                  QStringList({QStringLiteral("Keep It"), QStringLiteral("Replace")}));
        EXPECT_EQ(source()->string(), mine);
    }
    support::AlertAnswers answers({ZQAlertSecondButtonReturn});
    writeOutside(QStringLiteral("Alpha"), "theirs again");
    ASSERT_TRUE(shows(QStringLiteral("theirs again")));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    source()->undo();
    EXPECT_EQ(source()->string(), mine) << "what was typed can be had back";
}
