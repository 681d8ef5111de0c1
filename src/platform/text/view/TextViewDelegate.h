#pragma once

#include "platform/text/TextRange.h"
#include <QStringList>
#include <vector>

namespace platform {

class TextView;

/// Whom a text view asks and tells. Whoever sets itself as delegate outlives the view or resets it.
/// May edit, select or ask the view from within any of these.
class TextViewDelegate
{
public:
    virtual ~TextViewDelegate() = default;

    /// Ranges in ascending order, one string for each. False: nothing is changed.
    virtual bool shouldChangeTextInRanges(TextView *, const std::vector<TextRange> &,
                                          const QStringList & /*replacements*/)
    {
        return true;
    }
    virtual void textDidChange(TextView *) {} ///< After each change by the view.
    virtual void textViewDidChangeSelection(TextView *) {}
};

} // namespace platform
