#pragma once

#include <QString>
#include <QStringList>

/// The distinct matches of `(http|https)://(\S)+\.(png|jpg|gif)`, case ignored, that begin with
/// "http:" or "https:" in small letters, in order of first appearance. The expression is greedy, so
/// a run of text without white space holds one match at the most, which ends at its last extension:
/// that is what is looked for, in time proportional to the text, where matching could go quadratic.
QStringList LSMImageUrlsInString(const QString &text);
