#include "kit/ZQErrorExtensions.h"

#include "platform/Assert.h"

platform::Error zq_errorWithLocalizedDescription(const QString &description)
{
    PLATFORM_ASSERT(!description.isNull(), "Invalid parameter not satisfying: %@",
                    "inLocalizedDescription");
    return {QStringLiteral("com.quillbyte.error.zqkit"), 0, description, {}};
}

platform::Error zq_errorWithLocalizedDescription(const QString &description,
                                                 const QString &recoverySuggestion)
{
    PLATFORM_ASSERT(!recoverySuggestion.isNull(), "Invalid parameter not satisfying: %@",
                    "inRecoverySuggestion");
    platform::Error error = zq_errorWithLocalizedDescription(description);
    error.recoverySuggestion = recoverySuggestion;
    return error;
}
