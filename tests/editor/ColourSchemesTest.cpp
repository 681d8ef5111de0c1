#include "editor/MGSColourScheme.h"
#include "editor/MGSColourSchemeController.h"
#include "editor/MGSColourToPlainTextTransformer.h"
#include "editor/MGSFragariaView.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "support/AlertAnswers.h"
#include "support/Contrast.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::ObservableDictionary;
using platform::PropertyList;
using Transformer = MGSColourToPlainTextTransformer;

namespace {

class ColourSchemes : public testing::Test
{
protected:
    ColourSchemes()
    {
        saveScheme(bundle(), u"Sea"_s, u"backgroundColor"_s, QColor(0, 0, 80));
        saveScheme(bundle(), u"apple"_s, u"backgroundColor"_s, QColor(0, 80, 0));
        saveScheme(users(), u"Mine"_s, u"coloursStrings"_s, false);
    }

    QString bundle() const { return home.path(u"Bundle"_s); }
    QString users() const { return home.path(u"Support"_s); }
    QString usersFile(const QString &name) const { return users() + u"/Colour Schemes/"_s + name; }

    static void saveScheme(const QString &place, const QString &name, const QString &property,
                           const QVariant &value)
    {
        MGSColourScheme scheme;
        scheme.setDisplayName(name);
        scheme.setValue(property, value);
        QDir().mkpath(place + u"/Colour Schemes"_s);
        ASSERT_TRUE(
            scheme.propertiesSaveToFile(place + u"/Colour Schemes/"_s + name + u".plist"_s));
    }

    /// The pane, on the defaults.
    void open()
    {
        controller = std::make_unique<MGSColourSchemeController>(
            nullptr, MGSColourSchemeController::Places{{bundle()}, users()});
        values =
            std::make_shared<ObservableDictionary>(MGSColourScheme().dictionaryRepresentation());
        menu = std::make_unique<QComboBox>();
        button = std::make_unique<QPushButton>();
        controller->setSchemeMenu(menu.get());
        controller->setSchemeSaveDeleteButton(button.get());
        controller->setParentView(button.get());
        controller->setObjectController(values);
    }
    QStringList listed() const
    {
        QStringList names;
        for (int row = 0; row < menu->count(); ++row)
            names << menu->itemText(row);
        return names;
    }
    void choose(const QString &name)
    {
        menu->setCurrentText(name);
        Q_EMIT menu->activated(menu->currentIndex());
    }
    void save(const QString &name)
    {
        enter(name);
        EXPECT_FALSE(button->findChild<QDialog *>());
    }
    void enter(const QString &name)
    {
        button->click();
        auto *sheet = button->findChild<QDialog *>();
        ASSERT_TRUE(sheet);
        auto *field = sheet->findChild<QLineEdit *>();
        EXPECT_EQ(field->text(), u"New Scheme"_s);
        field->clear();
        EXPECT_FALSE(sheet->findChild<QPushButton *>(u"bSave"_s)->isEnabled());
        QTest::keyClicks(field, name);
        QTest::mouseClick(sheet->findChild<QPushButton *>(u"bSave"_s), Qt::LeftButton);
        support::settle();
    }

    support::TemporaryHome home;
    std::shared_ptr<ObservableDictionary> values;
    std::unique_ptr<MGSColourSchemeController> controller;
    std::unique_ptr<QComboBox> menu;
    std::unique_ptr<QPushButton> button;
};

} // namespace

TEST(ColourText, EachColourHasATextAndComesBack)
{
    const std::pair<QColor, QString> both[] = {
        {QColor(255, 0, 51), u"1.000000 0.000000 0.200000"_s},
        {QColor(0, 0, 0, 51), u"0.000000 0.000000 0.000000 0.200000"_s},
        {QColor::fromHsv(120, 255, 255), u"0.000000 1.000000 0.000000"_s},
    };
    for (const auto &[colour, text] : both) {
        EXPECT_EQ(Transformer::text(colour), text);
        EXPECT_EQ(Transformer::colour(text), colour.toRgb());
    }
    EXPECT_EQ(Transformer::text(u"no colour at all"_s), u"1.0 0.0 0.0"_s);
    for (const QString &text : {u"0.500000 0.100000 0.300000"_s, u"0.960000 0.960000 0.710000"_s,
                                u"0.117647 0.090196 0.086275 0.999000"_s})
        EXPECT_EQ(Transformer::text(Transformer::colour(text)), text);
    const std::pair<QString, QColor> read[] = {
        {u" 0 .5e0\t1 "_s, QColor::fromRgbF(0, 0.5F, 1)},
        {u"0 0 7 0.5 rest"_s, QColor(0, 0, 255, 128)},
        {u"0.5 0.5"_s, Qt::red},
        {u""_s, Qt::red},
        {u"0,1,0"_s, Qt::red},
        {u"nan nan nan"_s, Qt::red},
    };
    for (const auto &[text, colour] : read)
        EXPECT_EQ(Transformer::colour(text).rgba(), colour.rgba()) << text.toStdString();
}

TEST_F(ColourSchemes, AFileHoldsColoursAsTextAndBringsBackTheScheme)
{
    MGSColourScheme scheme;
    scheme.setDisplayName(u"Één"_s);
    scheme.setValue(u"textColor"_s, QColor(10, 20, 30, 128));
    scheme.setValue(u"coloursNumbers"_s, false);
    scheme.setValue(u"unknown"_s, 1);
    const QString path = home.path(u"a.plist"_s);
    ASSERT_TRUE(scheme.propertiesSaveToFile(path));
    const QVariantMap file = PropertyList::read(path)->root.toMap();
    EXPECT_EQ(file.size(), 25);
    EXPECT_EQ(file.value(u"textColor"_s).toString().split(u' ').size(), 4);
    EXPECT_EQ(file.value(u"backgroundColor"_s), u"1.000000 1.000000 1.000000"_s);

    const auto read = MGSColourScheme::schemeWithFile(home.path(u"x/../a.plist"_s));
    EXPECT_EQ(read.dictionaryRepresentation().keys(), scheme.dictionaryRepresentation().keys());
    EXPECT_EQ(read.displayName(), u"Één"_s);
    EXPECT_EQ(read.sourceFile(), path);
    EXPECT_TRUE(read.isEqualToScheme(scheme));
    scheme.setDisplayName(u"another"_s);
    EXPECT_TRUE(read.isEqualToScheme(scheme));
    scheme.setValue(u"coloursNumbers"_s, true);
    EXPECT_FALSE(read.isEqualToScheme(scheme));
}

TEST_F(ColourSchemes, FilesOfAnyShapeAreReadOrLeftOut)
{
    support::writeFile(usersFile(u"broken.plist"_s), "<plist><dict>");
    support::writeFile(usersFile(u"other.txt"_s), "no scheme");
    PropertyList::write(QVariantList{1}, PropertyList::Format::Xml, usersFile(u"list.plist"_s));
    QDir().mkpath(usersFile(u"folder.plist"_s));
    PropertyList::write(QVariantMap{{u"displayName"_s, 7},
                                    {u"textColor"_s, true},
                                    {u"backgroundColor"_s, u"blue"_s},
                                    {u"coloursAutocomplete"_s, u"NO"_s},
                                    {u"stranger"_s, 1}},
                        PropertyList::Format::Binary, usersFile(u".odd.plist"_s));
    PropertyList::write(QVariantMap{{u"displayName"_s, u"\n"_s}}, PropertyList::Format::Xml,
                        usersFile(u"nameless.plist"_s));
    PropertyList::write(QVariantMap{{u"displayName"_s, u"z\n"_s + u"long"_s.repeated(99)}},
                        PropertyList::Format::Xml, usersFile(u"long.plist"_s));
    open();
    EXPECT_EQ(listed(),
              QStringList({u"nameless.plist"_s, u"apple"_s, u"Custom Settings"_s, u"Mine"_s,
                           u"Sea"_s, u"z "_s + u"long"_s.repeated(14) + u"l…"_s}));
    const QList<MGSColourSchemeController::Scheme> schemes = controller->colourSchemes();
    EXPECT_EQ(schemes[2]->value(u"backgroundColor"_s), QColor(Qt::red));
    for (const QString &ofAnotherType : {u"textColor"_s, u"coloursAutocomplete"_s})
        EXPECT_EQ(schemes[2]->value(ofAnotherType), MGSColourScheme().value(ofAnotherType));

    const auto load = [this](const QString &name) {
        try {
            MGSColourScheme::schemeWithFile(usersFile(name));
        } catch (const platform::AssertionFailure &failure) {
            return failure.text();
        }
        return QString();
    };
    EXPECT_EQ(load(u"none"_s), u"File "_s + usersFile(u"none"_s) + u" not found!"_s);
    EXPECT_EQ(load(u"broken.plist"_s), u"Error reading file "_s + usersFile(u"broken.plist"_s));
}

TEST(ShippedColourSchemes, AreReadable)
{
    const support::TemporaryHome home;
    const MGSColourSchemeController controller(
        nullptr, {{u":/layoutsmith/ZQFragariaResources.bundle"_s}, home.path()});
    EXPECT_GE(controller.colourSchemes().size(), 8);
    int darkOnes = 0;
    for (const auto &scheme : controller.colourSchemes()) {
        const auto colour = [&scheme](const QString &key) {
            return scheme->value(key).value<QColor>();
        };
        EXPECT_TRUE(scheme->isLoadedFromBundle());
        darkOnes += support::luminance(colour(u"backgroundColor"_s)) < 0.2;
        const QSet<QString> texts =
            MGSFragariaView::propertyGroupSyntaxHighlightingColours() +
            QSet<QString>{u"textColor"_s, u"textInvisibleCharactersColour"_s};
        for (const QString &text : texts) {
            for (const QString &ground : {u"backgroundColor"_s, u"currentLineHighlightColour"_s,
                                          u"defaultSyntaxErrorHighlightingColour"_s})
                EXPECT_GE(support::contrast(colour(text), colour(ground)), 4.5)
                    << scheme->displayName().toStdString() << ": " << text.toStdString() << " on "
                    << ground.toStdString();
        }
    }
    EXPECT_GE(darkOnes, 3);
    EXPECT_LE(darkOnes, controller.colourSchemes().size() - 3);
}

TEST_F(ColourSchemes, TheSchemeFollowsTheValuesAndTheValuesFollowTheScheme)
{
    open();
    const QStringList saved{u"apple"_s, u"Mine"_s, u"Sea"_s};
    const QStringList withCustom{u"apple"_s, u"Custom Settings"_s, u"Mine"_s, u"Sea"_s};
    EXPECT_EQ(listed(), withCustom);
    EXPECT_EQ(menu->currentText(), u"Custom Settings"_s);
    EXPECT_TRUE(controller->currentSchemeIsCustom());

    choose(u"Sea"_s);
    EXPECT_EQ(listed(), saved);
    EXPECT_EQ(menu->currentText(), u"Sea"_s);
    EXPECT_EQ(values->value(u"backgroundColor"_s), QColor(0, 0, 80));
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(button->text(), u"Save Scheme…"_s);

    values->setValue(u"backgroundColor"_s, QColor(1, 2, 3));
    EXPECT_EQ(listed(), withCustom);
    EXPECT_EQ(menu->currentText(), u"Custom Settings"_s);
    EXPECT_TRUE(button->isEnabled());
    values->setValue(u"textColor"_s, QColor(4, 5, 6));
    EXPECT_EQ(listed(), withCustom);
    EXPECT_EQ(controller->currentScheme()->value(u"textColor"_s), QColor(4, 5, 6));
    values->setValue(u"textColor"_s, MGSColourScheme().value(u"textColor"_s));
    values->setValue(u"backgroundColor"_s, QColor(0, 80, 0));
    EXPECT_EQ(listed(), saved);
    EXPECT_EQ(menu->currentText(), u"apple"_s);
    values->setValue(u"tabWidth"_s, 3);
    EXPECT_EQ(menu->currentText(), u"apple"_s);

    choose(u"Mine"_s);
    EXPECT_EQ(values->value(u"backgroundColor"_s), QColor(Qt::white));
    EXPECT_EQ(values->value(u"coloursStrings"_s), false);
    EXPECT_EQ(button->text(), u"Delete Scheme…"_s);
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(ColourSchemes, ACustomSchemeIsSavedUnderANameAndDeleted)
{
    open();
    values->setValue(u"backgroundColor"_s, QColor(9, 9, 9));
    save(u"a/b?"_s);
    EXPECT_EQ(menu->currentText(), u"a/b?"_s);
    EXPECT_EQ(listed(), QStringList({u"a/b?"_s, u"apple"_s, u"Mine"_s, u"Sea"_s}));
    EXPECT_TRUE(MGSColourScheme::schemeWithFile(usersFile(u"ab.plist"_s))
                    .isEqualToScheme(*controller->currentScheme()));
    values->setValue(u"backgroundColor"_s, QColor(8, 8, 8));
    save(u"<>"_s);
    EXPECT_TRUE(QFile::exists(usersFile(u".plist"_s)));

    open();
    EXPECT_EQ(listed().size(), 6);
    choose(u"a/b?"_s);
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    button->click();
    ASSERT_EQ(answers.shown.size(), 1);
    EXPECT_EQ(answers.shown[0].messageText, u"Delete the scheme?"_s);
    EXPECT_EQ(answers.shown[0].informativeText, u"Deleted schemes cannot be restored."_s);
    EXPECT_EQ(answers.shown[0].buttonTitles, QStringList({u"Delete"_s, u"Cancel"_s}));
    EXPECT_TRUE(listed().contains(u"a/b?"_s));
    button->click();
    EXPECT_FALSE(listed().contains(u"a/b?"_s));
    EXPECT_FALSE(QFile::exists(usersFile(u"ab.plist"_s)));
    EXPECT_EQ(values->value(u"backgroundColor"_s), QColor(9, 9, 9)) << "what is seen stays";
    EXPECT_EQ(menu->currentText(), u"Custom Settings"_s);
}

TEST_F(ColourSchemes, WithoutValuesNothingIsChosenAndNothingCanBeSaved)
{
    open();
    values->setValue(u"textColor"_s, QColor(1, 2, 3));
    EXPECT_TRUE(controller->currentSchemeIsCustom());
    const qsizetype all = listed().size();
    controller->setObjectController(nullptr);
    EXPECT_EQ(listed().size(), all - 1);
    EXPECT_FALSE(button->isEnabled());
    controller->setObjectController(values);
    EXPECT_TRUE(controller->currentSchemeIsCustom());
}

TEST_F(ColourSchemes, AnotherSchemeIsReplacedOnlyIfTheUserSaysSoAndAFailureIsTold)
{
    open();
    values->setValue(u"backgroundColor"_s, QColor(9, 9, 9));
    const QByteArray before = support::readFile(usersFile(u"Mine.plist"_s));
    support::AlertAnswers answers({ZQAlertSecondButtonReturn, ZQAlertFirstButtonReturn});
    enter(u"Mine"_s);
    EXPECT_EQ(support::readFile(usersFile(u"Mine.plist"_s)), before);
    EXPECT_TRUE(controller->currentSchemeIsCustom());
    auto *again = button->findChild<QDialog *>();
    ASSERT_TRUE(again) << "to choose another name";
    EXPECT_EQ(again->findChild<QLineEdit *>()->text(), u"Mine"_s);
    again->findChild<QPushButton *>(u"bSave"_s)->click();
    support::settle();
    EXPECT_EQ(answers.shown.size(), 2);
    EXPECT_EQ(listed(), QStringList({u"apple"_s, u"Mine"_s, u"Sea"_s}));

    values->setValue(u"backgroundColor"_s, QColor(7, 7, 7));
    QDir(users()).removeRecursively();
    support::writeFile(users(), "a file where the folder should be");
    save(u"Lost"_s);
    EXPECT_EQ(answers.shown.last().messageText, u"The scheme was not saved."_s);
    EXPECT_TRUE(controller->currentSchemeIsCustom());
    EXPECT_EQ(menu->currentText(), u"Custom Settings"_s);
}

TEST_F(ColourSchemes, WhatIsAskedAboutIsSavedOrDeletedWhateverTheValuesAreByThen)
{
    open();
    support::AlertAnswers answers;
    values->setValue(u"backgroundColor"_s, QColor(9, 9, 9));
    const MGSColourScheme custom = *controller->currentScheme();
    answers.whileShown = [&] {
        values->setValue(u"backgroundColor"_s, QColor(0, 0, 80));
    };
    save(u"Mine"_s);
    EXPECT_TRUE(
        MGSColourScheme::schemeWithFile(usersFile(u"Mine.plist"_s)).isEqualToScheme(custom));
    EXPECT_EQ(menu->currentText(), u"Sea"_s);

    choose(u"Mine"_s);
    button->click();
    EXPECT_EQ(answers.shown.size(), 2);
    EXPECT_FALSE(QFile::exists(usersFile(u"Mine.plist"_s)));
    EXPECT_EQ(listed(), QStringList({u"apple"_s, u"Sea"_s}));
    EXPECT_EQ(menu->currentText(), u"Sea"_s);
}

TEST_F(ColourSchemes, OfEqualSchemesTheFirstByNameIsMeant)
{
    saveScheme(users(), u"Zebra"_s, u"backgroundColor"_s, QColor(0, 0, 80));
    saveScheme(users(), u"lake"_s, u"backgroundColor"_s, QColor(0, 0, 80));
    open();
    values->setValue(u"backgroundColor"_s, QColor(0, 0, 80));
    EXPECT_EQ(menu->currentText(), u"lake"_s);
}
