#pragma once

#include "platform/text/TextStorage.h"

namespace platform {

// Where characters, as people see them, and words begin and end. Indexes and ranges lie in the
// text; line ends, also those of two units, count as one character. Nothing is copied but the
// neighbourhood of the index; words cost O(their length).

/// The end of the cluster (what is seen as one character) that the index lies in; the text's end
/// stays.
qsizetype nextCluster(const TextStorage &storage, qsizetype index);

/// The start of the cluster before the index; the text's start stays.
qsizetype previousCluster(const TextStorage &storage, qsizetype index);

/// The index, or where the cluster begins that it lies within.
qsizetype startOfCluster(const TextStorage &storage, qsizetype index);

/// Where that begins which Backspace takes: the last mark that was put on a letter, or the whole
/// cluster.
qsizetype startOfBackspace(const TextStorage &storage, qsizetype index);

/// The start of the next word, but not beyond the line's end; from there, the next line.
qsizetype nextWord(const TextStorage &storage, qsizetype index);

/// The start of the word before, but not beyond the line's start; from there, the former line's
/// end.
qsizetype previousWord(const TextStorage &storage, qsizetype index);

/// The word, the run of blanks or of other characters that the index lies in; at the end of a line
/// that before it. Empty in an empty line.
TextRange wordRange(const TextStorage &storage, qsizetype index);

/// The line's direction, by its first characters.
bool isRightToLeft(const TextStorage &storage, qsizetype line);

/// What ends the text's first line; LF if nothing does.
QString lineEnding(const TextStorage &storage);

} // namespace platform
