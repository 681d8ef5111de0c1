#pragma once

#include <bitset>
#include <optional>
#include <QStringView>

namespace platform {

using AsciiSet = std::bitset<128>;

/// The characters that a match of the pattern may begin with, or more of them: a search can pass by
/// all others. Nullopt where that is not to be seen at once: a match may be empty, or begin with a
/// character beyond ASCII, or the pattern is not a plain one. Any thread.
std::optional<AsciiSet> startOfPattern(QStringView pattern);

} // namespace platform
