#include "platform/ScriptEvent.h"

#include "platform/AppleScript.h"
#include "platform/Bundle.h"
#include "platform/Format.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QScopeGuard>
#include <QUuid>

namespace platform {

namespace {

const QString interface = QStringLiteral("com.quillbyte.Scripting");

using enum AppleScript::ErrorCode;

std::nullopt_t refuse(Error *error, AppleScript::ErrorCode code, const QString &description)
{
    fail(error, QString::fromLatin1(AppleScript::errorDomain), code, description);
    return std::nullopt;
}

// The address is asked for anew each time: a desktop session may come and go while we run.
QString busAddress()
{
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    return address.isEmpty()
               ? QStringLiteral("unix:path=%1/bus").arg(qEnvironmentVariable("XDG_RUNTIME_DIR"))
               : address;
}

bool isElementOfBusName(const QString &name)
{
    const auto fits = [](QChar c) {
        return c.unicode() < 128 && (c.isLetterOrNumber() || c == u'_');
    };
    return !name.isEmpty() && name.size() < 200 && !name[0].isDigit() &&
           std::all_of(name.begin(), name.end(), fits);
}

QDBusMessage messageFor(const ScriptEvent &event)
{
    const auto call = [&event](const char *method, const QVariantList &arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(QStringLiteral("com.quillbyte.") + event.application,
                                           QStringLiteral("/com/quillbyte/") + event.application,
                                           interface, QString::fromLatin1(method));
        message.setArguments(arguments);
        message.setAutoStartService(false);
        return message;
    };
    switch (event.kind) {
    case ScriptEvent::Kind::Get:
        return call("Get", {event.name, event.object});
    case ScriptEvent::Kind::Set:
        return call("Set", {event.name, event.object, event.value});
    case ScriptEvent::Kind::Perform:
        break;
    }
    return call("Perform", {event.name, event.value});
}

std::nullopt_t explain(const QDBusMessage &reply, const QString &application, Error *error)
{
    if (reply.errorName() == u"org.freedesktop.DBus.Error.NameHasNoOwner")
        return refuse(error, NotRunning, format(localized("\"%@\" isn't running."), application));
    switch (QDBusError(reply).type()) {
    case QDBusError::NoReply: // by whom: the bus knows who has gone, we know how long we waited
        if (reply.service().isEmpty())
            return refuse(error, TimedOut,
                          format(localized("\"%@\" took too long to answer."), application));
        [[fallthrough]];
    case QDBusError::Disconnected:
        return refuse(error, Gone,
                      format(localized("\"%@\" quit before it answered."), application));
    default:
        return refuse(error, Refused,
                      format(localized("\"%@\" answered with an error: %@"), application,
                             reply.errorMessage()));
    }
}

} // namespace

std::optional<QString> sendScriptEvent(const ScriptEvent &event, const QDeadlineTimer &patience,
                                       Error *error)
{
    if (!isElementOfBusName(event.application))
        return refuse(error, NotRunning,
                      format(localized("\"%@\" isn't running."), event.application));
    const QString name = QUuid::createUuid().toString();
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress(), name);
    const auto disconnect = qScopeGuard([&name] { QDBusConnection::disconnectFromBus(name); });
    if (!bus.isConnected())
        return refuse(error, NotRunning,
                      format(localized("\"%@\" can't be reached: there is no session bus (D-Bus)."),
                             event.application));
    const QDBusMessage reply = bus.call(messageFor(event), QDBus::Block,
                                        int(std::max<qint64>(patience.remainingTime(), 1)));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return explain(reply, event.application, error);
    const QString answer = reply.arguments().value(0).toString();
    return answer.isNull() ? QStringLiteral("") : answer;
}

} // namespace platform
