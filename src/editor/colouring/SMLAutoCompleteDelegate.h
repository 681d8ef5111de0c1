#pragma once

#include <QStringList>

/// A source of words for the editor's completion list. Whoever hands one to the editor
/// owns it and takes it back (by a null one) before it goes.
class SMLAutoCompleteDelegate
{
public:
    virtual ~SMLAutoCompleteDelegate() = default;

    /// The candidates, in the order in which they are offered. Asked at each completion.
    virtual QStringList completions() const = 0;
};
