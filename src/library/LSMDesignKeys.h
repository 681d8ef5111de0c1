#pragma once

#include <QLatin1StringView>

/// The names of the design bundle on disk: files, keys of Info.plist, marker words. The host reads
/// the same folders, so none of them may change. docs/bundle-format.md explains them.
namespace LSMDesignKeys {

using namespace Qt::StringLiterals;

// Files
inline constexpr auto bundleExtension = "designTemplate"_L1;
inline constexpr auto oldVersionExtension = "html"_L1;
inline constexpr auto convertedExtension = "old"_L1;
inline constexpr auto infoFile = "Info.plist"_L1;
inline constexpr auto bodyFile = "body.html"_L1;
inline constexpr auto pngThumbnail = "thumbnail.png"_L1;
inline constexpr auto jpegThumbnail = "thumbnail.jpg"_L1;
inline constexpr auto layoutSamplesFolder = "Layout_Samples"_L1;

// Info.plist
inline constexpr auto infoDictionaryVersion = "CFBundleInfoDictionaryVersion"_L1;
inline constexpr auto name = "CFBundleName"_L1;
inline constexpr auto identifier = "CFBundleIdentifier"_L1;
inline constexpr auto version = "CFBundleVersion"_L1;
inline constexpr auto keywords = "LBKeywords"_L1;
inline constexpr auto remoteResources = "LBRemoteResources"_L1;
inline constexpr auto remoteDirectory = "LBRemoteDirectory"_L1;
inline constexpr auto properties = "LBDesignProperties"_L1;
inline constexpr auto minimumVersion = "LBMinimumVersion"_L1;
inline constexpr auto imageInclusion = "LBImageInclusion"_L1;
inline constexpr auto store = "designStore"_L1;

// Inside designStore
inline constexpr auto releaseDate = "releaseDate"_L1;
inline constexpr auto layoutNames = "layoutNames"_L1;
inline constexpr auto defaultLayoutName = "defaultLayoutName"_L1;
inline constexpr auto storeTitle = "title"_L1;
inline constexpr auto storeDescription = "description"_L1;
inline constexpr auto storePrice = "price"_L1;
inline constexpr auto storeCurrency = "currency"_L1;
inline constexpr auto storeCategory = "category"_L1;
inline constexpr auto storeSupportUrl = "supportURL"_L1;

// Inside a property record
inline constexpr auto propertyName = "name"_L1;
inline constexpr auto propertyType = "type"_L1;
inline constexpr auto propertyDefaultValue = "defaultValue"_L1;
inline constexpr auto propertyAllowedValues = "allowedValues"_L1;

// Types of properties
inline constexpr auto stringProperty = "String"_L1;
inline constexpr auto colorProperty = "Color"_L1;
inline constexpr auto booleanProperty = "Boolean"_L1;
inline constexpr auto valuesProperty = "Values"_L1;
inline constexpr auto separatorProperty = "Separator"_L1;

// Marker words in the HTML
inline constexpr auto layoutMarker = "LBLayoutEnabled_"_L1;
inline constexpr auto defaultLayoutSuffix = " or LBLayoutNotDefined"_L1;

// Types of designs
inline constexpr auto customType = "custom"_L1;
inline constexpr auto builtinType = "builtin"_L1;

} // namespace LSMDesignKeys
