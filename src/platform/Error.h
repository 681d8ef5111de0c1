#pragma once

#include <QString>

namespace platform {

/// Why an operation failed. A value, filled through an optional out-argument (`Error *error`),
/// which callers that do not care leave out. Operations leave it untouched when they succeed.
struct Error
{
    QString domain;             ///< Whose code it is: "posix", "platform.propertylist" ...
    int code = 0;               ///< Within the domain; errno for "posix".
    QString description;        ///< One sentence for the user, with the path where there is one.
    QString recoverySuggestion; ///< What to do about it; may be null.

    bool isNull() const { return domain.isNull() && description.isNull(); }
};

/// Fills `error`, if there is one, and answers false: `return fail(error, ...)`.
bool fail(Error *error, const QString &domain, int code, const QString &description);

/// The same for the calling thread's `errno`; the description is "PATH: the system's text".
bool failWithErrno(Error *error, const QString &path);

} // namespace platform
