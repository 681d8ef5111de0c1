#pragma once

#include "platform/text/TextRange.h"
#include <optional>
#include <QColor>
#include <QMap>
#include <QSet>

class MGSFragariaView;
class QMenu;

/// Knows the breakpoints that the gutter shows. Lines are one-based, and the view may be null for a
/// gutter of its own. One of the first two operations has to be implemented.
class MGSBreakpointDelegate
{
public:
    virtual ~MGSBreakpointDelegate() = default;

    virtual std::optional<QMap<qsizetype, QColor>> colouredBreakpointsForFragaria(MGSFragariaView *)
    {
        return std::nullopt;
    }
    virtual std::optional<QSet<qsizetype>> breakpointsForFragaria(MGSFragariaView *)
    {
        return std::nullopt;
    }

    /// An invalid colour: the default one.
    virtual QColor breakpointColourForLine(qsizetype /*line*/, MGSFragariaView *) { return {}; }
    virtual void toggleBreakpointForFragaria(MGSFragariaView *, qsizetype /*onLine*/) {}

    /// The menu of a right click; the gutter deletes it. Null: the usual menu.
    virtual QMenu *menuForBreakpointInLine(qsizetype /*line*/, MGSFragariaView *)
    {
        return nullptr;
    }

    /// An edit has changed the number of lines: by how many, and which lines it spans now, first
    /// line and count.
    virtual void fixBreakpointsOfAddedLines(qsizetype /*delta*/,
                                            platform::TextRange /*inLineRange*/, MGSFragariaView *)
    {
    }
};
