#pragma once

namespace platform {

/// Seconds since this process was started, the loading of its libraries included, to a hundredth;
/// negative where the system does not say. Any thread.
double secondsSinceProcessStart();

} // namespace platform
