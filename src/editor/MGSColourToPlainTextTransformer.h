#pragma once

#include "platform/ValueTransformer.h"

/// Colours as the text of a scheme file: "red green blue", and behind them the alpha where it is
/// not 1; numbers from 0 to 1 with six digits. What is no colour, or no such text, is logged and
/// red.
class MGSColourToPlainTextTransformer : public platform::ValueTransformer
{
public:
    QVariant transformedValue(const QVariant &colour) const override;
    bool allowsReverseTransformation() const override { return true; }
    QVariant reverseTransformedValue(const QVariant &text) const override;

    static QString text(const QVariant &colour);
    static QColor colour(const QString &text);
};
