#pragma once

#include "platform/ValueTransformer.h"

#include <QPointer>

/// What a binding does to values on their way: the transformer, else the named one, else nothing.
struct MGSBindingOptions
{
    std::shared_ptr<const platform::ValueTransformer> valueTransformer;
    QString valueTransformerName;

    std::shared_ptr<const platform::ValueTransformer> transformer() const;
};

/// A property of an object (its parent) that follows a key path of a model. The property takes the
/// model's value at once and at each change; the other way goes `mgs_propagateValue`. Main thread.
class MGSBinding : public QObject
{
    Q_OBJECT

public:
    MGSBinding(QObject *object, const QString &binding, QObject *observedObject,
               const QString &keyPath, const MGSBindingOptions &options);

    QObject *observedObject() const { return m_observedObject; } ///< Null once it has gone.
    const QString &keyPath() const { return m_keyPath; }
    const MGSBindingOptions &options() const { return m_options; }
    bool isTakingValue() const { return m_isTakingValue; } ///< The model's, at this moment.

private:
    void takeValue(const QVariant &value);

    QPointer<QObject> m_observedObject;
    QString m_keyPath;
    MGSBindingOptions m_options;
    bool m_isTakingValue = false;
};

/// Binds the object's property of that name ("isFoo" means the property "foo", if there is no
/// "isFoo") to the key path of another object, in place of any binding it had. A value that the
/// model does not have leaves the property as it is.
void mgs_bind(QObject *object, const QString &binding, QObject *toObject,
              const QString &withKeyPath, const MGSBindingOptions &options = {});
void mgs_unbind(QObject *object, const QString &binding);
const MGSBinding *mgs_infoForBinding(const QObject *object, const QString &binding); ///< Or null.

/// Hands a value that code has set on to what the binding observes; does nothing without such a
/// binding, or when the value has just come from there. A transformer without a way back is logged
/// and passed by, and so is logged a binding whose object or key path is missing. A null name is a
/// fault of the program.
void mgs_propagateValue(QObject *object, const QVariant &value, const QString &forBinding);
