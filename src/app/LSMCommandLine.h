#pragma once

#include <optional>
#include <QStringList>

/// The commands that need no window: `list [--json]`, `show NAME`, `check` (LSMCheckCommand.h),
/// `colour` (LSMColourCommand.h), for scripts. They read the same folders as the window and change
/// nothing. Output goes to standard output in UTF-8, complaints to standard error.
namespace LSMCommandLine {

/// Runs the command that `arguments` (without the program's name) begin with and gives the exit
/// status: 0, 1 for findings or a design that is not there, 2 for words that make no sense. Nullopt
/// when the arguments name no command. Needs a QCoreApplication or one of its kin.
std::optional<int> run(const QStringList &arguments);

} // namespace LSMCommandLine
