#pragma once

#include <memory>
#include <QObject>
#include <QVariantMap>

namespace platform {

/// A dictionary that tells of its changes: a design's metadata. Held by std::shared_ptr. It may be
/// made on any thread; afterwards it belongs to one. Nested dictionaries are values: take one out,
/// change it, put it back.
///
/// A subclass may keep its values elsewhere: it answers for a key and takes a value in its own way.
class ObservableDictionary : public QObject
{
    Q_OBJECT

public:
    explicit ObservableDictionary(QVariantMap values = {}) : m_values(std::move(values)) {}

    const QVariantMap &values() const { return m_values; } ///< What it keeps itself.
    virtual bool contains(const QString &key) const { return m_values.contains(key); }
    virtual QStringList allKeys() const { return m_values.keys(); }

    virtual QVariant value(const QString &key) const { return m_values.value(key); }

    /// The value if it is a string, else null: numbers are not turned into text.
    QString stringValue(const QString &key) const;

    /// Emits `valueChanged` unless the value was equal already. An invalid QVariant removes the
    /// key.
    virtual void setValue(const QString &key, const QVariant &value);
    void removeValue(const QString &key) { setValue(key, {}); }

Q_SIGNALS:
    void valueChanged(const QString &key);

private:
    QVariantMap m_values;
};

} // namespace platform
