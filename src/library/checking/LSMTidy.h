#pragma once

#include "library/checking/LSMFinding.h"
#include <optional>
#include <QByteArray>
#include <stop_token>

/// What libtidy has to say about a piece of HTML. Faults of form that every design has, or that
/// browsers do not mind, are left out: no document type, no title, an end tag that may be missing.
///
/// There are texts that libtidy 5.6 dies of, such as a table in a table in a table, thirty thousand
/// deep, and short ones that it never comes back from, such as `<tr><dl></table>`. Neither can be
/// told beforehand, and a thread that hangs cannot be ended: so it works in a program of its own
/// (tidy/main.cpp). Any thread, several at a time.
namespace LSMTidy {

/// What a message is about: the tag at its index, an attribute of that, a character there, or the
/// last comment that begins there or before.
enum class Subject { Tag, Attribute, Character, Comment };

struct Message
{
    qsizetype index = 0; ///< In the HTML.
    LSMFinding::Level level = LSMFinding::Level::Warning;
    QString text;
    QByteArray key; ///< libtidy's own name of it.
    Subject subject = Subject::Tag;
};

struct Messages
{
    std::vector<Message> list; ///< In the order in which libtidy finds them.
    qsizetype leftOut = 0;     ///< How many more there would be, at most.
};

/// At most as many as asked for. Nullopt when it has given up on the text, or was stopped.
std::optional<Messages> messages(const QString &html, qsizetype most,
                                 const std::stop_token &stop = {});

} // namespace LSMTidy
