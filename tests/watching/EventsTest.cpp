#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"
#include "watching/CDEvents.h"
#include "watching/CDEventsDelegate.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class Listener : public CDEventsDelegate
{
public:
    void urlWatcherEventOccurred(CDEvents *, const CDEvent &event) override
    {
        paths << event.url().toLocalFile();
    }
    QStringList paths;
};

class Events : public testing::Test
{
protected:
    static QStringList pathsOf(CDEvents &watcher, Listener &heard)
    {
        watcher.flushSynchronously();
        QStringList paths = std::exchange(heard.paths, {});
        paths.sort();
        return paths;
    }

    QTemporaryDir home;
    QString root = home.path();
    QList<QUrl> urls{QUrl::fromLocalFile(root)};
    Listener listener;
};

TEST_F(Events, OneEventSaysWhatHappenedAndCanBeArchived)
{
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC);
    const CDEvent event(7, date, QUrl::fromLocalFile(u"/a b/c"_s), 256 | 2048 | 65536);
    using Question = bool (CDEvent::*)() const;
    const Question bits[] = {&CDEvent::mustRescanSubDirectories,
                             &CDEvent::isUserDropped,
                             &CDEvent::isKernelDropped,
                             &CDEvent::isEventIdentifiersWrapped,
                             &CDEvent::isHistoryDone,
                             &CDEvent::isRootChanged,
                             &CDEvent::didVolumeMount,
                             &CDEvent::didVolumeUnmount,
                             &CDEvent::isCreated,
                             &CDEvent::isRemoved,
                             &CDEvent::isInodeMetadataModified,
                             &CDEvent::isRenamed,
                             &CDEvent::isModified,
                             &CDEvent::isFinderInfoModified,
                             &CDEvent::didChangeOwner,
                             &CDEvent::isXattrModified,
                             &CDEvent::isFile,
                             &CDEvent::isDir,
                             &CDEvent::isSymlink};
    for (quint32 bit = 1; const Question question : bits) {
        EXPECT_TRUE((CDEvent(1, date, {}, bit).*question)()) << bit;
        EXPECT_FALSE((CDEvent(1, date, {}, ~bit).*question)()) << bit;
        bit *= 2;
    }
    EXPECT_TRUE(CDEvent(1, date, {}, 0).isGenericChange());
    EXPECT_FALSE(event.isGenericChange());

    const auto bytes =
        platform::PropertyList::serialize(event.archived(), platform::PropertyList::Format::Binary);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(CDEvent::unarchived(platform::PropertyList::parse(*bytes)->root.toMap()), event);
    QVariantMap damaged = event.archived();
    damaged.remove(u"date"_s);
    EXPECT_FALSE(CDEvent::unarchived(damaged));
    EXPECT_TRUE(event.description().contains(
        u"{ identifier = 7, URL = file:///a%20b/c, flags = 67840, date = 2023-11-14T22:13:20.000Z }>"_s));
}

TEST_F(Events, SubDirectoriesAndExcludedOnesAreLeftOut)
{
    const QString inside = root + u"/a/inside.txt"_s;
    const QString excluded = root + u"/b/excluded.txt"_s;
    QDir().mkpath(root + u"/a"_s);
    QDir().mkpath(root + u"/b"_s);
    CDEvents all(urls, &listener, nullptr, CDEvents::sinceNow, 60, CDEvents::SubDirs::Watch,
                 {QUrl::fromLocalFile(root + u"/b"_s)});
    Listener other;
    CDEvents shallow({QUrl::fromLocalFile(inside)}, &other, nullptr, CDEvents::sinceNow, 60,
                     CDEvents::SubDirs::Ignore);
    EXPECT_FALSE(all.lastEvent());
    support::writeFile(inside, "x");
    support::writeFile(excluded, "x");
    EXPECT_EQ(pathsOf(all, listener), QStringList(inside));
    EXPECT_EQ(pathsOf(shallow, other), QStringList(inside));
    ASSERT_TRUE(all.lastEvent());
    EXPECT_TRUE(all.lastEvent()->isCreated());
    EXPECT_EQ(all.watchedURLs(), urls);

    const auto copy = all.copy();
    EXPECT_EQ(copy->excludedURLs(), all.excludedURLs());
    EXPECT_EQ(copy->notificationLatency(), 60);
    support::writeFile(inside, "y");
    EXPECT_EQ(pathsOf(*copy, listener), QStringList(inside));
}

TEST_F(Events, WhatCannotBeWatchedIsAnException)
{
    const auto nameOf = [](const std::function<void()> &make) {
        try {
            make();
        } catch (const platform::Exception &exception) {
            return exception.name() + u": "_s + exception.reason();
        }
        return QString();
    };
    const auto ignore = [](CDEvents *, const CDEvent &) {
    };
    const QString invalid =
        u"NSInvalidArgumentException: Invalid arguments passed to CDEvents init-method."_s;
    EXPECT_EQ(nameOf([&] { CDEvents({}, ignore); }), invalid);
    EXPECT_EQ(nameOf([&] { CDEvents(urls, CDEvents::EventBlock()); }), invalid);
    EXPECT_EQ(nameOf([&] { CDEvents(urls, static_cast<CDEventsDelegate *>(nullptr)); }), invalid);
    EXPECT_EQ(nameOf([&] { CDEvents({QUrl::fromLocalFile(u"/no/such/folder/file"_s)}, ignore); }),
              u"CDEventsEventStreamCreationFailureException: Failed to create event stream."_s);
}

TEST_F(Events, TheBlockMayEndTheWatcherAmongItsEvents)
{
    int calls = 0;
    std::unique_ptr<CDEvents> watcher;
    watcher = std::make_unique<CDEvents>(urls, [&](CDEvents *, const CDEvent &) {
        ++calls;
        watcher.reset();
    });
    support::writeFile(root + u"/a"_s, "x");
    support::writeFile(root + u"/b"_s, "x");
    watcher->flushSynchronously();
    EXPECT_EQ(calls, 1);
}

} // namespace
