#pragma once

#include <functional>
#include <QUndoCommand>
#include <QVariantList>

/// A change of a design's list of properties, as a step of undo: the list before it and after it.
/// Changes of one group become one step. It has been done already when it is made.
class LSMPropertyListChange : public QUndoCommand
{
public:
    using Restore = std::function<void(const QVariantList &)>;

    LSMPropertyListChange(QVariantList before, QVariantList after, int group, Restore restore)
        : m_before(std::move(before)), m_after(std::move(after)), m_group(group),
          m_restore(std::move(restore))
    {
    }

    int id() const override { return m_group; }
    void undo() override { m_restore(m_before); }
    void redo() override;
    bool mergeWith(const QUndoCommand *other) override;

private:
    QVariantList m_before;
    QVariantList m_after;
    int m_group;
    Restore m_restore;
    bool m_isFirst = true;
};
