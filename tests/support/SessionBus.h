#pragma once

#include "support/Process.h"
#include "support/TestSupport.h"

namespace support {

/// A session bus of the test's own, empty but for what the test puts on it:
/// DBUS_SESSION_BUS_ADDRESS names it while it lives, and afterwards what it named before.
class SessionBus
{
public:
    SessionBus()
    {
        writeFile(m_folder.filePath(QStringLiteral("bus.conf")), configuration);
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
             QStringLiteral("--config-file=") + m_folder.filePath(QStringLiteral("bus.conf"))});
        if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead())
            m_address = QString::fromUtf8(m_daemon.readAllStandardOutput()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
    }
    ~SessionBus()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_addressBefore);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(SessionBus)

    const QString &address() const { return m_address; } ///< Null when it could not be started.

private:
    static constexpr auto configuration =
        R"(<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
<auth>EXTERNAL</auth><policy context="default"><allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)";

    QByteArray m_addressBefore = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    QTemporaryDir m_folder;
    Process m_daemon;
    QString m_address;
};

} // namespace support
