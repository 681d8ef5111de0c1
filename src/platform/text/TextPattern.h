#pragma once

#include "platform/Error.h"
#include "platform/text/TextStorage.h"
#include <memory>
#include <QDeadlineTimer>

namespace platform {

/// What a user looks for.
struct TextQuery
{
    QString string;
    bool isRegularExpression = false; ///< ICU's dialect; `^` and `$` stand for the ends of lines.
    bool matchesCase = false;
    bool matchesWholeWords = false; ///< No letter, mark, digit or "_" goes on beyond the match.

    bool operator==(const TextQuery &) const = default;
};

/// A query made ready to be looked for in any text, in steps as long as the caller has time. Owned
/// by whoever made it; of the thread of the texts.
class TextPattern
{
public:
    enum class Outcome {
        Found,
        Ended,       ///< There is none up to the end of the text.
        Interrupted, ///< The time is up; `position` says where to go on.
        TooCostly,   ///< At `position` the expression takes too much time or memory.
    };
    struct Step
    {
        Outcome outcome = Outcome::Ended;
        TextRange match; ///< When found; may be empty for a regular expression.
        qsizetype position = 0;
    };

    /// Null, with a sentence for the user, for an empty string or an expression that cannot be
    /// read.
    static std::unique_ptr<TextPattern> compile(const TextQuery &query, Error *error = nullptr);
    virtual ~TextPattern() = default;

    /// The first match that begins at `position` or behind. When interrupted it has always come
    /// somewhat farther, so that a loop over expired deadlines ends.
    Step find(const TextStorage &storage, qsizetype position, QDeadlineTimer deadline);

    /// Where to look for the next match when the last one was `match`.
    static qsizetype positionAfter(const TextStorage &storage, TextRange match);

    /// What `text` puts in place of a match: for a plain string `text` itself. For a regular
    /// expression `$1` and `${name}` stand for groups, `$0` for the whole, `\n`, `\t` and `\r` for
    /// line ends and tabs, a backslash before anything else for that. Nullopt, with a sentence for
    /// the user, when there is no such group, or no such match (any more).
    virtual std::optional<QString> replacement(const TextStorage &storage, TextRange match,
                                               const QString &text, Error *error = nullptr);

protected:
    virtual Step search(const TextStorage &storage, qsizetype position,
                        QDeadlineTimer deadline) = 0;

private:
    bool m_wholeWords = false;
};

} // namespace platform
