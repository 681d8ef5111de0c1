#pragma once

#include "platform/Error.h"
#include <optional>
#include <QByteArray>

namespace platform {

/// Whole files, read and written. Any thread. Errors are in the domain "posix" and name the path.

/// Nullopt for a missing or unreadable file and for anything that is no regular file (a folder, a
/// pipe: they never block).
std::optional<QByteArray> readFile(const QString &path, Error *error = nullptr);

/// Replaces or creates the file in one step: written beside it, synced, renamed over it, the folder
/// synced. On failure, and when the process dies at any point, the old file stands untouched.
/// Follows a symbolic link; keeps the old file's permissions.
bool writeFileAtomically(const QString &path, const QByteArray &bytes, Error *error = nullptr);

/// Copies a file, or a folder with all that is in it, hidden things and links too (as links), with
/// permissions of files and times of change. A folder that is there already is added to, files in
/// it are replaced. Pipes and devices are left out. What was copied before a failure stays.
bool copyTree(const QString &from, const QString &to, Error *error = nullptr);

} // namespace platform
