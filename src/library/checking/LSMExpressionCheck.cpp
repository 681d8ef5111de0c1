#include "library/checking/LSMExpressionCheck.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMPlaceholders.h"
#include "platform/Bundle.h"
#include "platform/Format.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
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
        : m_html(html), m_properties(properties), m_findings(findings),
          m_stop(stop), m_result{html, {}}
    {
    }

    Result result();

private:
    void checkUnclosed(TextRange range); ///< Brackets without an end; the range has no others.
    void checkParts(const LSMPlaceholders::Bracketed &found);
    void checkExpression(const LSMPlaceholders::Bracketed &found);
    void checkNames(const LSMPlaceholders::Bracketed &found);
    void checkDefaultLayout(const LSMPlaceholders::Bracketed &found);
    void leaveBlank(TextRange range);

    const QString &m_html;
    const QSet<QString> &m_properties;
    LSMFindingList &m_findings;
    std::stop_token m_stop;
    Result m_result;
    std::vector<TextRange> m_open; // parts, by what begins them
    QString m_defaultLayout;
};

/// Its closing brackets are those of something else, further down.
bool isCutOff(const LSMPlaceholders::Bracketed &found)
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
        checkParts(*found);
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

void Check::checkParts(const LSMPlaceholders::Bracketed &found)
{
    const TextRange range = TextRange::between(found.start, found.end);
    if (found.beginsPart()) {
        m_open.push_back(range);
    } else if (found.endsPart() && m_open.empty()) {
        m_findings.add(range, Warning,
                       localized("There is no “[[if …]]” in front of it that this would end."));
    } else if (found.endsPart()) {
        const TextRange beginning = m_open.back();
        m_open.pop_back();
        m_result.parts.push_back({TextRange::between(beginning.end(), range.location),
                                  TextRange::between(beginning.location, range.end())});
    }
}

void Check::checkExpression(const LSMPlaceholders::Bracketed &found)
{
    static const QRegularExpression meant(u"^\\s*(?:LB|if\\b|endif\\b|else)"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    const TextRange range = TextRange::between(found.start, found.end);
    if (found.isReadable())
        checkNames(found);
    else if (found.beginsPart())
        m_findings.add(range, Warning,
                       localized("The condition cannot be read: the part is never there."));
    else if (found.inside.contains(meant))
        m_findings.add(range, Warning,
                       localized("This is no placeholder: buyers would see it as it stands."));
}

void Check::checkNames(const LSMPlaceholders::Bracketed &found)
{
    qsizetype at = found.start;
    for (const QString &name : found.names()) {
        const TextRange range{m_html.indexOf(name, at), name.size()};
        at = range.end();
        if (name.startsWith(LSMDesignKeys::layoutMarker, Qt::CaseInsensitive) ||
            LSMPlaceholders::isKnownName(name) || m_properties.contains(name))
            continue;
        m_findings.add(range, Warning,
                       platform::format(LSMPlaceholders::isNameOfProperty(name)
                                            ? localized("The design has no property for “%@”.")
                                            : localized("There is no placeholder “%@”."),
                                        name));
    }
}

void Check::checkDefaultLayout(const LSMPlaceholders::Bracketed &found)
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
