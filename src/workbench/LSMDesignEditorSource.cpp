// The HTML tab of the design editor: the code editor, its popups, and a text of its own for each
// design.

#include "editor/MGSExtraInterfaceController.h"
#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "kit/ui/ZQViewExtensions.h"
#include "library/LSMDesignKeys.h"
#include "platform/Bundle.h"
#include "platform/text/view/FindBar.h"
#include "ui_LSMDesignEditorViewController.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMEditorSettings.h"
#include "workbench/LSMPlaceholderMenu.h"

#include <QMenu>

using LSMDesignKeys::layoutMarker;
using platform::localized;
using platform::TextRange;

namespace {

constexpr qsizetype longestTitle = 100; // of a layout in the menu; a forgotten "]" is far away

} // namespace

void LSMDesignEditorViewController::configureFragariaView()
{
    MGSFragariaView *view = m_ui->fragariaView;
    new LSMEditorSettings(view);
    view->setTextViewDelegate(this);
    view->textView()->setRichText(false);
    view->textView()->setAccessibleName(localized("HTML of the design"));
    for (QAction *command : textCommands())
        command->setShortcutContext(Qt::WindowShortcut);
    connect(view->findBar(), &platform::FindBar::commandWillAct, this,
            [this] { setSelectedTab(HtmlTab); });
}

QList<QAction *> LSMDesignEditorViewController::textCommands() const
{
    return m_ui->fragariaView->findBar()->commands();
}

QMenu *LSMDesignEditorViewController::codeMenu() const
{
    return m_ui->fragariaView->textView()->interfaceController()->contextMenu();
}

void LSMDesignEditorViewController::printSource()
{
    m_ui->fragariaView->textView()->runPrintPanel(m_design->templateName());
}

void LSMDesignEditorViewController::populatePlaceholderMenu()
{
    m_ui->placeholderPopup->setText(localized("Placeholders"));
    auto *menu = new QMenu(m_ui->placeholderPopup);
    LSMFillPlaceholderMenu(menu, [this](const QString &text) { insertPlaceholder(text); });
    m_ui->placeholderPopup->setMenu(menu);
    m_ui->layoutPopup->setText(localized("Layouts"));
    m_ui->layoutPopup->setMenu(new QMenu(m_ui->layoutPopup));
}

void LSMDesignEditorViewController::insertPlaceholder(const QString &text)
{
    platform::TextView *view = m_ui->fragariaView->textView();
    view->changeText(view->selectedRange(), text);
    view->setFocus();
}

void LSMDesignEditorViewController::updateLayoutPopupForTemplate(LSMDesignTemplate *design)
{
    const bool isCustom = design && design->isCustomDesignTemplate();
    m_ui->layoutPopup->setEnabled(isCustom);
    m_ui->placeholderPopup->setEnabled(isCustom);
    if (!isCustom)
        return;
    QMenu *menu = m_ui->layoutPopup->menu();
    menu->clear();
    const QString html = design->htmlSourceCode();
    const qsizetype lastEnd = html.lastIndexOf(u']');
    for (qsizetype at = html.indexOf(layoutMarker); at >= 0 && at < lastEnd;
         at = html.indexOf(layoutMarker, at + layoutMarker.size())) {
        const QStringView near = QStringView(html).mid(at, longestTitle);
        const QString name =
            near.left(near.indexOf(u']')).toString().remove(layoutMarker).replace(u'_', u' ');
        const TextRange range{at, layoutMarker.size()};
        const QString title = platform::Bundle::mainBundle().localizedString(
            name, {}, QStringLiteral("DesignProperties"));
        menu->addAction(zq::withoutMnemonic(title), this,
                        [this, range] { layoutMenuSelected(range); });
    }
    if (menu->isEmpty())
        menu->addAction(localized("The HTML names no layouts"))->setEnabled(false);
}

// The text may have become shorter since the menu was made.
void LSMDesignEditorViewController::layoutMenuSelected(TextRange range)
{
    platform::TextView *view = m_ui->fragariaView->textView();
    if (range.end() <= view->textStorage()->length()) {
        view->setSelectedRange(range);
        view->scrollRangeToVisible(range);
    }
    view->setFocus();
}

// Of a text that was changed elsewhere only what differs is replaced, as one step of undo.
void LSMDesignEditorViewController::showSource()
{
    platform::TextView *view = m_ui->fragariaView->textView();
    if (m_shownDesign != m_design) {
        if (m_shownDesign) {
            Document &left = documentOf(m_shownDesign);
            left.selections = view->selections();
            left.position = view->scrollPosition();
            left.folded = view->layoutManager()->hiddenLines().stretches();
        }
        m_shownDesign = m_design;
        const Document shown =
            m_design ? documentOf(m_design)
                     : Document{std::make_shared<platform::TextStorage>(), {}, {}, {}};
        m_ui->fragariaView->replaceTextStorage(shown.text);
        for (const auto &[first, last] : shown.folded)
            view->layoutManager()->hideLines(first, last);
        view->setSelections(shown.selections);
        view->setScrollPosition(shown.position);
    }
    if (m_design)
        view->reloadString(m_design->htmlSourceCode());
    noteSaved(m_design);
}

// Also after a revert, which clears the design's mark before the text is brought back.
void LSMDesignEditorViewController::noteSaved(LSMDesignTemplate *design)
{
    const auto document = m_documents.find(design);
    if (document != m_documents.end() && !design->templateShouldBeSaved())
        platform::TextUndo::of(document->second.text.get()).markClean();
}

LSMDesignEditorViewController::Document &
LSMDesignEditorViewController::documentOf(LSMDesignTemplate *design)
{
    const auto known = m_documents.find(design);
    if (known != m_documents.end())
        return known->second;
    connect(design, &QObject::destroyed, this, [this, design] {
        m_documents.erase(design);
        if (m_shownDesign == design)
            m_shownDesign = nullptr;
    });
    connect(design, &LSMDesignTemplate::templateShouldBeSavedDidChange, this,
            [this, design] { noteSaved(design); });
    Document document{std::make_shared<platform::TextStorage>(), {}, {}, {}};
    document.text->setString(design->htmlSourceCode());
    return m_documents.emplace(design, document).first->second;
}

bool LSMDesignEditorViewController::shouldChangeTextInRanges(platform::TextView *,
                                                             const std::vector<TextRange> &,
                                                             const QStringList &)
{
    m_previewDelay.start();
    return true;
}

void LSMDesignEditorViewController::textDidChange(platform::TextView *)
{
    if (!m_design)
        return;
    m_design->setHtmlSourceCodeFrom([text = documentOf(m_design).text] { return text->string(); });
    if (m_design->isCustomDesignTemplate())
        markDirty();
}

bool LSMDesignEditorViewController::shouldReloadChangedDesignFromFile(LSMDesignTemplate *design)
{
    if (!design->templateShouldBeSaved())
        return true;
    const int answer = ZQRunAlertPanel(
        localized("Attention"),
        localized("The file containing the HTML of the design template \"%@\" has been changed "
                  "externally, as well as in the Layoutsmith. Do you want to replace the HTML with "
                  "the one on disk, or keep your current one?"),
        localized("Keep It"), localized("Replace"), {}, design->templateName());
    return answer != ZQAlertFirstButtonReturn;
}

void LSMDesignEditorViewController::didReloadChangedDesignFromFile(LSMDesignTemplate *design)
{
    if (design == m_design)
        reloadData();
}
