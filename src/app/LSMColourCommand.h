#pragma once

#include <QStringList>

/// The command `colour FILE [--language NAME] [--json|--html]`: how the editor would colour a file,
/// all of it at once. JSON is a list of runs in order, each with its group and its location and
/// length in UTF-16 units; HTML is a page that shows the text. Gives the exit status: 0, 1 for a
/// file or a definition that cannot be used, 2 for words that make no sense.
int LSMRunColourCommand(const QStringList &arguments);
