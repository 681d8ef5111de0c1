#pragma once

#include <functional>
#include <QMenu>

/// Fills the menu with the placeholders of the resource `placeholder.plist`: a dictionary from a
/// placeholder's name to its text, in the file's order. A name with an empty text opens a submenu
/// for those behind it. Names are shown as the strings table "Placeholder" has them; choosing one
/// calls `insert` with its text. Without the resource nothing is added.
void LSMFillPlaceholderMenu(QMenu *menu, const std::function<void(const QString &text)> &insert);
