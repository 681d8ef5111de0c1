#pragma once

#include "kit/ui/Toolbar.h"
#include "library/LSMDesignTemplateManager.h"

#include <QMainWindow>
#include <QPointer>

class LSMDesignCommands;
class LSMDesignEditorViewController;
class LSMOutlineViewController;

namespace Ui {
class LSMMainWindowController;
}
namespace zq {
class ActionNotice;
class ElidedLabel;
class ValidationScheduler;
} // namespace zq

/// Owns the one window: the outline at the left, the design editor at the right, the toolbar, and
/// all commands on the selected design. It decides what may be done when; what the commands on
/// designs do stands in LSMDesignCommands. The selected design is always asked from the outline
/// controller. Owned by AppController; main thread.
///
/// Commands are slots `fooAction(sender)`, reached by name from menus and toolbar; `validateFoo...`
/// says whether one is enabled. A command whose slot is not there is disabled wherever it stands.
class LSMMainWindowController : public QObject, public zq::ToolbarDelegate
{
    Q_OBJECT

public:
    explicit LSMMainWindowController(QObject *parent = nullptr);
    ~LSMMainWindowController() override;

    /// Borrowed; before the window is asked for, since loading the window needs it.
    void setDesignTemplateManager(LSMDesignTemplateManager *manager) { m_manager = manager; }

    /// Loads the window on first use; it stays hidden until shown.
    QMainWindow *window();
    void makeKeyAndOrderFront();

    LSMOutlineViewController *outlineViewController() const { return m_outline; }
    LSMDesignEditorViewController *editorViewController() const { return m_editor; }
    QAction *switchToStoreMenuItem() const;
    zq::Toolbar *toolbar() const { return m_toolbar; }

    /// Brings menus and toolbar up to date when idle, after a change that no input caused.
    void validateSoon();

    // The toolbar's questions
    QStringList toolbarAllowedItemIdentifiers(zq::Toolbar *toolbar) override;
    QStringList toolbarDefaultItemIdentifiers(zq::Toolbar *toolbar) override;
    ZQToolbarItem *toolbarItemForItemIdentifier(zq::Toolbar *toolbar, const QString &identifier,
                                                bool willBeInserted) override;

public Q_SLOTS:
    void createNewDesignAction(QObject *sender = nullptr);
    void duplicateAction(QObject *sender = nullptr);
    void renameAction(QObject *sender = nullptr);
    void saveAction(QObject *sender = nullptr);
    void saveAllAction(QObject *sender = nullptr);
    void revertAction(QObject *sender = nullptr);
    void revealAction(QObject *sender = nullptr);
    void deleteAction(QObject *sender = nullptr);
    void undoDeleteAction(QObject *sender = nullptr);
    void printAction(QObject *sender = nullptr);
    void choosePictureAction(QObject *sender = nullptr);
    void showInLBAction(QObject *sender = nullptr);
    void saveLayoutPreviews(QObject *sender = nullptr);
    void takePreviewPictureAction(QObject *sender = nullptr);
    void searchDesignsAction(QObject *sender = nullptr);
    void switchToViewWithSenderTag(QObject *sender);
    void togglePreviewAction(QObject *sender = nullptr);
    void turnPreviewAction(QObject *sender = nullptr);
    void reloadPreviewAction(QObject *sender = nullptr);
    void checkHtmlAction(QObject *sender = nullptr);
    void showFindingsAction(QObject *sender = nullptr);
    void nextFindingAction(QObject *sender = nullptr);
    void previousFindingAction(QObject *sender = nullptr);
    void runToolbarCustomizationPalette(QObject *sender = nullptr);
    void toggleToolbarVisibility(QObject *sender = nullptr);
    void toggleFullScreenAction(QObject *sender = nullptr);
    void chooseAppearanceAction(QObject *sender);
    void showPreferencesPanel(QObject *sender = nullptr);
    void showAboutAction(QObject *sender = nullptr);

public:
    Q_INVOKABLE bool validateMenuItem(QObject *item);
    Q_INVOKABLE bool validateToolbarItem(QObject *item);
    Q_INVOKABLE bool validateSaveAction(QObject *item);
    Q_INVOKABLE bool validateSaveAllAction(QObject *item);
    Q_INVOKABLE bool validateDuplicateAction(QObject *item);
    Q_INVOKABLE bool validateRenameAction(QObject *item);
    Q_INVOKABLE bool validateUndoDeleteAction(QObject *item);
    Q_INVOKABLE bool validatePrintAction(QObject *item);
    Q_INVOKABLE bool validateToggleToolbarVisibility(QObject *item);
    Q_INVOKABLE bool validateChoosePictureAction(QObject *item);
    Q_INVOKABLE bool validateShowInLBAction(QObject *item);
    Q_INVOKABLE bool validateSaveLayoutPreviews(QObject *item);
    Q_INVOKABLE bool validateTakePreviewPictureAction(QObject *item);
    Q_INVOKABLE bool validateSwitchToViewWithSenderTag(QObject *item);
    Q_INVOKABLE bool validateTogglePreviewAction(QObject *item);
    Q_INVOKABLE bool validateTurnPreviewAction(QObject *item);
    Q_INVOKABLE bool validateCheckHtmlAction(QObject *item);
    Q_INVOKABLE bool validateShowFindingsAction(QObject *item);
    Q_INVOKABLE bool validateNextFindingAction(QObject *item);
    Q_INVOKABLE bool validatePreviousFindingAction(QObject *item);
    Q_INVOKABLE bool validateChooseAppearanceAction(QObject *item);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void windowDidLoad();
    void setupSidebar();
    void setupToolbar();
    void setupMenus();
    void setupStatusBar();
    void followEditor();
    void showOutlineMenu(const QPoint &globalPosition, bool onDesign);
    void restoreGeometry();
    void saveGeometry() const;
    void selectionDidChange();
    void updateStatus();
    void updateTitle();
    void setEdited(bool edited);
    LSMDesignTemplate *selectedDesign() const;
    bool isCustomDesignSelected() const;

    LSMDesignTemplateManager *m_manager = nullptr;
    std::unique_ptr<Ui::LSMMainWindowController> m_ui;
    std::unique_ptr<QMainWindow> m_window;
    LSMOutlineViewController *m_outline = nullptr;
    LSMDesignEditorViewController *m_editor = nullptr;
    LSMDesignCommands *m_commands = nullptr;
    QPointer<LSMDesignTemplate> m_followedDesign; // the selected one
    zq::Toolbar *m_toolbar = nullptr;
    zq::ValidationScheduler *m_validation = nullptr;
    zq::ActionNotice *m_deletionNotice = nullptr;
    zq::ElidedLabel *m_statusText = nullptr;
    class QLabel *m_countText = nullptr;
};
