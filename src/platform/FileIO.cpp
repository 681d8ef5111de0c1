#include "platform/FileIO.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr qint64 largestFile = 0x7FFF'FFFE;

class Descriptor
{
public:
    Descriptor(const QString &path, int flags)
    {
        const QByteArray name = QFile::encodeName(path);
        if (std::strlen(name.constData()) != std::size_t(name.size())) {
            errno = ENOENT; // the system would see only what stands before the NUL
            return;
        }
        do
            m_descriptor = ::open(name.constData(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
        while (m_descriptor < 0 && errno == EINTR);
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    operator int() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

// Reads to the end. One byte of room beyond the expected size shows the end without another call.
bool readAll(int descriptor, qint64 expectedSize, QByteArray &bytes)
{
    bytes.resize(expectedSize + 1);
    qint64 length = 0;
    for (;;) {
        const ssize_t count =
            ::read(descriptor, bytes.data() + length, std::size_t(bytes.size() - length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        length += count;
        if (length < bytes.size() && (count == 0 || length == expectedSize))
            break;
        if (length == bytes.size())
            bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return true;
}

// Best effort: the file already stands in its place, and not every file system can do this.
void syncFolder(const QString &path)
{
    const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    if (folder >= 0)
        ::fsync(folder);
}

} // namespace

std::optional<QByteArray> readFile(const QString &path, Error *error)
{
    const auto failed = [&](int code) {
        errno = code;
        failWithErrno(error, path);
        return std::nullopt;
    };
    const Descriptor file(path, O_RDONLY);
    struct stat status = {};
    if (file < 0 || ::fstat(file, &status) != 0)
        return failed(errno);
    if (!S_ISREG(status.st_mode))
        return failed(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    if (status.st_size > largestFile)
        return failed(EFBIG);
    QByteArray bytes;
    if (!readAll(file, status.st_size, bytes))
        return failed(errno);
    return bytes;
}

bool writeFileAtomically(const QString &path, const QByteArray &bytes, Error *error)
{
    QSaveFile file(path);
    errno = 0;
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                           file.flush() && ::fsync(file.handle()) == 0 && file.commit();
    if (!isWritten) {
        const int code = errno ? errno : QFileInfo(path).isDir() ? EISDIR : EIO;
        file.cancelWriting();
        errno = code;
        return failWithErrno(error, path);
    }
    syncFolder(QFileInfo(path).canonicalPath());
    return true;
}

namespace {

namespace fs = std::filesystem;

void copyEntry(const fs::path &from, const fs::path &to)
{
    const fs::file_status status = fs::symlink_status(from);
    switch (status.type()) {
    case fs::file_type::symlink:
        fs::remove(to);
        return fs::copy_symlink(from, to);
    case fs::file_type::regular:
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
        break;
    case fs::file_type::directory:
        fs::create_directories(to);
        for (const fs::directory_entry &entry : fs::directory_iterator(from))
            copyEntry(entry.path(), to / entry.path().filename());
        break;
    case fs::file_type::not_found:
        throw fs::filesystem_error("", from, std::make_error_code(std::errc(ENOENT)));
    default:
        return;
    }
    std::error_code ignored; // not every file system keeps times
    fs::last_write_time(to, fs::last_write_time(from), ignored);
}

} // namespace

bool copyTree(const QString &from, const QString &to, Error *error)
{
    try {
        copyEntry(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString());
        return true;
    } catch (const fs::filesystem_error &failure) {
        errno = failure.code().value();
        return failWithErrno(error, QFile::decodeName(failure.path1().c_str()));
    }
}

} // namespace platform
