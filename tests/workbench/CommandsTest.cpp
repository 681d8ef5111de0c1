#include "workbench/WorkbenchFixture.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ElidedLabel.h"
#include "library/LSMDesignKeys.h"
#include "platform/NotificationCenter.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMNotifications.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTest>
#include <QTranslator>
#include <QWindow>

namespace {

struct Route
{
    const char *name;
    const char *toolbarItem; // null: not in the toolbar
    const char *menuItem;
};

constexpr Route newDesign{"new", "toolbar_item_new", "actionNewDesign"};
constexpr Route duplicate{"duplicate", "toolbar_item_duplicate", "actionDuplicate"};
constexpr Route save{"save", "toolbar_item_save", "actionSave"};
constexpr Route saveAll{"save all", nullptr, "actionSaveAll"};
constexpr Route revert{"revert", "toolbar_item_revert", "actionRevert"};
constexpr Route reveal{"reveal", "toolbar_item_reveal", "actionReveal"};
constexpr Route remove_{"delete", "toolbar_item_delete", "actionDelete"};

} // namespace

/// Each command is given by each of the three ways that it can be given.
class CommandsTest : public WorkbenchTest
{
protected:
    void byEveryWay(const Route &route, const std::function<void()> &prepare,
                    const std::function<void()> &verify)
    {
        const std::pair<const char *, std::function<void()>> ways[] = {
            {"toolbar",
             [&] {
                 clickToolbarItem(route.toolbarItem);
             }},
            {"menu",
             [&] {
                 clickMenuItem(route.menuItem);
             }},
            {"keys", [&] {
                 pressShortcut(route.menuItem);
             }}};
        for (const auto &[way, give] : ways) {
            if (!route.toolbarItem && way == ways[0].first)
                continue;
            SCOPED_TRACE(testing::Message() << route.name << " by " << way);
            prepare();
            give();
            verify();
        }
    }
    LSMDesignTemplate *selectDirty(const QString &title)
    {
        LSMDesignTemplate *result = select(title);
        result->setHtmlSourceCode(QStringLiteral("<p>changed</p>"));
        result->setTemplateShouldBeSaved(true);
        return result;
    }
};

TEST_F(CommandsTest, NewDesignsGetNamesOfTheirOwnAndAreSelectedDirty)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    int made = 0;
    byEveryWay(
        newDesign, [&] {},
        [&] {
            const QString counter = made ? QString::number(made) : QString();
            ++made;
            ASSERT_TRUE(selected());
            EXPECT_EQ(selected()->templateName(),
                      (QStringLiteral("New Design ") + counter).trimmed());
            EXPECT_EQ(selected()->templateIdentifier(),
                      QStringLiteral("com.myserver.new-design") +
                          (counter.isEmpty() ? QString() : u'-' + counter));
            EXPECT_TRUE(selected()->templateShouldBeSaved());
            EXPECT_TRUE(selected()->templatePath().isNull());
            EXPECT_EQ(child<QLineEdit>("templateNameTextField")->selectedText(),
                      selected()->templateName());
        });
    EXPECT_EQ(made, 3);
    EXPECT_TRUE(child<QLineEdit>("templateNameTextField")->hasFocus());
}

TEST_F(CommandsTest, NewDoesNothingWhileTheSelectedNameClashes)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Beta"), Group::BuiltIn, "",
                {{QStringLiteral("CFBundleName"), QStringLiteral("Alpha")}});
    launch();
    const QStringList before = titles();
    clickToolbarItem("toolbar_item_new");
    EXPECT_EQ(titles(), before);
}

TEST_F(CommandsTest, DuplicatesAreCopiesFromDiskInTheCustomGroup)
{
    writeDesign(QStringLiteral("Shop Design"), Group::BuiltIn, "<b>shop</b>",
                {{LSMDesignKeys::remoteDirectory, QStringLiteral("x/y")}});
    launch();
    byEveryWay(
        duplicate, [&] { select(QStringLiteral("Shop Design")); },
        [&] {
            EXPECT_TRUE(selected()->isCustomDesignTemplate());
            EXPECT_TRUE(selected()->templateName().startsWith(QStringLiteral("Shop Design ")));
            EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<b>shop</b>"));
            const auto dictionary = selected()->templateDictionary();
            EXPECT_EQ(dictionary->value(LSMDesignKeys::version), QStringLiteral("1.0"));
            EXPECT_EQ(dictionary->value(LSMDesignKeys::remoteDirectory), QStringLiteral(""));
            EXPECT_TRUE(selected()->templatePath().isNull());
            EXPECT_TRUE(selected()->templateShouldBeSaved());
        });
    EXPECT_TRUE(design(QStringLiteral("Shop Design 3")));
}

TEST_F(CommandsTest, AnOldSingleFileIsDuplicatedAsABundle)
{
    support::writeFile(customFolder() + QStringLiteral("/Old.html"), "<p>old</p>");
    launch();
    select(QStringLiteral("Old"));
    clickToolbarItem("toolbar_item_duplicate");
    EXPECT_EQ(selected()->templateName(), QStringLiteral("Old 1"));
    EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<p>old</p>"));
    pressShortcut("actionSave");
    EXPECT_EQ(support::readFile(customFolder() + QStringLiteral("/Old 1.designTemplate/body.html")),
              "<p>old</p>");
    EXPECT_EQ(support::readFile(customFolder() + QStringLiteral("/Old.html")), "<p>old</p>");
}

TEST_F(CommandsTest, SaveWritesTheSelectedDesignAndClearsItsMark)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    byEveryWay(
        save, [&] { selectDirty(QStringLiteral("Alpha")); },
        [&] {
            EXPECT_FALSE(selected()->templateShouldBeSaved());
            EXPECT_FALSE(window()->isWindowModified());
            EXPECT_EQ(support::readFile(folder + QStringLiteral("/body.html")), "<p>changed</p>");
            QFile::remove(folder + QStringLiteral("/body.html"));
        });
}

TEST_F(CommandsTest, TheTitleMarksTheDesignThatItNames)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Beta"));
    launch();
    selectDirty(QStringLiteral("Alpha"));
    EXPECT_EQ(window()->windowHandle()->title(), QStringLiteral("Alpha* – The Layoutsmith"));
    select(QStringLiteral("Beta"));
    platform::NotificationCenter::defaultCenter().post(LSMDesignPropertyDidChange, selected());
    EXPECT_TRUE(window()->isWindowModified());
    pressShortcut("actionSave");
    EXPECT_TRUE(window()->isWindowModified()) << "Alpha is not saved";
    EXPECT_EQ(window()->windowHandle()->title(), QStringLiteral("Beta – The Layoutsmith"));
    pressShortcut("actionSaveAll");
    EXPECT_FALSE(window()->isWindowModified());
}

TEST_F(CommandsTest, SaveAllSavesEveryDirtyDesign)
{
    const QString a = writeDesign(QStringLiteral("Alpha"));
    const QString b = writeDesign(QStringLiteral("Beta"));
    launch();
    byEveryWay(
        saveAll,
        [&] {
            selectDirty(QStringLiteral("Alpha"));
            selectDirty(QStringLiteral("Beta"));
        },
        [&] {
            for (const QString &folder : {a, b}) {
                const QString body = folder + QStringLiteral("/body.html");
                EXPECT_EQ(support::readFile(body), "<p>changed</p>");
                QFile::remove(body);
            }
            EXPECT_FALSE(controller->designTemplateManager()->hasUnsavedDesigns());
        });
}

TEST_F(CommandsTest, RevertBringsBackWhatIsOnDisk)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "<p>saved</p>");
    launch();
    editor()->setSelectedTab(LSMDesignEditorViewController::HtmlTab);
    byEveryWay(
        revert, [&] { selectDirty(QStringLiteral("Alpha")); },
        [&] {
            EXPECT_EQ(selected()->htmlSourceCode(), QStringLiteral("<p>saved</p>"));
            EXPECT_EQ(child<MGSFragariaView>("fragariaView")->string(),
                      QStringLiteral("<p>saved</p>"));
            EXPECT_FALSE(selected()->templateShouldBeSaved());
        });
}

TEST_F(CommandsTest, RevertOfADesignNeverSavedChangesNothing)
{
    launch();
    clickToolbarItem("toolbar_item_new");
    LSMDesignTemplate *fresh = selectDirty(QStringLiteral("New Design"));
    pressShortcut("actionRevert");
    EXPECT_EQ(fresh->htmlSourceCode(), QStringLiteral("<p>changed</p>"));
    EXPECT_TRUE(fresh->templateShouldBeSaved());
}

TEST_F(CommandsTest, RevealShowsTheBundle)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    byEveryWay(
        reveal, [&] { workspace.revealed.clear(); },
        [&] { EXPECT_EQ(workspace.revealed, QStringList{folder}); });
}

TEST_F(CommandsTest, DeleteAsksAndKeepsTheRowNumber)
{
    for (const char *title : {"Alpha", "Beta", "Delta", "Gamma"})
        writeDesign(QString::fromLatin1(title));
    launch();
    const int refuse = ZQAlertSecondButtonReturn;
    const int agree = ZQAlertFirstButtonReturn;
    support::AlertAnswers answers({refuse, agree, refuse, agree, refuse, agree});
    QStringList left = titles();
    byEveryWay(
        remove_,
        [&] {
            select(left.first());
            clickToolbarItem("toolbar_item_delete");
            EXPECT_EQ(titles(), left);
        },
        [&] {
            const QString gone = left.takeFirst();
            EXPECT_EQ(titles(), left);
            EXPECT_EQ(selected()->templateName(), left.first());
            EXPECT_FALSE(
                QDir(customFolder() + u'/' + gone + QStringLiteral(".designTemplate")).exists());
        });
    ASSERT_EQ(answers.shown.size(), 6);
    EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Delete Design"));
    EXPECT_EQ(answers.shown[0].informativeText,
              QStringLiteral("Do you want to delete the selected design?"));
    EXPECT_EQ(answers.shown[0].buttonTitles,
              QStringList({QStringLiteral("Delete"), QStringLiteral("Cancel")}));
}

TEST_F(CommandsTest, ToolbarFollowsTheKindOfSelection)
{
    const QStringList items = {QStringLiteral("new"),       QStringLiteral("save"),
                               QStringLiteral("reveal"),    QStringLiteral("revert"),
                               QStringLiteral("duplicate"), QStringLiteral("delete"),
                               QStringLiteral("show_in_lb")};
    struct Kind
    {
        const char *title; // null: nothing selected
        bool dirty;
        const char *enabled;
    };
    const Kind kinds[] = {{"Custom", false, "new reveal duplicate delete show_in_lb"},
                          {"Custom", true, "new save reveal revert delete show_in_lb"},
                          {"Built", false, "new duplicate show_in_lb"},
                          {"Old", false, "new reveal duplicate delete show_in_lb"},
                          {"New Design", true, "new save delete show_in_lb"},
                          {nullptr, false, "new"}};
    writeDesign(QStringLiteral("Custom"));
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    support::writeFile(customFolder() + QStringLiteral("/Old.html"), "<p>old</p>");
    launch();
    clickToolbarItem("toolbar_item_new");
    for (const Kind &kind : kinds) {
        SCOPED_TRACE(testing::Message() << (kind.title ? kind.title : "none") << kind.dirty);
        if (kind.title) {
            ASSERT_TRUE(select(QString::fromLatin1(kind.title)));
            selected()->setTemplateShouldBeSaved(kind.dirty);
        } else {
            outline()->clearSelection();
        }
        const QStringList enabled = QString::fromLatin1(kind.enabled).split(u' ');
        commands()->validateSoon();
        for (const QString &item : items)
            EXPECT_EQ(toolbarItemIsEnabled(("toolbar_item_" + item.toLatin1()).constData()),
                      enabled.contains(item))
                << item.toStdString();
    }
}

TEST_F(CommandsTest, CommandsThatAreNotThereYetAreDisabledInTheMenus)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    EXPECT_FALSE(menuItem("actionCheckForUpdates")->isEnabled());
}

TEST_F(CommandsTest, SavingAsksAboutClashesInTheirOrder)
{
    writeDesign(QStringLiteral("Taken"), Group::BuiltIn);
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    LSMDesignTemplate *alpha = selectDirty(QStringLiteral("Alpha"));
    alpha->templateDictionary()->setValue(LSMDesignKeys::name, QStringLiteral("Taken"));
    alpha->templateDictionary()->setValue(LSMDesignKeys::identifier, QStringLiteral(""));

    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    pressShortcut("actionSave");
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Template Error"));
    EXPECT_EQ(answers.shown[0].informativeText,
              QStringLiteral("Are you sure you want to save the Template 'Taken'? The following "
                             "issues were found:\n\n\u2022 The template identifier must not be "
                             "empty\n\u2022 A template with the same name exists\n"));
    EXPECT_EQ(answers.shown[0].buttonTitles,
              QStringList({QStringLiteral("Save"), QStringLiteral("Cancel")}));
    EXPECT_TRUE(alpha->templateShouldBeSaved());
    EXPECT_EQ(support::readFile(folder + QStringLiteral("/body.html")), "<p>Hello</p>");

    pressShortcut("actionSave");
    EXPECT_FALSE(alpha->templateShouldBeSaved());
    EXPECT_EQ(support::readFile(folder + QStringLiteral("/body.html")), "<p>changed</p>");
}

TEST_F(CommandsTest, AFailedSaveSaysSoAndLosesNothing)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    launch();
    LSMDesignTemplate *alpha = selectDirty(QStringLiteral("Alpha"));
    QFile::remove(folder + QStringLiteral("/body.html"));
    QDir().mkpath(folder + QStringLiteral("/body.html/in the way"));
    support::AlertAnswers answers;
    clickToolbarItem("toolbar_item_save");
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Saving Failed"));
    EXPECT_EQ(answers.shown[0].informativeText,
              QStringLiteral("Failed to save the selected design template."));
    EXPECT_EQ(answers.shown[0].buttonTitles, QStringList{QStringLiteral("OK")});
    const auto *status = window()->statusBar()->findChild<zq::ElidedLabel *>();
    EXPECT_TRUE(status->text().startsWith(QStringLiteral("“Alpha” could not be saved: ")))
        << status->text().toStdString();
    EXPECT_TRUE(alpha->templateShouldBeSaved());
    EXPECT_EQ(alpha->htmlSourceCode(), QStringLiteral("<p>changed</p>"));
}

TEST_F(CommandsTest, WhatCouldNotBeReadIsCounted)
{
    writeDesign(QStringLiteral("Alpha"));
    const QString broken = writeDesign(QStringLiteral("Beta"));
    support::writeFile(broken + QStringLiteral("/Info.plist"), "no property list");
    launch();
    QStringList texts;
    for (const QLabel *label : window()->statusBar()->findChildren<QLabel *>())
        texts << label->text() << label->toolTip();
    EXPECT_TRUE(texts.contains(QStringLiteral("1 design, 1 could not be read")));
    EXPECT_TRUE(texts.join(u' ').contains(QStringLiteral("Beta.designTemplate: ")));
}

TEST_F(CommandsTest, FindingBringsTheHtmlToTheFrontFromAnywhere)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    giveFocus(outline());
    QTest::keySequence(outline(), QKeySequence(QStringLiteral("Ctrl+F")));
    EXPECT_EQ(editor()->selectedTab(), LSMDesignEditorViewController::HtmlTab);
    EXPECT_EQ(QApplication::focusWidget(), child<QLineEdit>("findField"));
    EXPECT_TRUE(child<QLineEdit>("findField")->isVisible());
}

TEST_F(CommandsTest, TabsByKeysAndMenu)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    const char *items[] = {"actionViewDesign", "actionViewHtml", "actionViewSamples",
                           "actionViewProperties", "actionViewStore"};
    for (int tab = 4; tab >= 0; --tab) {
        pressShortcut(items[tab]);
        EXPECT_EQ(child<QStackedWidget>("tabView")->currentIndex(), tab);
        EXPECT_TRUE(menuItem(items[tab])->isChecked());
    }
    clickMenuItem("actionViewHtml");
    EXPECT_EQ(editor()->selectedTab(), LSMDesignEditorViewController::HtmlTab);
    EXPECT_TRUE(child<MGSFragariaView>("fragariaView")->textView()->hasFocus());
}

TEST_F(CommandsTest, WindowAndToolbarComeBackAsTheyWereLeft)
{
    writeDesign(QStringLiteral("Alpha"));
    launch();
    EXPECT_EQ(menuItem("actionToggleToolbar")->text(), QStringLiteral("Hide Toolbar"));
    pressShortcut("actionToggleToolbar");
    EXPECT_FALSE(commands()->toolbar()->isVisible());
    clickMenuItem("actionToggleToolbar");
    EXPECT_TRUE(commands()->toolbar()->isVisible());
    commands()->toolbar()->setItemIdentifiers({QStringLiteral("toolbar_item_delete")});
    pressShortcut("actionToggleToolbar");
    window()->resize(901, 603);
    quit();

    launch();
    EXPECT_EQ(window()->size(), QSize(901, 603));
    EXPECT_FALSE(commands()->toolbar()->isVisible());
    EXPECT_EQ(commands()->toolbar()->itemIdentifiers(),
              QStringList{QStringLiteral("toolbar_item_delete")});
    EXPECT_EQ(menuItem("actionToggleToolbar")->text(), QStringLiteral("Show Toolbar"));
}

TEST_F(CommandsTest, AFirstWindowFitsTheScreen)
{
    AppController::initialize();
    controller = std::make_unique<AppController>();
    controller->applicationDidFinishLaunching();
    EXPECT_TRUE(QRect(QPoint(), window()->screen()->availableSize())
                    .contains(QRect(QPoint(), window()->frameSize())));
}

// In each language, in each menu and in the menu bar.
TEST_F(CommandsTest, NoLetterLeadsToTwoMenuItems)
{
    for (const bool inGerman : {false, true}) {
        QTranslator german;
        if (inGerman) {
            ASSERT_TRUE(german.load(QStringLiteral(":/layoutsmith/translations/layoutsmith_de")));
            QCoreApplication::installTranslator(&german);
        }
        launch();
        QList<QWidget *> menus = {window()->menuBar()};
        for (QMenu *menu : window()->menuBar()->findChildren<QMenu *>())
            menus << menu;
        EXPECT_GT(menus.size(), 5);
        for (const QWidget *menu : menus) {
            QStringList letters;
            for (const QAction *action : menu->actions()) {
                const QString key = QKeySequence::mnemonic(action->text()).toString();
                EXPECT_FALSE(!key.isEmpty() && letters.contains(key))
                    << action->text().toStdString();
                letters << key;
            }
        }
        quit();
    }
}
