#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <QByteArray>
#include <stop_token>

namespace platform {

/// Has work done in a copy of this process, for code that cannot be trusted to come back: what it
/// breaks, uses up or never ends is the copy's. Gives the bytes that it returns; nullopt when it
/// died or threw, took longer than `patience` or a gigabyte more of memory, or was stopped.
///
/// Any thread, several at a time; waits. Of the program's other threads there is none in the copy,
/// so the work must need none of their locks: it may compute and take memory, no more.
std::optional<QByteArray> runIsolated(const std::function<QByteArray()> &work,
                                      std::chrono::milliseconds patience,
                                      const std::stop_token &stop = {});

} // namespace platform
