#include "editor/MGSColourSchemeSaveController.h"

#include "kit/ui/ZQRunAlertPanel.h"
#include "platform/Bundle.h"
#include "ui_MGSColourSchemeSave.h"

#include <QDialog>
#include <QPushButton>

using platform::localized;

QString MGSColourSchemeSaveController::fileName() const
{
    static const QString forbidden = QStringLiteral("/\\?%*|\"<>");
    QString name = m_schemeName;
    return name.removeIf([](QChar c) { return forbidden.contains(c); });
}

void MGSColourSchemeSaveController::showSchemeNameGetter(QWidget *parent,
                                                         const Completion &completion)
{
    if (m_sheet)
        return m_sheet->raise();
    m_sheet = new QDialog(parent);
    m_sheet->setAttribute(Qt::WA_DeleteOnClose);
    Ui::MGSColourSchemeSave ui;
    ui.setupUi(m_sheet);
    ui.schemeNameField->setText(m_schemeName);
    ui.schemeNameField->selectAll();
    QPushButton *bSave = ui.buttons->addButton(localized("Save"), QDialogButtonBox::AcceptRole);
    bSave->setObjectName(QStringLiteral("bSave"));
    ui.buttons->addButton(localized("Cancel"), QDialogButtonBox::RejectRole);
    connect(ui.schemeNameField, &QLineEdit::textChanged, this, [this, bSave](const QString &name) {
        m_schemeName = name;
        bSave->setEnabled(isSaveButtonEnabled());
    });
    connect(ui.buttons, &QDialogButtonBox::accepted, this, [this] { closeSheet(true); });
    connect(ui.buttons, &QDialogButtonBox::rejected, this, [this] { closeSheet(false); });
    connect(m_sheet, &QDialog::finished, this, [this, completion](int result) {
        m_sheet = nullptr; // it deletes itself, and may be asked for again
        completion(result == QDialog::Accepted);
    });
    m_sheet->open();
}

void MGSColourSchemeSaveController::showDeleteConfirmation(QWidget *, const Completion &completion)
{
    completion(ZQRunAlertPanel(localized("Delete the scheme?"),
                               localized("Deleted schemes cannot be restored."),
                               localized("Delete"),
                               localized("Cancel")) == ZQAlertFirstButtonReturn);
}

void MGSColourSchemeSaveController::closeSheet(bool confirmed)
{
    if (m_sheet)
        m_sheet->done(confirmed ? QDialog::Accepted : QDialog::Rejected);
}
