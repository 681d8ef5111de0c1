#include "kit/FBKVOController.h"

#include "platform/Assert.h"

#include <atomic>
#include <gtest/gtest.h>
#include <QThread>
#include <random>
#include <thread>

using platform::ObservableDictionary;

namespace {

class Counter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countDidChange)

public:
    int count() const { return m_count; }
    void setCount(int count)
    {
        m_count = count;
        Q_EMIT countDidChange();
    }

Q_SIGNALS:
    void countDidChange();

private:
    std::atomic<int> m_count = 0;
};

class Observer : public QObject, public FBKVOObserver
{
    Q_OBJECT

public:
    void observeValueForKeyPath(const QString &keyPath, QObject *, const QVariantMap &change,
                                void *context) override
    {
        calls += keyPath + text(change) + (context == this ? u'!' : u'?');
    }
    Q_INVOKABLE void countDidChange(const QVariantMap &change, QObject *object)
    {
        calls += object->objectName() + text(change);
    }
    static QString text(const QVariantMap &change)
    {
        QString result;
        for (auto value = change.begin(); value != change.end(); ++value)
            result += u' ' + value.key().left(3) + u'=' + value->toString();
        return result;
    }
    FBKVOController::Block block(const QString &name = QStringLiteral("block"))
    {
        return [this, name](QObject *, QObject *, const QVariantMap &change) {
            calls += name + text(change);
        };
    }

    QStringList calls;
};

class KVOControllerTest : public testing::Test
{
protected:
    Observer observer;
    Counter counter;
    std::shared_ptr<FBKVOController> controller =
        FBKVOController::controllerWithObserver(&observer);
};

QString failure(const std::function<void()> &call)
{
    try {
        call();
    } catch (const platform::AssertionFailure &fault) {
        return fault.text();
    }
    return {};
}

} // namespace

TEST_F(KVOControllerTest, CallsBlocksActionsAndContextsWithWhatWasAskedFor)
{
    counter.setObjectName("counter");
    const auto record = std::make_shared<ObservableDictionary>(QVariantMap{{"name", "a"}});
    controller->observe(record, {"name", "type"}, FBKVONew | FBKVOOld, observer.block());
    controller->observeAction(&counter, "count", FBKVONew | FBKVOInitial, "countDidChange");
    controller->observeContext(&counter, "objectName", 0, &observer);
    record->setValue("name", "b");
    record->setValue("name", "b");
    record->setValue("type", 1);
    counter.setCount(3);
    counter.setObjectName("other");
    EXPECT_EQ(observer.calls,
              QStringList({"counter new=0", "block FBK=name new=b old=a",
                           "block FBK=type new=1 old=", "counter new=3", "objectName!"}));
}

TEST_F(KVOControllerTest, ARepeatedObservationIsPassedByUntilItIsRemoved)
{
    controller->observe(&counter, "count", 0, observer.block("first"));
    controller->observe(&counter, "count", FBKVOInitial, observer.block("second"));
    counter.setCount(1);
    controller->unobserve(&counter, "objectName");
    controller->unobserve(&counter, "count");
    counter.setCount(2);
    controller->observe(&counter, "count", FBKVOInitial, observer.block("third"));
    controller->unobserve(&counter);
    counter.setCount(3);
    EXPECT_EQ(observer.calls, QStringList({"first FBK=count", "third FBK=count"}));
}

TEST_F(KVOControllerTest, NothingArrivesOnceControllerOrObserverHasGone)
{
    auto record = std::make_shared<ObservableDictionary>();
    const std::weak_ptr<ObservableDictionary> watched = record;
    controller->observe(record, "name", 0, observer.block());
    controller->observe(&counter, "count", 0, observer.block());
    ObservableDictionary &kept = *std::exchange(record, nullptr);
    ASSERT_FALSE(watched.expired());
    kept.setValue("name", "while it is observed");
    controller = nullptr;
    EXPECT_TRUE(watched.expired());
    counter.setCount(1);

    auto mortal = std::make_unique<Observer>();
    QStringList late;
    controller = FBKVOController::controllerWithObserver(mortal.get());
    controller->observe(&counter, "count", 0, [&](auto...) { late += "controller"; });
    KVOController(mortal.get())->observe(&counter, "count", 0, [&](auto...) { late += "own"; });
    counter.setCount(2);
    mortal = nullptr;
    counter.setCount(3);
    EXPECT_EQ(late, QStringList({"controller", "own"}));
    EXPECT_EQ(observer.calls.size(), 1);
}

TEST_F(KVOControllerTest, TheOwnControllersKeepAliveOrDoNot)
{
    auto record = std::make_shared<ObservableDictionary>();
    const std::weak_ptr<ObservableDictionary> watched = record;
    KVOControllerNonRetaining(&observer)->observe(record, "name", 0, observer.block());
    EXPECT_EQ(KVOController(&observer), KVOController(&observer));
    EXPECT_NE(KVOController(&observer), KVOControllerNonRetaining(&observer));
    record = nullptr;
    EXPECT_TRUE(watched.expired());
}

// A new object may stand where one has gone.
TEST_F(KVOControllerTest, AnObjectThatHasGoneIsNotItsSuccessor)
{
    alignas(Counter) std::byte place[sizeof(Counter)];
    for (int turn = 0; turn < 2; ++turn) {
        auto *successor = new (place) Counter;
        controller->observe(successor, "count", 0, observer.block());
        successor->setCount(1);
        successor->~Counter();
    }
    EXPECT_EQ(observer.calls.size(), 2);
}

TEST_F(KVOControllerTest, ABlockMayChangeTheObservations)
{
    controller->observe(&counter, "count", 0, [this](auto...) {
        observer.calls += "once";
        controller->unobserve(&counter, "count");
        controller->observe(&counter, "count", 0, [this](auto...) {
            observer.calls += "then";
            controller->unobserveAll();
            controller = nullptr;
        });
    });
    controller->observe(&counter, "objectName", 0, observer.block());
    for (int count = 1; count < 5; ++count)
        counter.setCount(count);
    counter.setObjectName("after");
    EXPECT_EQ(observer.calls, QStringList({"once", "then"}));
}

TEST_F(KVOControllerTest, MissingParametersAreFaultsAndAMissingObjectIsNone)
{
    EXPECT_EQ(
        failure([&] { controller->observe(nullptr, QString(), 0, observer.block()); }).left(66),
        "missing required parameters observe:(null) keyPath:(null) block:0x");
    EXPECT_EQ(failure([&] { controller->observe(nullptr, "a", 0, nullptr); }).left(63),
              "missing required parameters observe:(null) keyPath:a block:0x0");
    EXPECT_FALSE(failure([&] {
                     controller->observe(&counter, QStringList(), 0, observer.block());
                 }).isEmpty());
    EXPECT_FALSE(failure([&] { controller->observeAction(&counter, "count", 0, ""); }).isEmpty());
    EXPECT_FALSE(failure([&] { controller->observeContext(&counter, "", 0, nullptr); }).isEmpty());
    EXPECT_TRUE(failure([&] { controller->observe(nullptr, "a", 0, observer.block()); }).isEmpty());
}

// One thread changes, others come and go: each call-back is on the thread of the change, and none
// begins for an observation that ended before the change began.
TEST_F(KVOControllerTest, ObserversComeAndGoWhileAnotherThreadChanges)
{
    constexpr int rounds = 2000;
    std::atomic<bool> isDone = false;
    std::atomic<int> changes = 0;
    std::atomic<int> calls = 0;
    std::atomic<int> strays = 0;
    std::atomic<QThread *> changer = nullptr;
    std::thread changing([&] {
        changer = QThread::currentThread();
        while (!isDone)
            counter.setCount(++changes);
    });
    const auto come = [&](unsigned seed) {
        std::mt19937 random(seed);
        Observer own;
        for (int round = 0; round < rounds; ++round) {
            const auto mine = FBKVOController::controllerWithObserver(&own);
            const auto all = random() % 2 ? mine : controller;
            const auto startedAt = std::make_shared<std::atomic<int>>(INT_MAX);
            all->observe(&counter, "count", FBKVONew,
                         [&, startedAt](auto, auto, const auto &change) {
                             ++calls;
                             if (QThread::currentThread() != changer)
                                 ++strays;
                             if (change.value(NSKeyValueChangeNewKey).toInt() > *startedAt)
                                 ++strays;
                         });
            if (random() % 4)
                std::this_thread::yield();
            all->unobserve(&counter, "count");
            if (all == mine)
                *startedAt = changes.load();
        }
    };
    std::thread first(come, 1);
    std::thread second(come, 2);
    first.join();
    second.join();
    while (calls == 0) {
        controller->observe(&counter, "count", 0, [&](auto...) { ++calls; });
        std::this_thread::yield();
    }
    isDone = true;
    changing.join();
    EXPECT_EQ(strays, 0);
    controller->unobserveAll();
    const int before = calls;
    counter.setCount(0);
    EXPECT_EQ(calls, before);
}

#include "KVOControllerTest.moc"
