#pragma once

#include <QString>
#include <vector>

/// One thing that is wrong, or worth knowing, about a design on disk.
struct LSMFinding
{
    enum class Level { Note, Warning, Error };

    QString path; ///< The file or folder that it is about.
    Level level = Level::Error;
    QString text; ///< One sentence for the user, without the path.

    bool operator==(const LSMFinding &) const = default;
};

using LSMFindings = std::vector<LSMFinding>;

/// "note", "warning" or "error".
QString LSMFindingLevelName(LSMFinding::Level level);
