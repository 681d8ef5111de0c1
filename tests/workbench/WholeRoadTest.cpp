#include "workbench/LotbookFixture.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"

/// From the sample designs to their samples, beside other programs, at the pace of every day.
class WholeRoadTest : public LotbookTest
{
protected:
    SMLTextView *source() const { return child<MGSFragariaView>("fragariaView")->textView(); }

    static void run(const QString &program, const QStringList &words)
    {
        support::Process process;
        process.start(program, words);
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitCode(), 0);
    }
    void writeOutside(const QByteArray &html)
    {
        run("sh", {"-c", "printf %s \"$1\" > \"$2\"", "sh", html, selected()->bodyPath()});
    }
};

TEST_F(WholeRoadTest, EditSaveMeetOthersRenderAndQuit)
{
    run("cp", {"-r", LAYOUTSMITH_SAMPLE_HOME "/.", home.path()});
    startHost();
    launch();
    ASSERT_TRUE(select("Kiln & Clay"));
    const QString body = selected()->bodyPath();
    const QByteArray asFound = support::readFile(body);
    pressShortcut("actionViewHtml");
    QTest::keyClicks(source(), "<p>Hand-made</p>");
    ASSERT_TRUE(selected()->templateShouldBeSaved());
    pressShortcut("actionSave");
    EXPECT_EQ(support::readFile(body), "<p>Hand-made</p>" + asFound);
    EXPECT_FALSE(selected()->templateShouldBeSaved());

    const QString saved = source()->string();
    writeOutside("theirs " + saved.toUtf8());
    ASSERT_TRUE(support::waitUntil([&] { return source()->string() == "theirs " + saved; }));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    QTest::keyClicks(source(), "mine ");
    for (const bool replaces : {false, true}) {
        support::AlertAnswers answers(
            {replaces ? ZQAlertSecondButtonReturn : ZQAlertFirstButtonReturn});
        const QString mine = source()->string();
        const QString theirs = replaces ? "newer " + saved : "new " + saved;
        writeOutside(theirs.toUtf8());
        ASSERT_TRUE(support::waitUntil([&] { return answers.shown.size() == 1; }));
        EXPECT_EQ(source()->string(), replaces ? theirs : mine);
        EXPECT_TRUE(selected()->templateShouldBeSaved());
    }
    pressShortcut("actionSave");
    EXPECT_EQ(support::readFile(body), ("newer " + saved).toUtf8());

    {
        support::AlertAnswers answers;
        pressShortcut("actionViewSamples");
        generate();
        ASSERT_TRUE(waitForIdle());
        EXPECT_EQ(answers.shown.size(), 1) << "no error";
    }
    const QDir samples(QFileInfo(body).path() + "/Layout_Samples");
    EXPECT_EQ(samples.entryList(QDir::Files),
              QStringList({"Maker_Story.html", "With_Details.html"}));
    EXPECT_TRUE(support::readFile(samples.filePath("Maker_Story.html")).contains("Hand-made"));

    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    pressShortcut("actionViewHtml");
    QTest::keyClicks(source(), "unsaved");
    window()->close();
    EXPECT_TRUE(window()->isVisible());
    window()->close();
    EXPECT_FALSE(window()->isVisible());
    EXPECT_EQ(answers.shown.size(), 2);
}
