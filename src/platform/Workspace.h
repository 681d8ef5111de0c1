#pragma once

#include <QString>
#include <QUrl>

namespace platform {

/// The desktop around the program: installed applications, the file manager, the browser. Main
/// thread. A test puts its own in place of the shared one.
class Workspace
{
public:
    static Workspace &sharedWorkspace();
    static void
    setSharedWorkspace(Workspace *workspace); ///< Borrowed; null brings back the usual one.

    virtual ~Workspace() = default;

    /// The folder of the application (NAME.app with Contents/Info.plist) with that
    /// `CFBundleIdentifier`, looked for in the application folders: `LAYOUTSMITH_APPLICATIONS`, a
    /// list like PATH, else ~/Applications, /Applications and /opt. The first folder that has it
    /// wins. Reads the disk on each call. Null if it is not installed.
    virtual QString pathForApplication(const QString &bundleIdentifier) const;

    /// With the desktop's program for it. False if there is none, or no desktop.
    virtual bool openUrl(const QUrl &url);

    /// Shows the file in the desktop's file manager, selected where the manager can do that, else
    /// the folder `rootedAtPath` (empty: the file's own). False if neither worked. A file manager
    /// that does not answer holds the caller up for a second at most.
    virtual bool selectFile(const QString &path, const QString &rootedAtPath);
};

} // namespace platform
