#include "platform/FileEventStream.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::FileEventFlag;

namespace {

class FileEvents : public testing::Test
{
protected:
    FileEvents() { support::writeFile(path, "one"); }

    void watch(const QStringList &paths, double latency = 0.01, quint32 flags = 4,
               quint64 since = FileEventStream::SinceNow)
    {
        stream = std::make_unique<FileEventStream>(paths, since, latency, flags,
                                                   [this](const std::vector<FileEvent> &events) {
                                                       ++batches;
                                                       for (const FileEvent &event : events)
                                                           seen[event.path] |= event.flags;
                                                   });
        ASSERT_TRUE(stream->start());
    }
    /// What has been told of the path since the last call.
    quint32 flagsOf(const QString &at)
    {
        stream->flushSync();
        return std::exchange(seen, {}).value(at);
    }
    static void rename(const QString &from, const QString &to)
    {
        ASSERT_EQ(::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()),
                  0);
    }

    QTemporaryDir home;
    QString folder = home.filePath(u"design"_s);
    QString path = folder + u"/body.html"_s;
    std::unique_ptr<FileEventStream> stream;
    QHash<QString, quint32> seen;
    int batches = 0;
};

TEST_F(FileEvents, EachWayToWriteAFileIsSeen)
{
    watch({path});
    support::writeFile(path, "two");
    EXPECT_EQ(flagsOf(path), ItemModified | ItemIsFile);

    support::writeFile(folder + u"/.body.swp"_s, "three");
    EXPECT_EQ(flagsOf(path), 0u) << "a neighbour";
    rename(folder + u"/.body.swp"_s, path);
    EXPECT_TRUE(flagsOf(path) & ItemRenamed);
    support::writeFile(path, "four");
    EXPECT_TRUE(flagsOf(path) & ItemModified) << "after it was replaced";

    QFile::remove(path);
    EXPECT_EQ(flagsOf(path), ItemRemoved | ItemIsFile);
    support::writeFile(path, "five");
    EXPECT_TRUE(flagsOf(path) & ItemCreated);
    rename(path, folder + u"/aside"_s);
    EXPECT_TRUE(flagsOf(path) & ItemRenamed);
}

TEST_F(FileEvents, AFolderThatIsReplacedIsWatchedAgain)
{
    watch({path});
    support::writeFile(home.filePath(u"new/body.html"_s), "new");
    rename(folder, home.filePath(u"old"_s));
    EXPECT_EQ(flagsOf(path), RootChanged);
    support::writeFile(home.filePath(u"old/body.html"_s), "x");
    EXPECT_EQ(flagsOf(path), 0u) << "that is another path now";
    rename(home.filePath(u"new"_s), folder);
    EXPECT_TRUE(flagsOf(path) & RootChanged);
    support::writeFile(path, "again");
    EXPECT_TRUE(flagsOf(path) & ItemModified);

    QDir(folder).removeRecursively();
    EXPECT_TRUE(flagsOf(path) & ItemRemoved);
    support::writeFile(folder, "a file in its place");
    EXPECT_TRUE(flagsOf(path) & RootChanged);
    QFile::remove(folder);
    QDir().mkpath(folder);
    flagsOf(path);
    support::writeFile(path, "back");
    EXPECT_TRUE(flagsOf(path) & ItemCreated);
}

TEST_F(FileEvents, ALinkStandsForItsTargetOnWhateverFileSystem)
{
    const QTemporaryDir elsewhere(u"/dev/shm/layoutsmith-XXXXXX"_s);
    ASSERT_TRUE(elsewhere.isValid());
    const QString first = elsewhere.filePath(u"first.html"_s);
    const QString second = home.filePath(u"second.html"_s);
    support::writeFile(first, "1");
    support::writeFile(second, "2");
    QFile::remove(path);
    QFile::link(first, path);
    watch({path});
    support::writeFile(first, "changed");
    EXPECT_TRUE(flagsOf(path) & ItemModified);
    QFile::remove(path);
    QFile::link(second, path);
    flagsOf(path);
    support::writeFile(first, "nobody looks");
    EXPECT_EQ(flagsOf(path), 0u);
    support::writeFile(second, "changed");
    EXPECT_TRUE(flagsOf(path) & ItemModified);
}

TEST_F(FileEvents, AFolderIsWatchedWithAllInIt)
{
    QDir().mkpath(folder + u"/a/b"_s);
    watch({folder});
    support::writeFile(folder + u"/a/b/deep.txt"_s, "x");
    EXPECT_TRUE(flagsOf(folder + u"/a/b/deep.txt"_s) & ItemCreated);
    QDir().mkpath(folder + u"/new"_s);
    EXPECT_EQ(flagsOf(folder + u"/new"_s), ItemCreated | ItemIsDir);
    support::writeFile(folder + u"/new/inside.txt"_s, "x");
    EXPECT_TRUE(flagsOf(folder + u"/new/inside.txt"_s) & ItemCreated);
}

TEST_F(FileEvents, WhatHappensWithinTheLatencyIsOneBatchAndOneEvent)
{
    watch({path}, 0.2);
    support::writeFile(path, "two");
    QFile::remove(path);
    support::writeFile(path, "three");
    ASSERT_TRUE(support::waitUntil([&] { return batches > 0; }));
    EXPECT_EQ(batches, 1);
    EXPECT_EQ(seen.value(path), ItemModified | ItemRemoved | ItemCreated | ItemIsFile);
    const quint64 last = FileEventStream::currentEventId();
    EXPECT_GT(last, 0u);

    support::writeFile(path, "four");
    stream->flushAsync();
    EXPECT_EQ(batches, 1);
    ASSERT_TRUE(support::waitUntil([&] { return batches == 2; }, 0.15));
    support::writeFile(path, "five");
    stream->stop();
    stream->flushSync();
    EXPECT_EQ(batches, 2);
    EXPECT_GT(FileEventStream::currentEventId(), last);
}

TEST_F(FileEvents, WithoutWatchRootFoldersOnTheWayAreNotTold)
{
    watch({path}, 0, 1, 5);
    EXPECT_EQ(flagsOf(path), HistoryDone);
    rename(folder, home.filePath(u"old"_s));
    EXPECT_EQ(flagsOf(path), 0u);
}

TEST_F(FileEvents, AQueueThatRunsOverTellsAll)
{
    QFile limit(u"/proc/sys/fs/inotify/max_queued_events"_s);
    ASSERT_TRUE(limit.open(QIODevice::ReadOnly));
    const int most = limit.readAll().trimmed().toInt();
    const QString other = home.filePath(u"other/body.html"_s);
    support::writeFile(other, "x");
    watch({path, other});
    for (int i = 0; i <= most / 2; ++i) { // equal ones in a row count once
        QFile::link(path, folder + u"/link"_s);
        QFile::remove(folder + u"/link"_s);
    }
    stream->flushSync();
    EXPECT_TRUE(seen.value(path) & KernelDropped);
    EXPECT_TRUE(seen.value(other) & MustScanSubDirs);
}

TEST_F(FileEvents, TheCallbackMayEndTheStream)
{
    bool isCalled = false;
    stream = std::make_unique<FileEventStream>(QStringList{path}, FileEventStream::SinceNow, 0, 4,
                                               [&](const std::vector<FileEvent> &) {
                                                   isCalled = true;
                                                   stream.reset();
                                               });
    ASSERT_TRUE(stream->start());
    support::writeFile(path, "two");
    EXPECT_TRUE(support::waitUntil([&] { return isCalled; }));
    EXPECT_FALSE(stream);
    FileEventStream nowhere({home.filePath(u"no/such/folder"_s)}, FileEventStream::SinceNow, 0, 4,
                            [](const auto &) {});
    EXPECT_FALSE(nowhere.start());
}

} // namespace
