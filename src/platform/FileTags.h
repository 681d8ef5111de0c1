#pragma once

#include <QString>

namespace platform {

/// Gives a file or folder its tags, comma-separated, where file managers of the desktop find them.
/// False where the file system keeps no such thing.
bool setFileTags(const QString &path, const QString &tags);

/// The tags, comma-separated; null without one.
QString fileTags(const QString &path);

} // namespace platform
