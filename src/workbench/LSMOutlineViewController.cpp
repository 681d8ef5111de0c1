#include "workbench/LSMOutlineViewController.h"

#include "library/LSMDesignKeys.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/NotificationCenter.h"
#include "workbench/LSMNotifications.h"
#include "workbench/LSMOutlineFilter.h"
#include "workbench/LSMOutlineItemDelegate.h"
#include "workbench/LSMOutlineModel.h"
#include "workbench/LSMOutlineView.h"

#include <QScopedValueRollback>

using platform::NotificationCenter;

LSMOutlineViewController::LSMOutlineViewController(LSMOutlineView *outlineView, QObject *parent)
    : QObject(parent), m_view(outlineView), m_model(new LSMOutlineModel(this)),
      m_filter(new LSMOutlineFilter(this))
{
    m_filter->setSourceModel(m_model);
    m_view->setModel(m_filter);
    m_delegate = new LSMOutlineItemDelegate(m_view, [this](const QModelIndex &index) {
        return m_model->design(m_filter->mapToSource(index));
    });
    m_view->setItemDelegate(m_delegate);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LSMOutlineViewController::selectionDidChange);
    NotificationCenter::defaultCenter().addObserver(this, LSMDesignTitleDidChange, nullptr,
                                                    [this](const auto &) { reloadData(); });
}

void LSMOutlineViewController::setDesignTemplateManager(LSMDesignTemplateManager *manager)
{
    m_manager = manager;
    m_model->setDesignTemplateManager(manager);
}

QModelIndex LSMOutlineViewController::viewIndex(const QModelIndex &modelIndex) const
{
    return m_filter->mapFromSource(modelIndex);
}

LSMDesignTemplate *LSMOutlineViewController::selectedDesign() const
{
    const auto rows = m_view->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : m_model->design(m_filter->mapToSource(rows.first()));
}

void LSMOutlineViewController::setupInitialSelection()
{
    PLATFORM_ASSERT(m_manager, "Need designTemplateManager");
    expandGroups();
    if (!selectFirstDesignForGroupKey(LSMDesignKeys::customType))
        selectFirstDesignForGroupKey(LSMDesignKeys::builtinType);
}

void LSMOutlineViewController::selectFirstShownDesign()
{
    for (int row = 0; m_view->indexForRow(row).isValid(); ++row) {
        if (m_view->indexForRow(row).parent().isValid())
            return m_view->selectRow(row);
    }
}

void LSMOutlineViewController::expandGroups()
{
    for (int row = 0; row < m_filter->rowCount(); ++row)
        m_view->expand(m_filter->index(row, 0));
}

bool LSMOutlineViewController::selectFirstDesignForGroupKey(const QString &type)
{
    const LSMDesignTemplateGroup *group = m_manager->designTemplateGroupForType(type);
    if (!group || group->designTemplates().empty())
        return false;
    selectDesign(group->designTemplates().front().get());
    return true;
}

void LSMOutlineViewController::selectCustomDesign(LSMDesignTemplate *design)
{
    reloadData();
    if (!viewIndex(m_model->indexOf(design)).isValid()) {
        setSearchText({});
        Q_EMIT searchDidEnd();
    }
    selectDesign(design);
}

void LSMOutlineViewController::selectDesign(const LSMDesignTemplate *design)
{
    const QModelIndex index = viewIndex(m_model->indexOf(design));
    m_view->expand(index.parent());
    m_view->selectRow(m_view->rowForIndex(index));
}

void LSMOutlineViewController::reloadData()
{
    const QList<int> rows = m_view->selectedRowIndexes();
    const LSMDesignTemplate *hidden = rows.isEmpty() ? selectedDesign() : nullptr;
    QList<bool> expanded;
    for (int row = 0; row < m_filter->rowCount(); ++row)
        expanded.append(m_view->isExpanded(m_filter->index(row, 0)));
    {
        const QScopedValueRollback reloading(m_reloading, true);
        m_model->reload();
        for (int row = 0; row < expanded.size(); ++row)
            m_view->setExpanded(m_filter->index(row, 0), expanded[row]);
        if (!rows.isEmpty())
            m_view->selectRow(rows.first());
        else if (hidden) // in a group that is closed, where no row number leads to it
            m_view->selectionModel()->setCurrentIndex(viewIndex(m_model->indexOf(hidden)),
                                                      QItemSelectionModel::ClearAndSelect);
    }
    selectionDidChange();
    updateNote();
}

void LSMOutlineViewController::reloadDesign(LSMDesignTemplate *design)
{
    m_model->reloadDesign(design);
}

// A reload counts as one change of the selection at the most.
void LSMOutlineViewController::selectionDidChange()
{
    LSMDesignTemplate *design = selectedDesign();
    if (m_reloading || (design && design == m_announced))
        return;
    m_announced = design;
    NotificationCenter::defaultCenter().post(
        LSMSelectedDesignDidChange, this,
        design ? QVariantMap{{QStringLiteral("design"), QVariant::fromValue(design)}}
               : QVariantMap());
}

LSMDesignTemplate *LSMOutlineViewController::templateWithPath(const QString &path) const
{
    return m_manager->templateWithPath(path);
}

LSMDesignTemplate *LSMOutlineViewController::templateWithIdentifier(const QString &identifier) const
{
    if (identifier.isNull())
        return nullptr;
    return m_manager->firstDesign([&identifier](const LSMDesignTemplate &design) {
        return design.templateIdentifier() == identifier;
    });
}

int LSMOutlineViewController::shownDesignCount() const
{
    int count = 0;
    for (int row = 0; row < m_filter->rowCount(); ++row)
        count += m_filter->rowCount(m_filter->index(row, 0));
    return count;
}

// After every change of what is shown.
void LSMOutlineViewController::updateNote()
{
    m_view->setNote(
        isSearching() && shownDesignCount() == 0
            ? platform::format(platform::localized("No design matches “%@”."), m_searchText)
            : QString());
    Q_EMIT shownDesignsDidChange();
}

void LSMOutlineViewController::setSearchText(const QString &text)
{
    m_searchText = text.trimmed();
    if (selectedDesign())
        m_hiddenBySearch = selectedDesign();
    {
        // The view would move the selection of a row that goes to its neighbour.
        const QScopedValueRollback reloading(m_reloading, true);
        m_filter->setSearchText(text);
        expandGroups();
        m_view->selectionModel()->clear();
        if (viewIndex(m_model->indexOf(m_hiddenBySearch)).isValid())
            selectDesign(m_hiddenBySearch);
    }
    selectionDidChange();
    updateNote();
}
