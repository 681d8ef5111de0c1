#include "kit/ui/TargetAction.h"
#include "kit/ui/ValidationScheduler.h"
#include "kit/ui/ZQMenuItemValidator.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace {

class Controller : public QObject
{
    Q_OBJECT

public:
    bool mayBeSaved = false;
    QStringList log;

    Q_INVOKABLE bool validateSaveAction(QObject *item)
    {
        item->setProperty("text", mayBeSaved ? "Save" : "Saved");
        return mayBeSaved;
    }

public Q_SLOTS:
    void saveAction(QObject *sender = nullptr) { log << QString("save %1").arg(zq::tag(sender)); }
    void freeAction(QObject *) { log << "free"; }
};

struct Window : QMainWindow
{
    Controller controller;
    QMenu *menu = menuBar()->addMenu("File");
    QAction *save = menu->addAction("Save");
    QAction *free = menu->addAction("Free");
    QAction *unknown = menu->addAction("Unknown");

    Window()
    {
        save->setShortcut(QKeySequence("Ctrl+S"));
        save->setProperty("selector", "saveAction");
        save->setProperty("tag", 5);
        free->setProperty("selector", "freeAction");
        unknown->setProperty("selector", "noSuchAction");
        zq::connectActions(this, &controller);
    }

    void showActive()
    {
        show();
        QApplication::setActiveWindow(this);
        ASSERT_TRUE(QTest::qWaitForWindowActive(this));
    }
};

TEST(Validation, ActionsAreEnabledAsTheirTargetSays)
{
    Window window;
    for (QAction *action : window.menu->actions())
        zq::validateItem(action);
    EXPECT_FALSE(window.save->isEnabled());
    EXPECT_EQ(window.save->text(), "Saved");
    EXPECT_TRUE(window.free->isEnabled());
    EXPECT_FALSE(window.unknown->isEnabled());
}

TEST(Validation, TriggeringAsksOnceMoreAndSendsTheItem)
{
    Window window;
    window.save->trigger();
    EXPECT_TRUE(window.controller.log.isEmpty());
    window.controller.mayBeSaved = true;
    window.save->setEnabled(true);
    window.save->trigger();
    zq::setTargetAndAction(window.save, &window.controller, "freeAction");
    window.save->trigger();
    EXPECT_EQ(window.controller.log, QStringList({"save 5", "free"}));
}

TEST(Validation, ButtonsPerformTheirActionAndSurviveTheirTarget)
{
    QPushButton button;
    auto controller = std::make_unique<Controller>();
    zq::setTargetAndAction(&button, controller.get(), "freeAction");
    button.click();
    EXPECT_EQ(controller->log, QStringList("free"));
    controller.reset();
    button.click();
    EXPECT_FALSE(zq::performAction(&button));
}

TEST(Validation, ShortcutsFollowTheModelWithoutFurtherNotice)
{
    Window window;
    auto *field = new QLineEdit;
    window.setCentralWidget(field);
    zq::ValidationScheduler scheduler(&window);
    window.showActive();
    field->setFocus();
    ASSERT_TRUE(support::waitUntil([&] { return !window.save->isEnabled(); }));

    QObject::connect(field, &QLineEdit::textEdited, &window,
                     [&] { window.controller.mayBeSaved = true; });
    QTest::keyClicks(field, "x");
    QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(window.controller.log, QStringList("save 5"));
}

TEST(Validation, MenusAreRightWhenTheyShowAndManyRequestsMakeOnePass)
{
    Window window;
    zq::ValidationScheduler scheduler(&window);
    support::settle();
    window.controller.mayBeSaved = true;
    EXPECT_FALSE(window.save->isEnabled());
    window.menu->popup(QPoint(0, 0));
    EXPECT_TRUE(window.save->isEnabled());
    window.menu->close();

    window.controller.mayBeSaved = false;
    int changes = 0;
    QObject::connect(window.save, &QAction::changed, &window, [&] { ++changes; });
    for (int time = 0; time < 100; ++time)
        scheduler.validateSoon();
    EXPECT_EQ(changes, 0);
    support::settle();
    EXPECT_FALSE(window.save->isEnabled());
    EXPECT_LE(changes, 3);
}

} // namespace

#include "ValidationTest.moc"
