#pragma once

#include "kit/ui/ZQCustomizableAlert.h"
#include <functional>

/// Where every alert goes: the usual presenter shows a message box, modal to the active window; a
/// test puts one with preset answers in its place. Main thread.
class ZQAlertPresenter
{
public:
    virtual ~ZQAlertPresenter() = default;

    /// Shows the alert, waits for the user and gives the result (1000 for the first button ...).
    /// Writes the suppression button's state into the alert.
    virtual int runModal(ZQCustomizableAlert &alert) = 0;

    static ZQAlertPresenter &current();

    /// Puts another presenter in place, which the caller owns and takes back; null means the usual.
    static void setCurrent(ZQAlertPresenter *presenter);

    /// Called by an alert's help button with its help anchor. None is set at first.
    static void setHelpHandler(const std::function<void(const QString &anchor)> &handler);
};
