#pragma once

#include "kit/ui/ZQCustomizableAlert.h"
#include <functional>
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QVBoxLayout>

namespace zq {

/// The window of an alert: icon, bold message, informative text, accessory view, suppression check
/// box, buttons. Texts are plain, whatever stands in them. Its result (`QDialog::result`) is that
/// of the button; Escape and closing count as "Cancel" or, without one, as the last button. Borrows
/// the alert and writes the suppression button's state into it. Main thread.
class AlertBox : public QDialog
{
    Q_OBJECT

public:
    /// The help button is there when the alert has an anchor and `help` can show it.
    AlertBox(ZQCustomizableAlert &alert, const std::function<void(const QString &anchor)> &help,
             QWidget *parent);
    ~AlertBox() override; ///< Gives the accessory view back.

    void reject() override { done(m_escapeResult); }

private:
    void addTexts();
    void addSuppressionButton();
    void addButtons();
    void addHelpButton(const std::function<void(const QString &anchor)> &help);

    ZQCustomizableAlert &m_alert;
    QPointer<QWidget> m_accessoryView;
    QVBoxLayout *m_column;
    QDialogButtonBox *m_buttons;
    int m_escapeResult = ZQAlertFirstButtonReturn;
};

} // namespace zq
