#pragma once

#include "library/LSMDeletedDesigns.h"

#include <memory>
#include <QObject>

class LSMDesignEditorViewController;
class LSMDesignTemplateManager;
class LSMOutlineViewController;

/// What the window's commands on designs do: make, duplicate, save, revert, reveal, delete, and
/// show in Lotbook. Each works on the design that the outline has selected, asks what has to be
/// asked before, beeps when there is nothing that it could do, and brings outline and editor up to
/// date. Owned by the window controller; borrows what it works on; main thread.
class LSMDesignCommands : public QObject
{
    Q_OBJECT

public:
    LSMDesignCommands(LSMDesignTemplateManager *manager, LSMOutlineViewController *outline,
                      LSMDesignEditorViewController *editor, QObject *parent);

    /// "com.myserver." and the title without blanks at its ends, in lower case, each blank a
    /// hyphen.
    static QString identifierStringFromTitle(const QString &title);

    void createNewDesign(); ///< Nothing while the selected design's name or identifier clashes.
    void duplicate();
    void save(); ///< A design with changes; says so when it could not be written.
    void saveAll();
    void revert();
    void reveal();
    void remove();        ///< What is deleted can be brought back until this object goes.
    void showInLotbook(); ///< Waits for its answer, five seconds at the most.

    void undoDelete();              ///< The last one, as an unsaved design.
    QString titleOfDeleted() const; ///< What `undoDelete` brings back; null: nothing.

    /// True if nothing speaks against saving, or the user wants to save against the warnings.
    bool canSaveDesign(LSMDesignTemplate *design);

    /// False only if the design could not be written; true also when the user turned the save down.
    bool saveDesign(LSMDesignTemplate *design);

Q_SIGNALS:
    void editedStateDidChange(bool edited); ///< By a save: are there unsaved designs?
    void designWasDeleted(const QString &title);
    void didTell(const QString &text); ///< Of a save, a line for the status bar.

private:
    LSMDesignTemplate *selectedDesign() const;
    void createNewTemplate();
    void deleteTemplate(LSMDesignTemplate *design);
    void insertDesign(std::shared_ptr<LSMDesignTemplate> design);

    LSMDesignTemplateManager *m_manager;
    LSMOutlineViewController *m_outline;
    LSMDesignEditorViewController *m_editor;
    LSMDeletedDesigns m_deleted;
};
