#include "fuzz/FuzzTargets.h"

namespace fuzz {

std::span<const Target> targets()
{
    static constexpr Target all[] = {
        {"propertylist", &propertyList},
        {"syntaxdefinition", &syntaxDefinition},
        {"colouring", &colouring},
    };
    return all;
}

} // namespace fuzz
