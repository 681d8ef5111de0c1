#pragma once

#include "platform/Bundle.h"

/// What a bundle says of itself, and its folders in the user's home. Localised values come from the
/// strings table "InfoPlist". Any thread.
namespace zq {

/// The localised value of the Info dictionary first, then the plain one; null without one.
QString localizedOrNonLocalizedInfoDictionaryValue(const platform::Bundle &bundle,
                                                   const QString &key);
QString versionString(const platform::Bundle &bundle);     ///< "1.0"
QString bundleVersion(const platform::Bundle &bundle);     ///< "1"
QString versionInfo(const platform::Bundle &bundle);       ///< "1.0 (1)"
QString bundleName(const platform::Bundle &bundle);        ///< "Layoutsmith"
QString bundleDisplayName(const platform::Bundle &bundle); ///< Localised, else the bundle's name.

/// `$XDG_DATA_HOME/<bundle name>`; not created.
QString applicationSupportFolder(const platform::Bundle &bundle);

/// The same, created when missing. A plain file in its way is logged; the path is given all the
/// same.
QString existingApplicationSupportFolder(const platform::Bundle &bundle);

/// `$XDG_CACHE_HOME/<bundle name>`; not created.
QString applicationCachesDirectory(const platform::Bundle &bundle);

} // namespace zq
