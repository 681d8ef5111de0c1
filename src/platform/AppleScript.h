#pragma once

#include "platform/Error.h"
#include <chrono>
#include <optional>

namespace platform {

/// A script that asks another running application for something. The language is the small part of
/// AppleScript that docs/scripting.md tells: tell, set, get, return, commands, try, text and `&`. A
/// value; any thread; two scripts may run side by side.
///
/// Errors are in the domain "applescript", with a code below; their description is a sentence for
/// the user.
class AppleScript
{
public:
    static constexpr const char *errorDomain = "applescript";

    enum ErrorCode {
        NotRunning = -600,    ///< Or there is no session bus to reach the application by.
        Gone = -609,          ///< It quit before it answered.
        TimedOut = -1712,     ///< It took too long.
        NoSuchObject = -1728, ///< Something was asked for outside of a `tell`.
        SyntaxError = -2740,  ///< The text is no script; the description has the line.
        Refused = -10000      ///< The application answered with an error.
    };

    explicit AppleScript(const QString &source) : m_source(source) {}

    /// `text` as it has to stand between the quotes of a string literal: no text can end them.
    static QString escaped(QString text);

    /// Compiles and runs the script and gives the value of the last statement, or of the one that
    /// returned: empty, not null, if it had none. Blocks until the applications have answered, all
    /// together no longer than `patience`. Nullopt, with the reason, if it failed; what was done
    /// until then stays done.
    std::optional<QString>
    executeAndReturnError(Error *error,
                          std::chrono::milliseconds patience = std::chrono::seconds(5)) const;

private:
    QString m_source;
};

} // namespace platform
