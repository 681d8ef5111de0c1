#pragma once

#include "library/checking/LSMFindingList.h"

#include <QSet>
#include <stop_token>

/// The rules for the bracketed expressions of a design's HTML (LSMPlaceholders.h). Functions of
/// their arguments alone; any thread.
namespace LSMExpressionCheck {

/// What is there where a condition holds.
struct Part
{
    platform::TextRange contents;
    platform::TextRange whole; ///< From "[[if …]]" to "[[endif]]", with both.
};

struct Result
{
    /// The HTML, of the same length, with blanks for the expressions, or letters where one is a
    /// value: what HTML can be read from.
    QString plain;
    std::vector<Part> parts; ///< In the order of their ends; those that have one.
};

/// `properties` are the design's, by the names that the HTML has for them.
Result check(const QString &html, const QSet<QString> &properties, LSMFindingList &findings,
             const std::stop_token &stop);

} // namespace LSMExpressionCheck
