// The HTML tab of the design editor: the code editor and its popups.

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
#include "workbench/LSMDesignTexts.h"
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
    m_texts = new LSMDesignTexts(view);
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
    m_design->setHtmlSourceCodeFrom([text = m_texts->textOf(m_design)] { return text->string(); });
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
