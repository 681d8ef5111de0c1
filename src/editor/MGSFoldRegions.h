#pragma once

#include "platform/text/TextStorage.h"
#include <map>

/// By its first line, the last line of what can be folded there.
using MGSFoldRegions = std::map<qsizetype, qsizetype>;

/// The elements and comments of an HTML text that begin on one of the lines (zero-based) and have
/// lines between their first and their last one, of several on a line the longest. Those that end
/// more than `MGSTagPartnerReach` units behind the lines are not seen, and of very long lines only
/// the start is: so it costs no more in a long text.
MGSFoldRegions mgs_foldRegions(const platform::TextStorage &text, qsizetype firstLine,
                               qsizetype lastLine);
