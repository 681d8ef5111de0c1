#pragma once

#include "platform/text/TextStorage.h"

namespace platform {

enum class SearchDirection { Forward, Backward };

/// The first occurrence of the string in the range, or the last one when searching backward; it
/// lies in the range whole. Not found: `TextRange::notFound()`; an empty string is found nowhere.
/// Units are compared as they are, or by simple case folding. Copies nothing; O(range + string),
/// whatever they hold.
TextRange rangeOfString(const TextStorage &storage, QStringView string, TextRange range,
                        SearchDirection direction = SearchDirection::Forward,
                        Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

/// Walks over the pieces of the range: `function(piece, part)`, the part being what the piece has
/// of the range, until it answers true.
template <class Function>
void visitPieces(const TextStorage &storage, TextRange range, SearchDirection direction,
                 Function function)
{
    const bool forward = direction == SearchDirection::Forward;
    while (!range.isEmpty()) {
        const TextPiece piece = storage.piece(forward ? range.location : range.end() - 1);
        const TextRange part = range.intersected(piece.range());
        if (function(piece, part))
            return;
        range = forward ? TextRange::between(part.end(), range.end())
                        : TextRange::between(range.location, part.location);
    }
}

/// The first index in the range (backward: the last) at which `matches(char16_t)` is true, or
/// NotFound.
template <class Predicate>
qsizetype indexOfCharacter(const TextStorage &storage, Predicate matches, TextRange range,
                           SearchDirection direction = SearchDirection::Forward)
{
    const bool forward = direction == SearchDirection::Forward;
    qsizetype found = NotFound;
    visitPieces(storage, range, direction, [&](const TextPiece &piece, TextRange part) {
        for (qsizetype i = 0; i < part.length && found == NotFound; ++i) {
            const qsizetype index = forward ? part.location + i : part.end() - 1 - i;
            if (matches(piece.at(index)))
                found = index;
        }
        return found != NotFound;
    });
    return found;
}

} // namespace platform
