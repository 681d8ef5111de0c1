#pragma once

#include <QFont>

/// A family of fixed pitch in a size in points; the system's fixed font of that size where the
/// family is not installed.
QFont mgs_fixedFont(const QString &family, qreal pointSize);

/// What the editor begins with: "Menlo" 11.
QFont mgs_defaultFont();
