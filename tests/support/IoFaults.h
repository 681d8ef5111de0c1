#pragma once

#include <functional>
#include <QByteArray>
#include <QString>

namespace support {

/// Lets changes of the file system below one folder fail while it lives. It stands between the
/// program and the C library, so it reaches Qt and the standard library too (but not `fopen`). It
/// counts what changes the disk: opening for writing, writing, syncing, truncating, renaming,
/// linking, making and removing, changing modes. One at a time; any thread may do the operations.
///
/// A test program that includes this compiles IoFaults.cpp in.
class IoFaults
{
public:
    enum class Reach { One, Onward };

    explicit IoFaults(const QString &folder);
    ~IoFaults();
    IoFaults(const IoFaults &) = delete;
    IoFaults &operator=(const IoFaults &) = delete;

    /// The nth operation from now, one-based, gives `error` instead of being done; with
    /// `Reach::Onward` so does every later one, as on a disk that is full or read-only.
    void failAt(int nth, int error, Reach reach = Reach::One);

    /// The process ends by SIGKILL instead of doing the nth operation; a write is half done then.
    void killAt(int nth);

    int count() const; ///< Operations since the last call of `failAt` or `killAt`.
};

/// Runs `work` in a forked child that is killed at its nth operation below `folder`. False if it
/// ended before there was an nth one. Give each run a folder of its own: children choose the same
/// random names, and what one left behind would be in the way of the next.
bool runKilledAt(const QString &folder, int nth, const std::function<void()> &work);

} // namespace support
