#include "editor/MGSColourWell.h"
#include "editor/MGSFragariaView.h"
#include "editor/MGSLineNumberView.h"
#include "library/LSMLotbookConfig.h"
#include "platform/Appearance.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMPreferencesPanelController.h"
#include "workbench/WorkbenchFixture.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>

using platform::Appearance;
using platform::ColorScheme;
using platform::namedColor;
using platform::UserDefaults;

class PreferencesTest : public WorkbenchTest
{
protected:
    static constexpr const char *versionKey = "lotbookApplicationIdentifier";
    static constexpr const char *labelKey = "finderLabelInt";

    void open()
    {
        launch();
        pressShortcut("actionPreferences");
        ASSERT_TRUE(panel() && panel()->isVisible());
    }
    static QDialog *panel()
    {
        return LSMPreferencesPanelController::sharedLSMPreferencesPanelController().window();
    }
    static QComboBox *popup(const char *name)
    {
        return panel()->findChild<QComboBox *>(QString::fromLatin1(name));
    }
    static QComboBox *versions() { return popup("lotbookVersionPopup"); }
    static QComboBox *labels() { return popup("finderColorPopup"); }
    static QStringList titlesIn(const QComboBox *popup)
    {
        QStringList titles;
        for (int index = 0; index < popup->count(); ++index)
            titles << popup->itemText(index);
        return titles;
    }
    template <class Control>
    static Control *setting(const char *name)
    {
        return panel()->findChild<Control *>(QString::fromLatin1(name));
    }
    MGSFragariaView *code() const { return child<MGSFragariaView>("fragariaView"); }
    static void turn(const char *choice)
    {
        Appearance::shared().setChoice(QString::fromLatin1(choice));
    }
    static void chooseColour(const char *well, const QColor &colour)
    {
        QTest::keyClick(setting<MGSColourWell>(well), Qt::Key_Space);
        auto *dialog = panel()->findChild<QColorDialog *>();
        ASSERT_TRUE(dialog && dialog->isVisible());
        dialog->setCurrentColor(colour);
        QTest::keyClick(dialog, Qt::Key_Return);
    }
    static QVariant stored(const char *key)
    {
        return UserDefaults::standardUserDefaults().object(QString::fromLatin1(key));
    }
    static void store(const char *key, const QVariant &value)
    {
        UserDefaults::standardUserDefaults().setObject(QString::fromLatin1(key), value);
    }
};

TEST_F(PreferencesTest, AVersionIsChosenByQuitting)
{
    writeDesign(QStringLiteral("Alpha"));
    open();
    EXPECT_EQ(titlesIn(versions()),
              QStringList({QStringLiteral("Lotbook 9"), QStringLiteral("Lotbook 8"),
                           QStringLiteral("Lotbook 7")}));
    EXPECT_EQ(versions()->currentText(), QStringLiteral("Lotbook 9"));
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});

    QTest::keyClick(versions(), Qt::Key_Home); // where it is already
    EXPECT_TRUE(answers.shown.isEmpty());
    QTest::keyClick(versions(), Qt::Key_Down);
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, QStringLiteral("Restart Needed"));
    EXPECT_EQ(answers.shown[0].informativeText,
              QStringLiteral("The Layoutsmith needs to be restarted to change the Lotbook version. "
                             "Do you want to quit now?"));
    EXPECT_EQ(answers.shown[0].buttonTitles,
              QStringList({QStringLiteral("Quit"), QStringLiteral("Cancel")}));
    EXPECT_EQ(versions()->currentText(), QStringLiteral("Lotbook 9"));
    EXPECT_EQ(stored(versionKey), QStringLiteral("com.quillbyte.lotbook9"));

    QTimer::singleShot(0, window(), [] { QTest::keyClick(versions(), Qt::Key_End); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(window()->isVisible());
    EXPECT_EQ(stored(versionKey), QStringLiteral("com.quillbyte.lotbook7"));
}

TEST_F(PreferencesTest, UnsavedDesignsAreAskedAboutFirst)
{
    writeDesign(QStringLiteral("Alpha"));
    open();
    selected()->setTemplateShouldBeSaved(true);
    EXPECT_TRUE(child<QPushButton>("generateButton")->isEnabled());
    const int quitProgram = ZQAlertFirstButtonReturn;
    support::AlertAnswers answers({quitProgram, ZQAlertSecondButtonReturn, quitProgram});
    QTimer::singleShot(0, window(), [&] {
        QTest::keyClick(versions(), Qt::Key_Down);
        EXPECT_TRUE(support::waitUntil([&] { return answers.shown.size() == 2; }));
        EXPECT_EQ(answers.shown[1].messageText, QStringLiteral("Unsaved Changes"));
        EXPECT_TRUE(window()->isVisible());
        EXPECT_EQ(stored(versionKey), QStringLiteral("com.quillbyte.lotbook8"));
        support::settle();
        EXPECT_TRUE(panel()->isVisible());
        clickMenuItem("actionNewDesign");
        pressShortcut("actionSave");
        EXPECT_TRUE(selected()->templatePath().startsWith(customFolder()))
            << "until the next start Lotbook 9 it is";
        EXPECT_FALSE(child<QPushButton>("generateButton")->isEnabled());
        QCoreApplication::quit();
    });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(PreferencesTest, FinderLabelsAndTheSettingFollowEachOther)
{
    const char *names[] = {"None", "Grey", "Green", "Purple", "Blue", "Yellow", "Red", "Orange"};
    open();
    ASSERT_EQ(labels()->count(), 8);
    EXPECT_EQ(labels()->currentText(), QStringLiteral("None"));
    QList<QRgb> swatches;
    for (int label = 0; label < 8; ++label) {
        EXPECT_EQ(labels()->itemText(label), QString::fromLatin1(names[label]));
        const QImage swatch = labels()->itemIcon(label).pixmap(12).toImage();
        swatches << swatch.pixel(swatch.width() / 2, swatch.height() / 2);
    }
    EXPECT_EQ(QSet<QRgb>(swatches.begin(), swatches.end()).size(), 8);

    QTest::keyClick(labels(), Qt::Key_End);
    EXPECT_EQ(stored(labelKey), 7);
    store(labelKey, 2);
    EXPECT_EQ(labels()->currentText(), QStringLiteral("Green"));
    store(labelKey, 99);
    EXPECT_EQ(labels()->currentIndex(), -1);
    store(labelKey, 0);
    EXPECT_EQ(labels()->currentText(), QStringLiteral("None"));

    QWheelEvent wheel(QPointF(5, 5), labels()->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(labels(), &wheel);
    EXPECT_EQ(stored(labelKey), 0);
}

TEST_F(PreferencesTest, AnUnknownVersionSelectsNoneAndTheOneWindowComesBack)
{
    store(versionKey, QStringLiteral("com.quillbyte.lotbook10"));
    open();
    EXPECT_EQ(versions()->currentIndex(), -1);
    QDialog *first = panel();
    first->move(40, 60);
    first->resize(520, 400);
    const QRect place = first->geometry();
    QTest::keyClick(panel(), Qt::Key_Escape);
    EXPECT_FALSE(first->isVisible());
    pressShortcut("actionPreferences");
    EXPECT_EQ(panel(), first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(first->geometry(), place);
    quit();
    EXPECT_FALSE(panel()) << "it goes with the main window";
}

TEST_F(PreferencesTest, PagesAreTurnedByKeyboard)
{
    open();
    auto *tabs = panel()->findChild<QTabBar *>();
    ASSERT_EQ(tabs->count(), 3);
    EXPECT_EQ(tabs->tabText(0), QStringLiteral("&General"));
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("&Editor"));
    EXPECT_EQ(tabs->tabText(2), QStringLiteral("&Colors"));
    for (int page = 0; page < 3; ++page)
        EXPECT_FALSE(tabs->tabIcon(page).isNull());
    giveFocus(tabs);
    QTest::keyClick(tabs, Qt::Key_Right);
    EXPECT_TRUE(setting<QCheckBox>("lineWrapBox")->isVisible());
    QTest::keyClick(tabs, Qt::Key_Right);
    EXPECT_TRUE(setting<MGSColourWell>("textColorWell")->isVisible());
}

TEST_F(PreferencesTest, TheEditorsOwnSettingsHoldUntilTheUserChangesThem)
{
    writeDesign(QStringLiteral("Alpha"));
    open();
    EXPECT_EQ(setting<QSpinBox>("tabWidthField")->value(), 2);
    EXPECT_TRUE(setting<QCheckBox>("indentWithSpacesBox")->isChecked());
    EXPECT_FALSE(stored("Global").isValid()) << "nothing was chosen";
    QTest::keyClick(setting<QSpinBox>("tabWidthField"), Qt::Key_Up);
    QTest::keyClick(setting<QCheckBox>("showsGutterBox"), Qt::Key_Space);
    EXPECT_EQ(stored("Global").toMap().keys(),
              QStringList({QStringLiteral("showsGutter"), QStringLiteral("tabWidth")}));
    quit();
    launch();
    EXPECT_EQ(code()->tabWidth(), 3);
    EXPECT_FALSE(code()->showsGutter());
    EXPECT_TRUE(code()->highlightsCurrentLine());
    EXPECT_EQ(code()->autoCompleteDelay(), 0.05);
}

TEST_F(PreferencesTest, ASchemeThatWasChosenStays)
{
    writeDesign(QStringLiteral("Alpha"));
    turn("light");
    open();
    QComboBox *schemes = popup("schemeMenu");
    schemes->setFocus();
    QTest::keyClicks(schemes, QStringLiteral("Pine"));
    ASSERT_EQ(schemes->currentText(), QStringLiteral("Pine Night"));
    const QColor ground = code()->backgroundColor();
    const QColor strings = code()->colourForStrings();
    EXPECT_LT(ground.lightness(), 60);
    turn("dark");
    quit();
    launch();
    turn("light");
    EXPECT_EQ(code()->backgroundColor(), ground);
    EXPECT_EQ(code()->colourForStrings(), strings);
    pressShortcut("actionPreferences");
    EXPECT_EQ(popup("schemeMenu")->currentText(), QStringLiteral("Pine Night"));

    const support::AlertAnswers answers;
    for (QPushButton *button :
         panel()->findChildren<QPushButton *>(QStringLiteral("restoreButton")))
        button->click();
    EXPECT_EQ(popup("schemeMenu")->currentText(), QStringLiteral("Layoutsmith Light"));
    EXPECT_EQ(stored("Global"), QVariantMap());
}

TEST_F(PreferencesTest, ColoursFollowLightAndDarkUntilOneIsChosen)
{
    const QString background = QStringLiteral("codeEditorBackground");
    const QString gutter = QStringLiteral("codeEditorGutterBackgroundColour");
    writeDesign(QStringLiteral("Alpha"));
    turn("light");
    open();
    turn("dark");
    EXPECT_EQ(code()->backgroundColor(), namedColor(background, ColorScheme::Dark));
    EXPECT_EQ(code()->gutterBackgroundColour(), namedColor(gutter, ColorScheme::Dark));
    EXPECT_EQ(setting<MGSColourWell>("backgroundColorWell")->color(), code()->backgroundColor());
    EXPECT_EQ(popup("schemeMenu")->currentText(), QStringLiteral("Layoutsmith Dark"));
    turn("light");
    EXPECT_EQ(popup("schemeMenu")->currentText(), QStringLiteral("Layoutsmith Light"));
    EXPECT_EQ(code()->backgroundColor(), namedColor(background, ColorScheme::Light));

    const QColor chosen(250, 240, 230);
    chooseColour("backgroundColorWell", chosen);
    const QColor text = code()->textColor();
    for (const char *choice : {"dark", "light", "dark"}) {
        turn(choice);
        EXPECT_EQ(code()->backgroundColor(), chosen);
        EXPECT_EQ(code()->textColor(), text);
        EXPECT_GT(code()->gutterBackgroundColour().lightness(), 200);
    }
    quit();
    launch();
    EXPECT_EQ(code()->backgroundColor(), chosen);
    EXPECT_EQ(code()->textColor(), text);
    EXPECT_GT(code()->gutterBackgroundColour().lightness(), 200);
}
