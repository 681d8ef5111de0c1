#pragma once

#include "platform/Appearance.h"
#include <functional>

class QObject;

namespace platform::desktop {

/// What the desktop session around the program offers, where there is one. Main thread.

/// Asks the file manager to show the file, selected. False if there is no such file manager; waits
/// a second at most, after which it counts as one that is still starting.
bool showInFileManager(const QString &path);

/// Calls `heard` with the desktop's colour scheme, once it has answered and whenever the user
/// changes it, until `context` goes. Never calls before it returned, and never without a desktop.
void watchColorScheme(QObject *context, const std::function<void(ColorScheme)> &heard);

} // namespace platform::desktop
