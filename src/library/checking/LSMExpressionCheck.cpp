#include "library/checking/LSMExpressionCheck.h"

#include "library/checking/LSMSpelling.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMPlaceholders.h"
#include "platform/Bundle.h"
#include "platform/Format.h"

#include <algorithm>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using LSMPlaceholders::Bracketed;
using platform::localized;
using platform::TextRange;
using enum LSMFinding::Level;

namespace LSMExpressionCheck {

namespace {

constexpr qsizetype bracketLength = 2;

class Check
{
public:
    Check(const QString &html, const QSet<QString> &properties, LSMFindingList &findings,
          const std::stop_token &stop)
        : m_html(html), m_names(LSMPlaceholders::knownNames() + properties.values()),
          m_findings(findings), m_stop(stop), m_result{html, {}}
    {
        m_names.sort();
    }

    Result result();

private:
    void checkUnclosed(TextRange range); ///< Brackets without an end; the range has no others.
    void checkParts(const Bracketed &found);
    void checkExpression(const Bracketed &found);
    void checkCondition(const Bracketed &found);
    void checkUnreadable(const Bracketed &found);
    void checkNames(const Bracketed &found);
    void checkDefaultLayout(const Bracketed &found);
    QString textOfUnknown(const QString &name) const;
    void leaveBlank(TextRange range);
    bool isKnown(const QString &name) const { return std::ranges::binary_search(m_names, name); }
    QString meant(const Bracketed &found) const; ///< Null where nobody can tell.

    const QString &m_html;
    QStringList m_names; ///< That the HTML may have, sorted.
    LSMFindingList &m_findings;
    std::stop_token m_stop;
    Result m_result;
    std::vector<TextRange> m_open; // parts, by what begins them
    QString m_defaultLayout;
};

/// As it should have been written.
Bracketed tidied(Bracketed found)
{
    static const QRegularExpression keyword(u"^(?:if|endif)\\b"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    found.inside = found.inside.simplified();
    const QString written = keyword.match(found.inside).captured();
    found.inside.replace(0, written.size(), written.toLower());
    return found;
}

/// Its closing brackets are those of something else, further down.
bool isCutOff(const Bracketed &found)
{
    static const QRegularExpression tag(u"<[/!a-z]"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineEnd(u"[\\r\\n]"_s);
    return found.inside.contains(tag) ||
           (found.inside.contains(lineEnd) && !(found.beginsPart() && found.isReadable()));
}

Result Check::result()
{
    qsizetype at = 0;
    while (const auto found = LSMPlaceholders::nextBracketed(m_html, at)) {
        if (m_stop.stop_requested())
            return std::move(m_result);
        checkUnclosed(TextRange::between(at, found->start));
        at = found->end;
        checkParts(tidied(*found));
        if (isCutOff(*found)) {
            checkUnclosed(TextRange::between(found->start, found->end));
            continue;
        }
        leaveBlank(TextRange::between(found->start, found->end));
        checkExpression(*found);
        checkDefaultLayout(*found);
    }
    checkUnclosed(TextRange::between(at, m_html.size()));
    const QString text =
        localized("There is no “[[endif]]” behind it: the part reaches to the end.");
    for (const TextRange part : m_open)
        m_findings.add(part, Warning, text);
    return std::move(m_result);
}

void Check::leaveBlank(TextRange range)
{
    const bool isValue = range.location > 0 && m_result.plain[range.location - 1] == u'=';
    std::fill_n(m_result.plain.begin() + range.location, range.length,
                QChar(isValue ? u'x' : u' '));
}

// What is no expression (a script's brackets) is none of this format's business.
void Check::checkUnclosed(TextRange range)
{
    const QStringView text = QStringView(m_html).sliced(range.location, range.length);
    for (qsizetype at = text.indexOf(u"[["); at >= 0 && !m_stop.stop_requested();) {
        const QStringView rest = text.sliced(at + bracketLength);
        const qsizetype next = rest.indexOf(u"[[");
        const QStringView inside = next < 0 ? rest : rest.first(next);
        const QStringView line = inside.left(inside.indexOf(u'\n'));
        const TextRange opening{range.location + at, bracketLength};
        if (line.contains(LSMDesignKeys::layoutMarker, Qt::CaseInsensitive))
            m_findings.add(opening, Error, localized("The layout marker has no “]]”."));
        else if (line.startsWith("LB"_L1) || line.startsWith("if "_L1))
            m_findings.add(opening, Error, localized("The placeholder has no “]]”."));
        at = next < 0 ? -1 : at + bracketLength + next;
    }
}

void Check::checkParts(const Bracketed &found)
{
    const TextRange range = TextRange::between(found.start, found.end);
    if (found.beginsPart() || found.inside == "if"_L1) {
        m_open.push_back(range);
    } else if (found.endsPart() && m_open.empty()) {
        m_findings.add(range, Warning, localized("No “[[if …]]” comes before this “[[endif]]”."));
    } else if (found.endsPart()) {
        const TextRange beginning = m_open.back();
        m_open.pop_back();
        m_result.parts.push_back({TextRange::between(beginning.end(), range.location),
                                  TextRange::between(beginning.location, range.end())});
    }
}

void Check::checkExpression(const Bracketed &found)
{
    const Bracketed better = tidied(found);
    if (better.inside == "if"_L1)
        m_findings.add(TextRange::between(found.start, found.end), Warning,
                       localized("The condition is missing; write “[[if LBTitle]]”, for one."));
    else if (found.isReadable() && better.endsPart() == found.endsPart())
        checkNames(found);
    else if (found.beginsPart())
        checkCondition(found);
    else
        checkUnreadable(found);
}

void Check::checkCondition(const Bracketed &found)
{
    const QString word = found.misplacedWord();
    m_findings.add(
        TextRange::between(found.start, found.end), Warning,
        word.isNull()
            ? localized("The condition is not complete, so the part is never shown.")
            : platform::format(localized("“%@” has no place in the condition, so the part is never "
                                         "shown; write names with “not”, “and” and “or”."),
                               word));
}

QString Check::meant(const Bracketed &found) const
{
    const Bracketed better = tidied(found);
    const bool isOfPart = better.beginsPart() || better.endsPart();
    if (better.isReadable() && (isOfPart || isKnown(better.inside)))
        return better.inside;
    return isOfPart ? QString() : LSMNearestWord(better.inside, m_names);
}

// A script's brackets may hold anything but words alone.
void Check::checkUnreadable(const Bracketed &found)
{
    static const QRegularExpression ofFormat(u"^\\s*(?:LB|if\\b|endif\\b|else)"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression words(u"^\\s*\\p{L}\\w*(?:\\s+\\w+)*\\s*$"_s,
                                          QRegularExpression::UseUnicodePropertiesOption);
    const TextRange range = TextRange::between(found.start, found.end);
    const QString meant = this->meant(found);
    if (!meant.isNull())
        m_findings.add(range, Warning,
                       platform::format(localized("Buyers would see this as it stands; did you "
                                                  "mean “[[%@]]”?"),
                                        meant));
    else if (found.inside.contains(ofFormat) || found.inside.contains(words))
        m_findings.add(range, found.inside.contains(ofFormat) ? Warning : Note,
                       localized("This is no placeholder: buyers would see it as it stands."));
}

QString Check::textOfUnknown(const QString &name) const
{
    const QString nearest = LSMNearestWord(name, m_names);
    const bool isOfProperty = LSMPlaceholders::isNameOfProperty(name);
    if (nearest.isNull())
        return platform::format(isOfProperty ? localized("The design has no property for “%@”.")
                                             : localized("There is no placeholder “%@”."),
                                name);
    return platform::format(
        isOfProperty ? localized("The design has no property for “%@”; did you mean “%@”?")
                     : localized("There is no placeholder “%@”; did you mean “%@”?"),
        name, nearest);
}

void Check::checkNames(const Bracketed &found)
{
    qsizetype at = found.start;
    for (const QString &name : found.names()) {
        const TextRange range{m_html.indexOf(name, at), name.size()};
        at = range.end();
        if (!name.startsWith(LSMDesignKeys::layoutMarker, Qt::CaseInsensitive) && !isKnown(name))
            m_findings.add(range, Warning, textOfUnknown(name));
    }
}

void Check::checkDefaultLayout(const Bracketed &found)
{
    const qsizetype marker =
        found.inside.indexOf(LSMDesignKeys::layoutMarker, 0, Qt::CaseInsensitive);
    if (marker < 0 || !found.inside.endsWith(LSMDesignKeys::defaultLayoutSuffix))
        return;
    const QString layout =
        found.inside.sliced(marker).chopped(LSMDesignKeys::defaultLayoutSuffix.size());
    if (m_defaultLayout.isNull())
        m_defaultLayout = layout;
    else if (layout != m_defaultLayout)
        m_findings.add(TextRange::between(found.start, found.end), Warning,
                       localized("There is a default layout already; this one does not count."));
}

} // namespace

Result check(const QString &html, const QSet<QString> &properties, LSMFindingList &findings,
             const std::stop_token &stop)
{
    return Check(html, properties, findings, stop).result();
}

} // namespace LSMExpressionCheck
