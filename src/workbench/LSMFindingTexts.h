#pragma once

#include "editor/SMLSyntaxError.h"
#include "library/checking/LSMFinding.h"

/// How findings look in the window.

/// The code editor's number for a level: a note is an info, 300.
float LSMWarningLevel(LSMFinding::Level level);

QIcon LSMIconOfLevel(LSMFinding::Level level);

/// "2 errors, 1 warning"; what there is none of is left out.
QString LSMCountOfFindings(const LSMFindings &findings);

/// Records for the code editor: one for each place, with all that is to say of it, and those within
/// others behind them, so that their tips are seen. Lines with notes alone keep the ground's
/// colour, and what has no place has no record.
QVariantList LSMSyntaxErrorsOf(const LSMFindings &findings);
