#pragma once

#include <functional>
#include <QStringList>

/// The command `check [PATH...] [--json] [--fail-level LEVEL]`: what is wrong with designs, or with
/// folders of them; without paths, with those of the library. A line of text for each finding,
/// `PATH:LINE:CHARACTER: LEVEL: TEXT`, the numbers only where it has a place; JSON is a list of
/// objects. Gives the exit status: 1 for a finding of that level ("note", "warning", which is the
/// default, or "error") or above, else 0; 2 for words that make no sense.
int LSMRunCheckCommand(const QStringList &arguments,
                       const std::function<QStringList()> &libraryPaths);
