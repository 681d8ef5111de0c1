#pragma once

#include "kit/FBKVOController.h"
#include "library/LSMDesignTemplate.h"
#include "workbench/LSMPropertyTableModel.h"

#include <QUndoStack>
#include <QWidget>

class LSMValuesViewController;
class QColorDialog;

namespace Ui {
class LSMPropertyEditorViewController;
}

/// The properties tab: the settings that a design offers to those who use it, as a table of records
/// that are added, typed, reordered and edited. The list in the design's dictionary takes every
/// change at once, and each posts `LSMDesignPropertyDidChange` with the design; undo knows them
/// until another design, or another list, is shown. Only custom designs are edited.
///
/// What is there stays as it is, byte for byte, until the user edits that field: entries that are
/// no records, unknown types, values of a wrong type, colours that cannot be read. A list that is
/// none is not touched at all. Owned by the editor's view; main thread.
class LSMPropertyEditorViewController : public QWidget
{
    Q_OBJECT

public:
    explicit LSMPropertyEditorViewController(QWidget *parent = nullptr);
    ~LSMPropertyEditorViewController() override;

    /// Borrowed; null for none. To be called again whenever its list may have changed elsewhere.
    void setDesignTemplate(LSMDesignTemplate *design);

    void addProperty();
    void removeProperty(); ///< The selected ones.

    /// The records at the indexes, in their order, into the gap above row `row`. A gap directly
    /// above a dragged row moves it up by one.
    void acceptDrop(const QList<qsizetype> &indexes, qsizetype row);

    void showPropertyPopoverAction(const QModelIndex &index); ///< The values of that row.

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    using Record = LSMPropertyTableModel::Record;

    void configureTable();
    void showList(const QVariantList &entries);
    void updateEnabling();
    void startObservingKeypaths();
    void observe(const Record &record);
    void recordDidChange(const Record &record);
    void typeChangedForSelectedProperty(const Record &record, const QVariantMap &change);
    void markCurrentDesignTemplateDirty();
    void store(const QVariant &list);
    void restore(const QVariant &list);
    void endUndoStep();
    QVariantList entries() const;
    void takeSelection();
    void activateCell(const QModelIndex &index);
    void showTypePopup(const QModelIndex &index);
    void showColorPanel(const QModelIndex &index);
    void resetColorPanel();
    void popoverDidClose(const Record &record, LSMValuesViewController *values);

    std::unique_ptr<Ui::LSMPropertyEditorViewController> m_ui;
    QPointer<LSMDesignTemplate> m_design;
    QVariant m_list; // as the design has it
    platform::ArrayController m_propertiesArrayController;
    LSMPropertyTableModel m_model{&m_propertiesArrayController};
    std::shared_ptr<FBKVOController> m_propertiesKVOController;
    QPointer<QColorDialog> m_colorPanel;
    QUndoStack m_undoStack;
    int m_undoStep = 0; // what changes under one number is undone together
    bool m_isTakingSelection = false;
};
