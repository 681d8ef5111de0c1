#pragma once

#include "platform/text/TextUndo.h"

/// While it lives all changes are one step of undo. A null history: does nothing.
class SMLUndoGroup
{
public:
    explicit SMLUndoGroup(platform::TextUndo *history) : m_history(history)
    {
        if (m_history)
            m_history->beginGroup();
    }
    ~SMLUndoGroup()
    {
        if (m_history)
            m_history->endGroup();
    }
    Q_DISABLE_COPY_MOVE(SMLUndoGroup)

private:
    platform::TextUndo *m_history;
};
