#pragma once

#include "library/LSMDesignTemplateManager.h"

#include <QAbstractItemModel>

/// The library as Qt's item views want it: the two groups at the top, their designs below. Holds
/// nothing of its own: items are the library's objects, borrowed. After the library gained or lost
/// designs, `reload`. Main thread.
class LSMOutlineModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    void setDesignTemplateManager(LSMDesignTemplateManager *manager); ///< Borrowed.

    void reload();
    void reloadDesign(const LSMDesignTemplate *design);

    /// The object at an index, or null.
    LSMDesignTemplateGroup *group(const QModelIndex &index) const;
    LSMDesignTemplate *design(const QModelIndex &index) const;

    QModelIndex indexOf(const LSMDesignTemplateGroup *group) const;
    QModelIndex indexOf(const LSMDesignTemplate *design) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void followDesigns();

    LSMDesignTemplateManager *m_manager = nullptr;
};
