#pragma once

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include <gtest/gtest.h>

namespace support {

/// An editor in a window of its own, shown and with the keyboard. Texts are written with their
/// selections: "¦" is a caret, "‹" and "›" stand around what is selected.
class EditorFixture : public testing::Test
{
protected:
    EditorFixture();

    void setMarked(const QString &marked);
    QString marked() const;

    void type(const QString &keys); ///< One key press for each character; "\n" is Return.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// What has been done since `before` was the text is one step of undo, or none if that is it.
    void expectOneStepSince(const QString &before);
    int takeBeeps() { return std::exchange(m_beeps, 0); }

    /// The middle of the character, in the text view's viewport.
    QPoint placeOf(qsizetype index);

    MGSFragariaView editor;
    SMLTextView &view;

private:
    int m_beeps = 0;
};

} // namespace support
