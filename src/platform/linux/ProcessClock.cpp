#include "platform/ProcessClock.h"

#include "platform/FileIO.h"

#include <ctime>
#include <QList>
#include <unistd.h>

namespace platform {

double secondsSinceProcessStart()
{
    const auto status = readFile(QStringLiteral("/proc/self/stat"));
    // The program's name stands in brackets and may hold anything; the start time is the 20th field
    // behind it, in clock ticks since the system's start.
    const auto fields =
        status ? status->mid(status->lastIndexOf(')') + 2).split(' ') : QList<QByteArray>();
    timespec now = {};
    if (fields.size() < 20 || ::clock_gettime(CLOCK_BOOTTIME, &now) != 0)
        return -1;
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9 -
           fields[19].toDouble() / double(::sysconf(_SC_CLK_TCK));
}

} // namespace platform
