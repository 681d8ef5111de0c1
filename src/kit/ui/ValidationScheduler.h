#pragma once

#include <QMenu>
#include <QTimer>
#include <QWidget>

namespace zq {

/// Keeps the menu and toolbar items of one window in the right state, so that shortcuts and buttons
/// need no upkeep of their own. All actions below the window that have a target are validated
/// - when idle after input by the user and after `validateSoon()`, once for many calls,
/// - before a key that may be a shortcut is looked up,
/// - a menu's own just before it shows.
/// Owned by the window; main thread.
class ValidationScheduler : public QObject
{
    Q_OBJECT

public:
    explicit ValidationScheduler(QWidget *window);

    void validateSoon(); ///< When idle. Call it after a change that no input by the user caused.
    void validateNow();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watchMenus();

    QWidget *m_window;
    QTimer m_idle;
};

} // namespace zq
