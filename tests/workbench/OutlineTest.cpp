#include "workbench/WorkbenchFixture.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "platform/NotificationCenter.h"
#include "workbench/LSMNotifications.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

class OutlineTest : public WorkbenchTest
{
protected:
    void SetUp() override
    {
        for (const char *title : {"alpha", "Beta", "gamma"})
            writeDesign(QString::fromLatin1(title));
        writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    }
    QString selectedTitle() const { return selected() ? selected()->templateName() : QString(); }
};

TEST_F(OutlineTest, StartsOnTheFirstCustomDesignInCaselessOrder)
{
    launch();
    EXPECT_EQ(titles(), QStringList({QStringLiteral("alpha"), QStringLiteral("Beta"),
                                     QStringLiteral("gamma"), QStringLiteral("Built")}));
    EXPECT_EQ(selectedTitle(), QStringLiteral("alpha"));
    EXPECT_TRUE(outline()->hasFocus());
}

TEST_F(OutlineTest, StartsOnABuiltInDesignWhereThereIsNoOther)
{
    QDir(customFolder()).removeRecursively();
    launch();
    EXPECT_EQ(selectedTitle(), QStringLiteral("Built"));
}

TEST_F(OutlineTest, AnEmptyLibraryGreetsWithTheFirstStep)
{
    QDir(customFolder()).removeRecursively();
    QDir(builtinFolder()).removeRecursively();
    launch();
    EXPECT_TRUE(titles().isEmpty());
    QTest::mouseClick(child<QPushButton>("emptyButton"), Qt::LeftButton);
    EXPECT_EQ(selectedTitle(), QStringLiteral("New Design"));
    EXPECT_FALSE(child<QWidget>("emptyView")->isVisible());
}

TEST_F(OutlineTest, GroupsAreNeverSelectedButOpenAndClose)
{
    launch();
    const QModelIndex group = outline()->indexForRow(0);
    QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {},
                      outline()->visualRect(group).center());
    EXPECT_FALSE(outline()->isExpanded(group));
    QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {},
                      outline()->visualRect(group).center());
    EXPECT_TRUE(outline()->isExpanded(group));
    EXPECT_EQ(selectedTitle(), QStringLiteral("alpha"));

    outline()->setFocus();
    for (const char *expected : {"Beta", "gamma", "Built", "Built"}) {
        QTest::keyClick(outline(), Qt::Key_Down);
        EXPECT_EQ(selectedTitle(), QString::fromLatin1(expected));
    }
    for (const char *expected : {"gamma", "Beta", "alpha", "alpha"}) {
        QTest::keyClick(outline(), Qt::Key_Up);
        EXPECT_EQ(selectedTitle(), QString::fromLatin1(expected));
    }
    QTest::mouseClick(outline()->viewport(), Qt::LeftButton, {},
                      QPoint(20, outline()->viewport()->height() - 3));
    EXPECT_EQ(selectedTitle(), QStringLiteral("alpha"));
}

TEST_F(OutlineTest, SelectionIsAnnouncedOnceAndWithoutADesignWhenNoneIs)
{
    launch();
    QList<QVariantMap> heard;
    platform::NotificationCenter::defaultCenter().addObserver(
        outline(), LSMSelectedDesignDidChange, commands()->outlineViewController(),
        [&heard](const platform::Notification &notification) { heard << notification.userInfo; });
    select(QStringLiteral("Beta"));
    ASSERT_EQ(heard.size(), 1);
    EXPECT_EQ(heard[0].value(QStringLiteral("design")).value<LSMDesignTemplate *>(),
              design(QStringLiteral("Beta")));
    outline()->clearSelection();
    ASSERT_EQ(heard.size(), 2);
    EXPECT_TRUE(heard[1].isEmpty());
    EXPECT_FALSE(child<QWidget>("tabView")->isVisible());
    EXPECT_TRUE(child<QWidget>("emptyView")->isVisible());
    EXPECT_TRUE(child<QLineEdit>("templateNameTextField")->text().isEmpty());
}

TEST_F(OutlineTest, AfterAReloadTheSelectionStaysInItsRow)
{
    launch();
    select(QStringLiteral("alpha"));
    selected()->templateDictionary()->setValue(QStringLiteral("CFBundleName"),
                                               QStringLiteral("zeta"));
    controller->designTemplateManager()
        ->designTemplateGroupForType(QStringLiteral("custom"))
        ->sortDesigns();
    platform::NotificationCenter::defaultCenter().post(LSMDesignTitleDidChange, nullptr);
    EXPECT_EQ(titles().first(), QStringLiteral("Beta"));
    EXPECT_EQ(selectedTitle(), QStringLiteral("Beta"));
    EXPECT_EQ(editor()->selectedDesign(), selected());
}

TEST_F(OutlineTest, ADesignInAClosedGroupStaysSelected)
{
    launch();
    select(QStringLiteral("Beta"));
    outline()->collapse(outline()->indexForRow(0));
    platform::NotificationCenter::defaultCenter().post(LSMDesignTitleDidChange, nullptr);
    EXPECT_EQ(selectedTitle(), QStringLiteral("Beta"));
}

TEST_F(OutlineTest, RowsFollowTheirDesigns)
{
    launch();
    const QModelIndex row = outline()->indexForRow(1);
    EXPECT_FALSE(row.data(Qt::FontRole).value<QFont>().bold());
    type(child<QLineEdit>("templateNameTextField"), QStringLiteral("X"));
    EXPECT_EQ(row.data().toString(), QStringLiteral("alphaX"));
    EXPECT_TRUE(row.data(Qt::FontRole).value<QFont>().bold());
    selected()->setPaidTemplate(true);
    EXPECT_EQ(row.data(Qt::ForegroundRole).value<QColor>(), QColor(177, 0, 0));
    EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("alphaX, paid, not saved"));
}

TEST_F(OutlineTest, SearchNarrowsAndGivesTheSelectionBack)
{
    launch();
    auto *field = child<QLineEdit>("searchField");
    pressShortcut("actionSearchDesigns");
    EXPECT_TRUE(field->hasFocus());
    type(field, QStringLiteral("BET"));
    EXPECT_EQ(titles(), QStringList{QStringLiteral("Beta")});
    EXPECT_EQ(selected(), nullptr);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(titles().size(), 4);
    EXPECT_EQ(selectedTitle(), QStringLiteral("alpha"));
    EXPECT_TRUE(outline()->hasFocus());

    type(field, QStringLiteral("com.myserver built"));
    EXPECT_EQ(titles(), QStringList{QStringLiteral("Built")});
    clickToolbarItem("toolbar_item_new");
    EXPECT_EQ(selectedTitle(), QStringLiteral("New Design"));
    EXPECT_TRUE(field->text().isEmpty());
}

TEST_F(OutlineTest, ASearchSaysHowManyDesignsItFound)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    for (int i = 0; i < 1000; ++i)
        support::writeFile(customFolder() + QStringLiteral("/Old%1.html").arg(i), "");
    launch();
    auto *field = child<QLineEdit>("searchField");
    const auto counts = [this] {
        QStringList texts;
        for (const QLabel *label : child<QStatusBar>("statusBar")->findChildren<QLabel *>())
            texts << label->text();
        return texts;
    };
    EXPECT_TRUE(counts().contains(QStringLiteral("1,004 designs")));
    type(field, QStringLiteral("gam"));
    EXPECT_TRUE(counts().contains(QStringLiteral("1 of 1,004 designs")));
    EXPECT_TRUE(outline()->note().isEmpty());
    const QImage before = outline()->grab().toImage();
    type(field, QStringLiteral("bling"));
    EXPECT_TRUE(counts().contains(QStringLiteral("0 of 1,004 designs")));
    EXPECT_EQ(outline()->note(), QStringLiteral("No design matches “gambling”."));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(outline()->note().isEmpty());
    EXPECT_TRUE(counts().contains(QStringLiteral("1,004 designs")));
    QLocale::setDefault(QLocale::c());
}

TEST_F(OutlineTest, KeysAndMenuReachTheCommandsOfTheRow)
{
    launch();
    auto *name = child<QLineEdit>("templateNameTextField");
    const auto menuTitles = [this](const QModelIndex &index) {
        const QPoint place = outline()->visualRect(index).center();
        QTest::mousePress(outline()->viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent ask(QContextMenuEvent::Mouse, place, QPoint(30, 30));
        QApplication::sendEvent(outline()->viewport(), &ask);
        QTest::mouseRelease(outline()->viewport(), Qt::RightButton, {}, place);
        QStringList enabled;
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            for (const QAction *action : menu->actions())
                if (action->isEnabled() && !action->isSeparator())
                    enabled << action->objectName().mid(6);
            menu->close();
        }
        return enabled.join(u' ');
    };
    EXPECT_EQ(menuTitles(outline()->indexForRow(0)), QStringLiteral("NewDesign"));
    EXPECT_TRUE(outline()->isExpanded(outline()->indexForRow(0)));
    EXPECT_EQ(menuTitles(outline()->indexForRow(2)),
              QStringLiteral("NewDesign Duplicate Rename Revert Reveal ShowInLB Delete"));
    EXPECT_EQ(selectedTitle(), QStringLiteral("Beta"));
    EXPECT_EQ(menuTitles(outline()->indexForRow(5)),
              QStringLiteral("NewDesign Duplicate Revert Reveal ShowInLB Delete"));

    select(QStringLiteral("alpha"));
    editor()->setSelectedTab(LSMDesignEditorViewController::HtmlTab);
    giveFocus(outline());
    outline()->setFocus();
    QTest::keyClick(outline(), Qt::Key_Return);
    EXPECT_TRUE(child<MGSFragariaView>("fragariaView")->textView()->hasFocus());
    pressShortcut("actionRename");
    EXPECT_TRUE(name->hasFocus());
    EXPECT_EQ(name->selectedText(), QStringLiteral("alpha"));
}

TEST_F(OutlineTest, AThumbnailFollowsItsFile)
{
    const QString folder = writeDesign(QStringLiteral("Alpha"));
    const auto write = [&folder](Qt::GlobalColor color, const QSize &size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        image.save(folder + QStringLiteral("/thumbnail.png"));
    };
    write(Qt::red, {40, 30});
    launch();
    EXPECT_TRUE(support::waitUntil([this] { return outlineShows(Qt::red); }));
    write(Qt::blue, {41, 30});
    EXPECT_TRUE(support::waitUntil([this] { return outlineShows(Qt::blue); }));
}
