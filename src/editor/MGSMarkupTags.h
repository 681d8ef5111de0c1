#pragma once

#include "platform/text/TextRange.h"
#include <QStringView>
#include <vector>

/// A tag of an element that has both tags, or a comment as a whole.
struct MGSMarkupTag
{
    enum class Kind { Opening, Closing, Comment };

    platform::TextRange range; ///< "<" and ">" included.
    QStringView name;          ///< Empty for a comment.
    Kind kind = Kind::Opening;

    bool hasNameOf(const MGSMarkupTag &other) const
    {
        return name.compare(other.name, Qt::CaseInsensitive) == 0;
    }
};

/// Whether texts in the language, by its name in any case, have tags.
bool mgs_isMarkup(const QString &language);

/// Those of HTML text, in order; the names are borrowed from it. Tags that close
/// themselves and elements that have no end are left out; nothing is found behind a comment that
/// does not end.
std::vector<MGSMarkupTag> mgs_markupTags(QStringView text);
