#pragma once

#include "platform/Error.h"
#include <optional>
#include <vector>

/// A script as a tree: what `parse` makes and the interpreter walks. Values; any thread.
namespace platform::applescript {

struct Expression
{
    enum class Kind {
        Text,     ///< `text` is the literal's value.
        Variable, ///< `text` is its name.
        Property, ///< `text` of `object`
        Joined,   ///< `parts`, one after the other
    };
    Kind kind = Kind::Joined;
    QString text;
    QString object;
    std::vector<Expression> parts;
};

struct Statement
{
    enum class Kind {
        Tell,   ///< `body`, to the application `name`
        Try,    ///< `body`; should it fail, `handler`, with the error's text in the variable `name`
        Set,    ///< The property `name` of `object`, or the variable `name`, to `value`.
        Return, ///< `value`
        Command,  ///< `name`, with `value` if there is one; a variable's name alone is its value.
        Evaluate, ///< `value`
    };
    Kind kind = Kind::Evaluate;
    int line = 0; ///< One-based.
    QString name;
    QString object; ///< Null for a variable.
    std::optional<Expression> value;
    std::vector<Statement> body;
    std::vector<Statement> handler;
};

using Script = std::vector<Statement>;

/// Nullopt, with the line and what was expected there, for a text that is no script. Keywords are
/// read in any case. Statements and parentheses nest up to 50 deep.
std::optional<Script> parse(const QString &source, Error *error);

} // namespace platform::applescript
