#pragma once

#include "platform/Format.h"

namespace platform {

/// Writes one plain line to the system log (Qt's message handler). Any thread.
void logLine(const QString &line);

/// `log("error reading file: %@\n%@", path, error.description)`
template <class... Arguments>
void log(const char *text, const Arguments &...arguments)
{
    logLine(format(QString::fromUtf8(text), arguments...));
}

} // namespace platform
