#pragma once

#include "platform/text/TextRange.h"
#include <functional>
#include <QString>

namespace platform {

class TextView;

/// Asks for a printer and pages and prints the view's text, with a window that shows the progress
/// and cancels; all of it is modal to the view's window. `willPrint` gives a stretch of the text
/// its colours before it is printed; may be empty. Says so when the printer fails.
void runTextPrintPanel(TextView *view, const QString &title,
                       const std::function<void(TextRange)> &willPrint);

} // namespace platform
