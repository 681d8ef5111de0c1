#pragma once

#include "platform/text/TemporaryAttributes.h"
#include "platform/text/TextStorage.h"

/// Remembers which lines of a text were edited since it was last saved, which the text's undo
/// history knows (TextUndo::markClean): being saved takes all marks away, and so does going back to
/// the saved text by undo or redo. The marks move with later edits; each edit costs O(log marks).
/// Belongs to its storage and is found by it. Main thread.
class MGSChangedLines : public QObject
{
    Q_OBJECT

public:
    /// Made at the first call, without marks.
    static MGSChangedLines &of(platform::TextStorage *text);

    bool isChanged(qsizetype line) const; ///< Zero-based, existing. Lost lines mark the next one.

Q_SIGNALS:
    void didForget(); ///< All marks are gone.

private:
    explicit MGSChangedLines(platform::TextStorage *text);
    void textDidChange(platform::TextRange range, qsizetype changeInLength);
    void forget();

    platform::TextStorage *m_text;
    platform::TemporaryAttributes m_marks;
    bool m_isLastLineChanged = false; ///< It may be empty, with no character to mark.
};
