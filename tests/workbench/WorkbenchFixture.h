#pragma once

#include "app/AppController.h"
#include "platform/Workspace.h"
#include "support/AlertAnswers.h"
#include "support/TestSupport.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMMainWindowController.h"
#include "workbench/LSMOutlineView.h"
#include "workbench/LSMOutlineViewController.h"

#include <gtest/gtest.h>

/// A desktop that opens nothing and remembers what it was asked to show.
class RecordingWorkspace : public platform::Workspace
{
public:
    RecordingWorkspace() { setSharedWorkspace(this); }
    ~RecordingWorkspace() override { setSharedWorkspace(nullptr); }

    bool openUrl(const QUrl &url) override
    {
        opened << url;
        return true;
    }
    bool selectFile(const QString &path, const QString &) override
    {
        revealed << path;
        return true;
    }

    QList<QUrl> opened;
    QStringList revealed;
};

/// Fails on every alert that no AlertAnswers expects, which would wait for ever.
class NoAlerts : public ZQAlertPresenter
{
public:
    NoAlerts() { setCurrent(this); }
    ~NoAlerts() override { setCurrent(nullptr); }
    Q_DISABLE_COPY_MOVE(NoAlerts)

    int runModal(ZQCustomizableAlert &alert) override
    {
        ADD_FAILURE() << "nobody expects: " << alert.messageText.toStdString();
        return ZQAlertFirstButtonReturn;
    }
};

/// The launched program on a home of its own: real files, the real window, offscreen.
class WorkbenchTest : public testing::Test
{
protected:
    enum class Group { Custom, BuiltIn };

    WorkbenchTest();

    /// Writes a bundle; before `launch`. `info` is added to title and identifier. Gives its folder.
    QString writeDesign(const QString &title, Group group = Group::Custom,
                        const QByteArray &html = "<p>Hello</p>", const QVariantMap &info = {});
    QString customFolder() const;
    QString builtinFolder() const;

    void launch();
    void quit(); ///< Takes the program down, so that another `launch` can follow.

    LSMDesignTemplate *design(const QString &title) const; ///< Null if there is none.
    LSMDesignTemplate *select(const QString &title);       ///< By a click on its row.
    LSMDesignTemplate *selected() const;
    QStringList titles() const; ///< As the outline shows them.

    QMainWindow *window() const { return controller->mainWindowController()->window(); }
    LSMMainWindowController *commands() const { return controller->mainWindowController(); }
    LSMDesignEditorViewController *editor() const { return commands()->editorViewController(); }
    LSMOutlineView *outline() const { return child<LSMOutlineView>("outlineView"); }
    QAction *menuItem(const char *name) const { return child<QAction>(name); }

    bool outlineShows(const QColor &color) const; ///< Somewhere, pure.

    void clickToolbarItem(const char *identifier);
    bool toolbarItemIsEnabled(const char *identifier);
    void clickMenuItem(const char *name); ///< Opens its menu and clicks it.
    void pressShortcut(const char *name); ///< The keys of that menu item.
    void giveFocus(QWidget *widget);
    void type(QWidget *into, const QString &text); ///< At the end of a field.

    template <class Object>
    Object *child(const char *name) const
    {
        return window()->findChild<Object *>(QString::fromLatin1(name));
    }

    support::TemporaryHome home;
    RecordingWorkspace workspace;
    NoAlerts noAlerts;
    std::unique_ptr<AppController> controller;
};
