#include "kit/ui/Toolbar.h"
#include "kit/ui/TargetAction.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ToolbarCustomizationPalette.h"
#include "kit/ui/ZQToolbarItemValidator.h"
#include "platform/UserDefaults.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QMainWindow>
#include <QMimeData>
#include <QTest>
#include <QToolButton>

namespace {

class Owner : public QObject, public zq::ToolbarDelegate
{
    Q_OBJECT

public:
    bool mayBeSaved = false;
    QStringList log;
    QStringList allowed{"new", "save", "view", "space", "flexibleSpace"};

    QStringList toolbarAllowedItemIdentifiers(zq::Toolbar *) override { return allowed; }
    QStringList toolbarDefaultItemIdentifiers(zq::Toolbar *) override
    {
        return {"new", "space", "save", "space"};
    }
    ZQToolbarItem *toolbarItemForItemIdentifier(zq::Toolbar *, const QString &identifier,
                                                bool) override
    {
        auto *item = new ZQToolbarItem(identifier);
        item->setText(identifier);
        item->setIcon(zq::tintedIcon("TB_Save"));
        if (identifier == "save")
            zq::setTargetAndAction(item, this, "saveAction");
        else if (identifier == "view")
            item->setView(new zq::SegmentedControl({"a", "b"}));
        return item;
    }

    Q_INVOKABLE bool validateToolbarItem(QObject *) { return mayBeSaved; }
    Q_INVOKABLE bool validateToolbarButtonSaveAction(QObject *) { return mayBeSaved; }
    Q_INVOKABLE bool validateToolbarSegmentedControlPickAction(QObject *) { return mayBeSaved; }

public Q_SLOTS:
    void saveAction(QObject *) { log << "save"; }
    void pickAction(QObject *) { log << "pick"; }
};

struct Window : QMainWindow
{
    Owner owner;
    zq::Toolbar *toolbar = new zq::Toolbar("main");

    Window()
    {
        addToolBar(toolbar);
        toolbar->setAllowsUserCustomization(true);
        toolbar->setAutosavesConfiguration(true);
        toolbar->setDelegate(&owner);
    }
    ~Window() override { toolbar->setDelegate(nullptr); }

    ZQToolbarItem *item(const QString &identifier)
    {
        return toolbar->items().value(toolbar->itemIdentifiers().indexOf(identifier));
    }
    zq::ToolbarCustomizationPalette *palette()
    {
        return findChild<zq::ToolbarCustomizationPalette *>();
    }
};

struct ToolbarTest : testing::Test
{
    support::TemporaryHome home;
};

using ToolbarItemTest = ToolbarTest;

TEST_F(ToolbarTest, ComesBackAsItsUserLeftIt)
{
    {
        Window window;
        EXPECT_EQ(window.toolbar->itemIdentifiers(),
                  QStringList({"new", "space", "save", "space"}));
        window.toolbar->setItemIdentifiers({"save", "flexibleSpace", "view", "save", "bogus"});
        window.toolbar->setDisplayMode(zq::ToolbarDisplayMode::LabelOnly);
        window.toolbar->setToolbarVisible(false);
    }
    Window again;
    EXPECT_EQ(again.toolbar->itemIdentifiers(), QStringList({"save", "flexibleSpace", "view"}));
    EXPECT_EQ(again.toolbar->displayMode(), zq::ToolbarDisplayMode::LabelOnly);
    EXPECT_EQ(again.toolbar->toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_FALSE(again.toolbar->isToolbarVisible());
}

TEST_F(ToolbarTest, StoredConfigurationsOfOtherVersionsDoNoHarm)
{
    auto &defaults = platform::UserDefaults::standardUserDefaults();
    const QString key = "Toolbar Configuration main";
    defaults.setObject(
        key, QVariantMap{{"items", QVariantList{"gone", "save", 7}}, {"displayMode", 99}});
    EXPECT_EQ(Window().toolbar->itemIdentifiers(), QStringList("save"));
    defaults.setObject(key, "no dictionary");
    EXPECT_EQ(Window().toolbar->itemIdentifiers().size(), 4);
}

TEST_F(ToolbarTest, ItemsAreValidatedAndPerform)
{
    Window window;
    window.show();
    auto *button =
        qobject_cast<QToolButton *>(window.toolbar->widgetForAction(window.item("save")));
    ASSERT_TRUE(button);
    EXPECT_FALSE(button->isEnabled());
    window.owner.mayBeSaved = true;
    window.item("save")->validate();
    QTest::mouseClick(button, Qt::LeftButton);
    window.owner.mayBeSaved = false;
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(window.owner.log, QStringList("save"));
    EXPECT_FALSE(button->isEnabled());
}

TEST_F(ToolbarTest, ThePaletteIsWorkedByKeys)
{
    Window window;
    window.show();
    window.toolbar->runCustomizationPalette();
    ASSERT_TRUE(window.palette());
    QApplication::setActiveWindow(window.palette());
    auto lists = window.palette()->findChildren<QListWidget *>();
    QListWidget *available = lists[0];
    QListWidget *inToolbar = lists[1];
    EXPECT_EQ(available->count(), 3); // The view and the two spaces.

    available->setFocus();
    available->setCurrentRow(0);
    inToolbar->setCurrentRow(0);
    QTest::keyClick(available, Qt::Key_Return);
    support::settle();
    EXPECT_EQ(window.toolbar->itemIdentifiers(),
              QStringList({"new", "view", "space", "save", "space"}));
    EXPECT_EQ(available->count(), 2);

    inToolbar->setFocus();
    QTest::keyClick(inToolbar, Qt::Key_Right, Qt::AltModifier);
    support::settle();
    EXPECT_EQ(window.toolbar->itemIdentifiers().indexOf("view"), 2);
    QTest::keyClick(inToolbar, Qt::Key_Delete);
    support::settle();
    EXPECT_EQ(window.toolbar->itemIdentifiers(), QStringList({"new", "space", "save", "space"}));
    EXPECT_TRUE(window.palette()->isVisible());
}

TEST_F(ToolbarTest, ItemsAreDraggedIntoAndOutOfThePalettesToolbar)
{
    Window window;
    window.show();
    window.toolbar->setItemIdentifiers({"new", "save"});
    window.toolbar->runCustomizationPalette();
    ASSERT_TRUE(window.palette());
    QApplication::setActiveWindow(window.palette());
    auto lists = window.palette()->findChildren<QListWidget *>();
    const auto drag = [](QListWidget *from, int row, QListWidget *to, int before) {
        const std::unique_ptr<QMimeData> data(
            from->model()->mimeData({from->model()->index(row, 0)}));
        const QRect place = to->visualItemRect(to->item(before));
        const QPoint point(place.left() + 1, place.center().y());
        QDragEnterEvent enter(point, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QDragMoveEvent move(point, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(point, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        for (QEvent *event : std::initializer_list<QEvent *>{&enter, &move, &drop})
            QApplication::sendEvent(to->viewport(), event);
        delete from->takeItem(row);
        support::settle();
    };
    drag(lists[0], 0, lists[1], 1);
    EXPECT_EQ(window.toolbar->itemIdentifiers(), QStringList({"new", "view", "save"}));
    drag(lists[1], 0, lists[0], 0);
    EXPECT_EQ(window.toolbar->itemIdentifiers(), QStringList({"view", "save"}));
    EXPECT_EQ(lists[0]->count(), 3);
}

TEST_F(ToolbarItemTest, ButtonsInItemsAreValidatedByTheirOwnOperations)
{
    Window window;
    ZQToolbarItem *item = window.item("new");
    auto *button = new QPushButton("Go");
    auto *view = new QWidget;
    button->setParent(view);
    item->setView(view);
    button->setProperty("selector", "saveAction"); // No target: the delegate answers to it.

    QObject *target = nullptr;
    EXPECT_EQ(item->getButtonAndTarget(&target), button);
    EXPECT_EQ(target, &window.owner);
    EXPECT_FALSE(ZQToolbarItemValidator::validateToolbarItem(item));
    EXPECT_FALSE(button->isEnabled() || item->isEnabled());
    window.owner.mayBeSaved = true;
    EXPECT_TRUE(ZQToolbarItemValidator::validateToolbarItem(item));
    EXPECT_TRUE(button->isEnabled() && item->isEnabled());

    zq::setTag(button, 7007);
    EXPECT_FALSE(ZQToolbarItemValidator::validateToolbarItem(item));
    EXPECT_TRUE(button->isEnabled() && item->isEnabled());
}

TEST_F(ToolbarItemTest, SegmentedControlsAndBorderedItemsAreValidatedToo)
{
    Window window;
    window.toolbar->setItemIdentifiers({"view", "save"});
    ZQToolbarItem *item = window.item("view");
    EXPECT_EQ(item->getButtonAndTarget(), nullptr);
    zq::setTargetAndAction(item->getSegmentedControlAndTarget(), &window.owner, "pickAction");
    EXPECT_FALSE(ZQToolbarItemValidator::validateToolbarItem(item));
    EXPECT_FALSE(item->view()->isEnabled());

    item = window.item("save");
    EXPECT_TRUE(ZQToolbarItemValidator::validateToolbarItem(item));
    item->setBordered(true);
    EXPECT_FALSE(ZQToolbarItemValidator::validateToolbarItem(item));
}

TEST_F(ToolbarItemTest, AButtonBecomesABorderedItem)
{
    Window window;
    window.show();
    ZQToolbarItem *item = window.item("new");
    auto *button = new QPushButton(zq::tintedIcon("TB_New"), "Go");
    item->setView(button);
    zq::setTargetAndAction(button, &window.owner, "saveAction");
    EXPECT_EQ(zq::action(item->menuFormRepresentation()), "saveAction");

    item->setToolbarBorderedExceptForButtonClasses({&QPushButton::staticMetaObject});
    EXPECT_EQ(item->view(), button);
    item->setToolbarBorderedExceptForButtonClasses({&QToolButton::staticMetaObject});
    EXPECT_EQ(item->view(), nullptr);
    EXPECT_TRUE(item->isBordered());
    EXPECT_EQ(window.toolbar->itemIdentifiers().first(), "new");
    window.owner.mayBeSaved = true;
    item->validate();
    QTest::mouseClick(window.toolbar->widgetForAction(item), Qt::LeftButton);
    EXPECT_EQ(window.owner.log, QStringList("save"));
}

} // namespace

#include "ToolbarTest.moc"
