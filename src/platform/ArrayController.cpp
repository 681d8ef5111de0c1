#include "platform/ArrayController.h"

#include <algorithm>

namespace platform {

namespace {

QList<qsizetype> sortedIndexes(QList<qsizetype> indexes, qsizetype below)
{
    indexes.removeIf([below](qsizetype index) { return index < 0 || index >= below; });
    std::ranges::sort(indexes);
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    return indexes;
}

/// Takes them out; what it gives is in the list's order.
QVariantList taken(QVariantList &objects, const QList<qsizetype> &indexes)
{
    QVariantList found;
    for (auto index = indexes.crbegin(); index != indexes.crend(); ++index)
        found.prepend(objects.takeAt(*index));
    return found;
}

} // namespace

void ArrayController::setContent(const QVariantList &content)
{
    m_objects = content;
    const bool hadSelection = !std::exchange(m_selection, {}).isEmpty();
    Q_EMIT contentDidChange();
    Q_EMIT arrangedObjectsDidChange();
    if (hadSelection)
        Q_EMIT selectionIndexesDidChange();
}

QVariantList ArrayController::selectedObjects() const
{
    QVariantList objects;
    for (const qsizetype index : m_selection)
        objects.append(m_objects.at(index));
    return objects;
}

void ArrayController::setSelectionIndexes(const QList<qsizetype> &indexes)
{
    select(sortedIndexes(indexes, m_objects.size()));
}

void ArrayController::setSelectedObjects(const QVariantList &objects)
{
    QList<qsizetype> indexes;
    qsizetype next = 0; // objects in order are found in one walk
    for (const QVariant &object : objects) {
        const qsizetype index = m_objects.indexOf(object, next);
        indexes.append(index < 0 ? m_objects.indexOf(object) : index);
        next = indexes.constLast() + 1;
    }
    setSelectionIndexes(indexes);
}

void ArrayController::addSelectedObject(const QVariant &object)
{
    setSelectionIndexes(m_selection + QList{m_objects.indexOf(object)});
}

void ArrayController::removeSelectedObject(const QVariant &object)
{
    QList<qsizetype> indexes = m_selection;
    indexes.removeIf([&](qsizetype index) { return m_objects.at(index) == object; });
    select(std::move(indexes));
}

void ArrayController::addObject(const QVariant &object)
{
    m_objects.append(object);
    Q_EMIT arrangedObjectsDidChange();
    select({m_objects.size() - 1});
}

void ArrayController::moveObjects(const QList<qsizetype> &indexes, qsizetype target)
{
    const QVariantList moved = taken(m_objects, sortedIndexes(indexes, m_objects.size()));
    qsizetype place = std::clamp(target, qsizetype(0), m_objects.size());
    QList<qsizetype> places;
    for (const QVariant &object : moved) {
        m_objects.insert(place, object);
        places.append(place++);
    }
    if (moved.isEmpty())
        return;
    Q_EMIT arrangedObjectsDidChange();
    select(std::move(places));
}

void ArrayController::remove()
{
    if (m_selection.isEmpty())
        return;
    const qsizetype first = m_selection.constFirst();
    taken(m_objects, std::exchange(m_selection, {}));
    if (!m_objects.isEmpty())
        m_selection = {std::min(first, m_objects.size() - 1)};
    Q_EMIT arrangedObjectsDidChange();
    Q_EMIT selectionIndexesDidChange();
}

void ArrayController::select(QList<qsizetype> indexes)
{
    if (indexes == m_selection)
        return;
    m_selection = std::move(indexes);
    Q_EMIT selectionIndexesDidChange();
}

} // namespace platform
