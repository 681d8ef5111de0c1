#pragma once

#include <memory>
#include <QObject>

namespace platform {

/// Tells what happens to the entries of one folder. All of them share one descriptor of the
/// system's and those of one folder one watch, so thousands cost little. Main thread.
class DirectoryWatch : public QObject
{
    Q_OBJECT

public:
    enum class Change {
        Created,
        Removed,
        MovedHere,
        MovedAway,
        Modified,
        Gone,      ///< The folder itself: removed or moved. Nothing comes any more.
        Unmounted, ///< The same, with its file system.
        Lost,      ///< Too much has happened: anything may have changed.
    };
    Q_ENUM(Change)

    enum class Entry { File, Folder };

    /// Null, with a line in the log where the system has run out of watches, for what is no folder.
    static std::shared_ptr<DirectoryWatch> of(const QString &folder);
    ~DirectoryWatch() override;

    /// Tells at once what has happened so far.
    static void drain();

Q_SIGNALS:
    /// `name` as the file system has it; empty for the last three. Receivers may let go of the
    /// watch.
    void changed(platform::DirectoryWatch::Change change, const QByteArray &name,
                 platform::DirectoryWatch::Entry entry);

private:
    friend class DirectoryWatches;
    explicit DirectoryWatch(int descriptor) : m_descriptor(descriptor) {}

    int m_descriptor; ///< -1 once the system has taken it back.
};

} // namespace platform
