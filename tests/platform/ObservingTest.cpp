#include "platform/KeyValueObserving.h"
#include "platform/NotificationCenter.h"
#include "platform/ObservableDictionary.h"

#include <gtest/gtest.h>

using platform::KeyValueObservation;
using platform::Notification;
using platform::NotificationCenter;
using platform::ObservableDictionary;
using Initial = KeyValueObservation::Initial;
using Dictionary = std::shared_ptr<ObservableDictionary>;

namespace {

class Design : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Dictionary metadata READ metadata WRITE setMetadata NOTIFY metadataChanged)
    Q_PROPERTY(Design *parentDesign READ parentDesign WRITE setParentDesign NOTIFY parentChanged)
    Q_PROPERTY(QVariantMap store READ store WRITE setStore NOTIFY storeChanged)
    Q_PROPERTY(int fixed READ fixed CONSTANT)

public:
    Dictionary metadata() const { return m_metadata; }
    void setMetadata(const Dictionary &metadata)
    {
        m_metadata = metadata;
        Q_EMIT metadataChanged();
    }
    Design *parentDesign() const { return m_parent; }
    void setParentDesign(Design *design)
    {
        m_parent = design;
        Q_EMIT parentChanged();
    }
    QVariantMap store() const { return m_store; }
    void setStore(const QVariantMap &store)
    {
        m_store = store;
        Q_EMIT storeChanged(store);
    }
    int fixed() const { return 7; }

Q_SIGNALS:
    void metadataChanged();
    void parentChanged();
    void storeChanged(const QVariantMap &store);

private:
    Dictionary m_metadata = std::make_shared<ObservableDictionary>();
    Design *m_parent = nullptr;
    QVariantMap m_store;
};

Dictionary dictionary(const QVariantMap &values)
{
    return std::make_shared<ObservableDictionary>(values);
}

// What an observation saw: "old>new" of each call.
class Recorder
{
public:
    KeyValueObservation::Handler handler()
    {
        return [this](const KeyValueObservation::Change &change) {
            calls += change.oldValue.toString() + u'>' + change.newValue.toString();
        };
    }
    QStringList calls;
};

} // namespace

TEST(KeyValueObservation, FollowsAReplacedDictionary)
{
    Design design;
    const Dictionary first = dictionary({{"name", "one"}});
    design.setMetadata(first);
    Recorder seen;
    KeyValueObservation observation(&design, "metadata.name", Initial::Call, seen.handler(),
                                    nullptr);
    first->setValue("name", "two");
    first->setValue("other", "x");
    design.setMetadata(dictionary({{"name", "two"}}));
    design.setMetadata(dictionary({{"name", "three"}}));
    first->setValue("name", "from the old one");
    design.metadata()->setValue("name", "four");
    design.setMetadata(nullptr);
    design.setMetadata(dictionary({{"name", "five"}}));
    EXPECT_EQ(seen.calls,
              QStringList({">one", "one>two", "two>three", "three>four", "four>", ">five"}));
}

TEST(KeyValueObservation, FollowsObjectsAndMapsOnTheWay)
{
    Design design;
    Recorder seen;
    KeyValueObservation observation(&design, "parentDesign.store.price.amount", Initial::Skip,
                                    seen.handler(), nullptr);
    Design parent;
    parent.setStore({{"price", QVariantMap{{"amount", 3}}}});
    design.setParentDesign(&parent);
    EXPECT_TRUE(platform::setValueForKeyPath(&design, "parentDesign.store.price.amount", 4));
    {
        Design other;
        design.setParentDesign(&other);
        EXPECT_TRUE(platform::setValueForKeyPath(&design, "parentDesign.store",
                                                 QVariantMap{{"price", "free"}}));
        design.setParentDesign(nullptr);
    }
    EXPECT_EQ(seen.calls, QStringList({">3", "3>4", "4>"}));
}

TEST(KeyValueObservation, TellsTypesApart)
{
    Design design;
    design.setMetadata(dictionary({{"flag", 1}}));
    Recorder seen;
    KeyValueObservation observation(&design, "metadata.flag", Initial::Skip, seen.handler(),
                                    nullptr);
    design.metadata()->setValue("flag", true);
    design.metadata()->setValue("flag", true);
    EXPECT_EQ(seen.calls, QStringList({"1>true"}));
}

TEST(KeyValueObservation, MayDieInItsHandler)
{
    Design design;
    QStringList calls;
    auto *observer = new QObject;
    const QString capture(100, u'x'); // freed with the handler, read after the deletion
    new KeyValueObservation(
        &design, "metadata.name", Initial::Skip,
        [&calls, observer, capture](const auto &change) {
            delete observer;
            calls += capture.left(1) + change.newValue.toString();
        },
        observer);
    design.metadata()->setValue("name", "a");
    design.metadata()->setValue("name", "b");
    EXPECT_EQ(calls, QStringList{"xa"});
}

TEST(KeyValueObservation, OutlivesWhatItObserves)
{
    Recorder seen;
    auto design = std::make_unique<Design>();
    const Dictionary metadata = design->metadata();
    KeyValueObservation observation(design.get(), "metadata.name", Initial::Skip, seen.handler(),
                                    nullptr);
    design.reset();
    metadata->setValue("name", "late");
    EXPECT_TRUE(seen.calls.isEmpty());
}

TEST(KeyValueObservation, HandlerMayChangeTheValue)
{
    Design design;
    QStringList seen;
    KeyValueObservation observation(
        &design, "metadata.count", Initial::Skip,
        [&](const KeyValueObservation::Change &change) {
            seen += change.newValue.toString();
            if (change.newValue.toInt() < 3)
                design.metadata()->setValue("count", change.newValue.toInt() + 1);
        },
        nullptr);
    design.metadata()->setValue("count", 1);
    EXPECT_EQ(seen, QStringList({"1", "2", "3"}));
}

TEST(KeyValueCoding, RefusesWhatItCannotSet)
{
    Design design;
    design.setStore({{"price", 1}});
    for (const char *path :
         {"fixed", "nothing", "parentDesign.store", "metadata.missing.deep", "store.price.amount"})
        EXPECT_FALSE(platform::setValueForKeyPath(&design, QString::fromLatin1(path), 2)) << path;
    EXPECT_EQ(design.store(), QVariantMap({{"price", 1}}));
    EXPECT_TRUE(design.metadata()->values().isEmpty());
    EXPECT_FALSE(platform::valueForKeyPath(&design, "store.price.amount").isValid());
    EXPECT_FALSE(platform::valueForKeyPath(nullptr, "store").isValid());
}

TEST(ObservableDictionary, TellsOfRealChangesOnly)
{
    ObservableDictionary values({{"number", 1}, {"last", "x"}});
    QStringList changes;
    QObject::connect(
        &values, &ObservableDictionary::valueChanged, &values,
        [&](const QString &key) { changes += key + u'=' + values.value(key).toString(); });
    values.setValue("number", 1);
    values.setValue("number", 1LL);
    values.setValue("name", QString());
    values.removeValue("never there");
    while (!values.values().isEmpty())
        values.removeValue(values.values().firstKey()); // the key dies with its entry
    EXPECT_EQ(changes, QStringList({"number=1", "name=", "last=", "name=", "number="}));
    values.setValue("number", 5);
    EXPECT_TRUE(values.stringValue("number").isNull());
}

class NotificationCenterTest : public testing::Test
{
protected:
    NotificationCenter::Handler record(const QString &who)
    {
        return [this, who](const Notification &notification) {
            heard += who + u':' + notification.userInfo.value("n").toString();
        };
    }
    void post(QObject *object, const char *n, const char *name = "event")
    {
        center.post(QString::fromLatin1(name), object, {{"n", QString::fromLatin1(n)}});
    }

    NotificationCenter center;
    QStringList heard;
    QObject sender;
};

TEST_F(NotificationCenterTest, DeliversByNameAndSenderInOrder)
{
    QObject observer;
    QObject other;
    center.addObserver(&observer, "event", nullptr, record("any"));
    center.addObserver(&other, "event", &sender, record("one"));
    center.addObserver(&observer, "different", nullptr, record("different"));
    post(&sender, "1");
    post(&other, "2");
    post(nullptr, "3");
    center.removeObserver(&observer, "event");
    post(&sender, "4");
    post(&sender, "5", "different");
    EXPECT_EQ(heard, QStringList({"any:1", "one:1", "any:2", "any:3", "one:4", "different:5"}));
}

TEST_F(NotificationCenterTest, ObserversDieAndComeDuringDelivery)
{
    auto *first = new QObject;
    auto *second = new QObject;
    QObject late;
    center.addObserver(first, "event", nullptr, [&, first, second](const Notification &) {
        delete second;
        delete first;
        center.addObserver(&late, "event", nullptr, record("late"));
        heard += "first";
    });
    center.addObserver(second, "event", nullptr, record("second"));
    post(&sender, "1");
    post(&sender, "2");
    EXPECT_EQ(heard, QStringList({"first", "late:2"}));
}

TEST_F(NotificationCenterTest, ADeadSenderIsNotEverySender)
{
    QObject observer;
    auto mortal = std::make_unique<QObject>();
    center.addObserver(&observer, "event", mortal.get(), record("mortal"));
    mortal.reset();
    post(nullptr, "1");
    post(&sender, "2");
    EXPECT_TRUE(heard.isEmpty());
}

#include "ObservingTest.moc"
