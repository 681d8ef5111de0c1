#include "platform/UserDefaults.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QColor>
#include <QDir>
#include <QFile>

using platform::PropertyList;
using platform::PropertyListDate;
using platform::UserDefaults;

namespace {

class UserDefaultsTest : public testing::Test
{
protected:
    QString path(const char *name = "settings.plist") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    // As another program does it: a new file, renamed over the old one.
    void writeAsOther(const QVariantMap &values) const
    {
        ASSERT_TRUE(PropertyList::write(values, PropertyList::Format::Binary, path()));
    }

    static QVariantMap valuesIn(const QString &file)
    {
        const auto document = PropertyList::read(file);
        return document ? document->root.toMap() : QVariantMap{{"unreadable", true}};
    }

private:
    QTemporaryDir m_folder;
};

QStringList *recordChanges(UserDefaults &defaults, QStringList &into)
{
    QObject::connect(&defaults, &UserDefaults::didChange, &defaults,
                     [&into](const QString &key) { into.append(key); });
    return &into;
}

} // namespace

TEST_F(UserDefaultsTest, KeepsTypesThroughTheFile)
{
    const QVariantMap values = {
        {"bool", true},
        {"integer", Q_INT64_C(-9007199254740993)},
        {"large", Q_UINT64_C(18446744073709551615)},
        {"real", 0.1},
        {"string", QStringLiteral("1")},
        {"control", QStringLiteral("a\u0001b")},
        {"data", QByteArray("\0\xff\n", 3)},
        {"date", QVariant::fromValue(PropertyListDate{650000000})},
        {"list", QVariantList{1LL, QStringLiteral("x"), QVariantMap{{"deep", false}}}},
        {"map", QVariantMap{{"a/b", 2.0}}},
    };
    {
        UserDefaults defaults(path());
        for (auto entry = values.begin(); entry != values.end(); ++entry)
            defaults.setObject(entry.key(), entry.value());
    }
    const UserDefaults defaults(path());
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        EXPECT_EQ(defaults.object(entry.key()), entry.value()) << qPrintable(entry.key());
        EXPECT_EQ(defaults.object(entry.key()).typeId(), entry.value().typeId())
            << qPrintable(entry.key());
    }
}

TEST_F(UserDefaultsTest, KeepsTheFractionOfADate)
{
    const QVariant date = QVariant::fromValue(PropertyListDate{650000000.25});
    UserDefaults(path()).setObject(QStringLiteral("date"), date);
    EXPECT_EQ(valuesIn(path()).value(QStringLiteral("date")), date);
}

TEST_F(UserDefaultsTest, UsesAnyKeyAsItIs)
{
    const QStringList keys = {"a/b",    "/a",         "a//b/", "a",   "A",    "%2F",  "50%", "%",
                              "grö/ße", "with space", "x\\y",  "x.y", "a%b/", "日本", ""};
    {
        UserDefaults defaults(path());
        for (const QString &key : keys)
            defaults.setObject(key, key);
    }
    const QVariantMap written = valuesIn(path());
    EXPECT_EQ(written.size(), keys.size());
    UserDefaults again(path());
    for (const QString &key : keys) {
        EXPECT_EQ(written.value(key), key) << qPrintable(key);
        EXPECT_EQ(again.string(key), key) << qPrintable(key);
    }
    again.removeObject(QStringLiteral("a"));
    EXPECT_EQ(again.string(QStringLiteral("a/b")), QStringLiteral("a/b"));
    EXPECT_EQ(again.storedKeys().size(), keys.size() - 1);
}

TEST_F(UserDefaultsTest, Converts)
{
    const QVariantMap map = {{"a", 1}};
    const struct
    {
        QVariant value;
        QString string;
        bool boolean;
        qint64 integer;
        double real;
    } rows[] = {
        {QStringLiteral("YES"), "YES", true, 0, 0},
        {QStringLiteral("true"), "true", true, 0, 0},
        {QStringLiteral("no"), "no", false, 0, 0},
        {QStringLiteral("12.7"), "12.7", true, 12, 12.7},
        {QStringLiteral("9007199254740993"), "9007199254740993", true, 9007199254740993,
         9007199254740992.0},
        {QStringLiteral("inf"), "inf", true, std::numeric_limits<qint64>::max(), INFINITY},
        {true, "1", true, 1, 1},
        {false, "0", false, 0, 0},
        {-2.9, "-2.9", true, -2, -2.9},
        {1e300, "1e+300", true, std::numeric_limits<qint64>::max(), 1e300},
        {-1e300, "-1e+300", true, std::numeric_limits<qint64>::min(), -1e300},
        {QByteArray("12"), QString(), false, 0, 0},
        {map, QString(), false, 0, 0},
        {QVariantList{1}, QString(), false, 0, 0},
    };
    UserDefaults defaults(path());
    const QString key = QStringLiteral("key");
    for (const auto &row : rows) {
        defaults.setObject(key, row.value);
        SCOPED_TRACE(qPrintable(row.string));
        EXPECT_EQ(defaults.string(key), row.string);
        EXPECT_EQ(defaults.boolean(key), row.boolean);
        EXPECT_EQ(defaults.integer(key), row.integer);
        EXPECT_EQ(defaults.real(key), row.real);
    }
    EXPECT_TRUE(defaults.string(QStringLiteral("missing")).isNull());
    EXPECT_TRUE(defaults.dictionary(key).isEmpty());
    EXPECT_EQ(defaults.array(key), QVariantList{1});
}

TEST_F(UserDefaultsTest, RegisteredValuesStandUnderStoredOnes)
{
    UserDefaults defaults(path());
    const QString key = QStringLiteral("size");
    defaults.registerDefaults({{key, 10}, {"other", 1}});
    defaults.registerDefaults({{key, 12}});
    EXPECT_EQ(defaults.integer(key), 12);
    EXPECT_EQ(defaults.integer(QStringLiteral("other")), 1);
    EXPECT_FALSE(defaults.isStored(key));

    defaults.setObject(key, 12);
    EXPECT_TRUE(defaults.isStored(key)) << "storing the default's own value counts";
    defaults.registerDefaults({{key, 14}});
    EXPECT_EQ(defaults.integer(key), 12);
    defaults.setObject(key, {});
    EXPECT_EQ(defaults.integer(key), 14);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_FALSE(UserDefaults(path()).isStored(key));
}

TEST_F(UserDefaultsTest, TellsOfEachChangeOnce)
{
    UserDefaults defaults(path());
    QStringList changes;
    recordChanges(defaults, changes);
    defaults.setObject(QStringLiteral("a"), 1);
    defaults.setObject(QStringLiteral("a"), 1LL);
    defaults.setObject(QStringLiteral("b"), QStringList{"x"});
    defaults.removeObject(QStringLiteral("never there"));
    defaults.synchronize();
    support::waitUntil([] { return false; }, 0.1); // the watcher hears of our own write
    EXPECT_EQ(changes, QStringList({"a", "b"}));
    defaults.setObject(QStringLiteral("a"), true);
    EXPECT_EQ(changes.size(), 3) << "a change of type is a change";
}

TEST_F(UserDefaultsTest, NoticesOthersAndMergesByKey)
{
    UserDefaults defaults(path());
    QStringList changes;
    recordChanges(defaults, changes);

    writeAsOther({{"theirs", 1}, {"both", 1}});
    ASSERT_TRUE(support::waitUntil([&] { return changes.size() == 2; })) << "a file appears";
    EXPECT_EQ(changes, QStringList({"both", "theirs"}));

    for (int round = 10; round < 13; ++round) {
        writeAsOther({{"theirs", round}, {"both", 1}});
        ASSERT_TRUE(support::waitUntil([&] {
            return defaults.integer(QStringLiteral("theirs")) == round;
        })) << "replaced by rename, round "
            << round;
    }

    changes.clear();
    defaults.setObject(QStringLiteral("mine"), 5);
    writeAsOther({{"theirs", 77}, {"both", 222}});
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(valuesIn(path()), QVariantMap({{"theirs", 77LL}, {"both", 222LL}, {"mine", 5LL}}));
    EXPECT_EQ(changes, QStringList({"mine", "both", "theirs"}));

    changes.clear();
    support::writeFile(
        path(), *PropertyList::serialize(QVariantMap{{"mine", 5}}, PropertyList::Format::Xml));
    EXPECT_TRUE(support::waitUntil([&] {
        return changes == QStringList({"both", "theirs"});
    })) << "written in place";

    changes.clear();
    QFile::remove(path());
    EXPECT_TRUE(support::waitUntil([&] { return changes == QStringList{"mine"}; })) << "removed";
    EXPECT_TRUE(defaults.storedKeys().isEmpty());
    defaults.setObject(QStringLiteral("mine"), 6);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(valuesIn(path()).value("mine"), 6);
}

TEST_F(UserDefaultsTest, NoticesAFolderThatComesLater)
{
    UserDefaults defaults(path("a/b/settings.plist"));
    EXPECT_FALSE(QFile::exists(path("a"))) << "reading makes no folders";
    QDir().mkpath(path("a"));
    support::waitUntil([] { return false; }, 0.05);
    QDir().mkpath(path("a/b"));
    support::waitUntil([] { return false; }, 0.05);
    PropertyList::write(QVariantMap{{"k", 1}}, PropertyList::Format::Xml,
                        path("a/b/settings.plist"));
    EXPECT_TRUE(support::waitUntil([&] { return defaults.integer(QStringLiteral("k")) == 1; }));
}

TEST_F(UserDefaultsTest, NeverOverwritesWhatItCannotRead)
{
    const support::LogCapture log;
    const QString key = QStringLiteral("a");
    const QByteArray asideAfterStart = "<plist> broken at start";
    support::writeFile(path(), asideAfterStart);
    UserDefaults defaults(path());
    EXPECT_EQ(support::readFile(path("settings.plist.unreadable")), asideAfterStart);
    EXPECT_TRUE(log.contains(QStringLiteral("settings.plist.unreadable")));
    defaults.setObject(key, 1);
    ASSERT_TRUE(defaults.synchronize());

    for (const QByteArray &garbage :
         {QByteArray("garbage"), QByteArray("<plist><array/></plist>")}) {
        support::writeFile(path(), garbage);
        ASSERT_TRUE(support::waitUntil([&] { return !defaults.isStored(key); }));
        EXPECT_EQ(support::readFile(path()), garbage) << "no write, no move";
        defaults.setObject(key, 2);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(valuesIn(path()), QVariantMap({{"a", 2LL}}));
    }
    EXPECT_EQ(support::readFile(path("settings.plist.unreadable")), asideAfterStart);
    EXPECT_EQ(support::readFile(path("settings.plist.unreadable.2")), "garbage");
    EXPECT_EQ(support::readFile(path("settings.plist.unreadable.3")), "<plist><array/></plist>");
}

TEST_F(UserDefaultsTest, SetsTheTargetOfALinkAside)
{
    support::writeFile(path("dotfiles/real.plist"), "garbage");
    ASSERT_TRUE(QFile::link(path("dotfiles/real.plist"), path()));
    UserDefaults defaults(path());
    defaults.setObject(QStringLiteral("a"), 1);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(support::readFile(path("dotfiles/real.plist.unreadable")), "garbage");
    EXPECT_EQ(valuesIn(path("dotfiles/real.plist")).value("a"), 1);
}

TEST_F(UserDefaultsTest, KeepsValuesWhileTheyCannotBeWritten)
{
    QDir().mkpath(path()); // a folder stands where the file should be
    UserDefaults defaults(path());
    defaults.setObject(QStringLiteral("a"), 1);
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(defaults.integer(QStringLiteral("a")), 1);
    ASSERT_TRUE(QDir().rmdir(path()));
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(valuesIn(path()).value("a"), 1);
}

TEST_F(UserDefaultsTest, RefusesAValueWithoutForm)
{
    UserDefaults defaults(path());
    defaults.setObject(QStringLiteral("a"), 1);
    EXPECT_THROW(defaults.setObject(QStringLiteral("a"), QColor(Qt::red)),
                 platform::AssertionFailure);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(valuesIn(path()), QVariantMap({{"a", 1LL}}));
}

TEST_F(UserDefaultsTest, TheStandardOneMovesWithItsConnections)
{
    const support::TemporaryHome home;
    UserDefaults &defaults = UserDefaults::standardUserDefaults();
    EXPECT_TRUE(defaults.storedKeys().isEmpty());
    defaults.setObject(QStringLiteral("a"), 1);
    defaults.registerDefaults({{"b", 1}});
    QStringList changes;
    recordChanges(defaults, changes);
    PropertyList::write(QVariantMap{{"c", 3}}, PropertyList::Format::Xml, path());
    UserDefaults::setStandardPath(path());
    EXPECT_EQ(changes, QStringList({"a", "c"}));
    EXPECT_EQ(&UserDefaults::standardUserDefaults(), &defaults);
    EXPECT_FALSE(defaults.object(QStringLiteral("b")).isValid());
    EXPECT_EQ(valuesIn(home.path(".config/defaults.plist")).value("a"), 1);

    UserDefaults::setStandardPath({});
    defaults.setObject(QStringLiteral("usual"), true);
    defaults.synchronize();
    EXPECT_EQ(valuesIn(home.path(".config/com.quillbyte.layoutsmith.plist")).value("usual"), true);
    QObject::disconnect(&defaults, nullptr, &defaults, nullptr);
}
