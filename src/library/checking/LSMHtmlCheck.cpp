#include "library/checking/LSMHtmlCheck.h"

#include "library/checking/LSMHtmlTags.h"
#include "library/checking/LSMTidy.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMPlaceholders.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/text/TextStorage.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using platform::localized;
using platform::TextRange;
using enum LSMFinding::Level;

namespace LSMHtmlCheck {

namespace {

constexpr qsizetype bracketLength = 2;
/// Of libtidy, which does not tell the gravest first.
constexpr qsizetype mostMessages = 10 * mostFindings;

/// Where HTML has the address of one picture.
struct PictureAddress
{
    QLatin1StringView tag; ///< Empty: any.
    QLatin1StringView attribute;
};

constexpr PictureAddress pictureAddresses[] = {
    {"img"_L1, "src"_L1},          {"input"_L1, "src"_L1},    {"image"_L1, "href"_L1},
    {"image"_L1, "xlink:href"_L1}, {"video"_L1, "poster"_L1}, {""_L1, "background"_L1},
};

bool isPictureAddress(const LSMHtmlTags::Tag &tag, const LSMHtmlTags::Attribute &attribute)
{
    return std::ranges::any_of(pictureAddresses, [&](const PictureAddress &one) {
        return attribute.is(one.attribute) && (one.tag.isEmpty() || tag.is(one.tag));
    });
}

/// From behind "[[if …]]" to in front of "[[endif]]".
struct Part
{
    TextRange contents;
    TextRange whole; ///< With both of these.
};

/// One check of one text.
class Check
{
public:
    Check(const QString &html, const Context &context, const std::stop_token &stop)
        : m_html(html), m_plain(html), m_context(context), m_stop(stop)
    {
        m_lines.setString(html);
    }

    LSMFindings findings()
    {
        checkBrackets();
        checkTags();
        if (!m_stop.stop_requested())
            checkForm();
        sortByPlace();
        leaveOutMany();
        return std::move(m_findings);
    }

private:
    void add(TextRange range, LSMFinding::Level level, const QString &text)
    {
        const qsizetype line = m_lines.lineAt(range.location);
        const TextRange contents = m_lines.lineContents(line);
        m_findings.push_back(
            {{},
             level,
             text,
             line + 1,
             range.location - contents.location + 1,
             qMax(qsizetype(0), qMin(range.end(), contents.end()) - range.location)});
    }

    void sortByPlace()
    {
        std::ranges::stable_sort(m_findings, {}, [](const LSMFinding &finding) {
            return std::pair(finding.line, finding.character);
        });
    }

    // The gravest stay.
    void leaveOutMany()
    {
        qsizetype more = m_leftOut;
        if (qsizetype(m_findings.size()) > mostFindings) {
            more += qsizetype(m_findings.size()) - mostFindings;
            std::ranges::stable_sort(m_findings, std::greater(), &LSMFinding::level);
            m_findings.resize(size_t(mostFindings));
            sortByPlace();
        }
        if (more == 0)
            return;
        m_findings.push_back(
            {{},
             Note,
             more == 1 ? localized("One more finding is not listed.")
                       : platform::format(localized("%ld more findings are not listed."), more)});
    }

    // Blanks stand for the expressions in what HTML is read from, letters where one is a value.
    void checkBrackets();
    void checkUnclosed(TextRange range); ///< Brackets without an end; the range has no others.
    void checkParts(const LSMPlaceholders::Bracketed &found);
    void checkExpression(const LSMPlaceholders::Bracketed &found);
    void checkNames(const LSMPlaceholders::Bracketed &found);
    void checkDefaultLayout(const LSMPlaceholders::Bracketed &found);
    void checkTags();
    void checkPictures(const LSMHtmlTags::Tag &tag);
    void checkPictureSet(QStringView set); ///< Of several sizes, in the HTML.
    void checkStyle(QStringView css);      ///< In the HTML.
    void checkScript(const LSMHtmlTags::Tag &tag);
    void checkAddress(QStringView address); ///< Of a picture, in the HTML.
    void checkForm();
    QStringView original(QStringView inPlain) const;
    bool hasBrackets(TextRange range) const { return original(range).contains(u"[["); }
    QStringView original(TextRange range) const
    {
        return QStringView(m_html).sliced(range.location, range.length);
    }
    TextRange tagAt(qsizetype index) const;
    bool isInTag(qsizetype index) const;
    void leaveOneAlternative();

    const QString &m_html;
    QString m_plain; ///< Without expressions, of the same length.
    const Context &m_context;
    std::stop_token m_stop;
    platform::TextStorage m_lines;
    LSMFindings m_findings;
    qsizetype m_leftOut = 0;       // of the findings
    std::vector<TextRange> m_open; // parts, by what begins them
    std::vector<Part> m_parts;     // that have an end
    std::vector<TextRange> m_tags;
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

void Check::checkBrackets()
{
    qsizetype at = 0;
    while (const auto found = LSMPlaceholders::nextBracketed(m_html, at)) {
        if (m_stop.stop_requested())
            return;
        checkUnclosed(TextRange::between(at, found->start));
        at = found->end;
        checkParts(*found);
        if (isCutOff(*found)) {
            checkUnclosed(TextRange::between(found->start, found->end));
            continue;
        }
        const bool isValue = found->start > 0 && m_plain[found->start - 1] == u'=';
        std::fill(m_plain.begin() + found->start, m_plain.begin() + at,
                  QChar(isValue ? u'x' : u' '));
        checkExpression(*found);
        checkDefaultLayout(*found);
    }
    checkUnclosed(TextRange::between(at, m_html.size()));
    const QString text =
        localized("There is no “[[endif]]” behind it: the part reaches to the end.");
    for (const TextRange part : m_open)
        add(part, Warning, text);
}

// What is no expression (a script's brackets) is none of this format's business.
void Check::checkUnclosed(TextRange range)
{
    const QStringView text = original(range);
    for (qsizetype at = text.indexOf(u"[["); at >= 0 && !m_stop.stop_requested();) {
        const QStringView rest = text.sliced(at + bracketLength);
        const qsizetype next = rest.indexOf(u"[[");
        const QStringView inside = next < 0 ? rest : rest.first(next);
        const QStringView line = inside.left(inside.indexOf(u'\n'));
        const TextRange opening{range.location + at, bracketLength};
        if (line.contains(LSMDesignKeys::layoutMarker, Qt::CaseInsensitive))
            add(opening, Error, localized("The layout marker has no “]]”."));
        else if (line.startsWith("LB"_L1) || line.startsWith("if "_L1))
            add(opening, Error, localized("The placeholder has no “]]”."));
        at = next < 0 ? -1 : at + bracketLength + next;
    }
}

void Check::checkParts(const LSMPlaceholders::Bracketed &found)
{
    const TextRange range = TextRange::between(found.start, found.end);
    if (found.beginsPart()) {
        m_open.push_back(range);
    } else if (found.endsPart() && m_open.empty()) {
        add(range, Warning,
            localized("There is no “[[if …]]” in front of it that this would end."));
    } else if (found.endsPart()) {
        const TextRange beginning = m_open.back();
        m_open.pop_back();
        m_parts.push_back({TextRange::between(beginning.end(), range.location),
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
        add(range, Warning, localized("The condition cannot be read: the part is never there."));
    else if (found.inside.contains(meant))
        add(range, Warning, localized("This is no placeholder: buyers would see it as it stands."));
}

void Check::checkNames(const LSMPlaceholders::Bracketed &found)
{
    qsizetype at = found.start;
    for (const QString &name : found.names()) {
        const TextRange range{m_html.indexOf(name, at), name.size()};
        at = range.end();
        if (name.startsWith(LSMDesignKeys::layoutMarker, Qt::CaseInsensitive) ||
            LSMPlaceholders::isKnownName(name) || m_context.properties.contains(name))
            continue;
        add(range, Warning,
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
        add(TextRange::between(found.start, found.end), Warning,
            localized("There is a default layout already; this one does not count."));
}

QStringView Check::original(QStringView inPlain) const
{
    return QStringView(m_html).sliced(inPlain.data() - m_plain.constData(), inPlain.size());
}

void Check::checkTags()
{
    LSMHtmlTags::forEachTag(m_plain, [this](const LSMHtmlTags::Tag &tag) {
        m_tags.push_back(TextRange::between(tag.start, tag.end));
        if (!tag.isEnd) {
            checkPictures(tag);
            checkScript(tag);
        }
        return !m_stop.stop_requested();
    });
}

void Check::checkPictures(const LSMHtmlTags::Tag &tag)
{
    for (const LSMHtmlTags::Attribute &attribute : tag.attributes) {
        if (attribute.value.isNull())
            continue;
        const QStringView value = original(attribute.value);
        if (isPictureAddress(tag, attribute))
            checkAddress(value.trimmed());
        else if (attribute.is("srcset"_L1))
            checkPictureSet(value);
        else if (attribute.is("style"_L1))
            checkStyle(value);
    }
    if (tag.is("style"_L1))
        checkStyle(original(tag.rawText));
    if (tag.is("img"_L1) && !tag.attribute("alt"_L1))
        add(TextRange::between(tag.start, tag.end), Note,
            localized("The picture has no text (alt) for those who cannot see it."));
}

void Check::checkPictureSet(QStringView set)
{
    static const QRegularExpression start(u"(?:^|,)\\s*([^\\s,]\\S*?)(?=,?(?:\\s|$))"_s);
    for (auto match = start.globalMatch(set); match.hasNext();)
        checkAddress(match.next().capturedView(1));
}

void Check::checkStyle(QStringView css)
{
    static const QRegularExpression commentOrAddress(
        u"/\\*.*?(?:\\*/|$)|url\\(\\s*(?|\"([^\"]*)|'([^']*)|&quot;(.*?)(?:&quot;|$)|"
        "&#39;(.*?)(?:&#39;|$)|([^\\s)]*))"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    for (auto match = commentOrAddress.globalMatch(css);
         match.hasNext() && !m_stop.stop_requested();)
        checkAddress(match.next().capturedView(1));
}

void Check::checkAddress(QStringView address)
{
    if (address.isEmpty())
        return; // which is a fault of form
    for (const QStringView good : {u"https:", u"data:", u"[[", u"#"}) {
        if (address.startsWith(good, Qt::CaseInsensitive))
            return;
    }
    add({address.data() - m_html.constData(), address.size()}, Warning,
        localized("The picture's address is not https: buyers may not see it."));
}

void Check::checkScript(const LSMHtmlTags::Tag &tag)
{
    const QString text = localized("Marketplaces do not allow scripts in listings.");
    const TextRange name{tag.start, tag.name.size() + 1};
    if (tag.is("script"_L1))
        return add(name, Warning, text);
    for (const LSMHtmlTags::Attribute &attribute : tag.attributes) {
        const bool isHandler = attribute.name.size() > 2 &&
                               attribute.name.startsWith(u"on", Qt::CaseInsensitive) &&
                               !attribute.value.isNull();
        if (isHandler || attribute.value.trimmed().startsWith(u"javascript:", Qt::CaseInsensitive))
            add({attribute.name.data() - m_plain.constData(), attribute.name.size()}, Warning,
                text);
    }
}

// Parts in a row that open or close the same are for one place: all but one give way to blanks.
void Check::leaveOneAlternative()
{
    static const QRegularExpression nothing(u"^(?>\\s+|<!--(?>.*?-->))*+$"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    const QString plain = m_plain;
    const auto unbalanced = [&plain](TextRange contents) {
        return LSMHtmlTags::unbalanced(
            QStringView(plain).sliced(contents.location, contents.length));
    };
    for (size_t i = 1; i < m_parts.size() && !m_stop.stop_requested(); ++i) {
        const Part &former = m_parts[i - 1];
        const auto &[contents, whole] = m_parts[i];
        if (whole.location < former.whole.end() ||
            !nothing.match(original(TextRange::between(former.whole.end(), whole.location)))
                 .hasMatch())
            continue;
        const QStringList tags = unbalanced(contents);
        if (!tags.isEmpty() && tags == unbalanced(former.contents))
            std::fill_n(m_plain.begin() + contents.location, contents.length, u' ');
    }
}

// An expression in a tag may be a value, and parts that exclude each other may use a name twice.
void Check::checkForm()
{
    leaveOneAlternative();
    const auto messages = LSMTidy::messages(m_plain, mostMessages, m_stop);
    if (!messages && !m_stop.stop_requested())
        m_findings.push_back(
            {{}, Warning, localized("The form of the HTML is too odd to be checked."), 0, 0, 0});
    if (!messages)
        return;
    m_leftOut = messages->leftOut;
    for (const LSMTidy::Message &message : messages->list) {
        const TextRange tag = tagAt(message.index);
        const bool isOfExpression =
            message.subject == LSMTidy::Subject::Attribute &&
            (hasBrackets(tag) || (!m_parts.empty() && message.key == "ANCHOR_NOT_UNIQUE"));
        // In a value, as in an address with parameters, "&" need not begin anything.
        const bool isOfValue =
            message.subject == LSMTidy::Subject::Character && isInTag(message.index);
        if (!isOfExpression && !isOfValue)
            add(tag, message.level, message.text);
    }
}

bool Check::isInTag(qsizetype index) const
{
    const auto next = std::ranges::upper_bound(m_tags, index, {}, &TextRange::location);
    return next != m_tags.begin() && index < std::prev(next)->end();
}

/// From "<" to ">", or the character there.
TextRange Check::tagAt(qsizetype index) const
{
    const qsizetype end = m_html.indexOf(u'>', index);
    const bool isTag = index < m_html.size() && m_html[index] == u'<' && end >= 0;
    return isTag ? TextRange::between(index, end + 1)
                 : TextRange{index, index < m_html.size() ? 1 : 0};
}

} // namespace

Context Context::of(const QVariantMap &info)
{
    Context context;
    for (const QVariant &record : info.value(LSMDesignKeys::properties).toList()) {
        const QString name = record.toMap().value(LSMDesignKeys::propertyName).toString();
        if (!name.isEmpty())
            context.properties.insert(LSMPlaceholders::nameOfProperty(name));
    }
    return context;
}

LSMFindings findings(const QString &html, const Context &context, const std::stop_token &stop)
{
    if (html.size() > longestHtml)
        return {{{}, Warning, localized("The HTML is too long to be checked."), 0, 0, 0}};
    return Check(html, context, stop).findings();
}

} // namespace LSMHtmlCheck
