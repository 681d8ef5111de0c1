#include "kit/ui/ValidationScheduler.h"

#include "kit/ui/TargetAction.h"

#include <QApplication>
#include <QKeyEvent>

namespace zq {

namespace {

bool isUserInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyRelease:
    case QEvent::MouseButtonRelease:
    case QEvent::Drop:
    case QEvent::InputMethod:
    case QEvent::FocusIn:
    case QEvent::WindowActivate:
        return true;
    default:
        return false;
    }
}

bool mayBeShortcut(const QKeyEvent *event)
{
    return event->text().isEmpty() || (event->modifiers() & ~Qt::ShiftModifier) ||
           !event->text().at(0).isPrint();
}

} // namespace

ValidationScheduler::ValidationScheduler(QWidget *window) : QObject(window), m_window(window)
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &ValidationScheduler::validateNow);
    qApp->installEventFilter(this);
    watchMenus();
    validateSoon();
}

void ValidationScheduler::validateSoon()
{
    if (!m_idle.isActive())
        m_idle.start();
}

void ValidationScheduler::validateNow()
{
    m_idle.stop();
    watchMenus();
    for (QAction *action : m_window->findChildren<QAction *>())
        validateItem(action);
}

// Menus may be added at any time; each is connected once.
void ValidationScheduler::watchMenus()
{
    for (QMenu *menu : m_window->findChildren<QMenu *>())
        connect(menu, &QMenu::aboutToShow, this, &ValidationScheduler::validateNow,
                Qt::UniqueConnection);
}

// Objects of libraries without type information come by, which the sanitizer takes for none.
__attribute__((no_sanitize("vptr"))) bool ValidationScheduler::eventFilter(QObject *watched,
                                                                           QEvent *event)
{
    if (!watched->isWidgetType() && !watched->isWindowType())
        return false;
    if (event->type() == QEvent::ShortcutOverride && m_idle.isActive() &&
        mayBeShortcut(static_cast<QKeyEvent *>(event)))
        validateNow();
    else if (isUserInput(event->type()))
        validateSoon();
    return false;
}

} // namespace zq
