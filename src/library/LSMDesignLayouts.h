#pragma once

#include <QString>
#include <QStringList>

/// The layouts that a design's HTML names by the marker word `LBLayoutEnabled_`. Pure functions of
/// the text; any thread; time in proportion to its length.
namespace LSMDesignLayouts {

/// Each name once, in order of appearance, underscores turned into blanks.
QStringList layoutNames(const QString &html);

/// The layout whose expression ends in " or LBLayoutNotDefined" directly before "]]"; else null.
QString defaultLayoutName(const QString &html);

/// What the HTML has for the layout: "Two Columns" is "LBLayoutEnabled_Two_Columns".
QString markerOfLayout(const QString &layoutName);

/// The name of a layout's file in the folder of samples: "Two Columns" is "Two_Columns.html". What
/// would make a path of it, or hide it ("/", NUL, a dot at first), is written in per cent, as in
/// addresses.
QString sampleFileName(const QString &layoutName);

} // namespace LSMDesignLayouts
