#include "platform/ProgramRun.h"

#include "platform/Log.h"

#include <QDeadlineTimer>
#include <QProcess>

namespace platform {

namespace {

constexpr int lookForStop = 20; // ms

} // namespace

std::optional<QByteArray> outputOfProgram(const QString &program, const QStringList &arguments,
                                          const QByteArray &input,
                                          std::chrono::milliseconds patience,
                                          const std::stop_token &stop)
{
    const QDeadlineTimer deadline(patience);
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted()) {
        log("%@ does not start: %@", program, process.errorString());
        return std::nullopt;
    }
    process.write(input);
    process.closeWriteChannel();
    while (!process.waitForFinished(lookForStop)) {
        if (process.state() == QProcess::NotRunning)
            break; // which it was before it was waited for
        if (stop.stop_requested() || deadline.hasExpired()) {
            process.kill();
            process.waitForFinished();
        }
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

} // namespace platform
