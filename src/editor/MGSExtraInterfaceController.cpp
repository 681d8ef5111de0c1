#include "editor/MGSExtraInterfaceController.h"

#include "editor/MGSColourValues.h"
#include "editor/SMLTextView.h"
#include "kit/ui/ColorPanel.h"
#include "kit/ui/TargetAction.h"
#include "platform/Bundle.h"

#include <QColorDialog>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>

using platform::localizable;
using platform::localized;

/// A window that asks for one number.
struct MGSExtraInterfaceController::Sheet
{
    const char *name;
    const char *title;
    const char *label;
    const char *confirm;
    int minimum;
    int maximum;
    int number;
    std::function<void(int)> perform;
};

namespace {

struct Item
{
    const char *title; ///< Null: a separator.
    const char *action;
    const char *keys = nullptr; ///< While the text view has the focus.
};

constexpr Item items[] = {
    {localizable("Shift Left"), "shiftLeft"},
    {localizable("Shift Right"), "shiftRight"},
    {localizable("Comment or Uncomment"), "commentOrUncomment", "Ctrl+/"},
    {localizable("Close Tag"), "closeTag"},
    {localizable("Change Color…"), "changeColour"},
    {nullptr, nullptr},
    {localizable("Make Uppercase"), "uppercaseCharacters"},
    {localizable("Make Lowercase"), "lowercaseCharacters"},
    {localizable("Capitalize"), "capitalizeWord"},
    {nullptr, nullptr},
    {localizable("Convert Spaces to Tabs…"), "entab"},
    {localizable("Convert Tabs to Spaces…"), "detab"},
    {localizable("Remove Needless Whitespace"), "removeNeedlessWhitespace"},
    {localizable("Remove Line Endings"), "removeLineEndings"},
    {localizable("Prepare for XML"), "prepareForXML"},
    {nullptr, nullptr},
    {localizable("Fold or Unfold"), "toggleFold", "F9"},
    {localizable("Go to Line…"), "goToLine", "Ctrl+G"},
};

constexpr int widestTab = 100;

} // namespace

MGSExtraInterfaceController::~MGSExtraInterfaceController()
{
    delete m_sheet;
}

QMenu *MGSExtraInterfaceController::contextMenu()
{
    if (m_contextMenu)
        return m_contextMenu;
    m_contextMenu = new QMenu(localized("Code"), m_textView);
    for (const Item &item : items) {
        QAction *action = m_contextMenu->addAction(item.title ? localized(item.title) : QString());
        action->setSeparator(!item.title);
        if (item.action)
            zq::setTargetAndAction(action, m_textView, QString::fromLatin1(item.action));
        if (item.keys) {
            action->setShortcut(QKeySequence(QLatin1StringView(item.keys)));
            action->setShortcutContext(Qt::WidgetShortcut);
            m_textView->addAction(action);
        }
    }
    return m_contextMenu;
}

void MGSExtraInterfaceController::showEntab()
{
    show({"SMLEntab", localizable("Convert Spaces to Tabs"),
          localizable("Number of spaces for a tab:"), localizable("Convert"), 1, widestTab,
          m_textView->tabWidth(), [this](int spaces) {
              m_textView->performEntabWithNumberOfSpaces(spaces);
          }});
}

void MGSExtraInterfaceController::showDetab()
{
    show({"SMLDetab", localizable("Convert Tabs to Spaces"),
          localizable("Number of spaces for a tab:"), localizable("Convert"), 0, widestTab,
          m_textView->tabWidth(), [this](int spaces) {
              m_textView->performDetabWithNumberOfSpaces(spaces);
          }});
}

void MGSExtraInterfaceController::showGoToLine()
{
    const platform::TextStorage &text = *m_textView->textStorage();
    const qsizetype line = text.lineAt(m_textView->selectedRange().location) + 1;
    show({"SMLGoToLine", localizable("Go to Line"), localizable("Line number:"), localizable("Go"),
          1, int(text.lineCount()), int(line), [this](int number) {
              m_textView->performGoToLine(number, true);
          }});
}

void MGSExtraInterfaceController::showColours(const MGSColourValue &value)
{
    delete m_sheet;
    auto *dialog = zq::newColorPanel(m_textView->window(), localized("Change Color"), value.colour,
                                     [view = QPointer(m_textView), value](const QColor &colour) {
                                         if (view)
                                             view->performChangeColour(value, colour);
                                     });
    dialog->setObjectName(QStringLiteral("SMLChangeColour"));
    m_sheet = dialog;
    dialog->open();
}

void MGSExtraInterfaceController::show(const Sheet &sheet)
{
    delete m_sheet;
    auto *dialog = new QDialog(m_textView->window(), Qt::Sheet);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QString::fromLatin1(sheet.name));
    dialog->setWindowTitle(localized(sheet.title));

    auto *field = new QSpinBox;
    field->setRange(sheet.minimum, sheet.maximum);
    field->setValue(sheet.number);
    field->selectAll();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(localized(sheet.confirm));

    auto *form = new QFormLayout(dialog);
    form->addRow(localized(sheet.label), field);
    form->addRow(buttons);

    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(dialog, &QDialog::accepted, m_textView,
                     [field, perform = sheet.perform] { perform(field->value()); });
    m_sheet = dialog;
    dialog->open();
}
