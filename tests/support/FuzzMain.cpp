#include "fuzz/FuzzTargets.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

const fuzz::Target *chosen = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    const char *name = std::getenv("LAYOUTSMITH_FUZZ_TARGET");
    for (const fuzz::Target &target : fuzz::targets()) {
        if (name && std::string_view(name) == target.name)
            chosen = &target;
    }
    if (!chosen)
        qFatal("LAYOUTSMITH_FUZZ_TARGET names no target");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    chosen->run(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
