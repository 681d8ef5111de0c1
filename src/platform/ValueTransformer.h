#pragma once

#include <memory>
#include <QString>
#include <QVariant>

namespace platform {

/// Turns a model's value into that of a view, and back if it can. Shared, never changed; any value
/// may come in, and one that means nothing to it becomes an invalid one. The register is for the
/// main thread.
class ValueTransformer
{
public:
    virtual ~ValueTransformer() = default;
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    virtual bool allowsReverseTransformation() const { return false; }
    virtual QVariant reverseTransformedValue(const QVariant &value) const { return value; }

    /// The register by name; null takes a transformer out, or is what an unknown name gives.
    static void setValueTransformer(const std::shared_ptr<const ValueTransformer> &transformer,
                                    const QString &forName);
    static std::shared_ptr<const ValueTransformer> valueTransformerForName(const QString &name);
};

} // namespace platform
