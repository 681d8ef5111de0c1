#include "workbench/LotbookFixture.h"

#include "library/LSMDesignKeys.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>

using namespace std::chrono_literals;

namespace {

constexpr const char *twoLayouts =
    "<h1>[[LBTitle]]</h1>[[if LBLayoutEnabled_One or LBLayoutNotDefined]]<p>one</p>[[endif]]"
    "[[if LBLayoutEnabled_Two_Columns]]<p>two</p>[[endif]]";
const QString couldNotGetTitle =
    QStringLiteral("Couldn't get title of selected listing from Lotbook");

class LayoutPreviewTest : public LotbookTest
{
protected:
    LSMDesignTemplate *launchOn(const QString &title, const QByteArray &html,
                                const QVariantMap &info = {})
    {
        folder = writeDesign(title, Group::Custom, html, info);
        launch();
        pressShortcut("actionViewSamples");
        return select(title);
    }
    QByteArray sample(const QString &name) const
    {
        return support::readFile(folder + "/Layout_Samples/" + name + ".html");
    }
    QStringList listedSamples() const
    {
        QStringList names;
        const auto *list = child<QListWidget>("samplesList");
        for (int row = 0; row < list->count(); ++row)
            names << list->item(row)->text();
        return names;
    }

    QString folder;
};

} // namespace

TEST_F(LayoutPreviewTest, EachLayoutIsRenderedIntoTheBundle)
{
    startHost({"--title", "Lamp \"1\\2\" / 50%"});
    LSMDesignTemplate *design =
        launchOn("Alpha", twoLayouts, {{LSMDesignKeys::store, QVariantMap{{"title", "Old"}}}});
    support::writeFile(description("Lamp \"1\\2\" - 50%"), "stale");
    auto *bar = child<QProgressBar>("previewGenerateProgress");
    QList<int> progress;
    QObject::connect(bar, &QProgressBar::valueChanged, [&](int value) { progress << value; });
    support::AlertAnswers answers;
    generate();
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, "Attention");
    EXPECT_EQ(answers.shown[0].informativeText,
              "Please start Lotbook, selected a single listing, and then click on 'Continue'.");
    EXPECT_EQ(answers.shown[0].buttonTitles, QStringList({"Continue", "Cancel"}));
    EXPECT_FALSE(isIdle());
    support::settle();
    EXPECT_FALSE(menuItem("actionGenerateSamples")->isEnabled());
    ASSERT_TRUE(waitForIdle());

    EXPECT_EQ(answers.shown.size(), 1) << "no error";
    EXPECT_EQ(progress, QList<int>({0, 1, 2, 3, 4}));
    const QByteArray title = "<h1>Lamp &quot;1\\2&quot; / 50%</h1>";
    EXPECT_TRUE(sample("One").contains("<body>\n" + title + "<p>one</p>\n</body>"));
    EXPECT_TRUE(sample("Two_Columns").contains(title + "<p>two</p>\n"));
    EXPECT_EQ(listedSamples(), QStringList({"One", "Two Columns"}));
    EXPECT_TRUE(child<QLabel>("samplesDateText")->text().startsWith("Previews generated: "));
    EXPECT_TRUE(design->templateShouldBeSaved());
    const QVariantMap store = design->templateDictionary()->value(LSMDesignKeys::store).toMap();
    const QVariantMap expected{{"title", "Old"},
                               {"layoutNames", QVariantList{"One", "Two Columns"}},
                               {"defaultLayoutName", "One"}};
    EXPECT_EQ(store, expected);
    EXPECT_EQ(askHost("title of selected listing"), "Lamp \"1\\2\" / 50%");
    EXPECT_EQ(askHost("layout name of selected listing"), "Two Columns");
    for (const char *below :
         {"Library/Application Support/Lotbook/GeneratedDescriptions", "Documents"})
        EXPECT_TRUE(QDir(container(below)).isEmpty()) << below;

    design->setTemplateShouldBeSaved(false);
    platform::Error error;
    EXPECT_TRUE(Generator::saveLayoutPreviewsOfDesignTemplate(
        design, [](double) {}, &error))
        << error.description.toStdString();
    EXPECT_FALSE(design->templateShouldBeSaved()) << "equal data leave the dirty mark alone";
}

TEST_F(LayoutPreviewTest, WhatLotbookHasToHaveSetIsToldFirst)
{
    startHost();
    LSMDesignTemplate *design = launchOn("Alpha", "no layouts");
    const auto defaults = [](const QStringList &words) {
        support::Process process;
        process.start(program("defaults"), words);
        process.waitForFinished();
        return process.exitCode();
    };
    const QString domain = "com.quillbyte.lotbook9";
    EXPECT_EQ(defaults({"delete", domain, "writeDescriptionToLibrary"}), 0);
    EXPECT_EQ(defaults({"write", domain, "hidePreviewImageDropzoneMarker", "-bool", "NO"}), 0);
    EXPECT_NE(defaults({"write", domain, "hidePreviewImageDropzoneMarker", "-bool", "2"}), 0);
    {
        support::AlertAnswers answers({ZQAlertSecondButtonReturn});
        generate();
        ASSERT_EQ(answers.shown.size(), 1);
        EXPECT_EQ(answers.shown[0].informativeText,
                  "Please issue the follwing command(s) on the command line before starting "
                  "Lotbook:\n\n"
                  "$ defaults write com.quillbyte.lotbook9 writeDescriptionToLibrary -bool YES\n\n"
                  "$ defaults write com.quillbyte.lotbook9 hidePreviewImageDropzoneMarker -bool "
                  "YES\n\n");
        EXPECT_EQ(answers.shown[0].buttonTitles, QStringList({"Done", "Cancel"}));
    }
    {
        support::AlertAnswers answers({ZQAlertFirstButtonReturn, ZQAlertSecondButtonReturn});
        generate();
        EXPECT_EQ(answers.shown.size(), 2);
        EXPECT_TRUE(isIdle());
    }
    EXPECT_EQ(host.readAllStandardOutput(), "") << "Lotbook is not touched";

    EXPECT_EQ(defaults({"write", domain, "writeDescriptionToLibrary", "-bool", "YES"}), 0);
    EXPECT_EQ(defaults({"write", domain, "hidePreviewImageDropzoneMarker", "-bool", "YES"}), 0);
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(answers.shown.size(), 1);
    EXPECT_TRUE(QDir(folder + "/Layout_Samples").isEmpty()) << "a design without layouts";
    EXPECT_TRUE(design->templateShouldBeSaved());
    EXPECT_FALSE(design->templateDictionary()->contains(LSMDesignKeys::store));
}

TEST_F(LayoutPreviewTest, EachFailureIsToldInItsWordsAndLeavesTheEditorIdle)
{
    const struct
    {
        const char *host; ///< Null: none is started.
        QString description;
        QString detail;
    } cases[] = {
        {nullptr, couldNotGetTitle, "\"Lotbook\" isn't running."},
        {"--fail title", couldNotGetTitle,
         "\"Lotbook\" answered with an error: The title of the listing is locked."},
        {"--die-after 1", couldNotGetTitle, "\"Lotbook\" quit before it answered."},
        {"--fail design", "Couldn't change design identifier of selected listing in Lotbook.",
         "\"Lotbook\" answered with an error: The design identifier of the listing is locked."},
        {"--die-after 5", "Couldn't change design identifier of selected listing in Lotbook.",
         "\"Lotbook\" quit before it answered."},
        {"--fail layout", "Couldn't change layout name of selected listing in Lotbook.",
         "\"Lotbook\" answered with an error: The layout name of the listing is locked."},
        {"--die-after 9", "Couldn't change layout name of selected listing in Lotbook.",
         "\"Lotbook\" quit before it answered."},
        {"--render-nothing",
         "Couldn't find preview file at " + description("Vintage Brass Lamp") + ".", ""},
        {"--renders 2", "Generating the preview in Lotbook timed out.", ""},
    };
    LSMDesignTemplate *design = launchOn("Alpha", twoLayouts);
    for (const auto &each : cases) {
        const std::string name = each.host ? each.host : "none";
        stopHost();
        QFile::remove(description("Vintage Brass Lamp"));
        setPreferences(true);
        if (each.host)
            startHost(QString(each.host).split(' '));
        support::AlertAnswers answers;
        generate();
        ASSERT_TRUE(waitForIdle()) << name;
        ASSERT_EQ(answers.shown.size(), 2) << name;
        EXPECT_EQ(answers.shown[1].messageText, each.description) << name;
        EXPECT_EQ(answers.shown[1].informativeText, each.detail) << name;
        EXPECT_FALSE(design->templateShouldBeSaved()) << name;
        support::settle();
        EXPECT_TRUE(menuItem("actionGenerateSamples")->isEnabled()) << name;
    }
    EXPECT_FALSE(sample("One").isEmpty()) << "what was rendered before a failure stays";

    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(answers.shown.last().messageText, couldNotGetTitle);
    EXPECT_TRUE(answers.shown.last().informativeText.contains("no session bus"));
}

TEST_F(LayoutPreviewTest, AHostThatIsSlowIsGivenFiveSecondsAndFreezesNothing)
{
    startHost({"--delay", "7"});
    launchOn("Alpha", twoLayouts);
    support::AlertAnswers answers;
    QElapsedTimer timer;
    timer.start();
    qint64 longestTurn = 0;
    generate();
    ASSERT_TRUE(support::waitUntil([&, last = timer.elapsed()]() mutable {
        longestTurn = std::max(longestTurn, timer.elapsed() - last);
        last = timer.elapsed();
        return isIdle();
    }));
    EXPECT_LT(timer.elapsed(), 6500);
    EXPECT_LT(longestTurn, 1000);
    ASSERT_EQ(answers.shown.size(), 2);
    EXPECT_EQ(answers.shown[1].informativeText, "\"Lotbook\" took too long to answer.");
}

TEST_F(LayoutPreviewTest, ASlowHostHasItsTitleBack)
{
    startHost({"--delay", "2.6"}); // the script that sets it takes two answers
    launchOn("Alpha", twoLayouts);
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(waitForIdle());
    ASSERT_EQ(answers.shown.size(), 2);
    EXPECT_EQ(answers.shown[1].messageText, couldNotGetTitle);
    EXPECT_EQ(askHost("title of selected listing"), "Vintage Brass Lamp");
}

TEST_F(LayoutPreviewTest, FiftyMegabytesAreASampleLikeAnyOther)
{
    startHost({"--huge"});
    launchOn("Alpha", twoLayouts);
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(answers.shown.size(), 1);
    EXPECT_GT(sample("Two_Columns").size(), 50 * 1024 * 1024);
    EXPECT_EQ(listedSamples(), QStringList({"One", "Two Columns"}));
}

TEST_F(LayoutPreviewTest, LayoutNamesStayWithinTheirQuotes)
{
    startHost();
    launchOn("Alpha", R"([[if LBLayoutEnabled_A"_&_"B\ or LBLayoutNotDefined]]x[[endif]]
[[if LBLayoutEnabled_../C]]y[[endif]])",
             {{LSMDesignKeys::store, "no dictionary"}});
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(waitForIdle());
    EXPECT_EQ(answers.shown.size(), 1);
    EXPECT_TRUE(sample("A\"_&_\"B\\").contains("x")) << "rendered for just this layout";
    EXPECT_TRUE(sample("%2E.%2FC").contains("y"));
    EXPECT_EQ(listedSamples(), QStringList({"A\" & \"B\\", "../C"}));
    EXPECT_EQ(selected()->templateDictionary()->value(LSMDesignKeys::store), "no dictionary");
    EXPECT_EQ(askHost("layout name of selected listing"), "../C");
}

TEST_F(LayoutPreviewTest, ARunIsCancelledWithoutAnError)
{
    Generator::setWaits({60ms, 20s, 10});
    startHost();
    LSMDesignTemplate *design = launchOn("Alpha", twoLayouts);
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(support::waitUntil(
        [&] { return child<QProgressBar>("previewGenerateProgress")->value() == 1; }));
    QTest::mouseClick(child<QPushButton>("cancelButton"), Qt::LeftButton);
    EXPECT_TRUE(support::waitUntil([&] { return isIdle(); }, 5));
    EXPECT_EQ(answers.shown.size(), 1);
    EXPECT_FALSE(design->templateShouldBeSaved());
    EXPECT_EQ(askHost("title of selected listing"), "Vintage Brass Lamp");
}

TEST_F(LayoutPreviewTest, TheDesignOrTheWindowMayGoDuringARun)
{
    Generator::setWaits({60ms, 20s, 10});
    startHost();
    launchOn("Alpha", twoLayouts);
    support::AlertAnswers answers;
    generate();
    ASSERT_TRUE(support::waitUntil(
        [&] { return child<QProgressBar>("previewGenerateProgress")->value() == 1; }));
    clickMenuItem("actionDelete");
    EXPECT_EQ(design("Alpha"), nullptr);
    EXPECT_TRUE(support::waitUntil([&] { return isIdle(); }, 5)) << "it is cancelled";
    EXPECT_EQ(answers.shown.size(), 2) << "the question, and whether to delete";
    EXPECT_FALSE(QFileInfo::exists(folder));

    quit();
    launchOn("Beta", twoLayouts);
    generate();
    ASSERT_FALSE(isIdle());
    QElapsedTimer timer;
    timer.start();
    quit();
    EXPECT_LT(timer.elapsed(), 5000);
    support::settle();
}

TEST_F(LayoutPreviewTest, DesignsThatLotbookCannotRenderSayWhy)
{
    writeDesign("Fixed", Group::BuiltIn, twoLayouts);
    support::writeFile(customFolder() + "/Old.html", twoLayouts);
    LSMDesignTemplate *design = launchOn("Alpha", twoLayouts);
    const auto *button = child<QPushButton>("generateButton");
    const auto *hint = child<QLabel>("hintText");
    EXPECT_TRUE(button->isEnabled());
    EXPECT_TRUE(hint->isHidden());
    design->setTemplateShouldBeSaved(true);
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(hint->text(), "Lotbook renders the design as it was last saved.");
    design->setTemplateShouldBeSaved(false);

    select("Fixed");
    EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(hint->isHidden()) << "the banner says it";
    select("Old");
    EXPECT_FALSE(button->isEnabled());
    clickMenuItem("actionNewDesign");
    pressShortcut("actionViewSamples");
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(hint->text(), "Save this design first: Lotbook renders what has been saved.");
    EXPECT_FALSE(menuItem("actionGenerateSamples")->isEnabled());
    support::AlertAnswers answers;
    editor()->saveLayoutPreviews();
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].informativeText, hint->text());
    EXPECT_TRUE(isIdle());
}

TEST_F(LayoutPreviewTest, ShowInLotbookSelectsTheTemplate)
{
    startHost();
    launchOn("Alpha", "");
    {
        support::AlertAnswers answers({ZQAlertSecondButtonReturn});
        clickToolbarItem("toolbar_item_show_in_lb");
        ASSERT_EQ(answers.shown.size(), 1);
        EXPECT_EQ(answers.shown[0].messageText, "Attention");
        EXPECT_EQ(
            answers.shown[0].informativeText,
            "Please start Lotbook, selected a single template, and then click on 'Continue'.");
        EXPECT_EQ(answers.shown[0].buttonTitles, QStringList({"Continue", "Cancel"}));
        EXPECT_EQ(askHost("selected template of application"), "");
    }
    support::AlertAnswers answers;
    support::LogCapture log;
    clickToolbarItem("toolbar_item_show_in_lb");
    EXPECT_EQ(askHost("selected template of application"), "com.myserver.alpha");
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join('\n').toStdString();

    selected()->templateDictionary()->setValue(LSMDesignKeys::identifier, "a\" & \"b");
    pressShortcut("actionShowInLB");
    EXPECT_EQ(answers.shown.size(), 2) << "the user sees nothing of an error";
    EXPECT_TRUE(log.contains("error while trying to show template in Lotbook\nerror:\n\"Lotbook\" "
                             "answered with an error: There is no template with the identifier "
                             "a\" & \"b."));
}

TEST_F(LayoutPreviewTest, TheContactSheetRendersWhatIsSeenOnce)
{
    folder = writeDesign("Alpha", Group::Custom, twoLayouts);
    support::writeFile(folder + "/Layout_Samples/One.html", "<p>one</p>");
    support::writeFile(folder + "/Layout_Samples/Two_Columns.html", "<p>two</p>");
    support::writeFile(folder + "/Layout_Samples/Ancient.html", "<p>ancient</p>");
    const auto rendered = [] {
        QStringList pages;
        for (QWidget *widget : QApplication::allWidgets()) {
            if (widget->objectName() == u"recordingWebWidget" &&
                widget->window()->testAttribute(Qt::WA_DontShowOnScreen))
                pages += widget->property("documents").toStringList();
        }
        return pages;
    };
    launch();
    select("Alpha");
    EXPECT_TRUE(rendered().isEmpty()) << "nothing while the tab is not seen";
    pressShortcut("actionViewSamples");
    EXPECT_EQ(listedSamples(), QStringList({"One", "Two Columns", "Ancient"}));
    ASSERT_TRUE(support::waitUntil([&] { return rendered().size() == 3; }));
    for (const char *page : {"<p>one</p>", "<p>two</p>", "<p>ancient</p>"})
        EXPECT_TRUE(rendered().contains(page)) << page;

    pressShortcut("actionViewDesign");
    support::writeFile(folder + "/Layout_Samples/Two_Columns.html", "<p>new</p>");
    pressShortcut("actionViewSamples");
    ASSERT_TRUE(support::waitUntil([&] { return rendered().size() == 4; }));
    EXPECT_EQ(rendered().last(), "<p>new</p>") << "the others are known";
}

TEST_F(LayoutPreviewTest, ASampleOpensLargeAndTheKeysGoThroughThem)
{
    folder = writeDesign("Alpha", Group::Custom, twoLayouts);
    support::writeFile(folder + "/Layout_Samples/One.html", "<p>one</p>");
    support::writeFile(folder + "/Layout_Samples/Two_Columns.html", "<p>two</p>");
    launch();
    pressShortcut("actionViewSamples");
    auto *list = child<QListWidget>("samplesList");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    auto *sample = child<QWidget>("sampleWindow");
    ASSERT_TRUE(sample && QTest::qWaitForWindowActive(sample));
    EXPECT_EQ(sample->windowTitle(), "One – Alpha");
    const auto shown = [sample] {
        const auto *page = sample->findChild<QWidget *>("recordingWebWidget");
        return page ? page->property("documents").toStringList().last() : QString();
    };
    EXPECT_TRUE(support::waitUntil([&] { return shown() == "<p>one</p>"; }));
    QTest::keyClick(sample, Qt::Key_Left);
    EXPECT_EQ(sample->windowTitle(), "One – Alpha") << "the first";
    QTest::keyClick(sample, Qt::Key_Right);
    EXPECT_TRUE(support::waitUntil([&] { return shown() == "<p>two</p>"; }));
    EXPECT_EQ(sample->findChild<QLabel *>("positionText")->text(), "2 of 2");
    QTest::mouseClick(sample->findChild<QPushButton *>("openInBrowserButton"), Qt::LeftButton);
    EXPECT_EQ(workspace.opened,
              QList<QUrl>{QUrl::fromLocalFile(folder + "/Layout_Samples/Two_Columns.html")});

    QFile::remove(folder + "/Layout_Samples/One.html");
    QTest::keyClick(sample, Qt::Key_Left);
    EXPECT_TRUE(sample->findChild<QLabel *>("problemText")->text().contains("One.html"));
    QTest::keyClick(sample, Qt::Key_Escape);
    EXPECT_FALSE(sample->isVisible());
}

TEST_F(LayoutPreviewTest, EightLayoutsTakeNoLongerThanTheWaits)
{
    Generator::setWaits({});
    startHost();
    QByteArray html;
    for (int layout = 1; layout <= 8; ++layout)
        html += "[[if LBLayoutEnabled_" + QByteArray::number(layout) + " ]]x[[endif]]";
    launchOn("Alpha", html);
    support::AlertAnswers answers;
    QElapsedTimer timer;
    timer.start();
    generate();
    ASSERT_TRUE(waitForIdle());
    const qint64 waits = 3000 + 8 * 1000;
    EXPECT_EQ(listedSamples().size(), 8);
    EXPECT_LT(timer.elapsed(), waits * 3 / 2);
}
