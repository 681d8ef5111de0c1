#include "support/TestSupport.h"

#include "platform/UserDefaults.h"

#include <ostream>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QThread>

namespace support {

namespace {

QStringList *capturedLines = nullptr;
QtMessageHandler previousHandler = nullptr;
QMutex captureMutex;

void captureMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QMutexLocker lock(&captureMutex);
    if (capturedLines)
        capturedLines->append(text);
    else
        previousHandler(type, context, text);
}

} // namespace

bool waitUntil(const std::function<bool()> &condition, double seconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > seconds * 1000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(1);
    }
    return true;
}

void settle()
{
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

LogCapture::LogCapture()
{
    const QMutexLocker lock(&captureMutex);
    capturedLines = &m_lines;
    if (!previousHandler)
        previousHandler = qInstallMessageHandler(captureMessage);
}

LogCapture::~LogCapture()
{
    const QMutexLocker lock(&captureMutex);
    capturedLines = nullptr;
}

bool LogCapture::contains(const QString &part) const
{
    const QMutexLocker lock(&captureMutex);
    return m_lines.join(u'\n').contains(part);
}

TemporaryHome::TemporaryHome()
{
    const auto point = [this](const char *variable, const QString &below) {
        QDir().mkpath(path(below));
        qputenv(variable, path(below).toUtf8());
    };
    point("HOME", QString());
    point("XDG_CONFIG_HOME", QStringLiteral(".config"));
    point("XDG_DATA_HOME", QStringLiteral(".local/share"));
    point("XDG_CACHE_HOME", QStringLiteral(".cache"));
    point("LAYOUTSMITH_APPLICATIONS", QStringLiteral("Applications"));
    qputenv("LAYOUTSMITH_CONTAINERS", path(QStringLiteral("Library/Containers")).toUtf8());
    platform::UserDefaults::setStandardPath(path(QStringLiteral(".config/defaults.plist")));
}

TemporaryHome::~TemporaryHome()
{
    platform::UserDefaults::setStandardPath({});
}

} // namespace support

void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringList &texts, std::ostream *stream)
{
    PrintTo(texts.join(QStringLiteral(" | ")), stream);
}
