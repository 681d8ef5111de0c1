#include "workbench/LSMOutlineModel.h"

#include "kit/ui/ZQViewExtensions.h"
#include "platform/Bundle.h"

namespace {

// A group's index carries 0, a design's the row of its group plus one.
constexpr quintptr groupId = 0;

QString accessibleText(const LSMDesignTemplate &design)
{
    QStringList parts = {design.templateName()};
    if (design.isPaidTemplate())
        parts << platform::localized("paid");
    if (design.templateShouldBeSaved())
        parts << platform::localized("not saved");
    return parts.join(QStringLiteral(", "));
}

QString toolTip(const LSMDesignTemplate &design)
{
    const QString path = design.templatePath();
    return zq::plainToolTip(design.templateName() + u'\n' +
                            (path.isNull() ? platform::localized("Not saved yet") : path));
}

} // namespace

void LSMOutlineModel::setDesignTemplateManager(LSMDesignTemplateManager *manager)
{
    m_manager = manager;
    reload();
}

void LSMOutlineModel::reload()
{
    beginResetModel();
    endResetModel();
    followDesigns();
}

// Cells are bound to their designs: a change of what a cell shows repaints it.
void LSMOutlineModel::followDesigns()
{
    m_manager->enumerateDesignsUsingBlock([this](LSMDesignTemplate *design, bool &) {
        const auto follow = [this, design] {
            reloadDesign(design);
        };
        design->disconnect(this);
        connect(design, &LSMDesignTemplate::templateNameDidChange, this, follow);
        connect(design, &LSMDesignTemplate::templateShouldBeSavedDidChange, this, follow);
        connect(design, &LSMDesignTemplate::paidTemplateDidChange, this, follow);
        connect(design, &LSMDesignTemplate::templateImageDidChange, this, follow);
    });
}

void LSMOutlineModel::reloadDesign(const LSMDesignTemplate *design)
{
    const QModelIndex index = indexOf(design);
    if (index.isValid())
        Q_EMIT dataChanged(index, index);
}

LSMDesignTemplateGroup *LSMOutlineModel::group(const QModelIndex &index) const
{
    return index.isValid() && index.internalId() == groupId
               ? m_manager->designTemplateGroups()[std::size_t(index.row())].get()
               : nullptr;
}

LSMDesignTemplate *LSMOutlineModel::design(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == groupId)
        return nullptr;
    const auto &designs =
        m_manager->designTemplateGroups()[index.internalId() - 1]->designTemplates();
    return std::size_t(index.row()) < designs.size() ? designs[std::size_t(index.row())].get()
                                                     : nullptr;
}

QModelIndex LSMOutlineModel::indexOf(const LSMDesignTemplateGroup *group) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (m_manager->designTemplateGroups()[std::size_t(row)].get() == group)
            return index(row, 0);
    }
    return {};
}

QModelIndex LSMOutlineModel::indexOf(const LSMDesignTemplate *design) const
{
    for (const auto &group : m_manager->designTemplateGroups()) {
        const auto &designs = group->designTemplates();
        for (std::size_t row = 0; row < designs.size(); ++row) {
            if (designs[row].get() == design)
                return index(int(row), 0, indexOf(group.get()));
        }
    }
    return {};
}

QModelIndex LSMOutlineModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : groupId);
}

QModelIndex LSMOutlineModel::parent(const QModelIndex &index) const
{
    return index.isValid() && index.internalId() != groupId
               ? createIndex(int(index.internalId()) - 1, 0, groupId)
               : QModelIndex();
}

int LSMOutlineModel::rowCount(const QModelIndex &parent) const
{
    if (!m_manager)
        return 0;
    if (!parent.isValid())
        return int(m_manager->designTemplateGroups().size());
    const LSMDesignTemplateGroup *parentGroup = group(parent);
    return parentGroup ? int(parentGroup->designTemplates().size()) : 0;
}

QVariant LSMOutlineModel::data(const QModelIndex &index, int role) const
{
    if (const LSMDesignTemplateGroup *item = group(index))
        return role == Qt::DisplayRole ? item->title() : QVariant();
    const LSMDesignTemplate *item = design(index);
    if (!item)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return item->templateName();
    case Qt::FontRole:
        return item->outlineViewTextFont();
    case Qt::ForegroundRole:
        return item->outlineViewTextColor();
    case Qt::ToolTipRole:
        return toolTip(*item);
    case Qt::AccessibleTextRole:
        return accessibleText(*item);
    default:
        return {};
    }
}

Qt::ItemFlags LSMOutlineModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags enabled = index.isValid() ? Qt::ItemIsEnabled : Qt::NoItemFlags;
    return design(index) ? enabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : enabled;
}
