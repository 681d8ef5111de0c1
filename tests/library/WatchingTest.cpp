#include "library/LibraryTestSupport.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplateManagerDelegate.h"
#include "platform/Application.h"
#include "platform/Assert.h"
#include "watching/CDEvents.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;

namespace {

class Answers : public LSMDesignTemplateManagerDelegate
{
public:
    bool shouldReloadChangedDesignFromFile(LSMDesignTemplate *design) override
    {
        asked << design->templateName();
        if (whileAsked)
            whileAsked();
        return answer;
    }
    void didReloadChangedDesignFromFile(LSMDesignTemplate *design) override
    {
        reloaded << design->templateName();
    }
    bool answer = true;
    std::function<void()> whileAsked;
    QStringList asked;
    QStringList reloaded;
};

class DesignWatching : public LibraryTest
{
protected:
    void make(const QStringList &names)
    {
        for (const QString &name : names)
            writeBundle(custom, name, titled(name), "old");
        manager = std::make_unique<LSMDesignTemplateManager>();
        manager->setDelegate(&answers);
    }
    QString body(const QString &name) const { return bundle(name) + u"/body.html"_s; }
    LSMDesignTemplate *named(const QString &name) const { return designNamed(*manager, name); }
    bool isWatched(const QString &name) const
    {
        return manager->eventWatchers().contains(body(name));
    }
    /// Does not wait for the latency.
    bool reloads(const QString &name)
    {
        const qsizetype before = answers.reloaded.count(name);
        manager->eventWatchers().at(body(name))->flushSynchronously();
        return support::waitUntil([&] { return answers.reloaded.count(name) > before; }, 1.5);
    }

    std::unique_ptr<LSMDesignTemplateManager> manager;
    Answers answers;
};

} // namespace

TEST_F(DesignWatching, WhateverWayAnotherEditorWritesTheHtmlArrives)
{
    const QString elsewhere = home(u"elsewhere.html"_s);
    support::writeFile(elsewhere, "old");
    make({u"In Place"_s, u"By Rename"_s, u"Removed"_s, u"Slowly"_s});
    writeBundle(builtin, u"Built"_s, titled(u"Built"_s), "old");
    writeBundle(custom, u"Link"_s, titled(u"Link"_s), "old");
    QFile::remove(body(u"Link"_s));
    QFile::link(elsewhere, body(u"Link"_s));
    manager = std::make_unique<LSMDesignTemplateManager>();
    manager->setDelegate(&answers);
    EXPECT_EQ(manager->eventWatchers().size(), 5u);

    QElapsedTimer clock;
    clock.start();
    support::writeFile(body(u"In Place"_s), "new \xC3\xA9");
    support::writeFile(bundle(u"By Rename"_s) + u"/.tmp"_s, "new");
    ASSERT_EQ(::rename(QFile::encodeName(bundle(u"By Rename"_s) + u"/.tmp"_s).constData(),
                       QFile::encodeName(body(u"By Rename"_s)).constData()),
              0);
    QFile::remove(body(u"Removed"_s));
    support::writeFile(body(u"Removed"_s), "new");
    support::writeFile(elsewhere, "new");
    const QStringList all{u"By Rename"_s, u"In Place"_s, u"Link"_s, u"Removed"_s};
    ASSERT_TRUE(support::waitUntil([&] { return answers.reloaded.size() == 4; }));
    EXPECT_GE(clock.elapsed(), 3400);
    EXPECT_LE(clock.elapsed(), 3700 + 1000) << "a busy machine has a second more";
    for (const QString &name : all) {
        EXPECT_TRUE(named(name)->htmlSourceCode().startsWith(u"new")) << name.toStdString();
        EXPECT_FALSE(named(name)->templateShouldBeSaved());
    }
    EXPECT_EQ(named(u"In Place"_s)->htmlSourceCode(), u"new é"_s);
    EXPECT_EQ(named(u"Slowly"_s)->htmlSourceCode(), u"old"_s);
    ASSERT_TRUE(support::waitUntil([&] { return isWatched(u"Removed"_s); }));
    support::writeFile(body(u"Removed"_s), "newer");
    EXPECT_TRUE(reloads(u"Removed"_s));
}

TEST_F(DesignWatching, ADirtyDesignKeepsOrTakesWhatTheAnswerSays)
{
    make({u"A"_s});
    LSMDesignTemplate *design = named(u"A"_s);
    design->setHtmlSourceCode(u"mine"_s);
    design->setTemplateShouldBeSaved(true);
    answers.answer = false;
    support::writeFile(body(u"A"_s), "theirs");
    EXPECT_FALSE(reloads(u"A"_s));
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(design->htmlSourceCode(), u"mine"_s);

    answers.answer = true;
    answers.whileAsked = [&] { // one more event while the question stands: no second question
        answers.whileAsked = {};
        support::writeFile(body(u"A"_s), "latest");
        manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
    };
    support::writeFile(body(u"A"_s), "later");
    EXPECT_TRUE(reloads(u"A"_s));
    EXPECT_EQ(answers.asked.size(), 2);
    EXPECT_EQ(design->htmlSourceCode(), u"latest"_s);
    EXPECT_TRUE(design->templateShouldBeSaved());

    answers.whileAsked = [&] {
        manager->deleteDesignTemplate(design);
    };
    manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
    EXPECT_EQ(answers.reloaded.size(), 1);
}

TEST_F(DesignWatching, OwnWritesAreNoChangesAndDeletingEndsTheWatch)
{
    make({u"A"_s});
    auto created = LSMDesignTemplate::templateWithTitle(u"New"_s, {}, customType);
    manager->addCustomDesign(created);
    for (LSMDesignTemplate *design : {named(u"A"_s), created.get()}) {
        design->setHtmlSourceCode(u"mine"_s);
        ASSERT_TRUE(manager->saveDesignTemplate(design));
        const auto watcher = manager->eventWatchers().find(design->bodyPath());
        ASSERT_NE(watcher, manager->eventWatchers().end());
        watcher->second->flushSynchronously();
        EXPECT_FALSE(watcher->second->lastEvent());
    }
    support::writeFile(body(u"A"_s), "theirs");
    EXPECT_TRUE(reloads(u"A"_s));
    manager->deleteDesignTemplate(named(u"A"_s));
    EXPECT_EQ(manager->eventWatchers().size(), 1u);
}

TEST_F(DesignWatching, BadPathsAndFilesChangeNothing)
{
    make({u"A"_s});
    const auto count = manager->eventWatchers().size();
    manager->startWatchingFileAtPath(body(u"A"_s));
    manager->startWatchingFileAtPath(body(u"No Such"_s));
    EXPECT_EQ(manager->eventWatchers().size(), count);
    EXPECT_THROW(manager->stopWatchingFileAtPath({}), platform::AssertionFailure);

    QStringList presented;
    platform::Application::setErrorPresenter([&](const platform::Error &error) {
        presented << error.description;
        manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s)); // one error at a time
    });
    QFile::remove(body(u"A"_s));
    manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
    EXPECT_TRUE(answers.asked.isEmpty()) << "nothing there";
    QDir().mkpath(body(u"A"_s));
    const support::LogCapture log;
    manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
    platform::Application::setErrorPresenter(nullptr);
    EXPECT_EQ(presented, QStringList(u"The HTML of \"A\" could not be read again. It stays as it "
                                     "is in the editor."_s));
    EXPECT_TRUE(log.contains(u"error reading file: "_s + body(u"A"_s)));
    EXPECT_EQ(answers.reloaded, QStringList(u"A"_s)) << "told, read or not";
    EXPECT_EQ(named(u"A"_s)->htmlSourceCode(), u"old"_s);

    platform::Application::setErrorPresenter([&](const platform::Error &) {
        QDir().rmdir(body(u"A"_s));
        support::writeFile(body(u"A"_s), "readable again");
    });
    manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
    platform::Application::setErrorPresenter(nullptr);
    EXPECT_EQ(named(u"A"_s)->htmlSourceCode(), u"readable again"_s);
    EXPECT_THROW(
        {
            manager->setDelegate(nullptr);
            manager->reloadBodyHtmlForDesignAtPath(bundle(u"A"_s));
        },
        platform::AssertionFailure);
}
