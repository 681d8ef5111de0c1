#pragma once

#include "platform/Appearance.h"
#include <QObject>
#include <QVariant>

class QDBusMessage;

namespace platform {

/// The colour scheme as the session's settings portal tells it: on asking and whenever it changes.
/// Without a session bus or a portal nothing is heard. Owned by its parent; main thread.
class SettingsPortal : public QObject
{
    Q_OBJECT

public:
    explicit SettingsPortal(QObject *parent) : QObject(parent) {}

    void ask(); ///< Returns at once.

Q_SIGNALS:
    void colorSchemeHeard(platform::ColorScheme scheme);

private Q_SLOTS:
    void settingDidChange(const QDBusMessage &signal);

private:
    void tell(QVariant value);
};

} // namespace platform
