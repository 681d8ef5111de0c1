#include "platform/text/view/TextPrintPanel.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/text/TextPrinter.h"
#include "platform/text/view/TextView.h"
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>

namespace platform {

void runTextPrintPanel(TextView *view, const QString &title,
                       const std::function<void(TextRange)> &willPrint)
{
    QPrinter device(QPrinter::HighResolution);
    device.setDocName(title);
    QPrintDialog dialog(&device, view);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const int steps = 1000;
    QProgressDialog progress(format(localized("Printing “%@”…"), title), localized("Cancel"), 0,
                             steps, view);
    progress.setWindowTitle(localized("Print"));
    progress.setWindowModality(Qt::WindowModal);
    TextPrinter printer(view->layoutManager());
    printer.setTitle(title);
    printer.setWillPrint(willPrint);
    printer.setProgress([&progress](double done) {
        progress.setValue(int(done * steps)); // turns the event loop when it has changed
        return !progress.wasCanceled();
    });
    Error error;
    const TextPrinter::Outcome outcome = printer.print(&device, &error);
    if (outcome == TextPrinter::Outcome::Cancelled)
        device.abort();
    progress.close();
    if (outcome == TextPrinter::Outcome::Failed)
        QMessageBox::warning(view, localized("Print"), error.description);
}

} // namespace platform
