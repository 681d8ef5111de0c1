#pragma once

#include <QString>
#include <vector>

/// One thing that is wrong, or worth knowing, about a design.
struct LSMFinding
{
    enum class Level { Note, Warning, Error };

    QString path; ///< The file or folder that it is about; null for a text that is being edited.
    Level level = Level::Error;
    QString text; ///< One sentence for the user, without the path.

    // Where in a text, as editors count: lines end as those of platform::TextStorage do.
    qsizetype line = 0;      ///< One-based; 0: it is about all of it.
    qsizetype character = 0; ///< One-based, UTF-16 units.
    qsizetype length = 0;    ///< UTF-16 units; 0: all of the line.

    bool operator==(const LSMFinding &) const = default;
};

using LSMFindings = std::vector<LSMFinding>;

/// "note", "warning" or "error".
QString LSMFindingLevelName(LSMFinding::Level level);
