#include "platform/Desktop.h"
#include "platform/linux/SettingsPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QUrl>

namespace platform::desktop {

bool showInFileManager(const QString &path)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    constexpr int patience = 1000;
    const QDBusError error(bus.call(call, QDBus::Block, patience));
    return !error.isValid() || error.type() == QDBusError::NoReply ||
           error.type() == QDBusError::Timeout;
}

void watchColorScheme(QObject *context, const std::function<void(ColorScheme)> &heard)
{
    auto *portal = new SettingsPortal(context);
    QObject::connect(portal, &SettingsPortal::colorSchemeHeard, context, heard);
    portal->ask();
}

} // namespace platform::desktop
