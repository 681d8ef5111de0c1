#include "library/checking/LSMFinding.h"

#include "platform/Bundle.h"

QString LSMFindingLevelName(LSMFinding::Level level)
{
    static constexpr const char *names[] = {platform::localizable("note"),
                                            platform::localizable("warning"),
                                            platform::localizable("error")};
    return platform::localized(names[int(level)]);
}
