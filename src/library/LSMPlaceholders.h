#pragma once

#include <functional>
#include <QString>

/// The bracketed expressions of a design's HTML, by which the host puts a listing into it:
/// `[[Name]]` gives way to a value, and what stands from `[[if EXPRESSION]]` to its `[[endif]]` is
/// there only where the expression holds. An expression is made of names, `not`, `and` and `or`,
/// binding in this order. Pure functions; any thread.
namespace LSMPlaceholders {

/// A name's value; null leaves `[[Name]]` as it stands. In an expression a name holds when its
/// value is there and not empty.
using Values = std::function<QString(const QString &name)>;

/// The HTML with the values in it. What is not well-formed stays as it is: brackets without an end;
/// a part without its `[[endif]]` reaches to the end of the text. Time in proportion to its length.
QString filled(const QString &html, const Values &values);

/// Does the expression hold? One that cannot be read does not.
bool holds(const QString &expression, const Values &values);

} // namespace LSMPlaceholders
