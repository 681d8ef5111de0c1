#pragma once

#include <functional>
#include <optional>
#include <QStringList>

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

/// One of those expressions, where it stands.
struct Bracketed
{
    qsizetype start = 0; ///< Of the opening brackets.
    qsizetype end = 0;   ///< Behind the closing ones.
    QString inside;

    bool beginsPart() const { return inside.startsWith(u"if "); }
    bool endsPart() const { return inside == u"endif"; }
    bool isReadable() const; ///< Is it made as it should be, whatever its names?
    /// Of a condition that is not: the word that cannot stand where it does, or null where one is
    /// missing at the end.
    QString misplacedWord() const;
    QStringList names() const; ///< That it asks for; none where it is no expression.
};

/// The first from a place on; nullopt without one that has an end. Brackets that stand within
/// others, in front of the same end, are the ones it belongs to.
std::optional<Bracketed> nextBracketed(const QString &html, qsizetype from);

/// The names that the host has values for in any listing, as `resources/placeholder.plist` and the
/// format have them, in order. Those of properties and layouts belong to a design.
const QStringList &knownNames();

/// By which the HTML asks for a design's property: "Glaze Colour" is "LBProperty_Glaze_Colour".
QString nameOfProperty(const QString &property);
bool isNameOfProperty(const QString &name);

/// Does the expression hold? One that cannot be read does not.
bool holds(const QString &expression, const Values &values);

} // namespace LSMPlaceholders
