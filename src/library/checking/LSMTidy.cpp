#include "library/checking/LSMTidy.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/ProgramRun.h"

#include <QCoreApplication>
#include <QMultiHash>
#include <QSet>

using platform::localizable;
using platform::localized;
using namespace std::chrono_literals;
using enum LSMFinding::Level;

namespace LSMTidy {

namespace {

constexpr qsizetype longestArgument = 80;
// A million characters take it a fifth of a second.
constexpr auto patience = 2s;
constexpr auto patiencePerCharacter = 4us;

/// How a message of libtidy is put; its arguments are those of libtidy's own text, in its order.
struct Wording
{
    const char *key;
    LSMFinding::Level level;
    Subject subject;
    const char *text; ///< Null: it is left out.
};

constexpr const char *mustNotStandIn = localizable("%@ must not stand in <%@>.");

constexpr Wording wordings[] = {
    {"ANCHOR_NOT_UNIQUE", Warning, Subject::Attribute,
     localizable("%@ has the name “%@”, which another has already.")},
    {"CONTENT_AFTER_BODY", Warning, Subject::Tag, localizable("HTML stands behind </body>.")},
    {"COERCE_TO_ENDTAG", Warning, Subject::Tag,
     localizable("The <%@> behind this one should probably be </%@>.")},
    {"DISCARDING_UNEXPECTED", Warning, Subject::Tag, localizable("%@ has no place here.")},
    {"DOCTYPE_AFTER_TAGS", Warning, Subject::Tag,
     localizable("The document type must stand in front of everything else.")},
    {"ILLEGAL_NESTING", Warning, Subject::Tag,
     localizable("%@ must not stand in one of its own kind.")},
    {"INVALID_ATTRIBUTE", Warning, Subject::Attribute,
     localizable("%@ cannot have an attribute “%@”.")},
    {"INVALID_NCR", Warning, Subject::Tag, localizable("This number means no character.")},
    {"MALFORMED_COMMENT_EOS", Error, Subject::Comment, localizable("The comment has no end.")},
    {"MISSING_ATTR_VALUE", Warning, Subject::Attribute,
     localizable("%@ has no value for its attribute “%@”.")},
    {"MISSING_ENDTAG_BEFORE", Warning, Subject::Tag, localizable("</%@> is missing before %@.")},
    {"MISSING_ENDTAG_FOR", Warning, Subject::Tag, localizable("</%@> is missing.")},
    {"MISSING_SEMICOLON", Warning, Subject::Character, localizable("“%@” does not end with “;”.")},
    {"MISSING_STARTTAG", Warning, Subject::Tag, localizable("<%@> is missing here.")},
    {"NON_MATCHING_ENDTAG", Warning, Subject::Tag,
     localizable("This element is not ended by an end tag of its own.")},
    {"REPLACING_ELEMENT", Warning, Subject::Tag, localizable("%@ has no place here.")},
    {"REPLACING_UNEX_ELEMENT", Warning, Subject::Tag, localizable("%@ has no place here.")},
    {"SUSPECTED_MISSING_QUOTE", Error, Subject::Tag,
     localizable("A quotation mark of an attribute is missing.")},
    {"TAG_NOT_ALLOWED_IN", Warning, Subject::Tag, localizable(mustNotStandIn)},
    {"UNEXPECTED_END_OF_FILE_ATTR", Error, Subject::Tag,
     localizable("%@ has no end; a quotation mark may be missing.")},
    {"UNEXPECTED_EQUALSIGN", Warning, Subject::Attribute,
     localizable("%@ has a “=” without the name of an attribute.")},
    {"UNEXPECTED_GT", Warning, Subject::Tag, localizable("%@ has no “>” at its end.")},
    {"UNEXPECTED_QUOTEMARK", Error, Subject::Attribute,
     localizable("%@ has a quotation mark that belongs to nothing.")},
    {"UNKNOWN_ELEMENT", Error, Subject::Tag, localizable("HTML knows no %@.")},
    {"UNKNOWN_ELEMENT_LOOKS_CUSTOM", Error, Subject::Tag, localizable("HTML knows no %@.")},
    {"UNKNOWN_ENTITY", Warning, Subject::Character,
     localizable("“%@” means no character; a plain “&” is written “&amp;”.")},
    // What is a consequence of another fault, a matter of taste, or told better elsewhere.
    {"ATTRIBUTE_VALUE_REPLACED", Note, Subject::Attribute, nullptr},
    {"BACKSLASH_IN_URI", Note, Subject::Attribute, nullptr},
    {"BAD_ATTRIBUTE_VALUE", Note, Subject::Attribute, nullptr},
    {"BAD_ATTRIBUTE_VALUE_REPLACED", Note, Subject::Attribute, nullptr},
    {"CUSTOM_TAG_DETECTED", Note, Subject::Tag, nullptr},
    {"ESCAPED_ILLEGAL_URI", Note, Subject::Attribute, nullptr},
    {"FIXED_BACKSLASH", Note, Subject::Attribute, nullptr},
    {"ID_NAME_MISMATCH", Note, Subject::Attribute, nullptr},
    {"ILLEGAL_URI_CODEPOINT", Note, Subject::Attribute, nullptr},
    {"ILLEGAL_URI_REFERENCE", Note, Subject::Attribute, nullptr},
    {"INSERTING_TAG", Note, Subject::Tag, nullptr},
    {"JOINING_ATTRIBUTE", Note, Subject::Attribute, nullptr},
    {"MISMATCHED_ATTRIBUTE_ERROR", Note, Subject::Attribute, nullptr},
    {"MISMATCHED_ATTRIBUTE_WARN", Note, Subject::Attribute, nullptr},
    {"MISSING_ATTRIBUTE", Note, Subject::Attribute, nullptr},
    {"MISSING_DOCTYPE", Note, Subject::Tag, nullptr},
    {"MISSING_ENDTAG_OPTIONAL", Note, Subject::Tag, nullptr},
    {"MISSING_QUOTEMARK", Note, Subject::Attribute, nullptr},
    {"MISSING_QUOTEMARK_OPEN", Note, Subject::Attribute, nullptr},
    {"MISSING_TITLE_ELEMENT", Note, Subject::Tag, nullptr},
    {"NESTED_EMPHASIS", Note, Subject::Tag, nullptr},
    {"NEWLINE_IN_URI", Note, Subject::Attribute, nullptr},
    {"OBSOLETE_ELEMENT", Note, Subject::Tag, nullptr},
    {"PREVIOUS_LOCATION", Note, Subject::Tag, nullptr},
    {"PROPRIETARY_ATTRIBUTE", Note, Subject::Attribute, nullptr},
    {"PROPRIETARY_ELEMENT", Note, Subject::Tag, nullptr},
    {"REPEATED_ATTRIBUTE", Note, Subject::Attribute, nullptr},
    {"SPACE_PRECEDING_XMLDECL", Note, Subject::Tag, nullptr},
    {"TRIM_EMPTY_ELEMENT", Note, Subject::Tag, nullptr},
    {"UNESCAPED_AMPERSAND", Note, Subject::Tag, nullptr},
    {"UNESCAPED_ELEMENT", Note, Subject::Tag, nullptr},
    {"WHITE_IN_URI", Note, Subject::Attribute, nullptr},
};

const Wording *wordingOf(const char *key)
{
    const auto found = std::ranges::find_if(
        wordings, [key](const Wording &one) { return qstrcmp(one.key, key) == 0; });
    return found == std::end(wordings) ? nullptr : found;
}

/// The text as libtidy can count in it: each unit is one character of one column, and lines end
/// with a line feed. What would mean something else to it is a blank.
QString countable(QString html)
{
    for (qsizetype i = 0; i < html.size(); ++i) {
        QChar &c = html[i];
        if (c == u'\r')
            c = i + 1 < html.size() && html[i + 1] == u'\n' ? u' ' : u'\n';
        else if ((c < u' ' && c != u'\n') || c == u'\x7F' || c == QChar::ByteOrderMark)
            c = u' ';
        else if (c.isSurrogate() || (c.unicode() >= 0x80 && c.unicode() < 0xA0) ||
                 c.unicode() >= 0xFFFE)
            c = u'?';
    }
    return html;
}

/// Where the lines of such a text start.
std::vector<qsizetype> lineStarts(const QString &text)
{
    std::vector<qsizetype> starts{0};
    for (qsizetype at = text.indexOf(u'\n'); at >= 0; at = text.indexOf(u'\n', at + 1))
        starts.push_back(at + 1);
    return starts;
}

// What the program hands over: records of fields. None of these stands in a countable text.
constexpr char recordEnd = '\x1e';
constexpr char fieldEnd = '\x1f';

QString filled(QString text, const QByteArrayList &arguments)
{
    qsizetype gap = 0;
    for (const QByteArray &argument : arguments) {
        gap = text.indexOf(QStringLiteral("%@"), gap);
        if (gap < 0)
            break;
        const QString value = QString::fromUtf8(argument).left(longestArgument);
        text.replace(gap, 2, value);
        gap += value.size();
    }
    return text;
}

/// layoutsmith-tidy's, beside the other modules of the program.
QString programPath()
{
    return QCoreApplication::applicationDirPath() +
           QStringLiteral("/../lib/layoutsmith/layoutsmith-tidy");
}

QStringList argumentsFor(qsizetype most)
{
    QStringList arguments{QString::number(most)};
    for (const Wording &wording : wordings) {
        if (!wording.text)
            arguments << QLatin1StringView(wording.key);
    }
    return arguments;
}

Message messageOf(const QByteArrayList &fields, const std::vector<qsizetype> &starts)
{
    const auto line = std::clamp<qsizetype>(fields.value(0).toInt(), 1, qsizetype(starts.size()));
    const QByteArray key = fields.value(2);
    const Wording *wording = wordingOf(key.constData());
    return {starts[size_t(line) - 1] + qMax<qsizetype>(1, fields.value(1).toInt()) - 1,
            wording ? wording->level : Warning,
            wording ? filled(localized(wording->text), fields.mid(4))
                    : platform::format(localized("The checker of HTML says: %@"),
                                       QString::fromUtf8(fields.value(3))),
            key, wording ? wording->subject : Subject::Tag};
}

/// Makes of what libtidy says, in its order, what there is to tell: nothing twice, and nothing of
/// its own repairs.
class Teller
{
public:
    explicit Teller(const QString &text) : m_text(text) {}

    void add(const QByteArrayList &fields, const Message &message)
    {
        const QByteArray name = fields.value(4);
        const QByteArray other = fields.value(5);
        if (message.key == "UNKNOWN_ELEMENT")
            m_unknownTags.insert(name);
        const bool isRepair = message.key == "DISCARDING_UNEXPECTED"
                                  ? isOfUnknownTag(name) || isEndOfNesting(name)
                                  : isOfReopenedTag(message, name);
        if (isRepair || isAgain(message))
            return;
        m_told.push_back(message);
        if (message.key == "TAG_NOT_ALLOWED_IN")
            m_nestings.insert(QByteArray(name).replace("<", "</"),
                              {name, other, m_told.size() - 1});
        if (message.key == "MISSING_ENDTAG_BEFORE" && !other.startsWith("</"))
            m_nestings.insert("</" + name + '>', {other, name, m_told.size() - 1});
    }

    std::vector<Message> take()
    {
        std::erase_if(m_told, [](const Message &message) { return message.text.isEmpty(); });
        return std::move(m_told);
    }

private:
    /// An element that the HTML has within another, and where that was told.
    struct Nesting
    {
        QByteArray innerTag;
        QByteArray outerName;
        size_t message = 0;
    };

    bool isAgain(const Message &message) const
    {
        return !m_told.empty() && m_told.back().index == message.index &&
               m_told.back().text == message.text;
    }

    bool isOfUnknownTag(const QByteArray &tag) const
    {
        return m_unknownTags.contains(QByteArray(tag).replace("</", "<"));
    }

    // Where the end tag comes after all, none was missing; browsers show it as it is meant.
    bool isEndOfNesting(const QByteArray &tag)
    {
        const auto found = m_nestings.constFind(tag);
        if (found == m_nestings.cend())
            return false;
        static const QSet<QByteArray> mayHoldAnything{"a", "del", "ins", "map"};
        const auto &[innerTag, outerName, told] = *found;
        m_told[told].level = LSMFinding::Level::Note;
        m_told[told].text = mayHoldAnything.contains(outerName)
                                ? QString() // it never was a fault
                                : filled(localized(mustNotStandIn), {innerTag, outerName});
        m_nestings.erase(found);
        return true;
    }

    // It opens what was not closed in time once more, in what follows.
    bool isOfReopenedTag(const Message &message, const QByteArray &name) const
    {
        return message.key.startsWith("MISSING_ENDTAG") &&
               !QStringView(m_text)
                    .sliced(message.index)
                    .startsWith(u'<' + QString::fromUtf8(name), Qt::CaseInsensitive);
    }

    const QString &m_text;
    QSet<QByteArray> m_unknownTags;
    QMultiHash<QByteArray, Nesting> m_nestings; // by the end tag that is to come, the last first
    std::vector<Message> m_told;
};

} // namespace

std::optional<Messages> messages(const QString &html, qsizetype most, const std::stop_token &stop)
{
    const QString text = countable(html);
    const auto output = platform::outputOfProgram(
        programPath(), argumentsFor(most), text.toUtf8(),
        std::chrono::ceil<std::chrono::milliseconds>(patience + patiencePerCharacter * text.size()),
        stop);
    if (!output)
        return std::nullopt;
    QByteArrayList records = output->split(recordEnd);
    const qsizetype leftOut = records.takeLast().toLongLong();
    const std::vector<qsizetype> starts = lineStarts(text);
    Teller teller(text);
    for (const QByteArray &record : records) {
        const QByteArrayList fields = record.split(fieldEnd);
        Message message = messageOf(fields, starts);
        message.index = qMin(message.index, html.size());
        teller.add(fields, message);
    }
    return Messages{teller.take(), leftOut};
}

} // namespace LSMTidy
