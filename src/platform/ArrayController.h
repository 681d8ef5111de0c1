#pragma once

#include <functional>
#include <QList>
#include <QObject>
#include <QVariantList>

namespace platform {

/// A list of objects and which of them are selected: what a table, a popup or a row of badges shows
/// and changes. The objects are values: strings, or records as std::shared_ptr to an
/// ObservableDictionary, which are the same only when they are one and the same. Main thread.
///
/// Every operation that changes something tells of it once, at its end: first the list, then the
/// selection. Removed objects leave the selection; indexes are zero-based, sorted, each once.
class ArrayController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList content READ arrangedObjects WRITE setContent NOTIFY contentDidChange)
    Q_PROPERTY(QVariantList arrangedObjects READ arrangedObjects NOTIFY arrangedObjectsDidChange)
    Q_PROPERTY(QList<qsizetype> selectionIndexes READ selectionIndexes WRITE setSelectionIndexes
                   NOTIFY selectionIndexesDidChange)

public:
    using QObject::QObject;

    /// Another list, with nothing selected. Tells even when it is equal: its records are others.
    void setContent(const QVariantList &content);
    const QVariantList &arrangedObjects() const { return m_objects; }

    const QList<qsizetype> &selectionIndexes() const { return m_selection; }
    QVariantList selectedObjects() const; ///< In the list's order.

    /// Indexes that are not in the list are passed by; so are objects. An object that is there more
    /// than once is selected at its first place.
    void setSelectionIndexes(const QList<qsizetype> &indexes);
    void setSelectedObjects(const QVariantList &objects);
    void addSelectedObject(const QVariant &object);
    void removeSelectedObject(const QVariant &object);

    void addObject(const QVariant &object); ///< At the end, and selected alone.

    /// The objects at the indexes, in their order, so that the first of them then stands at
    /// `target` of the list without them. They are what is selected afterwards.
    void moveObjects(const QList<qsizetype> &indexes, qsizetype target);

    void remove(); ///< What is selected. The object that takes its place is selected then.

Q_SIGNALS:
    void contentDidChange();         ///< Another list was set.
    void arrangedObjectsDidChange(); ///< The same, or objects were added, moved, removed.
    void selectionIndexesDidChange();

private:
    void select(QList<qsizetype> indexes);

    QVariantList m_objects;
    QList<qsizetype> m_selection;
};

} // namespace platform
