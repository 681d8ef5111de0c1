// What the menus and the toolbar ask for, and may ask for.
#include "workbench/LSMMainWindowController.h"

#include "kit/ui/ActionNotice.h"
#include "kit/ui/TargetAction.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ZQMenuItemValidator.h"
#include "kit/ui/ZQViewExtensions.h"
#include "kit/ZQBundleExtensions.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "ui_LSMMainWindowController.h"
#include "workbench/LSMDesignChecking.h"
#include "workbench/LSMDesignCommands.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMOutlineViewController.h"
#include "workbench/LSMPreferencesPanelController.h"
#include "workbench/LSMToolbarItems.h"

#include <QMessageBox>

using platform::localized;

namespace {

constexpr const char *appearances[] = {"auto", "light", "dark"}; // by the menu items' tags

bool check(QObject *item, bool checked)
{
    if (auto *action = qobject_cast<QAction *>(item)) {
        action->setCheckable(true);
        action->setChecked(checked);
    }
    return true;
}

} // namespace

QStringList LSMMainWindowController::toolbarAllowedItemIdentifiers(zq::Toolbar *)
{
    QStringList identifiers;
    for (const LSMToolbarItem &item : LSMToolbarItems())
        identifiers << QString::fromLatin1(item.identifier);
    return identifiers << zq::ToolbarSpaceItemIdentifier << zq::ToolbarFlexibleSpaceItemIdentifier;
}

QStringList LSMMainWindowController::toolbarDefaultItemIdentifiers(zq::Toolbar *)
{
    const QString space = zq::ToolbarSpaceItemIdentifier;
    return {QStringLiteral("toolbar_item_new"),
            QStringLiteral("toolbar_item_duplicate"),
            space,
            QStringLiteral("toolbar_item_save"),
            space,
            QStringLiteral("toolbar_item_show_in_lb"),
            space,
            QStringLiteral("toolbar_item_delete"),
            space,
            QStringLiteral("toolbar_item_revert"),
            QStringLiteral("toolbar_item_reveal")};
}

ZQToolbarItem *LSMMainWindowController::toolbarItemForItemIdentifier(zq::Toolbar *,
                                                                     const QString &identifier,
                                                                     bool)
{
    const LSMToolbarItem *description = LSMToolbarItemWithIdentifier(identifier);
    if (!description)
        return nullptr;
    auto *item = new ZQToolbarItem(identifier);
    item->setText(localized(description->label));
    item->setToolTip(localized(description->toolTip));
    item->setIcon(zq::tintedIcon(QString::fromLatin1(description->image)));
    zq::setTargetAndAction(item, this, QString::fromLatin1(description->action));
    return item;
}

bool LSMMainWindowController::validateToolbarItem(QObject *item)
{
    const auto *toolbarItem = qobject_cast<ZQToolbarItem *>(item);
    const LSMToolbarItem *description =
        toolbarItem ? LSMToolbarItemWithIdentifier(toolbarItem->itemIdentifier()) : nullptr;
    return description && zq::respondsToAction(this, QString::fromLatin1(description->action)) &&
           description->isEnabled(selectedDesign());
}

bool LSMMainWindowController::validateMenuItem(QObject *item)
{
    return ZQMenuItemValidator::validateMenuItem(item, this);
}

void LSMMainWindowController::createNewDesignAction(QObject *)
{
    m_commands->createNewDesign();
}

void LSMMainWindowController::duplicateAction(QObject *)
{
    m_commands->duplicate();
}

bool LSMMainWindowController::validateDuplicateAction(QObject *)
{
    return selectedDesign();
}

void LSMMainWindowController::printAction(QObject *)
{
    m_editor->printSource();
}

void LSMMainWindowController::renameAction(QObject *)
{
    m_editor->editName();
}

bool LSMMainWindowController::validatePrintAction(QObject *)
{
    return selectedDesign();
}

bool LSMMainWindowController::validateRenameAction(QObject *)
{
    return isCustomDesignSelected();
}

void LSMMainWindowController::saveAction(QObject *)
{
    m_commands->save();
}

bool LSMMainWindowController::validateSaveAction(QObject *)
{
    return isCustomDesignSelected() && selectedDesign()->templateShouldBeSaved();
}

void LSMMainWindowController::saveAllAction(QObject *)
{
    m_commands->saveAll();
}

bool LSMMainWindowController::validateSaveAllAction(QObject *)
{
    return m_manager->hasUnsavedDesigns();
}

void LSMMainWindowController::revertAction(QObject *)
{
    m_commands->revert();
}

void LSMMainWindowController::revealAction(QObject *)
{
    m_commands->reveal();
}

void LSMMainWindowController::deleteAction(QObject *)
{
    m_commands->remove();
}

void LSMMainWindowController::undoDeleteAction(QObject *)
{
    m_deletionNotice->hide();
    m_commands->undoDelete();
    m_ui->outlineView->setProperty("canUndo", !m_commands->titleOfDeleted().isNull());
    m_ui->outlineView->setFocus();
}

bool LSMMainWindowController::validateUndoDeleteAction(QObject *item)
{
    const QString title = m_commands->titleOfDeleted();
    if (auto *action = qobject_cast<QAction *>(item))
        action->setText(title.isNull() ? localized("Undo &Delete")
                                       : platform::format(localized("Undo &Delete of “%@”"),
                                                          zq::withoutMnemonic(title)));
    return !title.isNull();
}

void LSMMainWindowController::choosePictureAction(QObject *)
{
    m_editor->choosePicture();
}

bool LSMMainWindowController::validateChoosePictureAction(QObject *)
{
    return isCustomDesignSelected();
}

void LSMMainWindowController::showInLBAction(QObject *)
{
    m_commands->showInLotbook();
}

bool LSMMainWindowController::validateShowInLBAction(QObject *)
{
    return selectedDesign();
}

void LSMMainWindowController::saveLayoutPreviews(QObject *)
{
    m_editor->saveLayoutPreviews();
}

bool LSMMainWindowController::validateSaveLayoutPreviews(QObject *)
{
    return m_editor->canSaveLayoutPreviews();
}

void LSMMainWindowController::searchDesignsAction(QObject *)
{
    m_ui->searchField->setFocus(Qt::ShortcutFocusReason);
    m_ui->searchField->selectAll();
}

void LSMMainWindowController::switchToViewWithSenderTag(QObject *sender)
{
    m_editor->switchToViewWithSenderTag(sender);
}

bool LSMMainWindowController::validateSwitchToViewWithSenderTag(QObject *item)
{
    return check(item, zq::tag(item) == m_editor->selectedTab());
}

void LSMMainWindowController::togglePreviewAction(QObject *)
{
    m_editor->setPreviewShown(!m_editor->isPreviewShown());
}

bool LSMMainWindowController::validateTogglePreviewAction(QObject *item)
{
    return check(item, m_editor->isPreviewShown());
}

void LSMMainWindowController::turnPreviewAction(QObject *)
{
    m_editor->setPreviewBelow(!m_editor->isPreviewBelow());
}

bool LSMMainWindowController::validateTurnPreviewAction(QObject *item)
{
    return check(item, m_editor->isPreviewBelow()) && m_editor->isPreviewShown();
}

void LSMMainWindowController::reloadPreviewAction(QObject *)
{
    m_editor->reloadPreviewFromSourceCodeTextView();
}

void LSMMainWindowController::checkHtmlAction(QObject *)
{
    m_editor->checking()->setEnabled(!m_editor->checking()->isEnabled());
}

bool LSMMainWindowController::validateCheckHtmlAction(QObject *item)
{
    return check(item, m_editor->checking()->isEnabled());
}

void LSMMainWindowController::showFindingsAction(QObject *)
{
    m_editor->checking()->toggleList();
}

bool LSMMainWindowController::validateShowFindingsAction(QObject *)
{
    return m_editor->checking()->isEnabled();
}

void LSMMainWindowController::nextFindingAction(QObject *)
{
    m_editor->checking()->goToNext();
}

void LSMMainWindowController::previousFindingAction(QObject *)
{
    m_editor->checking()->goToPrevious();
}

bool LSMMainWindowController::validateNextFindingAction(QObject *)
{
    return !m_editor->checking()->findings().empty();
}

bool LSMMainWindowController::validatePreviousFindingAction(QObject *item)
{
    return validateNextFindingAction(item);
}

void LSMMainWindowController::takePreviewPictureAction(QObject *)
{
    m_editor->takePictureOfPreview();
}

bool LSMMainWindowController::validateTakePreviewPictureAction(QObject *)
{
    const LSMDesignTemplate *design = selectedDesign();
    return design && design->isCustomDesignTemplate() && m_editor->isPreviewShown() &&
           m_editor->selectedTab() == LSMDesignEditorViewController::HtmlTab;
}

void LSMMainWindowController::runToolbarCustomizationPalette(QObject *)
{
    m_toolbar->runCustomizationPalette();
}

void LSMMainWindowController::toggleToolbarVisibility(QObject *)
{
    m_toolbar->setToolbarVisible(!m_toolbar->isToolbarVisible());
}

bool LSMMainWindowController::validateToggleToolbarVisibility(QObject *item)
{
    if (auto *action = qobject_cast<QAction *>(item))
        action->setText(m_toolbar->isToolbarVisible() ? localized("Hide Toolbar")
                                                      : localized("Show Toolbar"));
    return true;
}

void LSMMainWindowController::toggleFullScreenAction(QObject *)
{
    m_window->setWindowState(m_window->windowState() ^ Qt::WindowFullScreen);
}

void LSMMainWindowController::chooseAppearanceAction(QObject *sender)
{
    platform::Appearance::shared().setChoice(
        QString::fromLatin1(appearances[qBound(0, zq::tag(sender), 2)]));
}

bool LSMMainWindowController::validateChooseAppearanceAction(QObject *item)
{
    return check(item, platform::Appearance::shared().choice() ==
                           QLatin1StringView(appearances[qBound(0, zq::tag(item), 2)]));
}

void LSMMainWindowController::showPreferencesPanel(QObject *)
{
    LSMPreferencesPanelController::sharedLSMPreferencesPanelController().showWindow(m_window.get());
}

void LSMMainWindowController::showAboutAction(QObject *)
{
    const platform::Bundle &bundle = platform::Bundle::mainBundle();
    QMessageBox box(m_window.get());
    box.setWindowTitle(localized("About The Layoutsmith"));
    box.setIconPixmap(m_window->windowIcon().pixmap(64));
    box.setText(zq::bundleDisplayName(bundle));
    box.setInformativeText(platform::format(
        localized("Version %@\n\nA workbench for listing designs."), zq::versionInfo(bundle)));
    box.exec();
}
