#include "workbench/WorkbenchFixture.h"

#include "kit/ui/Popover.h"
#include "kit/ui/ZQKeywordView.h"
#include "library/LSMDesignKeys.h"
#include "platform/PropertyList.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QToolButton>

class KeywordsTest : public WorkbenchTest
{
protected:
    void launchWide()
    {
        launch();
        window()->resize(1400, 700);
        support::settle();
    }
    static QVariantMap withKeywords(const QVariantList &keywords)
    {
        return {{LSMDesignKeys::keywords, keywords}};
    }
    ZQKeywordView *row() const { return child<ZQKeywordView>("keywordView"); }
    QStringList chosen() const
    {
        QStringList result;
        for (const QString &keyword : row()->keywords()) {
            if (row()->isKeywordSelected(keyword))
                result << keyword;
        }
        return result;
    }
    void click(const QString &keyword)
    {
        const qsizetype index = row()->keywords().indexOf(keyword);
        ASSERT_TRUE(index >= 0 && row()->canDrawKeywordAtIndex(index));
        QTest::mouseClick(row(), Qt::LeftButton, {},
                          row()->rectForKeywordAtIndex(index).center().toPoint());
    }
    QVariantList stored(const QString &folder) const
    {
        const auto document = platform::PropertyList::parse(
            support::readFile(folder + QStringLiteral("/Info.plist")));
        return document->root.toMap().value(LSMDesignKeys::keywords).toList();
    }

    zq::Popover *popover() const { return window()->findChild<zq::Popover *>(); }
    QListView *list() const { return popover()->findChild<QListView *>(); }
    QStringList names() const
    {
        QStringList result;
        for (int i = 0; i < list()->model()->rowCount(); ++i)
            result << list()->model()->index(i, 0).data().toString();
        return result;
    }
    void openList()
    {
        QTest::mouseClick(child<QToolButton>("keywordsPopoverButton"), Qt::LeftButton);
        ASSERT_TRUE(popover());
    }
    void closeList()
    {
        QTest::keyClick(list(), Qt::Key_Escape);
        EXPECT_TRUE(support::waitUntil([this] { return !popover(); }));
    }
    void press(const char *button)
    {
        QTest::mouseClick(popover()->findChild<QToolButton *>(QString::fromLatin1(button)),
                          Qt::LeftButton);
    }
    /// Into the row that is being edited.
    void typeName(const QString &name, bool finish = true)
    {
        auto *field = qobject_cast<QLineEdit *>(popover()->focusWidget());
        ASSERT_TRUE(field);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClicks(field, name);
        if (finish)
            QTest::keyClick(field, Qt::Key_Return);
        support::settle();
    }
};

TEST_F(KeywordsTest, ABadgeGivesAndTakesAKeyword)
{
    const QString folder =
        writeDesign(QStringLiteral("Alpha"), Group::Custom, "", withKeywords({"shop", 5, "Art"}));
    writeDesign(QStringLiteral("Beta"), Group::Custom, "", withKeywords({"boat"}));
    launchWide();
    EXPECT_EQ(row()->keywords(), QStringList({"shop", "Art", "boat"})) << "its own first";
    EXPECT_EQ(chosen(), QStringList({"shop", "Art"}));
    select(QStringLiteral("Beta"));
    EXPECT_EQ(chosen(), QStringList("boat"));
    select(QStringLiteral("Alpha"));
    for (const char *title : {"Alpha", "Beta"})
        EXPECT_FALSE(design(title)->templateShouldBeSaved());

    click(QStringLiteral("boat"));
    EXPECT_EQ(selected()->keywords(), QStringList({"shop", "Art", "boat"}));
    EXPECT_TRUE(selected()->templateShouldBeSaved());
    click(QStringLiteral("shop"));
    pressShortcut("actionSave");
    EXPECT_EQ(stored(folder), QVariantList({"Art", "boat", QVariant(qlonglong(5))}));
    EXPECT_EQ(chosen(), QStringList({"Art", "boat"}));
    EXPECT_FALSE(selected()->templateShouldBeSaved());
}

TEST_F(KeywordsTest, ThoseOfABuiltInDesignAreFixed)
{
    writeDesign(QStringLiteral("Built"), Group::BuiltIn, "", withKeywords({"a", "b"}));
    launchWide();
    select(QStringLiteral("Built"));
    EXPECT_EQ(chosen(), QStringList({"a", "b"}));
    click(QStringLiteral("a"));
    EXPECT_EQ(selected()->keywords(), QStringList({"a", "b"}));
    EXPECT_FALSE(child<QToolButton>("keywordsPopoverButton")->isEnabled());
}

TEST_F(KeywordsTest, WhatIsNotKnownShowsAndStays)
{
    const QString folder =
        writeDesign(QStringLiteral("Alpha"), Group::Custom, "", withKeywords({"a"}));
    writeDesign(QStringLiteral("Beta"), Group::Custom, "", withKeywords({"b"}));
    launchWide();
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "", withKeywords({"new", "a"}));
    type(child<QLineEdit>("templateNameTextField"), QStringLiteral("2"));
    pressShortcut("actionRevert");
    EXPECT_EQ(row()->keywords(), QStringList({"new", "a", "b"}));
    EXPECT_EQ(chosen(), QStringList({"new", "a"}));
    click(QStringLiteral("b"));
    pressShortcut("actionSave");
    EXPECT_EQ(stored(folder), QVariantList({"new", "a", "b"}));
    select(QStringLiteral("Beta"));
    EXPECT_EQ(row()->keywords(), QStringList({"b", "a"}));
}

TEST_F(KeywordsTest, TheKeyboardReachesBadgesAndButton)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Beta"), Group::Custom, "", withKeywords({"a", "b"}));
    launchWide();
    child<QLineEdit>("templateIdentifierTextField")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), row());
    QTest::keyClick(row(), Qt::Key_Right);
    QTest::keyClick(row(), Qt::Key_Space);
    EXPECT_EQ(selected()->keywords(), QStringList("b"));
    QTest::keyClick(row(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    ASSERT_TRUE(popover());
    closeList();
}

TEST_F(KeywordsTest, TheListIsEditedInPlace)
{
    writeDesign(QStringLiteral("Alpha"), Group::Custom, "", withKeywords({"a", "b", "c", "d"}));
    launchWide();
    select(QStringLiteral("Alpha"));
    openList();
    EXPECT_EQ(names(), QStringList({"a", "b", "c", "d"}));
    press("addButton");
    typeName(QStringLiteral("  e "));
    EXPECT_EQ(names(), QStringList({"a", "b", "c", "d", "e"}));
    press("addButton");
    typeName(QString());
    press("addButton");
    typeName(QStringLiteral("b"));
    EXPECT_EQ(names(), QStringList({"a", "b", "c", "d", "e"}));
    EXPECT_EQ(list()->currentIndex().row(), 1) << "where the name stands already";
    EXPECT_TRUE(popover()->findChild<QLabel *>("noteText")->text().contains(u"“b”"));
    QTest::keyClick(list(), Qt::Key_Return);
    typeName(QString());
    QTest::keyClick(list(), Qt::Key_Return);
    typeName(QStringLiteral("a"));
    EXPECT_EQ(names(), QStringList({"a", "b", "c", "d", "e"}));
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    typeName(QStringLiteral("B"));
    EXPECT_EQ(names(), QStringList({"a", "B", "c", "d", "e"}));
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList({"a", "B", "e"}));
    closeList();

    EXPECT_EQ(row()->keywords(), QStringList({"a", "b", "c", "d", "B", "e"}));
    EXPECT_EQ(chosen(), QStringList({"a", "b", "c", "d"})) << "the design keeps its own";
    EXPECT_FALSE(selected()->templateShouldBeSaved());
    EXPECT_EQ(controller->designTemplateManager()->keywords(), QStringList({"a", "b", "c", "d"}));
}

TEST_F(KeywordsTest, ANameInTheMakingCountsWhenTheListCloses)
{
    writeDesign(QStringLiteral("Alpha"));
    launchWide();
    EXPECT_TRUE(row()->keywords().isEmpty());
    openList();
    EXPECT_FALSE(popover()->findChild<QToolButton *>("removeButton")->isEnabled());
    press("addButton");
    typeName(QStringLiteral("boat"), false);
    popover()->close();
    ASSERT_TRUE(support::waitUntil([this] { return !popover(); }));
    EXPECT_EQ(row()->keywords(), QStringList("boat"));
    click(QStringLiteral("boat"));
    EXPECT_EQ(selected()->keywords(), QStringList("boat"));
    openList();
    press("removeButton");
    EXPECT_TRUE(names().isEmpty());
    closeList();
    EXPECT_EQ(chosen(), QStringList("boat"));
}
