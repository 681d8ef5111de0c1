#pragma once

#include <QSettings>

namespace platform {

/// Property lists as a format of QSettings, with every type kept. A file that cannot be read counts
/// as empty; it is moved to FILE.unreadable before a write would replace it, and where that fails
/// the write fails. XML, or binary where XML cannot hold the values exactly. Main thread.
QSettings::Format settingsFormat();

/// Moves it now, under the lock that QSettings writes under. Does nothing for a good file, none, or
/// one that only this moment's trouble keeps from being read.
void setAsideIfUnreadable(const QString &path);

/// QSettings takes '/' for the end of a group and knows no empty key: any key, as one that it
/// leaves alone, and back.
QString encodedKey(QString key);
QString decodedKey(QString key);

} // namespace platform
