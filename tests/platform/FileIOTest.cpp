#include "platform/FileIO.h"

#include "support/IoFaults.h"
#include "support/TestSupport.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <sys/stat.h>

using platform::Error;
using platform::readFile;
using platform::writeFileAtomically;

namespace {

class FileIO : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    int readErrno(const QString &file) const
    {
        Error error;
        EXPECT_FALSE(readFile(file, &error)) << file.toStdString();
        EXPECT_EQ(error.domain, u"posix");
        EXPECT_TRUE(error.description.contains(file));
        return error.code;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FileIO, ReadsFilesOfEverySize)
{
    for (const int size : {0, 1, 4095, 4096, 300'000}) {
        const QByteArray bytes(size, 'x');
        support::writeFile(path(QStringLiteral("file")), bytes);
        EXPECT_EQ(readFile(path(QStringLiteral("file"))), bytes);
    }
    EXPECT_FALSE(readFile(QStringLiteral("/proc/self/status"))->isEmpty()); // claims no size
}

TEST_F(FileIO, RefusesWhatIsNoReadableFile)
{
    const QString pipe = path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(readErrno(pipe), EINVAL);
    EXPECT_EQ(readErrno(path(QString())), EISDIR);
    EXPECT_EQ(readErrno(path(QStringLiteral("missing"))), ENOENT);
    support::writeFile(path(QStringLiteral("file")), "x");
    EXPECT_EQ(readErrno(path(QStringLiteral("file") + QChar(u'\0') + u'a')), ENOENT);
}

TEST_F(FileIO, WritesNewAndOldFiles)
{
    const QString file = path(QStringLiteral("file"));
    EXPECT_TRUE(writeFileAtomically(file, "new"));
    EXPECT_EQ(support::readFile(file), "new");
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(writeFileAtomically(file, QByteArray(100'000, 'x')));
    EXPECT_EQ(support::readFile(file), QByteArray(100'000, 'x'));
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    EXPECT_EQ(QDir(path(QString())).entryList(QDir::Files).size(), 1);
}

TEST_F(FileIO, WritesThroughLinks)
{
    const QString file = path(QStringLiteral("below/file"));
    support::writeFile(file, "old");
    const QString near = path(QStringLiteral("near"));
    const QString far = path(QStringLiteral("far"));
    ASSERT_TRUE(QFile::link(QStringLiteral("below/file"), near));
    ASSERT_TRUE(QFile::link(near, far));
    for (const QString &link : {near, far}) {
        EXPECT_TRUE(writeFileAtomically(link, link.toUtf8()));
        EXPECT_TRUE(QFileInfo(link).isSymLink()) << link.toStdString();
        EXPECT_EQ(support::readFile(file), link.toUtf8());
    }
}

TEST_F(FileIO, SaysWhyItCannotWrite)
{
    QDir().mkpath(path(QStringLiteral("folder")));
    support::writeFile(path(QStringLiteral("plain")), "x");
    const struct
    {
        QString file;
        int code;
    } cases[] = {
        {path(QStringLiteral("folder")), EISDIR},
        {path(QStringLiteral("missing/file")), ENOENT},
        {path(QStringLiteral("plain/file")), ENOTDIR},
    };
    for (const auto &[file, code] : cases) {
        Error error;
        EXPECT_FALSE(writeFileAtomically(file, "x", &error));
        EXPECT_EQ(error.code, code) << error.description.toStdString();
    }
}

TEST_F(FileIO, CopiesTrees)
{
    const QString from = path(QStringLiteral("from"));
    const QString to = path(QStringLiteral("to"));
    support::writeFile(from + QStringLiteral("/.hidden/file"), "x");
    support::writeFile(to + QStringLiteral("/.hidden/file"), "replaced");
    support::writeFile(to + QStringLiteral("/other"), "stays");
    ASSERT_TRUE(QFile::link(QStringLiteral("nowhere"), from + QStringLiteral("/link")));
    ASSERT_EQ(mkfifo(QFile::encodeName(from + QStringLiteral("/pipe")).constData(), 0600), 0);
    for (int again = 0; again < 2; ++again)
        EXPECT_TRUE(platform::copyTree(from, to));
    EXPECT_EQ(support::readFile(to + QStringLiteral("/.hidden/file")), "x");
    EXPECT_EQ(support::readFile(to + QStringLiteral("/other")), "stays");
    EXPECT_TRUE(QFileInfo(to + QStringLiteral("/link")).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(to + QStringLiteral("/pipe")));

    Error error;
    EXPECT_FALSE(platform::copyTree(path(QStringLiteral("missing")), to, &error));
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_TRUE(error.description.contains(path(QStringLiteral("missing"))));
    EXPECT_FALSE(platform::copyTree(from, to + QStringLiteral("/other/below"), &error));
}

TEST_F(FileIO, EveryFailureLeavesOldOrNewBytes)
{
    const QString file = path(QStringLiteral("file"));
    const QByteArray before = "old";
    const QByteArray after(50'000, 'n');
    support::IoFaults faults(path(QString()));
    for (const int code : {ENOSPC, EROFS, EIO}) {
        for (const auto reach : {support::IoFaults::Reach::One, support::IoFaults::Reach::Onward}) {
            int nth = 0;
            do {
                faults.failAt(0, 0);
                support::writeFile(file, before);
                faults.failAt(++nth, code, reach);
                Error error;
                const bool isWritten = writeFileAtomically(file, after, &error);
                EXPECT_EQ(support::readFile(file), isWritten ? after : before) << "at " << nth;
                EXPECT_TRUE(isWritten || error.code == code) << error.description.toStdString();
            } while (faults.count() >= nth);
            EXPECT_GE(nth, 5) << "opening, writing, two syncs and renaming were to fail";
        }
    }
}
