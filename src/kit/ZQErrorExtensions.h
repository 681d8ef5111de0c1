#pragma once

#include "platform/Error.h"

/// An error for the user, in the domain "com.quillbyte.error.zqkit", with code 0. The texts must
/// not be null. Any thread.
platform::Error zq_errorWithLocalizedDescription(const QString &description);
platform::Error zq_errorWithLocalizedDescription(const QString &description,
                                                 const QString &recoverySuggestion);
