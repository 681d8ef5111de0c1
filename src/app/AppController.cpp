#include "app/AppController.h"

#include "app/LSMPaintReport.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "library/LSMLotbookConfig.h"
#include "platform/Application.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"
#include "workbench/LSMMainWindowController.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QMainWindow>

using platform::localized;

AppController::AppController() = default;

AppController::~AppController()
{
    qApp->removeEventFilter(this);
}

void AppController::initialize()
{
    const QString path = platform::Bundle::mainBundle().pathForResource(QStringLiteral("defaults"),
                                                                        QStringLiteral("plist"));
    QFile file(path);
    PLATFORM_ASSERT(!path.isNull() && file.open(QIODevice::ReadOnly),
                    "couldn't find defaults.plist");
    const auto defaults = platform::PropertyList::parse(file.readAll());
    PLATFORM_ASSERT(defaults, "couldn't find defaults.plist");
    platform::UserDefaults::standardUserDefaults().registerDefaults(defaults->root.toMap());
    LSMLotbookConfig::registerDefaults();
}

void AppController::awakeFromNib()
{
    PLATFORM_ASSERT(m_switchToStoreMenuItem, "outlet _switchToStoreMenuItem not set in %@ object",
                    metaObject()->className());
    if (platform::UserDefaults::standardUserDefaults().boolean(QStringLiteral("showStoreSegment")))
        return;
    for (QObject *menu : m_switchToStoreMenuItem->associatedObjects()) {
        if (auto *widget = qobject_cast<QWidget *>(menu))
            widget->removeAction(m_switchToStoreMenuItem);
    }
}

void AppController::applicationDidFinishLaunching()
{
    platform::Application::setErrorPresenter([](const platform::Error &error) {
        const QString detail =
            error.recoverySuggestion.isNull() ? QStringLiteral("") : error.recoverySuggestion;
        ZQRunAlertPanel3(error.description, detail, localized("OK"));
    });
    m_manager = std::make_unique<LSMDesignTemplateManager>();
    m_mainWindowController = std::make_unique<LSMMainWindowController>();
    m_mainWindowController->setDesignTemplateManager(m_manager.get());
    QMainWindow *window = m_mainWindowController->window();
    qApp->installEventFilter(this);
    setSwitchToStoreMenuItem(m_mainWindowController->switchToStoreMenuItem());
    awakeFromNib();
    m_mainWindowController->makeKeyAndOrderFront();
    LSMPaintReport::watch(window->windowHandle());
}

bool AppController::applicationShouldTerminate()
{
    if (!m_manager->hasUnsavedDesigns())
        return true;
    const int result = ZQRunAlertPanel(
        localized("Unsaved Changes"),
        localized("Some designs have not been saved. Should the Layoutsmith quit anyway?"),
        localized("Quit"), localized("Cancel"));
    if (result != ZQAlertSecondButtonReturn)
        return true;
    m_mainWindowController->makeKeyAndOrderFront();
    return false;
}

// Quitting closes the main window before any other, so the guard stands here alone. Objects of
// libraries without type information come by, which the sanitizer takes for none.
__attribute__((no_sanitize("vptr"))) bool AppController::eventFilter(QObject *watched,
                                                                     QEvent *event)
{
    const bool isQuit = watched == qApp && event->type() == QEvent::Quit;
    const bool isClose = watched->isWidgetType() && event->type() == QEvent::Close;
    if (!isQuit && !isClose)
        return false;
    QMainWindow *window = m_mainWindowController->window();
    if (!window->isVisible() || (isClose && watched != window))
        return false;
    if (isQuit ? window->close() : applicationShouldTerminate())
        return false;
    event->ignore();
    return true;
}
