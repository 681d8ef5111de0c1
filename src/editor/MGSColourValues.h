#pragma once

#include "platform/text/TextRange.h"
#include <QColor>
#include <QStringView>
#include <vector>

/// A colour as CSS and HTML write it, and where.
struct MGSColourValue
{
    platform::TextRange range;
    QColor colour;
    bool operator==(const MGSColourValue &) const = default;
};

/// The colour values of a piece of code, ascending: `#rgb`, `#rgba`, `#rrggbb`, `#rrggbbaa` and
/// names where a property or attribute that takes colours has them (`color: red`,
/// `bgcolor="#fff"`), and `rgb()`, `rgba()`, `hsl()`, `hsla()` anywhere. Values that mean no colour
/// are left out, and so is `transparent`.
std::vector<MGSColourValue> mgs_colourValues(const QString &code);

/// The colour as CSS writes it: `#rrggbb`, or `#rrggbbaa` if it lets something through.
QString mgs_colourCode(const QColor &colour);
