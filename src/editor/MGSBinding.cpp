#include "editor/MGSBinding.h"

#include "platform/Assert.h"
#include "platform/KeyValueObserving.h"
#include "platform/Log.h"

#include <QScopedValueRollback>

namespace {

using Transformer = std::shared_ptr<const platform::ValueTransformer>;

/// Both names of a property's binding as one.
QString propertyName(const QObject *object, const QString &binding)
{
    const bool isGetter =
        binding.size() > 2 && binding.startsWith(QLatin1StringView("is")) && binding[2].isUpper();
    if (!isGetter || object->metaObject()->indexOfProperty(binding.toLatin1().constData()) >= 0)
        return binding;
    return binding[2].toLower() + binding.mid(3);
}

} // namespace

Transformer MGSBindingOptions::transformer() const
{
    return valueTransformer || valueTransformerName.isNull()
               ? valueTransformer
               : platform::ValueTransformer::valueTransformerForName(valueTransformerName);
}

MGSBinding::MGSBinding(QObject *object, const QString &binding, QObject *observedObject,
                       const QString &keyPath, const MGSBindingOptions &options)
    : QObject(object), m_observedObject(observedObject), m_keyPath(keyPath), m_options(options)
{
    setObjectName(binding);
    if (!observedObject || keyPath.isNull())
        return;
    new platform::KeyValueObservation(
        observedObject, keyPath, platform::KeyValueObservation::Initial::Call,
        [this](const auto &change) { takeValue(change.newValue); }, this);
}

void MGSBinding::takeValue(const QVariant &value)
{
    if (!value.isValid())
        return;
    const Transformer transformer = m_options.transformer();
    const QScopedValueRollback taking(m_isTakingValue, true);
    parent()->setProperty(objectName().toLatin1().constData(),
                          transformer ? transformer->transformedValue(value) : value);
}

void mgs_bind(QObject *object, const QString &binding, QObject *toObject,
              const QString &withKeyPath, const MGSBindingOptions &options)
{
    mgs_unbind(object, binding);
    new MGSBinding(object, propertyName(object, binding), toObject, withKeyPath, options);
}

void mgs_unbind(QObject *object, const QString &binding)
{
    delete mgs_infoForBinding(object, binding);
}

const MGSBinding *mgs_infoForBinding(const QObject *object, const QString &binding)
{
    return object->findChild<MGSBinding *>(propertyName(object, binding),
                                           Qt::FindDirectChildrenOnly);
}

void mgs_propagateValue(QObject *object, const QVariant &value, const QString &forBinding)
{
    PLATFORM_ASSERT(!forBinding.isNull(), "a value needs the name of its binding");
    const MGSBinding *info = mgs_infoForBinding(object, forBinding);
    if (!info || info->isTakingValue())
        return;
    const Transformer transformer = info->options().transformer();
    const bool canReverse = transformer && transformer->allowsReverseTransformation();
    if (transformer && !canReverse)
        platform::log("WARNING: binding \"%@\" has value transformer, but it doesn't allow reverse "
                      "transformations in %s",
                      forBinding, __func__);
    if (!info->observedObject())
        platform::log("ERROR: NSObservedObjectKey was nil for binding \"%@\" in %s", forBinding,
                      __func__);
    else if (info->keyPath().isNull())
        platform::log("ERROR: NSObservedKeyPathKey was nil for binding \"%@\" in %s", forBinding,
                      __func__);
    else
        platform::setValueForKeyPath(info->observedObject(), info->keyPath(),
                                     canReverse ? transformer->reverseTransformedValue(value)
                                                : value);
}
