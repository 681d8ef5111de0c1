#include "platform/Log.h"

namespace platform {

void logLine(const QString &line)
{
    qInfo().noquote() << line;
}

} // namespace platform
