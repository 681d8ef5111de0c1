#include "platform/FileTags.h"

#include <array>
#include <QFile>
#include <sys/xattr.h>

namespace platform {

namespace {

constexpr const char *attribute = "user.xdg.tags";

}

bool setFileTags(const QString &path, const QString &tags)
{
    const QByteArray value = tags.toUtf8();
    return setxattr(QFile::encodeName(path).constData(), attribute, value.constData(),
                    std::size_t(value.size()), 0) == 0;
}

QString fileTags(const QString &path)
{
    std::array<char, 4096> buffer{};
    const ssize_t length =
        getxattr(QFile::encodeName(path).constData(), attribute, buffer.data(), buffer.size());
    return length < 0 ? QString() : QString::fromUtf8(buffer.data(), length);
}

} // namespace platform
