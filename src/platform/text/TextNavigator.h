#pragma once

#include "platform/text/LayoutManager.h"
#include "platform/text/TextSelection.h"

namespace platform {

/// Where a caret can go. Left and right, also by words, are those of the screen; Backward and
/// Forward are by one character in the order of the text. A row is what is seen as a line, a line
/// what ends with a line end.
enum class TextMovement : quint8 {
    Left,
    Right,
    WordLeft,
    WordRight,
    Backward,
    Forward,
    WordBackward,
    WordForward,
    Up,
    Down,
    PageUp,
    PageDown,
    RowStart,
    RowEnd,
    LineStart,
    LineEnd,
    TextStart,
    TextEnd
};

/// Whether the anchor comes along or stays.
enum class TextMode : quint8 { Move, Select };

/// Moves carets over a laid-out text. Up and down keep to the x they began at; beyond the first
/// and the last row they go to the text's ends. A move without selecting, by one character, from a
/// stretch goes to the stretch's edge on that side. Borrows the layout manager.
class TextNavigator
{
public:
    /// `pageRows`: how many rows a page goes, at least 1.
    explicit TextNavigator(LayoutManager &layout, qsizetype pageRows = 1)
        : m_layout(layout), m_text(*layout.textStorage()), m_pageRows(pageRows)
    {
    }

    TextSelection moved(const TextSelection &from, TextMovement movement, TextMode mode) const;

    /// A line of the layout, and an offset in it, of an index of the text.
    struct Place
    {
        qsizetype line;
        qsizetype offset;
    };
    Place placeOf(qsizetype index) const;

private:
    TextSelection destination(const TextSelection &from, TextMovement movement) const;
    qsizetype besides(qsizetype index, bool toTheRight) const;
    TextSelection vertically(const TextSelection &from, qsizetype rows) const;
    TextSelection edgeOfRow(const TextSelection &from, bool isEnd) const;
    bool isRightToLeftAt(qsizetype index) const;

    LayoutManager &m_layout;
    const TextStorage &m_text;
    qsizetype m_pageRows;
};

} // namespace platform
