#pragma once

#include "library/LSMDesignTemplateManager.h"

#include <memory>
#include <QAction>
#include <QObject>
#include <QPointer>

class LSMMainWindowController;

/// The one place where the program's objects are made, in a fixed order, and where quitting is
/// guarded against unsaved work. Owns the design library and the window. Made by main(); main
/// thread. Phases: defaults registered (`initialize`), graph built
/// (`applicationDidFinishLaunching`), running; there is no orderly teardown beyond the guard.
class AppController : public QObject
{
    Q_OBJECT

public:
    /// Registers the defaults. Before any other object of the program reads a setting; asserts that
    /// the package has its defaults.plist.
    static void initialize();

    AppController();
    ~AppController() override;

    /// The menu entry that selects the store tab; borrowed from the main menu.
    void setSwitchToStoreMenuItem(QAction *item) { m_switchToStoreMenuItem = item; }

    /// Asserts the outlet; takes the store entry out of its menu where `showStoreSegment` is off.
    void awakeFromNib();

    /// Loads the library, then brings up the window on it.
    void applicationDidFinishLaunching();

    bool applicationShouldTerminateAfterLastWindowClosed() const { return true; }

    /// Asks, if a custom design has not been saved. False: stay; the window is brought to the
    /// front.
    bool applicationShouldTerminate();

    LSMDesignTemplateManager *designTemplateManager() const { return m_manager.get(); }
    LSMMainWindowController *mainWindowController() const { return m_mainWindowController.get(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::unique_ptr<LSMDesignTemplateManager> m_manager;
    std::unique_ptr<LSMMainWindowController> m_mainWindowController;
    QPointer<QAction> m_switchToStoreMenuItem;
};
