#include "platform/Error.h"

#include <cerrno>

namespace platform {

bool fail(Error *error, const QString &domain, int code, const QString &description)
{
    if (error)
        *error = {domain, code, description, {}};
    return false;
}

bool failWithErrno(Error *error, const QString &path)
{
    const int code = errno;
    return fail(error, QStringLiteral("posix"), code,
                QStringLiteral("%1: %2").arg(path, qt_error_string(code)));
}

} // namespace platform
