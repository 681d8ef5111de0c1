#include "platform/UserDefaults.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"
#include "platform/SettingsFormat.h"

#include <cmath>
#include <limits>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace platform {

namespace {

// The value as it reads back from a file, so that it does not seem to change when it does.
QVariant asStored(const QVariant &value)
{
    Error error;
    const auto bytes = PropertyList::serialize(value, PropertyList::Format::Binary, &error);
    PLATFORM_ASSERT(bytes.has_value(), "no user default can hold this value: %@",
                    error.description);
    return PropertyList::parse(*bytes)->root;
}

bool same(const QVariant &one, const QVariant &other)
{
    return one.typeId() == other.typeId() && one == other;
}

std::optional<double> numberIn(const QVariant &value)
{
    bool isNumber = true;
    double number = 0;
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        number = value.toDouble();
        break;
    case QMetaType::QString:
        number = value.toString().trimmed().toDouble(&isNumber);
        break;
    default:
        isNumber = false;
    }
    return isNumber ? std::optional(number) : std::nullopt;
}

QString usualPath()
{
    return QStringLiteral("%1/%2.plist")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             Bundle::mainBundle().bundleIdentifier());
}

struct Standard
{
    QString path;
    std::unique_ptr<UserDefaults> defaults;

    QString effectivePath() const { return path.isEmpty() ? usualPath() : path; }
};

Standard &standard()
{
    static Standard instance;
    return instance;
}

} // namespace

UserDefaults &UserDefaults::standardUserDefaults()
{
    auto &[path, defaults] = standard();
    if (!defaults) {
        defaults = std::make_unique<UserDefaults>(standard().effectivePath());
        qAddPostRoutine([] { standard().defaults.reset(); });
    }
    return *defaults;
}

void UserDefaults::setStandardPath(const QString &path)
{
    standard().path = path;
    if (UserDefaults *defaults = standard().defaults.get()) {
        defaults->m_registered.clear();
        defaults->open(standard().effectivePath());
        defaults->tellChanges();
    }
}

UserDefaults::UserDefaults(const QString &path)
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &UserDefaults::synchronize);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &UserDefaults::synchronize);
    open(path);
    m_lastSeen = storedValues();
}

UserDefaults::~UserDefaults() = default;

void UserDefaults::open(const QString &path)
{
    m_settings.reset();
    m_path = QFileInfo(path).absoluteFilePath();
    setAsideIfUnreadable(m_path);
    m_settings = std::make_unique<QSettings>(m_path, settingsFormat());
    watch();
    m_settings->sync();
}

void UserDefaults::registerDefaults(const QVariantMap &values)
{
    m_registered.insert(asStored(values).toMap());
}

QVariant UserDefaults::object(const QString &key) const
{
    return m_settings->value(encodedKey(key), m_registered.value(key));
}

bool UserDefaults::isStored(const QString &key) const
{
    return m_settings->contains(encodedKey(key));
}

QString UserDefaults::string(const QString &key) const
{
    const QVariant value = object(key);
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    return value.typeId() == QMetaType::QString || numberIn(value) ? value.toString() : QString();
}

bool UserDefaults::boolean(const QString &key) const
{
    const QVariant value = object(key);
    if (const auto number = numberIn(value))
        return *number != 0;
    const QString text = stringIn(value).toLower();
    return text == u"yes" || text == u"true";
}

qint64 UserDefaults::integer(const QString &key) const
{
    const QVariant value = object(key);
    bool isExact = value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::QString;
    const qint64 exact = isExact ? value.toString().trimmed().toLongLong(&isExact) : 0;
    const double number = numberIn(value).value_or(0);
    using Limits = std::numeric_limits<qint64>;
    if (isExact || std::isnan(number))
        return exact;
    return number >= 0x1p63 ? Limits::max() : number < -0x1p63 ? Limits::min() : qint64(number);
}

double UserDefaults::real(const QString &key) const
{
    return numberIn(object(key)).value_or(0);
}

QVariantMap UserDefaults::dictionary(const QString &key) const
{
    return object(key).toMap();
}

QVariantList UserDefaults::array(const QString &key) const
{
    const QVariant value = object(key);
    return value.typeId() == QMetaType::QVariantList ? value.toList() : QVariantList();
}

void UserDefaults::setObject(const QString &key, const QVariant &value)
{
    if (!value.isValid()) {
        removeObject(key);
        return;
    }
    const QVariant stored = asStored(value);
    if (isStored(key) && same(object(key), stored))
        return;
    m_settings->setValue(encodedKey(key), stored);
    m_lastSeen.insert(key, stored);
    Q_EMIT didChange(key);
}

void UserDefaults::removeObject(const QString &key)
{
    if (!isStored(key))
        return;
    m_settings->remove(encodedKey(key));
    m_lastSeen.remove(key);
    Q_EMIT didChange(key);
}

QStringList UserDefaults::storedKeys() const
{
    QStringList keys;
    for (const QString &key : m_settings->allKeys())
        keys.append(decodedKey(key));
    return keys;
}

bool UserDefaults::synchronize()
{
    if (m_settings->status() != QSettings::NoError) // sticks; pending values stay with the file
        m_settings = std::make_unique<QSettings>(m_path, settingsFormat());
    watch();
    m_settings->sync();
    const bool written = m_settings->status() == QSettings::NoError;
    tellChanges();
    return written;
}

// Both the file, written in place, and the nearest folder there is, where files come, go and
// replace each other. The file anew each time, since a replaced one leaves its watch behind.
void UserDefaults::watch()
{
    QString folder = QFileInfo(m_path).path();
    while (!QFileInfo(folder).isDir() && folder != QFileInfo(folder).path())
        folder = QFileInfo(folder).path();
    if (m_watcher.directories() != QStringList{folder}) {
        for (const QString &old : m_watcher.directories())
            m_watcher.removePath(old);
        m_watcher.addPath(folder);
    }
    for (const QString &old : m_watcher.files())
        m_watcher.removePath(old);
    if (QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
}

void UserDefaults::tellChanges()
{
    const QVariantMap now = storedValues();
    const QVariantMap before = std::exchange(m_lastSeen, now);
    QMap<QString, QVariant> either = before;
    either.insert(now);
    for (const QString &key : either.keys()) {
        if (!same(before.value(key), now.value(key)))
            Q_EMIT didChange(key);
    }
}

QVariantMap UserDefaults::storedValues() const
{
    QVariantMap values;
    for (const QString &key : storedKeys())
        values.insert(key, object(key));
    return values;
}

} // namespace platform
