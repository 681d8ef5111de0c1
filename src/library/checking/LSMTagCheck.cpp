#include "library/checking/LSMTagCheck.h"

#include "platform/Bundle.h"

#include <algorithm>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using platform::localized;
using platform::TextRange;
using enum LSMFinding::Level;

namespace {

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

} // namespace

void LSMTagCheck::check(const LSMHtmlTags::Tag &tag)
{
    checkPictures(tag);
    checkScript(tag);
}

QStringView LSMTagCheck::original(QStringView inPlain) const
{
    return QStringView(m_html).sliced(inPlain.data() - m_plain.constData(), inPlain.size());
}

void LSMTagCheck::checkPictures(const LSMHtmlTags::Tag &tag)
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
        m_findings.add(TextRange::between(tag.start, tag.end), Note,
                       localized("The picture has no text (alt) for those who cannot see it."));
}

void LSMTagCheck::checkPictureSet(QStringView set)
{
    static const QRegularExpression start(u"(?:^|,)\\s*([^\\s,]\\S*?)(?=,?(?:\\s|$))"_s);
    for (auto match = start.globalMatch(set); match.hasNext();)
        checkAddress(match.next().capturedView(1));
}

void LSMTagCheck::checkStyle(QStringView css)
{
    static const QRegularExpression commentOrAddress(
        u"/\\*.*?(?:\\*/|$)|url\\(\\s*(?|\"([^\"]*)|'([^']*)|&quot;(.*?)(?:&quot;|$)|"
        "&#39;(.*?)(?:&#39;|$)|([^\\s)]*))"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    for (auto match = commentOrAddress.globalMatch(css); match.hasNext();)
        checkAddress(match.next().capturedView(1));
}

void LSMTagCheck::checkAddress(QStringView address)
{
    if (address.isEmpty())
        return; // which is a fault of form
    for (const QStringView good : {u"https:", u"data:", u"[[", u"#"}) {
        if (address.startsWith(good, Qt::CaseInsensitive))
            return;
    }
    m_findings.add({address.data() - m_html.constData(), address.size()}, Warning,
                   localized("The picture's address is not https: buyers may not see it."));
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
