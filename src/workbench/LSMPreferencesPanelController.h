#pragma once

#include <memory>
#include <QDialog>
#include <QPointer>

namespace Ui {
class LSMPreferencesPanelController;
}

/// The preferences: which Lotbook version the program works with, which label the folders of paid
/// designs get, and on pages of their own the settings of the code editor. One shared object, made
/// on first use; its window belongs to the window that it was first shown for, goes with that and
/// is loaded again when next asked for. All follow the user defaults while it is open. Main thread.
class LSMPreferencesPanelController : public QObject
{
    Q_OBJECT

public:
    static LSMPreferencesPanelController &sharedLSMPreferencesPanelController();

    ~LSMPreferencesPanelController() override;
    Q_DISABLE_COPY_MOVE(LSMPreferencesPanelController)

    void showWindow(QWidget *parent);
    QDialog *window() const { return m_window; } ///< Null until it is shown.

private:
    LSMPreferencesPanelController();
    void windowDidLoad();
    void populateLotbookVersionPopup();
    void populateFinderLabelPopup();
    void addEditorPages();

    /// Asks; the version changes with a restart, so agreeing to it quits the program.
    void lotbookVersionPopupChanged();
    void settingDidChange(const QString &key);

    std::unique_ptr<Ui::LSMPreferencesPanelController> m_ui;
    QPointer<QDialog> m_window;
    QByteArray m_geometry; ///< Of the window when it was closed.
};
