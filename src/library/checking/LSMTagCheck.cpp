#include "library/checking/LSMTagCheck.h"

#include "platform/Bundle.h"
#include "platform/Format.h"

#include <algorithm>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;
using platform::localizable;
using platform::localized;
using platform::TextRange;
using enum LSMFinding::Level;

namespace {

constexpr const char *pictureText =
    localizable("The picture's address is not https: buyers may not see it.");
constexpr const char *fileText = localizable("The address is not https: browsers may not load it.");

/// Where HTML has the address of something that is shown with it.
struct Address
{
    QLatin1StringView tag; ///< Empty: any.
    QLatin1StringView attribute;
    const char *text; ///< When it is none that buyers can see.
};

constexpr Address addresses[] = {
    {"img"_L1, "src"_L1, pictureText},      {"input"_L1, "src"_L1, pictureText},
    {"image"_L1, "href"_L1, pictureText},   {"image"_L1, "xlink:href"_L1, pictureText},
    {"video"_L1, "poster"_L1, pictureText}, {""_L1, "background"_L1, pictureText},
    {"audio"_L1, "src"_L1, fileText},       {"embed"_L1, "src"_L1, fileText},
    {"iframe"_L1, "src"_L1, fileText},      {"object"_L1, "data"_L1, fileText},
    {"source"_L1, "src"_L1, fileText},      {"video"_L1, "src"_L1, fileText},
};

/// Null where it has none.
const char *textOfAddress(const LSMHtmlTags::Tag &tag, const LSMHtmlTags::Attribute &attribute)
{
    const auto found = std::ranges::find_if(addresses, [&](const Address &one) {
        return attribute.is(one.attribute) && (one.tag.isEmpty() || tag.is(one.tag));
    });
    return found == std::end(addresses) ? nullptr : found->text;
}

/// Other links are only there to be followed.
bool isStyleSheet(const LSMHtmlTags::Tag &tag)
{
    const LSMHtmlTags::Attribute *relation = tag.attribute("rel"_L1);
    return tag.is("link"_L1) && relation &&
           relation->value.contains(u"stylesheet", Qt::CaseInsensitive);
}

} // namespace

void LSMTagCheck::check(const LSMHtmlTags::Tag &tag)
{
    checkAddresses(tag);
    checkRepetitions(tag);
    checkScript(tag);
}

QStringView LSMTagCheck::original(QStringView inPlain) const
{
    return QStringView(m_html).sliced(inPlain.data() - m_plain.constData(), inPlain.size());
}

void LSMTagCheck::checkAddresses(const LSMHtmlTags::Tag &tag)
{
    for (const LSMHtmlTags::Attribute &attribute : tag.attributes) {
        if (attribute.value.isNull())
            continue;
        const QStringView value = original(attribute.value);
        if (const char *text = textOfAddress(tag, attribute))
            checkAddress(value.trimmed(), text);
        else if (attribute.is("href"_L1) && isStyleSheet(tag))
            checkAddress(value.trimmed(), fileText);
        else if (attribute.is("srcset"_L1))
            checkPictureSet(value);
        else if (attribute.is("style"_L1))
            checkStyle(value);
    }
    if (tag.is("style"_L1))
        checkStyle(original(tag.rawText));
    if (tag.is("img"_L1) && !tag.attribute("alt"_L1))
        m_findings.add(TextRange::between(tag.start, tag.end), Note,
                       localized("The picture has no text (alt) for those who cannot see it."));
}

void LSMTagCheck::checkPictureSet(QStringView set)
{
    static const QRegularExpression start(u"(?:^|,)\\s*([^\\s,]\\S*?)(?=,?(?:\\s|$))"_s);
    for (auto match = start.globalMatch(set); match.hasNext();)
        checkAddress(match.next().capturedView(1), pictureText);
}

void LSMTagCheck::checkStyle(QStringView css)
{
    static const QRegularExpression commentOrAddress(
        u"/\\*.*?(?:\\*/|$)|url\\(\\s*(?|\"([^\"]*)|'([^']*)|&quot;(.*?)(?:&quot;|$)|"
        "&#39;(.*?)(?:&#39;|$)|([^\\s)]*))"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    for (auto match = commentOrAddress.globalMatch(css); match.hasNext();)
        checkAddress(match.next().capturedView(1), pictureText);
}

void LSMTagCheck::checkAddress(QStringView address, const char *text)
{
    if (address.isEmpty())
        return; // which is a fault of form
    for (const QStringView good : {u"https:", u"data:", u"[[", u"#"}) {
        if (address.startsWith(good, Qt::CaseInsensitive))
            return;
    }
    m_findings.add({address.data() - m_html.constData(), address.size()}, Warning, localized(text));
}

// An expression may leave all but one of them out.
void LSMTagCheck::checkRepetitions(const LSMHtmlTags::Tag &tag)
{
    if (QStringView(m_html).sliced(tag.start, tag.end - tag.start).contains(u"[["))
        return;
    QSet<QString> names;
    for (const LSMHtmlTags::Attribute &attribute : tag.attributes) {
        const qsizetype count = names.size();
        names.insert(attribute.name.toString().toLower());
        if (names.size() == count)
            m_findings.add({attribute.name.data() - m_plain.constData(), attribute.name.size()},
                           Warning,
                           platform::format(localized("“%@” is there already; only the first "
                                                      "counts."),
                                            attribute.name.toString()));
    }
}

void LSMTagCheck::checkScript(const LSMHtmlTags::Tag &tag)
{
    const QString text = localized("Marketplaces do not allow scripts in listings.");
    const TextRange name{tag.start, tag.name.size() + 1};
    if (tag.is("script"_L1))
        return m_findings.add(name, Warning, text);
    for (const LSMHtmlTags::Attribute &attribute : tag.attributes) {
        const bool isHandler = attribute.name.size() > 2 &&
                               attribute.name.startsWith(u"on", Qt::CaseInsensitive) &&
                               !attribute.value.isNull();
        if (isHandler || attribute.value.trimmed().startsWith(u"javascript:", Qt::CaseInsensitive))
            m_findings.add({attribute.name.data() - m_plain.constData(), attribute.name.size()},
                           Warning, text);
    }
}
