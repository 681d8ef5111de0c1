#pragma once

#include <cstddef>
#include <functional>

namespace platform {

/// Runs `work(0)` to `work(count - 1)` on all cores and returns when each has ended. The calls run
/// in any order, side by side; `work` must not throw.
void concurrentPerform(std::size_t count, const std::function<void(std::size_t)> &work);

} // namespace platform
