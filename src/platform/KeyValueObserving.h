#pragma once

#include <functional>
#include <memory>
#include <QObject>
#include <QVariant>

namespace platform {

/// The value that a key path ("templateDictionary.CFBundleName") leads to: each step is a
/// Q_PROPERTY of a QObject, a key of an ObservableDictionary, or a key of a QVariantMap. Invalid
/// where it breaks.
QVariant valueForKeyPath(const QObject *object, const QString &keyPath);

/// Sets the last step's value. False, with nothing changed, where the path breaks or is read-only.
bool setValueForKeyPath(QObject *object, const QString &keyPath, const QVariant &value);

/// Watches a key path and calls back when its value may have changed, with any object on the way
/// replaced too. Owned by the observer; ends with its destruction or the observed object's. The
/// properties on the way need a NOTIFY signal to be noticed.
///
/// Threads: it may be made and destroyed on any, and calls back on that of the change. A handler
/// that has begun on another thread may go on for a while after the observation has ended. What is
/// read on the way is read on the thread of whoever observes, too: an object that changes on one
/// thread and is observed from another needs properties that may be read from both.
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
    ~KeyValueObservation() override;

private:
    class Watch;

    std::shared_ptr<Watch> m_watch; // lives on while it is being told
};

} // namespace platform
