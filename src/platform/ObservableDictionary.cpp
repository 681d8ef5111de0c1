#include "platform/ObservableDictionary.h"

#include "platform/PropertyList.h"

namespace platform {

QString ObservableDictionary::stringValue(const QString &key) const
{
    return stringIn(value(key));
}

void ObservableDictionary::setValue(const QString &key, const QVariant &value)
{
    const auto found = m_values.constFind(key);
    const QVariant old = found == m_values.constEnd() ? QVariant() : *found;
    if (old.typeId() == value.typeId() && old == value)
        return;
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the caller's may live in the map
    const QString changedKey = key;
    if (value.isValid())
        m_values.insert(key, value);
    else
        m_values.remove(key);
    Q_EMIT valueChanged(changedKey);
}

} // namespace platform
