#include "platform/Desktop.h"
#include "platform/Workspace.h"
#include "support/SessionBus.h"

#include <atomic>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QThread>

using platform::ColorScheme;

namespace {

// An empty session bus for the whole program: the connection to it is made once.
class PrivateBus : public testing::Environment
{
public:
    void SetUp() override { m_bus.emplace(); }
    void TearDown() override { m_bus.reset(); }
    const QString &address() const { return m_bus->address(); }

private:
    std::optional<support::SessionBus> m_bus;
};

auto *const privateBus = new PrivateBus;
[[maybe_unused]] auto *const registered = testing::AddGlobalTestEnvironment(privateBus);

QVariant wrapped(const QVariant &value)
{
    return QVariant::fromValue(QDBusVariant(value));
}

// Plays the settings portal and the file manager, on a thread of its own.
class FakeDesktop : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        const std::lock_guard lock(m_mutex);
        if (call.member() == u"Read")
            return bus.send(call.createReply(wrapped(wrapped(1U))));
        if (call.member() != u"ShowItems")
            return false;
        m_shown += call.arguments().value(0).toStringList();
        return !m_answers || bus.send(call.createReply());
    }
    void setAnswers(bool answers) { m_answers = answers; }
    QStringList shown() const
    {
        const std::lock_guard lock(m_mutex);
        return m_shown;
    }

private:
    mutable std::mutex m_mutex;
    QStringList m_shown;
    std::atomic<bool> m_answers = true;
};

class DesktopTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_FALSE(privateBus->address().isNull()) << "dbus-daemon could not be started";
        m_bus = QDBusConnection::connectToBus(privateBus->address(), "fake desktop");
        fake.moveToThread(&m_thread);
        m_thread.start();
    }
    void TearDown() override
    {
        QDBusConnection::disconnectFromBus("fake desktop");
        m_thread.quit();
        m_thread.wait();
    }
    void serve(const QString &service, const QString &path)
    {
        ASSERT_TRUE(m_bus.registerVirtualObject(path, &fake));
        ASSERT_TRUE(m_bus.registerService(service));
    }
    void sendSetting(const QString &group, const QString &key, uint value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        signal << group << key << wrapped(value);
        m_bus.send(signal);
    }

    FakeDesktop fake;

private:
    QDBusConnection m_bus{QString()};
    QThread m_thread;
};

} // namespace

TEST_F(DesktopTest, HearsTheColorSchemeNowAndLater)
{
    serve("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    auto context = std::make_unique<QObject>();
    std::vector<ColorScheme> heard;
    platform::desktop::watchColorScheme(context.get(),
                                        [&](ColorScheme scheme) { heard.push_back(scheme); });
    EXPECT_TRUE(heard.empty()) << "never before it returned";
    ASSERT_TRUE(support::waitUntil([&] { return heard.size() == 1; }));
    sendSetting("org.freedesktop.appearance", "contrast", 1);
    sendSetting("org.gnome.desktop.interface", "color-scheme", 1);
    sendSetting("org.freedesktop.appearance", "color-scheme", 2);
    sendSetting("org.freedesktop.appearance", "color-scheme", 1);
    ASSERT_TRUE(support::waitUntil([&] { return heard.size() == 3; }));
    EXPECT_EQ(heard, (std::vector{ColorScheme::Dark, ColorScheme::Light, ColorScheme::Dark}));
    context.reset();
    sendSetting("org.freedesktop.appearance", "color-scheme", 0);
    support::settle();
    EXPECT_EQ(heard.size(), 3U);
}

TEST_F(DesktopTest, ShowsAFileInTheFileManager)
{
    const support::TemporaryHome home;
    const QString file = home.path(QStringLiteral("a #1 50% ü.txt"));
    support::writeFile(file, "x");
    platform::Workspace workspace;
    EXPECT_FALSE(workspace.selectFile(file, {})) << "no file manager yet";

    serve("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1");
    EXPECT_TRUE(workspace.selectFile(file, {}));
    EXPECT_EQ(QUrl(fake.shown().value(0)).toLocalFile(), file);
    EXPECT_FALSE(workspace.selectFile(home.path("missing.txt"), {}));
    EXPECT_EQ(fake.shown().size(), 1);

    fake.setAnswers(false);
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(workspace.selectFile(file, {})) << "the file manager is slow, not absent";
    EXPECT_LT(timer.elapsed(), 3000);
}
