#pragma once

#include <functional>
#include <QUndoCommand>
#include <QVariant>

/// A change of a design's list of properties, as a step of undo: the list before it and after it,
/// of which the first may be no value at all. Changes of one group become one step. It has been
/// done already when it is made.
class LSMPropertyListChange : public QUndoCommand
{
public:
    using Restore = std::function<void(const QVariant &)>;

    LSMPropertyListChange(QVariant before, QVariant after, int group, Restore restore)
        : m_before(std::move(before)), m_after(std::move(after)), m_group(group),
          m_restore(std::move(restore))
    {
    }

    int id() const override { return m_group; }
    void undo() override { m_restore(m_before); }
    void redo() override;
    bool mergeWith(const QUndoCommand *other) override;

private:
    QVariant m_before;
    QVariant m_after;
    int m_group;
    Restore m_restore;
    bool m_isFirst = true;
};
