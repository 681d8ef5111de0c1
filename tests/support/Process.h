#pragma once

#include <QProcess>

namespace support {

/// A process that is forked, with a memory of its own from the start: the thread sanitizer takes
/// what a vforked child does for deeds of the parent, and sees no lock of the parent's afterwards.
class Process : public QProcess
{
public:
    Process()
    {
        setChildProcessModifier([] {});
    }
};

} // namespace support
