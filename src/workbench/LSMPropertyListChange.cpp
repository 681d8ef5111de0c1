#include "workbench/LSMPropertyListChange.h"

void LSMPropertyListChange::redo()
{
    if (!std::exchange(m_isFirst, false))
        m_restore(m_after);
}

bool LSMPropertyListChange::mergeWith(const QUndoCommand *other)
{
    m_after = static_cast<const LSMPropertyListChange *>(other)->m_after;
    setObsolete(m_after == m_before);
    return true;
}
