#pragma once

#include "platform/ValueTransformer.h"

#include <QTextLayout>

/// What stands between the fields of a property record and the cells that show them. Each takes the
/// value of a property of any type, as it may stand there, without failing.

/// A text in several fonts. As a QVariant it is what the summary of allowed values is.
struct LSMAttributedText
{
    QString string;
    QList<QTextLayout::FormatRange> formats; ///< What is in none of them has no attributes.

    bool operator==(const LSMAttributedText &) const = default;
};

/// Data is false, anything else as far as it is a number or reads like "yes", "true" or "1". Back:
/// data is false, a number stays, the rest is nothing.
class LSMPropertyToBoolTransformer : public platform::ValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override;
    bool allowsReverseTransformation() const override { return true; }
    QVariant reverseTransformedValue(const QVariant &value) const override;
};

/// Archived data becomes the colour in it, anything else nothing. Back: a colour is archived, data
/// stays, the rest is nothing.
class LSMPropertyToColorTransformer : public platform::ValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override;
    bool allowsReverseTransformation() const override { return true; }
    QVariant reverseTransformedValue(const QVariant &value) const override;
};

/// A whole record (QVariantMap; anything else gives nothing) becomes the summary of its values: all
/// of them, small, the default one bold; the default alone where there are none; nothing without a
/// default.
class LSMPropertyToValuesStringTransformer : public platform::ValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override;
};

Q_DECLARE_METATYPE(LSMAttributedText)
