#pragma once

#include <QStringList>

/// The candidate that differs from the word by the fewest typing errors (a letter too many, one
/// missing, a wrong one), in any case; null where none is near enough to have been meant: two
/// errors, one in words of up to four letters. Of several the first. Any thread.
QString LSMNearestWord(const QString &word, const QStringList &candidates);
