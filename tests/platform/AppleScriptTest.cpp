#include "platform/AppleScript.h"
#include "support/SessionBus.h"

#include <gtest/gtest.h>
#include <mutex>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QThread>

using namespace std::chrono_literals;
using platform::AppleScript;
using platform::Error;

namespace {

// An application that keeps what it is sent; "slow" is not answered, "broken" with an error, and
// "fatal" takes it off the bus.
class FakeApplication : public QDBusVirtualObject
{
public:
    explicit FakeApplication(const QString &address)
        : m_bus(QDBusConnection::connectToBus(address, "fake application"))
    {
        moveToThread(&m_thread);
        m_thread.start();
        m_bus.registerVirtualObject("/com/quillbyte/Lotbook", this);
        m_bus.registerService("com.quillbyte.Lotbook");
    }
    ~FakeApplication() override
    {
        m_thread.quit();
        m_thread.wait();
        quit();
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        QStringList words{call.member()};
        for (const QVariant &argument : call.arguments())
            words << argument.toString();
        {
            const std::lock_guard lock(m_mutex);
            m_heard << words.join(u'|');
        }
        if (words.contains("slow"))
            return true;
        if (words.contains("fatal"))
            return QMetaObject::invokeMethod(this, &FakeApplication::quit, Qt::QueuedConnection);
        if (words.contains("broken"))
            return bus.send(
                call.createErrorReply("com.quillbyte.Scripting.Error", "It is broken."));
        return bus.send(call.createReply(call.member() == u"Get" ? "former" : ""));
    }
    QStringList heard() const
    {
        const std::lock_guard lock(m_mutex);
        return m_heard;
    }

private:
    void quit()
    {
        m_bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus("fake application");
    }

    mutable std::mutex m_mutex;
    QStringList m_heard;
    QDBusConnection m_bus;
    QThread m_thread;
};

QString run(const QString &source, Error *error = nullptr, std::chrono::milliseconds patience = 5s)
{
    Error reason;
    const auto result = AppleScript(source).executeAndReturnError(&reason, patience);
    if (error)
        *error = reason;
    return result.value_or(QString::number(reason.code));
}

QString told(const QString &statements)
{
    return "tell application \"Lotbook\"\n" + statements + "\nend tell";
}

} // namespace

TEST(AppleScriptTest, TheLanguageByItself)
{
    const std::pair<QString, QString> scripts[] = {
        {"", ""},
        {"return", ""},
        {"return \"a\" & \"b\" & (\"c\")\nreturn \"d\"", "abc"},
        {"\"last\"", "last"},
        {"set Former Value to \"x\"\nset y to former value & \"!\"\nget y", "x!"},
        {"(* a\n comment *) -- and\n# one more\r\nreturn \"-- none\"", "-- none"},
        {"RETURN \"q\\\"b\\\\n\\n\\r\\t\"", "q\"b\\n\n\r\t"},
        {"try\nget missing & \"\"\non error reason\nreturn reason\nend try",
         "The variable missing is not defined."},
        {"try\nget missing & \"\"\nend try\nreturn \"on\"", "on"},
        {"try\nreturn \"early\"\nend try\nreturn \"late\"", "early"},
        {"try\nget a & \"\"\non error\nget b & \"\"\nend", "-1728"},
        {"title of listing", "-1728"},
        {"return \"open", "-2740"},
        {"set x \"y\"", "-2740"},
        {"tell application Lotbook\nend tell", "-2740"},
        {"tell application \"Lotbook\"\n", "-2740"},
        {"try\non trouble\nend", "-2740"},
        {"try\nend tell", "-2740"},
        {"return \"a\" \"b\"", "-2740"},
        {"return (\"a\"", "-2740"},
        {"return \"a\" & ", "-2740"},
        {"end", "-2740"},
        {"set x to 1 + 2", "-2740"},
        {QString("(").repeated(100000), "-2740"},
        {QString("tell application \"A\" to ").repeated(100000), "-2740"},
    };
    for (const auto &[source, result] : scripts)
        EXPECT_EQ(run(source), result) << source.left(80).toStdString();

    Error error;
    run("set a to \"two\nlines\"\nset b\n", &error);
    EXPECT_EQ(error.description, "Line 3 of the script: to was expected, not the end of the line.");
    EXPECT_EQ(error.domain, AppleScript::errorDomain);
}

TEST(AppleScriptTest, TellsAnApplicationAndHearsItsAnswers)
{
    const support::SessionBus bus;
    ASSERT_FALSE(bus.address().isNull()) << "dbus-daemon could not be started";
    const FakeApplication application(bus.address());
    const QString splice = "a\"\nset title of listing to \"b\\";
    EXPECT_EQ(run(told("set old to design identifier of selected listing\n"
                       "set layout name of selected listing of document to \"" +
                       AppleScript::escaped(splice) + "\" & old\nreturn old")),
              "former");
    EXPECT_EQ(run(told("activate\nselect template \"x\" & \"y\"")), "");
    EXPECT_EQ(run("tell application \"Lotbook\" to get title of listing"), "former");
    const QStringList heard{"Get|design identifier|selected listing",
                            "Set|layout name|selected listing of document|" + splice + "former",
                            "Perform|activate|", "Perform|select template|xy", "Get|title|listing"};
    EXPECT_EQ(application.heard(), heard);
    EXPECT_EQ(run("tell application \"Lotbook\"\nactivate\nend tell\nactivate"), "-1728")
        << "what is told ends with the block";
}

TEST(AppleScriptTest, WhatGoesWrongOnTheWayIsSaidInWords)
{
    Error error;
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
    EXPECT_EQ(run(told("activate"), &error), "-600");
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    EXPECT_EQ(error.description, "\"Lotbook\" can't be reached: there is no session bus (D-Bus).");

    const support::SessionBus bus;
    ASSERT_FALSE(bus.address().isNull()) << "dbus-daemon could not be started";
    EXPECT_EQ(run(told("activate"), &error), "-600");
    EXPECT_EQ(error.description, "\"Lotbook\" isn't running.");
    for (const char *name : {"", "7up", "no such", "../x", "a.b", "ü"})
        EXPECT_EQ(run(QString("tell application \"%1\" to activate").arg(name)), "-600") << name;

    const FakeApplication application(bus.address());
    EXPECT_EQ(run(told("get broken of listing"), &error), "-10000");
    EXPECT_EQ(error.description, "\"Lotbook\" answered with an error: It is broken.");
    EXPECT_EQ(run(told("try\nget broken of listing\nend try\nget title of listing")), "former");

    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(run(told("try\nget slow of listing\nend try\nget slow of listing"), &error, 400ms),
              "-1712");
    EXPECT_EQ(error.description, "\"Lotbook\" took too long to answer.");
    EXPECT_LT(timer.elapsed(), 800) << "all calls share one patience";

    EXPECT_EQ(run(told("get fatal of listing"), &error), "-609");
    EXPECT_EQ(error.description, "\"Lotbook\" quit before it answered.");
    EXPECT_EQ(run(told("activate")), "-600");
}
