#pragma once

#include "platform/PropertyList.h"
#include <chrono>

namespace platform::XmlPropertyList {

/// The XML form. Called by PropertyList alone, whose promises these functions keep. Any thread.

/// UTF-8 or UTF-16; a byte order mark and white space before the header are skipped. Of two equal
/// keys the last one wins. Entities beyond XML's own five are refused. A dictionary whose only key
/// is `CF$UID` with an integer that is not negative is a PropertyListUid.
std::optional<QVariant> parse(const QByteArray &bytes, Error *error);

/// UTF-8, indented by tabs. Dates are rounded down to whole seconds; years before 0 and after 9999
/// are refused.
std::optional<QByteArray> serialize(const QVariant &root, Error *error);

constexpr std::chrono::sys_days referenceDay = std::chrono::January / 1 / 2001;
constexpr double secondsPerDay = 86400;
constexpr const char *uidKey = "CF$UID";

} // namespace platform::XmlPropertyList
