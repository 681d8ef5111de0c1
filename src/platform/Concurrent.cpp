#include "platform/Concurrent.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace platform {

void concurrentPerform(std::size_t count, const std::function<void(std::size_t)> &work)
{
    std::atomic<std::size_t> next = 0;
    const auto drain = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            work(index);
    };
    const std::size_t cores = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 8);
    std::vector<std::jthread> helpers;
    for (std::size_t i = 1; i < std::min(cores, count); ++i)
        helpers.emplace_back(drain);
    drain();
}

} // namespace platform
