#pragma once

#include <functional>
#include <iosfwd>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace support {

/// Turns the event loop until `condition` holds; false after `seconds`.
bool waitUntil(const std::function<bool()> &condition, double seconds = 10);

/// Turns the event loop until nothing is left to do.
void settle();

void writeFile(const QString &path, const QByteArray &bytes); ///< Makes its folders too.
QByteArray readFile(const QString &path);

/// What the program logged while this object lived.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    const QStringList &lines() const { return m_lines; }
    bool contains(const QString &part) const;

private:
    QStringList m_lines;
};

/// An empty home: HOME, the XDG folders, the host's containers and applications all point into a
/// temporary folder while it lives, and the user defaults start empty.
class TemporaryHome
{
public:
    TemporaryHome();
    ~TemporaryHome();
    QString path(const QString &below = {}) const { return m_directory.filePath(below); }

private:
    QTemporaryDir m_directory;
};

} // namespace support

/// Lets a failed expectation show the text.
void PrintTo(const QString &text, std::ostream *stream);
void PrintTo(const QStringList &texts, std::ostream *stream);
