#pragma once

#include "library/LSMDesignTemplateManager.h"

#include <QModelIndex>
#include <QObject>
#include <QPointer>

class LSMOutlineFilter;
class LSMOutlineItemDelegate;
class LSMOutlineModel;
class LSMOutlineView;

/// Feeds the sidebar's outline, two groups and their designs, and owns the selection: everything
/// that acts on the selected design asks it, and the editor follows it by the notification
/// `LSMSelectedDesignDidChange` (user information {"design": LSMDesignTemplate *}, none when
/// nothing is selected). Hears `LSMDesignTitleDidChange` and reloads. Owned by the window; main
/// thread.
class LSMOutlineViewController : public QObject
{
    Q_OBJECT

public:
    explicit LSMOutlineViewController(LSMOutlineView *outlineView, QObject *parent = nullptr);

    void setDesignTemplateManager(LSMDesignTemplateManager *manager); ///< Borrowed.

    /// The design in the selected row, or null. Borrowed from the library.
    LSMDesignTemplate *selectedDesign() const;

    /// Selects the first custom design, else the first built-in one. Called once, after the editor
    /// is ready; needs the manager.
    void setupInitialSelection();

    void selectFirstShownDesign();
    void selectDesign(const LSMDesignTemplate *design); ///< Opens its group.

    /// Shows a design of the custom group, ending a search that hides it, and selects it alone.
    void selectCustomDesign(LSMDesignTemplate *design);

    /// Reloads everything. The selection follows the row number: after a change of order another
    /// design may stand in that row.
    void reloadData();
    void reloadDesign(LSMDesignTemplate *design); ///< That row only; the selection stays.

    LSMDesignTemplate *templateWithPath(const QString &path) const;
    LSMDesignTemplate *templateWithIdentifier(const QString &identifier) const;

    /// Shows only the designs that answer to the text; empty shows all. A selected design that a
    /// search hides is selected again when it comes back.
    void setSearchText(const QString &text);
    bool isSearching() const { return !m_searchText.isEmpty(); }
    int shownDesignCount() const; ///< That answer to the search text.

Q_SIGNALS:
    void searchDidEnd(); ///< A search was ended to show a design.
    void shownDesignsDidChange();

private:
    void selectionDidChange();
    void expandGroups();
    void updateNote();
    bool selectFirstDesignForGroupKey(const QString &type); // false if it has none
    QModelIndex viewIndex(const QModelIndex &modelIndex) const;

    LSMDesignTemplateManager *m_manager = nullptr;
    LSMOutlineView *m_view;
    LSMOutlineModel *m_model;
    LSMOutlineFilter *m_filter;
    LSMOutlineItemDelegate *m_delegate;
    QString m_searchText;
    QPointer<LSMDesignTemplate> m_announced; // by the last notification
    QPointer<LSMDesignTemplate> m_hiddenBySearch;
    bool m_reloading = false;
};
