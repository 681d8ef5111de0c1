#include "editor/MGSColourWell.h"
#include "editor/MGSFontWell.h"
#include "editor/MGSFragariaView.h"
#include "editor/MGSHybridUserDefaultsController.h"
#include "editor/MGSManagedGlobalPropertiesProxy.h"
#include "editor/MGSPrefsColourPropertiesViewController.h"
#include "editor/MGSPrefsEditorPropertiesViewController.h"
#include "editor/MGSUserDefaultsController.h"
#include "support/AlertAnswers.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>

namespace {

using View = MGSFragariaView;

class PreferencePanes : public testing::Test
{
protected:
    static inline int count = 0;

    PreferencePanes()
    {
        controller->setManagedProperties(all());
        controller->addFragariaToManagedSet(&view);
        for (MGSPrefsViewController *page : pages()) {
            page->setUserDefaultsController(controller);
            page->show();
        }
    }
    ~PreferencePanes() override
    {
        controller->setManagedProperties({});
        MGSUserDefaultsController::sharedController()->setManagedProperties({});
    }

    static QSet<QString> all()
    {
        const QStringList keys = View::defaultsDictionary().keys();
        return {keys.begin(), keys.end()};
    }
    QList<MGSPrefsViewController *> pages() { return {&editorPage, &colourPage}; }
    QWidget *pane(const QString &name)
    {
        QWidget *found = editorPage.findChild<QWidget *>(name);
        return found ? found : colourPage.findChild<QWidget *>(name);
    }
    template <class Control>
    Control *control(const QString &key)
    {
        for (MGSPrefsViewController *page : pages()) {
            for (auto *found : page->findChildren<Control *>()) {
                if (found->property("settingsKey").toString() == key)
                    return found;
            }
        }
        ADD_FAILURE() << "no control for " << key.toStdString();
        return nullptr;
    }
    QPushButton *restoreButton(MGSPrefsViewController &page)
    {
        return page.findChild<QPushButton *>("restoreButton");
    }
    void chooseColour(const QString &key, const QColor &colour)
    {
        auto *well = control<MGSColourWell>(key);
        QTest::keyClick(well, Qt::Key_Space);
        auto *dialog = colourPage.findChild<QColorDialog *>();
        ASSERT_TRUE(dialog && dialog->isVisible());
        EXPECT_EQ(dialog->currentColor().rgba(), well->color().rgba());
        dialog->setCurrentColor(colour);
        QTest::keyClick(dialog, Qt::Key_Return);
        support::settle();
    }

    void chooseScheme(const QString &name)
    {
        auto *menu = colourPage.findChild<QComboBox *>("schemeMenu");
        QTest::keyClick(menu, Qt::Key_Home);
        for (int step = 0; step < menu->count() && menu->currentText() != name; ++step)
            QTest::keyClick(menu, Qt::Key_Down);
        EXPECT_EQ(menu->currentText(), name);
    }

    support::TemporaryHome home;
    MGSUserDefaultsController *const controller =
        MGSUserDefaultsController::sharedControllerForGroupID(
            QStringLiteral("Panes %1").arg(++count));
    View view;
    MGSPrefsEditorPropertiesViewController editorPage;
    MGSPrefsColourPropertiesViewController colourPage;
};

TEST_F(PreferencePanes, EveryPropertyOfThePanesHasOneControlWithAName)
{
    const QHash<QString, QSet<QString>> panes = {
        {"paneEditing", View::propertyGroupEditing()},
        {"paneGutter", View::propertyGroupGutter()},
        {"paneAutocomplete", View::propertyGroupAutocomplete()},
        {"paneIndenting", View::propertyGroupIndenting()},
        {"paneTextFont", View::propertyGroupTextFont()},
        {"paneEditorColours", View::propertyGroupEditorColours()},
        {"paneSyntaxColours", View::propertyGroupSyntaxHighlighting()},
        {"paneOtherSettings", View::propertyGroupColouringExtraOptions()},
    };
    for (auto it = panes.cbegin(); it != panes.cend(); ++it) {
        SCOPED_TRACE(it.key().toStdString());
        ASSERT_TRUE(pane(it.key()));
        QStringList keys;
        for (QWidget *widget : pane(it.key())->findChildren<QWidget *>()) {
            if (!widget->property("settingsKey").isValid())
                continue;
            keys << widget->property("settingsKey").toString();
            EXPECT_NE(widget->focusPolicy() & Qt::TabFocus, 0) << keys.last().toStdString();
            auto *accessible = QAccessible::queryAccessibleInterface(widget);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
                << keys.last().toStdString();
        }
        QStringList expected = it->values();
        keys.sort();
        expected.sort();
        EXPECT_EQ(keys, expected);
    }
}

TEST_F(PreferencePanes, ControlsAndViewsFollowEachOther)
{
    auto *wrap = control<QCheckBox>("lineWrap");
    EXPECT_TRUE(wrap->isChecked());
    QTest::mouseClick(wrap, Qt::LeftButton, {}, {8, wrap->height() / 2});
    EXPECT_FALSE(view.lineWrap());
    view.setLineWrap(true);
    EXPECT_TRUE(wrap->isChecked());

    auto *column = control<QSpinBox>("pageGuideColumn");
    column->selectAll();
    QTest::keyClicks(column, "132");
    EXPECT_EQ(view.pageGuideColumn(), 80) << "while it is typed";
    QTest::keyClick(column, Qt::Key_Return);
    EXPECT_EQ(view.pageGuideColumn(), 132);
    auto *delay = control<QDoubleSpinBox>("autoCompleteDelay");
    EXPECT_FALSE(delay->isEnabled()) << "without suggestions there is none";
    view.setAutoCompleteEnabled(true);
    QTest::keyClick(delay, Qt::Key_Down);
    EXPECT_DOUBLE_EQ(view.autoCompleteDelay(), 0.95);
    auto *height = control<QDoubleSpinBox>("lineHeightMultiple");
    EXPECT_EQ(height->text(), "automatic");

    auto *strings = control<QCheckBox>("coloursStrings");
    QTest::keyClick(strings, Qt::Key_Space);
    EXPECT_FALSE(view.coloursStrings());
}

TEST_F(PreferencePanes, TheWheelScrollsThePageAndChangesOnlyTheFieldOneIsIn)
{
    auto *column = control<QSpinBox>("pageGuideColumn");
    const auto turn = [column] {
        const QPointF place(column->rect().center());
        QWheelEvent event(place, column->mapToGlobal(place), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(column, &event);
        return column->value();
    };
    editorPage.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editorPage));
    const int value = column->value();
    EXPECT_EQ(turn(), value);
    column->setFocus();
    EXPECT_EQ(turn(), value - 1);
}

TEST_F(PreferencePanes, AColourIsChosenInTheDialog)
{
    chooseColour("colourForComments", QColor(1, 2, 3));
    EXPECT_EQ(view.colourForComments(), QColor(1, 2, 3));
    auto *well = control<MGSColourWell>("colourForComments");
    EXPECT_EQ(well->toolTip(), "#010203");
    QTest::mouseClick(well, Qt::LeftButton);
    auto *dialog = colourPage.findChild<QColorDialog *>();
    ASSERT_TRUE(dialog);
    dialog->setCurrentColor(Qt::red);
    QTest::keyClick(dialog, Qt::Key_Escape);
    support::settle();
    EXPECT_EQ(view.colourForComments(), QColor(1, 2, 3));

    const QColor fine = QColor::fromRgbF(0.5004F, 0.5F, 0.2F); // finer than the dialog
    view.setColourForComments(fine);
    chooseColour("colourForComments", fine);
    EXPECT_EQ(view.colourForComments(), fine);
}

TEST_F(PreferencePanes, ColoursGoTogether)
{
    const QColor ground = view.backgroundColor();
    QVariantMap dark = controller->defaultValues();
    dark["backgroundColor"] = QColor(Qt::black);
    chooseColour("colourForComments", Qt::darkGreen);
    controller->setDefaultValues(dark);
    EXPECT_EQ(view.backgroundColor(), ground);
    support::AlertAnswers answers;
    restoreButton(colourPage)->click();
    EXPECT_EQ(view.backgroundColor(), QColor(Qt::black));
}

TEST_F(PreferencePanes, TheSchemeGoesWithTheColours)
{
    auto *menu = colourPage.findChild<QComboBox *>("schemeMenu");
    auto *button = colourPage.findChild<QPushButton *>("schemeSaveDeleteButton");
    EXPECT_EQ(menu->currentText(), "Custom Settings");
    chooseScheme("Ember");
    const QColor text = view.textColor();
    EXPECT_EQ(control<MGSColourWell>("textColor")->color(), text);

    chooseColour("textColor", Qt::white);
    EXPECT_EQ(menu->currentText(), "Custom Settings");
    chooseColour("textColor", text);
    EXPECT_EQ(menu->currentText(), "Ember");
    EXPECT_EQ(menu->findText("Custom Settings"), -1);

    QTest::keyClick(control<QCheckBox>("coloursStrings"), Qt::Key_Space);
    ASSERT_EQ(menu->currentText(), "Custom Settings");
    QTest::mouseClick(button, Qt::LeftButton);
    auto *name = colourPage.findChild<QLineEdit *>("schemeNameField");
    ASSERT_TRUE(name && name->isVisible());
    QTest::keyClicks(name, "Quiet");
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(menu->currentText(), "Quiet");
    chooseScheme("Ember");
    EXPECT_TRUE(view.coloursStrings());
    chooseScheme("Quiet");
    EXPECT_FALSE(view.coloursStrings());

    support::AlertAnswers answers;
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(menu->findText("Quiet"), -1);
    EXPECT_EQ(menu->currentText(), "Custom Settings");
}

TEST_F(PreferencePanes, AFontIsChosenForTextAndGutter)
{
    auto *well = control<MGSFontWell>("textFont");
    const QFont before = view.textFont();
    EXPECT_EQ(well->text(), QFontInfo(before).family() + " - 11pt");
    QTest::keyClick(well, Qt::Key_Space);
    auto *dialog = editorPage.findChild<QFontDialog *>();
    ASSERT_TRUE(dialog && dialog->isVisible());
    QFont chosen = before;
    chosen.setPointSizeF(16);
    dialog->setCurrentFont(chosen);
    QTest::keyClick(dialog, Qt::Key_Return);
    EXPECT_EQ(view.textFont().pointSizeF(), 16);
    EXPECT_EQ(view.gutterFont().pointSizeF(), 16);
    EXPECT_TRUE(well->text().endsWith(" - 16pt"));
}

TEST_F(PreferencePanes, DefaultsAreRestoredAfterAQuestion)
{
    QPushButton *button = restoreButton(editorPage);
    EXPECT_FALSE(button->isEnabled());
    QTest::keyClick(control<QCheckBox>("lineWrap"), Qt::Key_Space);
    QTest::keyClick(control<QSpinBox>("tabWidth"), Qt::Key_Up);
    chooseColour("textColor", Qt::blue);
    ASSERT_TRUE(button->isEnabled());
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(view.lineWrap());
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(answers.shown.size(), 2);
    EXPECT_EQ(answers.shown[0].messageText, "Restore the defaults?");
    EXPECT_TRUE(view.lineWrap());
    EXPECT_EQ(view.tabWidth(), 4);
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(view.textColor(), QColor(Qt::blue)) << "another page";
}

TEST_F(PreferencePanes, UselessPanesAreLeftOutAndUnmanagedControlsDisabled)
{
    const auto shown = [this] {
        QStringList names;
        for (const char *name :
             {"paneEditing", "paneGutter", "paneAutocomplete", "paneIndenting", "paneTextFont"}) {
            if (!pane(name)->isHidden())
                names << name;
        }
        return names;
    };
    controller->setManagedProperties({"showsGutter", "textFont"});
    EXPECT_EQ(shown().size(), 5);
    EXPECT_TRUE(control<QCheckBox>("showsGutter")->isEnabled());
    EXPECT_FALSE(control<QCheckBox>("showsLineNumbers")->isEnabled());
    editorPage.setHidesUselessPanels(true);
    EXPECT_EQ(shown(), QStringList({"paneGutter", "paneTextFont"}));
    controller->setManagedProperties({"tabWidth", "showsGutter", "textFont"});
    EXPECT_EQ(shown(), QStringList({"paneGutter", "paneIndenting", "paneTextFont"}));
    support::settle();
    EXPECT_EQ(pane("paneGutter")->y(), 0);
    EXPECT_EQ(pane("paneIndenting")->y(), pane("paneGutter")->geometry().bottom() + 2);

    EXPECT_FALSE(colourPage.areAllColourPropertiesAvailable());
    controller->setManagedProperties(View::propertyGroupTheme());
    EXPECT_TRUE(colourPage.areAllColourPropertiesAvailable());
}

TEST_F(PreferencePanes, AHybridPageShowsWhatIsGlobal)
{
    controller->setManagedProperties({"tabWidth"});
    auto *global = MGSUserDefaultsController::sharedController();
    global->setManagedProperties({"lineWrap"});
    editorPage.setUserDefaultsController(
        MGSHybridUserDefaultsController::sharedControllerForGroupID(controller->groupID()));
    auto *wrap = control<QCheckBox>("lineWrap");
    EXPECT_TRUE(wrap->isEnabled());
    EXPECT_FALSE(wrap->font().italic());
    editorPage.setStylizeGlobalProperties(true);
    EXPECT_TRUE(wrap->font().italic());
    EXPECT_FALSE(control<QSpinBox>("tabWidth")->font().italic());
    EXPECT_EQ(editorPage.managedGlobalPropertiesProxy()->value("lineWrap"), true);
    EXPECT_EQ(editorPage.managedPropertiesProxy()->value("textColor"), false);
    QTest::keyClick(wrap, Qt::Key_Space);
    EXPECT_FALSE(view.lineWrap());
    EXPECT_FALSE(global->values()->value("lineWrap").toBool());
    global->values()->removeValue("lineWrap");
    EXPECT_TRUE(wrap->isChecked());
}

} // namespace
