#pragma once

#include "platform/text/TextSelection.h"
#include "platform/text/TextStorage.h"
#include <deque>
#include <QElapsedTimer>
#include <QPointer>

namespace platform {

/// The undo history of one text: belongs to the storage, lives as long, and is found by it. Keeps
/// what each change took out and put in, and the selections before it. Changes of one kind that
/// follow each other at the same place are one step, until a pause or the caret parts them; a line
/// end begins a step.
///
/// Watches the storage: what is recorded, undone or redone has to be carried out on it at once. An
/// edit that nobody recorded makes the history meaningless, so it is forgotten.
class TextUndo : public QObject
{
    Q_OBJECT

public:
    /// What goes together: runs of typing and of deleting become one step, other changes stay by
    /// themselves.
    enum class Kind : quint8 { Typing, DeletingBackward, DeletingForward, Other };

    struct Replacement
    {
        TextRange range; ///< In the text before the change.
        QString removed;
        QString inserted;
        bool operator==(const Replacement &) const = default;
    };

    /// Ascending, apart, all in the text before the change: carried out from the last to the first.
    using Change = std::vector<Replacement>;

    /// The changes to carry out, in order, each in the text as the former ones left it, and the
    /// selections to set after them.
    struct Step
    {
        std::vector<Change> changes;
        TextSelections selections;
    };

    /// Made at the first call.
    static TextUndo &of(TextStorage *storage);

    /// About to be carried out.
    void record(Kind kind, Change change, const TextSelections &before);

    /// The next change begins a step of its own.
    void breakCoalescing();

    /// While it lives everything is one step. Nests; nothing can be undone within.
    class Group
    {
    public:
        explicit Group(TextUndo &history) : m_history(&history) { history.beginGroup(); }
        ~Group()
        {
            if (m_history)
                m_history->endGroup();
        }
        Q_DISABLE_COPY_MOVE(Group)

    private:
        QPointer<TextUndo> m_history; ///< Goes with its storage, which a delegate may replace.
    };

    bool canUndo() const { return m_done > 0 && m_groups == 0; }
    bool canRedo() const { return m_done < m_steps.size() && m_groups == 0; }

    enum class Direction { Undo, Redo };
    std::optional<Step> next(Direction direction) const; ///< If there is any.
    std::optional<Step> take(Direction direction);       ///< The same, about to be carried out.

    void clear();

    /// Bytes of text to keep, 256 MiB if not said otherwise: beyond, the oldest steps go, but never
    /// the last.
    void setMemoryLimit(qsizetype bytes);

    /// A mark that the text as it is now has been saved, and whether it is in that state (again).
    /// At first it is.
    void markClean();
    bool isClean() const { return state() == m_cleanState; }

Q_SIGNALS:
    void didChange();    ///< What can be undone or redone.
    void didMarkClean(); ///< By `markClean`.

private:
    struct Entry
    {
        Kind kind = Kind::Other;
        std::vector<Change> changes;
        TextSelections before;
        quint64 state = 0; ///< Of the text after it.
        qsizetype bytes = 0;
    };
    struct Edit
    {
        TextRange range;
        qsizetype insertedLength;
    };

    explicit TextUndo(TextStorage *storage);
    void beginGroup();
    void endGroup();
    void textDidChange(TextRange range, qsizetype changeInLength);
    quint64 state() const { return m_done == 0 ? m_firstState : m_steps[m_done - 1].state; }
    Step stepToUndo() const;
    Step stepToRedo() const;
    void forgetUndone();
    bool coalesces(Kind kind, const Change &change) const;
    void expect(const std::vector<Change> &changes);
    void trim();

    std::deque<Entry> m_steps;
    size_t m_done = 0; ///< Steps that can be undone; the others can be redone.
    std::deque<Edit> m_expected;
    int m_groups = 0;
    bool m_appends = false; ///< To the step of the open group.
    bool m_isBroken = true;
    QElapsedTimer m_sinceLast;
    quint64 m_lastState = 0;
    quint64 m_firstState = 0; ///< Before the first step.
    quint64 m_cleanState = 0;
    qsizetype m_bytes = 0;
    qsizetype m_memoryLimit = 256 << 20;
};

} // namespace platform
