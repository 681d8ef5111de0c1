#include "library/LSMDesignKeys.h"
#include "platform/NotificationCenter.h"
#include "platform/PropertyList.h"
#include "workbench/LSMNotifications.h"
#include "workbench/WorkbenchFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace LSMDesignKeys;
using platform::PropertyList;
using platform::PropertyListDate;

class StoreTabTest : public WorkbenchTest
{
protected:
    const QVariantMap lamp{
        {releaseDate, QVariant::fromValue(PropertyListDate{753'000'000})},
        {storeTitle, QStringLiteral("Lamp")},
        {storeDescription, QStringLiteral("Two\r\nlines with a\u00A0hard space")},
        {storePrice, QStringLiteral("9.00")},
        {storeCurrency, QStringLiteral("EUR")},
        {storeSupportUrl, QStringLiteral("https://www.example.com/lamp")},
        {QStringLiteral("rating"), 5},
        {storeCategory, 12},
    };

    QString writePaid(const QString &title, Group group = Group::Custom)
    {
        return writeDesign(title, group, "a", {{store, lamp}});
    }
    void openStore(const QString &title)
    {
        launch();
        ASSERT_TRUE(select(title));
        pressShortcut("actionViewStore");
    }
    QLineEdit *field(const char *name) const { return child<QLineEdit>(name); }
    QLineEdit *currency() const { return child<QComboBox>("currencyPopup")->lineEdit(); }
    QPlainTextEdit *description() const
    {
        return child<QPlainTextEdit>("designStoreDescriptionTextView");
    }
    QString hint(const char *name) const { return child<QLabel>(name)->text(); }
    QVariantMap storeOf(const LSMDesignTemplate *design) const
    {
        return design->templateDictionary()->value(store).toMap();
    }
    static QVariantMap savedStore(const QString &folder)
    {
        const auto info = PropertyList::read(folder + QStringLiteral("/Info.plist"));
        return info->root.toMap().value(store).toMap();
    }
    void setText(QLineEdit *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        support::settle();
    }
};

TEST_F(StoreTabTest, EveryFieldIsWrittenAndTheRestStays)
{
    const QString folder = writePaid(QStringLiteral("Alpha"));
    openStore(QStringLiteral("Alpha"));
    const QPointer<LSMDesignTemplate> alpha = selected();
    int titleChanges = 0;
    platform::NotificationCenter::defaultCenter().addObserver(
        window(), LSMDesignTitleDidChange, alpha, [&](const auto &) { ++titleChanges; });
    const struct
    {
        QLineEdit *view;
        QLatin1StringView key;
        QString text;
    } fields[] = {
        {field("storeTitleField"), storeTitle, QStringLiteral("Desk Lamp")},
        {field("priceField"), storePrice, QStringLiteral("12.50")},
        {currency(), storeCurrency, QStringLiteral("CHF")},
        {field("supportUrlField"), storeSupportUrl, QStringLiteral("https://example.com")},
    };
    QVariantMap expected = lamp;
    for (const auto &[view, key, text] : fields) {
        EXPECT_EQ(view->text(), lamp.value(key).toString());
        alpha->setTemplateShouldBeSaved(false);
        titleChanges = 0;
        setText(view, text);
        EXPECT_TRUE(alpha->templateShouldBeSaved()) << key.data();
        EXPECT_GT(titleChanges, 0) << key.data();
        expected.insert(key, text);
        EXPECT_EQ(storeOf(alpha), expected) << key.data();
        EXPECT_TRUE(view->hasFocus()) << key.data();
    }
    description()->setFocus();
    QTest::keyClick(description(), Qt::Key_Return);
    expected.insert(storeDescription, QStringLiteral("\r\nTwo\r\nlines with a\u00A0hard space"));
    EXPECT_EQ(storeOf(alpha), expected);
    pressShortcut("actionSave");
    EXPECT_EQ(savedStore(folder), expected) << "an unknown key and a value of another type too";
    setText(field("storeTitleField"), {});
    expected.remove(storeTitle);
    EXPECT_EQ(storeOf(alpha), expected);
}

TEST_F(StoreTabTest, LookingChangesNothingAndUndoStaysInItsDesign)
{
    writePaid(QStringLiteral("Alpha"));
    writePaid(QStringLiteral("Beta"));
    openStore(QStringLiteral("Alpha"));
    EXPECT_EQ(field("categoryField")->text(), QString());
    EXPECT_EQ(field("categoryField")->placeholderText(),
              QStringLiteral("Holds something that is no text"));
    type(field("storeTitleField"), QStringLiteral("x"));
    QTest::keyClick(field("storeTitleField"), Qt::Key_Backspace);
    select(QStringLiteral("Beta"));
    field("storeTitleField")->undo();
    EXPECT_EQ(storeOf(selected()), lamp);
    EXPECT_FALSE(selected()->templateShouldBeSaved());
}

TEST_F(StoreTabTest, OnlyPaidCustomDesignsAreEdited)
{
    const QString folder = writePaid(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Free"));
    writePaid(QStringLiteral("Built"), Group::BuiltIn);
    openStore(QStringLiteral("Built"));
    setText(field("storeTitleField"), QStringLiteral("x"));
    description()->setFocus();
    QTest::keyClick(description(), Qt::Key_A);
    EXPECT_FALSE(child<QComboBox>("currencyPopup")->isEnabled());
    EXPECT_FALSE(child<QCheckBox>("paidSwitch")->isEnabled());
    EXPECT_EQ(storeOf(selected()), lamp);
    EXPECT_FALSE(selected()->templateShouldBeSaved());

    select(QStringLiteral("Free"));
    EXPECT_FALSE(field("storeTitleField")->isEnabled());
    EXPECT_EQ(field("storeTitleField")->text(), QString());
    QTest::keyClick(child<QCheckBox>("paidSwitch"), Qt::Key_Space);
    EXPECT_TRUE(field("storeTitleField")->isEnabled());
    EXPECT_NE(child<QLabel>("releaseDateText")->text(), QStringLiteral("–"));

    select(QStringLiteral("Alpha"));
    QTest::keyClick(child<QCheckBox>("paidSwitch"), Qt::Key_Space);
    EXPECT_FALSE(field("storeTitleField")->isEnabled());
    EXPECT_EQ(storeOf(selected()), lamp) << "it goes with the save";
    pressShortcut("actionSave");
    EXPECT_TRUE(savedStore(folder).isEmpty());
    EXPECT_EQ(field("storeTitleField")->text(), QString());
}

TEST_F(StoreTabTest, WhatCannotBeMeantIsHintedAt)
{
    writePaid(QStringLiteral("Alpha"));
    openStore(QStringLiteral("Alpha"));
    const struct
    {
        const char *field;
        const char *hint;
        QList<const char *> sound;
        QList<const char *> odd;
    } rules[] = {
        {"priceField", "priceHint", {"9", "12.50"}, {"9,90", "free", "-1", "9.", ""}},
        {"supportUrlField",
         "supportUrlHint",
         {"https://example.com/a?b", ""},
         {"http://example.com", "example.com", "https://", "https://a b"}},
    };
    for (const auto &rule : rules) {
        EXPECT_EQ(hint(rule.hint), QString());
        for (const char *text : rule.odd) {
            setText(field(rule.field), QString::fromLatin1(text));
            EXPECT_NE(hint(rule.hint), QString()) << text;
            EXPECT_TRUE(!*text || storeOf(selected()).values().contains(QString::fromLatin1(text)));
        }
        for (const char *text : rule.sound) {
            setText(field(rule.field), QString::fromLatin1(text));
            EXPECT_EQ(hint(rule.hint), QString()) << text;
        }
    }
}
