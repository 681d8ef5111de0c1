#include "library/checking/LSMSpelling.h"

#include <algorithm>
#include <vector>

namespace {

constexpr qsizetype shortWord = 4;

/// How many errors lie between two words.
qsizetype distance(QStringView from, QStringView to)
{
    std::vector<qsizetype> row(size_t(to.size()) + 1); // of the part of `from` that has been read
    for (size_t j = 0; j < row.size(); ++j)
        row[j] = qsizetype(j);
    for (const QChar c : from) {
        qsizetype diagonal = row[0]++;
        for (size_t j = 1; j < row.size(); ++j) {
            const qsizetype replaced = diagonal + (c == to[qsizetype(j) - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QString LSMNearestWord(const QString &word, const QStringList &candidates)
{
    QString nearest;
    qsizetype fewest = word.size() > shortWord ? 3 : 2;
    for (const QString &candidate : candidates) {
        if (qAbs(candidate.size() - word.size()) >= fewest)
            continue;
        const qsizetype errors = distance(word.toCaseFolded(), candidate.toCaseFolded());
        if (errors < fewest) {
            fewest = errors;
            nearest = candidate;
        }
    }
    return nearest;
}
