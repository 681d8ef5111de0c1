#pragma once

#include "editor/MGSFragariaTextViewDelegate.h"
#include "library/LSMDesignTemplateManager.h"
#include "library/LSMDesignTemplateManagerDelegate.h"
#include "platform/text/view/TextView.h"

#include <memory>
#include <QObject>
#include <QPointer>
#include <QTimer>

class LSMDesignChecking;
class LSMDesignTexts;

namespace Ui {
class LSMDesignEditorViewController;
}

/// The right side of the window: tabs over the design that the outline has selected. It keeps the
/// model up to date as the user types, marks the design dirty, and previews the HTML 0.5 seconds
/// after the last key. Built-in designs are shown and not edited. It also answers for the user what
/// is to become of a design whose HTML another program has changed.
///
/// Hears `LSMSelectedDesignDidChange`, `LSMImageViewImageDropped`, `LSMDesignPropertyDidChange`;
/// posts `LSMDesignTitleDidChange` from the store tab. Owned by the window controller; main thread.
class LSMDesignEditorViewController : public QObject,
                                      private MGSFragariaTextViewDelegate,
                                      private LSMDesignTemplateManagerDelegate
{
    Q_OBJECT

public:
    enum Tab { DesignTab, HtmlTab, SamplesTab, PropertiesTab, StoreTab };

    explicit LSMDesignEditorViewController(QObject *parent = nullptr);
    ~LSMDesignEditorViewController() override;

    /// Borrowed; before the view is asked for.
    void setDesignTemplateManager(LSMDesignTemplateManager *manager) { m_manager = manager; }

    /// Made when first asked for; then owned by the widget it is put into.
    QWidget *view();

    LSMDesignTemplate *selectedDesign() const { return m_design; } ///< Null without one.

    /// Brings everything up to date with the selected design.
    void reloadData();

    /// The same for what is only shown: keywords, layouts, location, samples, properties, store.
    void updateFacts();

    LSMDesignChecking *checking() const { return m_checking; } ///< Once there is a view.

    QList<QAction *> textCommands() const; ///< Of the code editor, for a menu: to find and replace.
    QMenu *codeMenu() const;               ///< Its commands on code.
    void printSource();                    ///< Of the selected design; there must be one.

    void editName();         ///< Puts the keyboard into the name, all of it selected.
    void focusSelectedTab(); ///< Puts the keyboard into what the tab begins with.

    int selectedTab() const { return m_selectedTab; }
    void setSelectedTab(int tab);
    void switchToViewWithSenderTag(QObject *sender);

    bool isPreviewShown() const;
    void setPreviewShown(bool shown);
    bool isPreviewBelow() const;
    void setPreviewBelow(bool below);
    void reloadPreviewFromSourceCodeTextView();
    QList<QMenu *> previewMenus() const;         ///< Its width, size and listing.
    void takePictureOfPreview();                 ///< As the design's; beeps without a page.
    void choosePicture();                        ///< By a file dialog; as a drop.
    void insertPlaceholder(const QString &text); ///< In place of the selection.

    /// Has Lotbook render a sample of each of the selected design's layouts.
    void saveLayoutPreviews(QObject *sender = nullptr);
    bool canSaveLayoutPreviews() const; ///< Not while that is going on.
    void cancelLayoutPreviewsOfDesign(const LSMDesignTemplate *design);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void selectedTabDidChange();
    void generatingPreviewDidChange();
    void documentWasEdited();    ///< By a property: the window's edited state is due.
    void duplicateWasAskedFor(); ///< By the read-only banner's button.
    void newDesignWasAskedFor(); ///< By the button that greets where there is no design.

private:
    void viewDidLoad();
    void configureFields();
    void configureSplitter();
    void configureFragariaView();
    void populatePlaceholderMenu();
    void updateLayoutPopupForTemplate(LSMDesignTemplate *design);
    void layoutMenuSelected(platform::TextRange range);
    bool shouldChangeTextInRanges(platform::TextView *view,
                                  const std::vector<platform::TextRange> &ranges,
                                  const QStringList &replacements) override;
    void textDidChange(platform::TextView *view) override;
    void configureHostFields();
    void updateHostFields();
    void updateVersionHint();
    void templateMinLBVersionDidChange();
    void templateImageInclusionDidChange();
    void designStoreDataDidChange();
    bool shouldReloadChangedDesignFromFile(LSMDesignTemplate *design) override;
    void didReloadChangedDesignFromFile(LSMDesignTemplate *design) override;
    void subscribe();
    void selectedDesignDidChange(LSMDesignTemplate *design);
    void markDirty();
    void markCurrentDesignTemplateDirty(const QObject *design);
    void handleDroppedImage(const QString &path);
    void takePicture(const QImage &picture, const QString &path);
    void updateBanner();
    void updateEnabling();
    void updateEmptyView();

    std::unique_ptr<Ui::LSMDesignEditorViewController> m_ui;
    QPointer<QWidget> m_view;
    LSMDesignTemplateManager *m_manager = nullptr;
    QPointer<LSMDesignTemplate> m_design;
    QPointer<LSMDesignTemplate> m_previewedDesign;
    LSMDesignTexts *m_texts = nullptr;
    QTimer m_previewDelay;
    LSMDesignChecking *m_checking = nullptr;
    int m_selectedTab = DesignTab;
};
