#pragma once

#include <memory>
#include <QFileSystemWatcher>
#include <QObject>
#include <QSettings>
#include <QVariantMap>

namespace platform {

/// Settings by key: what the user stored, over what the program registered. Stored as a property
/// list whose types are kept. Each change is on disk soon after it was made, and at the latest when
/// the object goes; what other processes write meanwhile is noticed and merged by key. A file that
/// cannot be read counts as empty and is set aside under the name FILE.unreadable
/// (FILE.unreadable.2
/// ...) before a write would replace it: its bytes are never lost. Main thread.
class UserDefaults : public QObject
{
    Q_OBJECT

public:
    /// The application's own: `$XDG_CONFIG_HOME/<bundle identifier>.plist`, made on first use, gone
    /// with the application object.
    static UserDefaults &standardUserDefaults();

    /// Has it use another file, for tests, with nothing registered; an empty path brings back the
    /// usual one. References and connections to it stay.
    static void setStandardPath(const QString &path);

    explicit UserDefaults(const QString &path);
    ~UserDefaults() override;

    /// Adds values under the stored ones, in memory only; a later registration of a key wins.
    void registerDefaults(const QVariantMap &values);

    QVariant object(const QString &key) const; ///< Stored, else registered, else invalid.
    bool isStored(const QString &key) const;

    /// Conversions are the usual ones: numbers from numeric strings and back, true from "YES",
    /// "true" and numbers other than 0; what cannot be converted reads as null, 0 or false. Reals
    /// lose their fraction as integers and stop at the ends of the range.
    QString string(const QString &key) const;
    bool boolean(const QString &key) const;
    qint64 integer(const QString &key) const;
    double real(const QString &key) const;
    QVariantMap dictionary(const QString &key) const;
    QVariantList array(const QString &key) const;

    /// Any value that a property list can hold, kept as PropertyList gives it back; another one is
    /// a programming fault. An invalid QVariant removes the key. Emits `didChange` if it differs.
    void setObject(const QString &key, const QVariant &value);
    void removeObject(const QString &key);
    QStringList storedKeys() const;

    /// Writes what is pending and takes in what others wrote. False if the file cannot be written.
    bool synchronize();

Q_SIGNALS:
    void didChange(const QString &key); ///< By this process or by another one.

private:
    void open(const QString &path);
    void watch();
    void tellChanges();
    QVariantMap storedValues() const;

    QString m_path;
    std::unique_ptr<QSettings> m_settings;
    QVariantMap m_registered;
    QVariantMap m_lastSeen;
    QFileSystemWatcher m_watcher;
};

} // namespace platform
