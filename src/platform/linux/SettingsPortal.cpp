#include "platform/linux/SettingsPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace platform {

namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

} // namespace

void SettingsPortal::ask()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // A slot with the signal's own parameters is refused until QtDBus has met QDBusVariant.
    bus.connect(portalName, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingDidChange(QDBusMessage)));

    QDBusMessage call = QDBusMessage::createMethodCall(portalName, portalPath, settingsInterface,
                                                       QStringLiteral("Read"));
    call << appearanceGroup << colorSchemeKey;
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (!answer->isError())
            tell(answer->reply().arguments().value(0));
    });
}

void SettingsPortal::settingDidChange(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    if (arguments.value(0) == appearanceGroup && arguments.value(1) == colorSchemeKey)
        tell(arguments.value(2));
}

void SettingsPortal::tell(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) // the answer to "Read" is wrapped twice
        value = value.value<QDBusVariant>().variant();
    constexpr uint preferDark = 1;
    Q_EMIT colorSchemeHeard(value.toUInt() == preferDark ? ColorScheme::Dark : ColorScheme::Light);
}

} // namespace platform
