#pragma once

#include <QString>

/// How the parts of a design's bundle are called. Pure functions of names; any thread.
namespace LSMBundlePaths {

/// A title as the name of one folder in the custom folder, without extension: what a file system
/// refuses or takes for a path ("/", NUL) becomes "-", the length fits the longest counter and
/// extension, an empty one reads "Untitled". Ordinary titles come back unchanged.
QString folderNameForTitle(const QString &title);

QString withExtension(const QString &name, const QString &extension);

} // namespace LSMBundlePaths
