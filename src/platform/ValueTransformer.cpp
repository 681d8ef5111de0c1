#include "platform/ValueTransformer.h"

#include <QHash>

namespace platform {

namespace {

using Transformer = std::shared_ptr<const ValueTransformer>;

QHash<QString, Transformer> &transformers()
{
    static QHash<QString, Transformer> all;
    return all;
}

} // namespace

void ValueTransformer::setValueTransformer(const Transformer &transformer, const QString &forName)
{
    if (transformer)
        transformers().insert(forName, transformer);
    else
        transformers().remove(forName);
}

Transformer ValueTransformer::valueTransformerForName(const QString &name)
{
    return transformers().value(name);
}

} // namespace platform
