#include "workbench/LSMMainWindowController.h"

#include "kit/ui/ActionNotice.h"
#include "kit/ui/ElidedLabel.h"
#include "kit/ui/FirstResponder.h"
#include "kit/ui/TargetAction.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ValidationScheduler.h"
#include "kit/ui/ZQMenuItemValidator.h"
#include "kit/ui/ZQViewExtensions.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"
#include "ui_LSMMainWindowController.h"
#include "workbench/LSMDesignChecking.h"
#include "workbench/LSMDesignCommands.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMNotifications.h"
#include "workbench/LSMOutlineViewController.h"
#include "workbench/LSMToolbarItems.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QScreen>

using platform::localized;
using platform::UserDefaults;

namespace {

const QString geometryKey = QStringLiteral("mainWindowGeometry");
const QString sidebarKey = QStringLiteral("mainWindowSidebarWidth");
constexpr int sidebarWidth = 270;
constexpr double roomForTheFrame = 0.94; // a first window takes no more of the screen

} // namespace

LSMMainWindowController::LSMMainWindowController(QObject *parent)
    : QObject(parent), m_ui(std::make_unique<Ui::LSMMainWindowController>())
{
}

LSMMainWindowController::~LSMMainWindowController() = default;

QMainWindow *LSMMainWindowController::window()
{
    if (!m_window) {
        m_window = std::make_unique<QMainWindow>();
        m_ui->setupUi(m_window.get());
        m_outline = new LSMOutlineViewController(m_ui->outlineView, this);
        windowDidLoad();
    }
    return m_window.get();
}

void LSMMainWindowController::windowDidLoad()
{
    const QString className = QString::fromLatin1(metaObject()->className());
    PLATFORM_ASSERT(m_outline, "outlet _outlineViewController not set in %@ object", className);
    PLATFORM_ASSERT(m_ui->rightContainerView, "outlet _rightContainerView not set in %@ object",
                    className);
    m_outline->setDesignTemplateManager(m_manager);
    m_outline->reloadData();

    m_editor = new LSMDesignEditorViewController(this);
    m_editor->setDesignTemplateManager(m_manager);
    zq::fillWithSubview(m_ui->rightContainerView, m_editor->view());
    m_commands = new LSMDesignCommands(m_manager, m_outline, m_editor, this);

    setupToolbar();
    setupMenus();
    setupSidebar();
    setupStatusBar();
    followEditor();
    restoreGeometry();
    m_outline->setupInitialSelection();
    m_ui->outlineView->setFocus();
    selectionDidChange();
}

void LSMMainWindowController::setupSidebar()
{
    m_ui->splitter->setStretchFactor(0, 0);
    m_ui->splitter->setStretchFactor(1, 1);
    m_ui->searchField->addAction(zq::tintedIcon(QStringLiteral("Search")),
                                 QLineEdit::LeadingPosition);
    m_ui->searchField->installEventFilter(this);
    m_ui->outlineView->installEventFilter(this);
    connect(m_ui->searchField, &QLineEdit::textChanged, m_outline,
            &LSMOutlineViewController::setSearchText);
    connect(m_outline, &LSMOutlineViewController::searchDidEnd, m_ui->searchField,
            &QLineEdit::clear);
    connect(m_ui->outlineView, &QTreeView::activated, m_editor,
            &LSMDesignEditorViewController::focusSelectedTab);
    connect(m_ui->outlineView, &LSMOutlineView::contextMenuWasAskedFor, this,
            &LSMMainWindowController::showOutlineMenu);
}

void LSMMainWindowController::setupToolbar()
{
    m_toolbar = new zq::Toolbar(QString::fromLatin1(LSMToolbarIdentifier), m_window.get());
    m_toolbar->setAllowsUserCustomization(true);
    m_toolbar->setAutosavesConfiguration(true);
    m_toolbar->setDisplayMode(zq::ToolbarDisplayMode::IconAndLabel);
    m_toolbar->setDelegate(this);
    m_window->addToolBar(Qt::TopToolBarArea, m_toolbar);
}

void LSMMainWindowController::setupMenus()
{
    auto *firstResponder = new zq::FirstResponder(this);
    for (QAction *action : m_ui->menuEdit->actions()) {
        if (zq::respondsToAction(firstResponder, zq::action(action)))
            zq::setTargetAndAction(action, firstResponder, zq::action(action));
    }
    zq::connectActions(m_window.get(), this);
    m_ui->outlineView->addAction(m_ui->actionDelete); // elsewhere these keys delete a word
    m_ui->menuEdit->insertActions(m_ui->actionSearchDesigns, m_editor->textCommands());
    m_ui->menuEdit->insertSeparator(m_ui->actionSearchDesigns);
    m_ui->menuEdit->insertMenu(m_ui->actionSearchDesigns, m_editor->codeMenu());
    m_ui->menuEdit->insertSeparator(m_ui->actionSearchDesigns);
    for (QMenu *menu : m_editor->previewMenus())
        m_ui->menuView->insertMenu(m_ui->actionReloadPreview, menu);
    connect(m_ui->actionQuit, &QAction::triggered, qApp, &QCoreApplication::quit,
            Qt::QueuedConnection);
    m_validation = new zq::ValidationScheduler(m_window.get());
}

void LSMMainWindowController::setupStatusBar()
{
    m_statusText = new zq::ElidedLabel;
    m_countText = new QLabel;
    m_deletionNotice = new zq::ActionNotice(localized("Undo"));
    m_ui->statusBar->addWidget(m_deletionNotice);
    m_ui->statusBar->addWidget(m_statusText, 1);
    m_ui->statusBar->addPermanentWidget(m_editor->checking()->countButton());
    m_ui->statusBar->addPermanentWidget(m_countText);
    m_ui->statusBar->setSizeGripEnabled(false);
}

void LSMMainWindowController::followEditor()
{
    platform::NotificationCenter::defaultCenter().addObserver(
        this, LSMSelectedDesignDidChange, m_outline,
        [this](const auto &) { selectionDidChange(); });
    connect(m_editor, &LSMDesignEditorViewController::documentWasEdited, this,
            [this] { setEdited(true); });
    connect(m_commands, &LSMDesignCommands::editedStateDidChange, this,
            &LSMMainWindowController::setEdited);
    connect(m_commands, &LSMDesignCommands::designWasDeleted, this, [this](const QString &title) {
        m_deletionNotice->showNotice(platform::format(localized("“%@” was deleted."), title));
        m_ui->outlineView->setProperty("canUndo", true);
    });
    connect(m_ui->outlineView, &LSMOutlineView::undoWasAskedFor, this,
            [this] { undoDeleteAction(); });
    connect(m_commands, &LSMDesignCommands::didTell, m_statusText, &zq::ElidedLabel::setText);
    connect(m_deletionNotice, &zq::ActionNotice::buttonWasPressed, this,
            [this] { undoDeleteAction(); });
    connect(m_outline, &LSMOutlineViewController::shownDesignsDidChange, this,
            &LSMMainWindowController::updateStatus);
    const auto followTab = [this] {
        m_editor->codeMenu()->setEnabled(m_editor->selectedTab() ==
                                         LSMDesignEditorViewController::HtmlTab);
        validateSoon();
    };
    connect(m_editor, &LSMDesignEditorViewController::selectedTabDidChange, this, followTab);
    followTab();
    connect(m_editor, &LSMDesignEditorViewController::generatingPreviewDidChange, this,
            &LSMMainWindowController::validateSoon);
    connect(m_editor, &LSMDesignEditorViewController::duplicateWasAskedFor, this,
            [this] { duplicateAction(); });
    connect(m_editor, &LSMDesignEditorViewController::newDesignWasAskedFor, this,
            [this] { createNewDesignAction(); });
}

void LSMMainWindowController::restoreGeometry()
{
    const UserDefaults &defaults = UserDefaults::standardUserDefaults();
    if (!m_window->restoreGeometry(defaults.object(geometryKey).toByteArray()))
        m_window->resize(
            m_window->size().boundedTo(m_window->screen()->availableSize() * roomForTheFrame));
    const int width = int(defaults.integer(sidebarKey));
    m_ui->splitter->setSizes({width > 0 ? width : sidebarWidth, m_window->width()});
    m_window->installEventFilter(this);
}

void LSMMainWindowController::saveGeometry() const
{
    UserDefaults &defaults = UserDefaults::standardUserDefaults();
    defaults.setObject(geometryKey, m_window->saveGeometry());
    defaults.setObject(sidebarKey, m_ui->splitter->sizes().first());
}

void LSMMainWindowController::makeKeyAndOrderFront()
{
    window()->show();
    m_window->raise();
    m_window->activateWindow();
}

void LSMMainWindowController::validateSoon()
{
    m_validation->validateSoon();
}

QAction *LSMMainWindowController::switchToStoreMenuItem() const
{
    return m_ui->actionViewStore;
}

LSMDesignTemplate *LSMMainWindowController::selectedDesign() const
{
    return m_outline->selectedDesign();
}

bool LSMMainWindowController::isCustomDesignSelected() const
{
    return selectedDesign() && selectedDesign()->isCustomDesignTemplate();
}

void LSMMainWindowController::selectionDidChange()
{
    if (m_followedDesign)
        m_followedDesign->disconnect(this);
    m_followedDesign = selectedDesign();
    const auto follow = [this] {
        updateTitle();
        updateStatus();
        validateSoon();
    };
    if (m_followedDesign) {
        connect(m_followedDesign, &LSMDesignTemplate::templateNameDidChange, this, follow);
        connect(m_followedDesign, &LSMDesignTemplate::templateShouldBeSavedDidChange, this, follow);
    }
    follow();
}

void LSMMainWindowController::updateStatus()
{
    const LSMDesignTemplate *design = selectedDesign();
    QString state = design ? design->templatePath() : QString();
    if (design && design->templatePath().isNull())
        state = localized("Not saved yet");
    else if (design && design->templateShouldBeSaved())
        state = platform::format(localized("%@ (edited)"), state);
    m_statusText->setText(state);

    int count = 0;
    for (const auto &group : m_manager->designTemplateGroups())
        count += int(group->designTemplates().size());
    const QString all = QLocale().toString(count);
    if (m_outline->isSearching())
        m_countText->setText(platform::format(
            localized("%@ of %@ designs"), QLocale().toString(m_outline->shownDesignCount()), all));
    else
        m_countText->setText(count == 1 ? localized("1 design")
                                        : platform::format(localized("%@ designs"), all));
    if (const QStringList &leftOut = m_manager->leftOut(); !leftOut.isEmpty()) {
        m_countText->setText(platform::format(localized("%@, %@ could not be read"),
                                              m_countText->text(),
                                              QLocale().toString(leftOut.size())));
        m_countText->setToolTip(zq::plainToolTip(leftOut.join(u'\n')));
    }
}

// The mark in the title is that of the design whose name it follows.
void LSMMainWindowController::updateTitle()
{
    const LSMDesignTemplate *design = selectedDesign();
    QString title = localized("The Layoutsmith");
    if (design)
        title = design->templateName() +
                (design->templateShouldBeSaved() ? QStringLiteral("* – ") : QStringLiteral(" – ")) +
                title;
    m_window->setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

// The edited state is that of all designs, so it does not show in the title.
void LSMMainWindowController::setEdited(bool edited)
{
    m_window->setAttribute(Qt::WA_WindowModified, edited);
    validateSoon();
}

void LSMMainWindowController::showOutlineMenu(const QPoint &globalPosition, bool onDesign)
{
    m_validation->validateNow();
    auto *menu = new QMenu(m_ui->outlineView);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(m_ui->actionNewDesign);
    if (onDesign) {
        menu->addActions({m_ui->actionDuplicate, m_ui->actionRename});
        menu->addSeparator();
        menu->addActions({m_ui->actionSave, m_ui->actionRevert});
        menu->addSeparator();
        menu->addActions({m_ui->actionReveal, m_ui->actionShowInLB});
        menu->addSeparator();
        menu->addAction(m_ui->actionDelete);
    }
    menu->popup(globalPosition);
}

bool LSMMainWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window.get() && event->type() == QEvent::Hide)
        saveGeometry();
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (watched == m_ui->searchField &&
        (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter)) {
        if (!selectedDesign())
            m_outline->selectFirstShownDesign();
        m_ui->outlineView->setFocus();
        return true;
    }
    if (watched == m_ui->searchField && key == Qt::Key_Escape) {
        m_ui->searchField->clear();
        m_ui->outlineView->setFocus();
        return true;
    }
    if (watched == m_ui->outlineView && key == Qt::Key_Delete) {
        deleteAction();
        return true;
    }
    return false;
}
