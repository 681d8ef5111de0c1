#pragma once

#include "library/LSMDesignTemplate.h"

#include <vector>

class QLockFile;
class QTemporaryDir;

/// Designs that were deleted and can be brought back while this object lives: the designs
/// themselves, with all that was not saved in them, and copies of their files. The copies stand in
/// a folder `Deleted-XXXXXX` of its own below the application's cache folder and go with the
/// object; what a crash has left of another one goes when one is made. Owned by the window's
/// commands; main thread.
class LSMDeletedDesigns
{
public:
    LSMDeletedDesigns();
    ~LSMDeletedDesigns();
    Q_DISABLE_COPY_MOVE(LSMDeletedDesigns)

    /// Call it before the design's files are removed. False, with nothing kept, if one of them
    /// could not be copied.
    bool keep(std::shared_ptr<LSMDesignTemplate> design, platform::Error *error = nullptr);

    bool isEmpty() const { return m_entries.empty(); }
    QString titleOfLast() const; ///< Null when it is empty.

    /// The design that was kept last, as one that was never saved; null when there is none. Its
    /// first save writes a bundle with all files that the old one had.
    std::shared_ptr<LSMDesignTemplate> takeLast();

private:
    struct Entry
    {
        std::shared_ptr<LSMDesignTemplate> design;
        QString files; // null for one that had none
    };

    QString newFolder(platform::Error *error);

    std::vector<Entry> m_entries;
    std::unique_ptr<QTemporaryDir> m_folder; // made when it is first needed
    std::unique_ptr<QLockFile> m_lock;
    int m_count = 0;
};
