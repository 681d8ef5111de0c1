#include "support/IoFaults.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <limits>
#include <QFile>
#include <QFileInfo>
#include <string_view>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum class Fault { None, Fail, Kill };

// Nothing here allocates: the operations come from anywhere, before main and after it too.
struct Plan
{
    std::array<char, PATH_MAX> folder{};
    std::atomic<bool> isActive = false;
    std::atomic<int> count = 0;
    std::atomic<int> first = 0;
    std::atomic<int> last = 0;
    std::atomic<int> error = 0;
    std::atomic<Fault> fault = Fault::None;
};
Plan plan;

void setFault(Fault fault, int first, int last, int error)
{
    plan.fault = fault;
    plan.first = first;
    plan.last = last;
    plan.error = error;
    plan.count = 0;
}

bool isBelowFolder(std::string_view path)
{
    const std::string_view folder(plan.folder.data());
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

// The path that a descriptor leads to; empty for one that leads nowhere.
std::string_view pathOf(int descriptor, std::array<char, PATH_MAX> &buffer)
{
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link.data(), buffer.data(), buffer.size());
    return {buffer.data(), std::size_t(length > 0 ? length : 0)};
}

// Counts one operation. True if it must not be done, with errno set.
bool strikes()
{
    const int number = ++plan.count;
    if (plan.fault == Fault::None || number < plan.first || number > plan.last)
        return false;
    if (plan.fault == Fault::Kill)
        ::kill(::getpid(), SIGKILL);
    errno = plan.error;
    return true;
}

bool strikesPath(const char *path)
{
    return plan.isActive && path && isBelowFolder(path) && strikes();
}

bool strikesPathAt(int folder, const char *path)
{
    if (!plan.isActive || !path)
        return false;
    if (*path == '/' || folder == AT_FDCWD)
        return strikesPath(path);
    std::array<char, PATH_MAX> buffer{};
    return isBelowFolder(pathOf(folder, buffer)) && strikes();
}

bool isWatched(int descriptor)
{
    if (!plan.isActive)
        return false;
    std::array<char, PATH_MAX> buffer{};
    const int before = errno;
    const bool isBelow = isBelowFolder(pathOf(descriptor, buffer));
    errno = before;
    return isBelow;
}

bool strikesDescriptor(int descriptor)
{
    return isWatched(descriptor) && strikes();
}

bool killsNext()
{
    return plan.fault == Fault::Kill && plan.count + 1 == plan.first;
}

bool opensForWriting(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

bool needsMode(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

} // namespace

// The C library's function of that name, or a sanitizer's before it.
#define FORWARD(name, ...)                                                                         \
    ([&] {                                                                                         \
        static const auto next = reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name));     \
        return next(__VA_ARGS__);                                                                  \
    }())

#define READ_MODE(flags)                                                                           \
    mode_t mode = 0;                                                                               \
    if (needsMode(flags)) {                                                                        \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        mode = va_arg(arguments, mode_t);                                                          \
        va_end(arguments);                                                                         \
    }

extern "C" {

int open(const char *path, int flags, ...)
{
    READ_MODE(flags)
    return opensForWriting(flags) && strikesPath(path) ? -1 : FORWARD(open, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    READ_MODE(flags)
    return opensForWriting(flags) && strikesPath(path) ? -1 : FORWARD(open64, path, flags, mode);
}

int openat(int folder, const char *path, int flags, ...)
{
    READ_MODE(flags)
    return opensForWriting(flags) && strikesPathAt(folder, path)
               ? -1
               : FORWARD(openat, folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    READ_MODE(flags)
    return opensForWriting(flags) && strikesPathAt(folder, path)
               ? -1
               : FORWARD(openat64, folder, path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    const bool counts = isWatched(descriptor);
    if (counts && killsNext())
        FORWARD(write, descriptor, bytes, size / 2);
    return counts && strikes() ? -1 : FORWARD(write, descriptor, bytes, size);
}

ssize_t pwrite(int descriptor, const void *bytes, size_t size, off_t offset)
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(pwrite, descriptor, bytes, size, offset);
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t size, off64_t offset)
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(pwrite64, descriptor, bytes, size, offset);
}

ssize_t writev(int descriptor, const iovec *parts, int count)
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(writev, descriptor, parts, count);
}

ssize_t sendfile(int to, int from, off_t *offset, size_t size) noexcept
{
    return strikesDescriptor(to) ? -1 : FORWARD(sendfile, to, from, offset, size);
}

ssize_t sendfile64(int to, int from, off64_t *offset, size_t size) noexcept
{
    return strikesDescriptor(to) ? -1 : FORWARD(sendfile64, to, from, offset, size);
}

int ftruncate(int descriptor, off_t size) noexcept
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(ftruncate, descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(ftruncate64, descriptor, size);
}

int fsync(int descriptor)
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(fsync, descriptor);
}

int fdatasync(int descriptor)
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(fdatasync, descriptor);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    return strikesDescriptor(descriptor) ? -1 : FORWARD(fchmod, descriptor, mode);
}

int chmod(const char *path, mode_t mode) noexcept
{
    return strikesPath(path) ? -1 : FORWARD(chmod, path, mode);
}

int rename(const char *from, const char *to) noexcept
{
    return strikesPath(to) ? -1 : FORWARD(rename, from, to);
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    return strikesPathAt(toFolder, to) ? -1 : FORWARD(renameat, fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    return strikesPathAt(toFolder, to) ? -1
                                       : FORWARD(renameat2, fromFolder, from, toFolder, to, flags);
}

int link(const char *from, const char *to) noexcept
{
    return strikesPath(to) ? -1 : FORWARD(link, from, to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return strikesPathAt(toFolder, to) ? -1
                                       : FORWARD(linkat, fromFolder, from, toFolder, to, flags);
}

int symlink(const char *target, const char *path) noexcept
{
    return strikesPath(path) ? -1 : FORWARD(symlink, target, path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return strikesPath(path) ? -1 : FORWARD(mkdir, path, mode);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return strikesPathAt(folder, path) ? -1 : FORWARD(mkdirat, folder, path, mode);
}

int rmdir(const char *path) noexcept
{
    return strikesPath(path) ? -1 : FORWARD(rmdir, path);
}

int unlink(const char *path) noexcept
{
    return strikesPath(path) ? -1 : FORWARD(unlink, path);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    return strikesPathAt(folder, path) ? -1 : FORWARD(unlinkat, folder, path, flags);
}

} // extern "C"

namespace support {

IoFaults::IoFaults(const QString &folder)
{
    const QByteArray name = QFile::encodeName(QFileInfo(folder).canonicalFilePath());
    if (plan.isActive || name.isEmpty() || std::size_t(name.size()) >= plan.folder.size())
        qFatal("cannot watch %s", qPrintable(folder));
    qstrcpy(plan.folder.data(), name.constData());
    setFault(Fault::None, 0, 0, 0);
    plan.isActive = true;
}

IoFaults::~IoFaults()
{
    plan.isActive = false;
}

void IoFaults::failAt(int nth, int error, Reach reach)
{
    setFault(Fault::Fail, nth, reach == Reach::One ? nth : std::numeric_limits<int>::max(), error);
}

void IoFaults::killAt(int nth)
{
    setFault(Fault::Kill, nth, nth, 0);
}

int IoFaults::count() const
{
    return plan.count;
}

bool runKilledAt(const QString &folder, int nth, const std::function<void()> &work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        IoFaults faults(folder);
        faults.killAt(nth);
        work();
        ::_exit(0);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

} // namespace support
