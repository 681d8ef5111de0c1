#pragma once

#include "platform/NotificationCenter.h"
#include "platform/text/view/TextViewDelegate.h"

/// The name of the notification after each paste: its object is the text view, which its user
/// information holds under "NSTextView" too (as a QObject *).
inline const QString MGSTextDidPasteNotification = QStringLiteral("MGSTextDidPasteNotification");

/// What the delegate of an SMLTextView may be told besides.
class MGSFragariaTextViewDelegate : public platform::TextViewDelegate
{
public:
    virtual void mgsTextDidPaste(const platform::Notification &) {}
};
