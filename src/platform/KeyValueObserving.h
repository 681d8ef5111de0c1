#pragma once

#include <functional>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <vector>

namespace platform {

/// The value that a key path ("templateDictionary.CFBundleName") leads to: each step is a
/// Q_PROPERTY of a QObject, a key of an ObservableDictionary, or a key of a QVariantMap. Invalid
/// where it breaks.
QVariant valueForKeyPath(const QObject *object, const QString &keyPath);

/// Sets the last step's value. False, with nothing changed, where the path breaks or is read-only.
bool setValueForKeyPath(QObject *object, const QString &keyPath, const QVariant &value);

/// Watches a key path and calls back when its value may have changed, with any object on the way
/// replaced too. Owned by the observer; ends with its destruction or the observed object's. The
/// properties on the way need a NOTIFY signal to be noticed. Thread: that of the observed objects.
class KeyValueObservation : public QObject
{
    Q_OBJECT

public:
    enum class Initial { Skip, Call };

    struct Change
    {
        QVariant oldValue;
        QVariant newValue;
    };
    using Handler = std::function<void(const Change &)>;

    /// With `Initial::Call` the handler runs once before the constructor returns. It runs only for
    /// values that differ in type or content, and may delete the observation.
    KeyValueObservation(QObject *observed, const QString &keyPath, Initial initial, Handler handler,
                        QObject *parent);

private Q_SLOTS:
    void pathDidChange();

private:
    void watchPath();

    QPointer<QObject> m_observed;
    QStringList m_steps;
    Handler m_handler;
    QVariant m_value;
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace platform
