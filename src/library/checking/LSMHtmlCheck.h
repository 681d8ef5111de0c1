#pragma once

#include "library/checking/LSMFinding.h"
#include <QSet>
#include <QVariantMap>
#include <stop_token>

/// Holds the HTML of a design against the rules: of HTML, by libtidy; of the format, for its
/// placeholders and layouts; of the places where listings are shown, for pictures and scripts. HTML
/// that stands in parts which exclude each other is read as if all of it were there, but for parts
/// in a row that open or close the same elements: of these the first counts.
///
/// Functions of their arguments alone; any thread. Once stopped they come back soon, with less than
/// there is.
namespace LSMHtmlCheck {

/// What the rest of the design says.
struct Context
{
    QSet<QString> properties; ///< By the names that the HTML has for them.

    static Context of(const QVariantMap &info); ///< From the values of an Info.plist.
};

/// Ordered by their places, without paths. At most `mostFindings`, the gravest, and one that tells
/// how many more were found.
LSMFindings findings(const QString &html, const Context &context, const std::stop_token &stop = {});

inline constexpr qsizetype mostFindings = 1000;
inline constexpr qsizetype longestHtml = 8 * 1024 * 1024; ///< Characters; more is not checked.

} // namespace LSMHtmlCheck
