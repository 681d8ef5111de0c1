#include "fuzz/FuzzTargets.h"

namespace fuzz {

std::span<const Target> targets()
{
    static constexpr Target all[] = {
        {"propertylist", &propertyList},
        {"syntaxdefinition", &syntaxDefinition},
    };
    return all;
}

} // namespace fuzz
