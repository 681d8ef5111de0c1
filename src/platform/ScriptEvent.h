#pragma once

#include "platform/Error.h"
#include <optional>
#include <QDeadlineTimer>

namespace platform {

/// One thing that a script asks of an application.
struct ScriptEvent
{
    enum class Kind { Get, Set, Perform };
    Kind kind = Kind::Get;
    QString application; ///< As `tell` names it: "Lotbook".
    QString name;        ///< Of the property, or of the command.
    QString object;      ///< Whose property; empty for a command.
    QString value;       ///< To set, or of the command.
};

/// Sends the event and waits for the answer, which is empty where there is none to give. Nullopt
/// with an error as AppleScript has them. An application that isn't running is not started. Any
/// thread.
std::optional<QString> sendScriptEvent(const ScriptEvent &event, const QDeadlineTimer &patience,
                                       Error *error);

} // namespace platform
