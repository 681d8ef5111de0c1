#include "editor/MGSMarkupTags.h"

#include <QSet>
#include <QString>

using platform::TextRange;
using namespace Qt::StringLiterals;
using Kind = MGSMarkupTag::Kind;

namespace {

constexpr qsizetype longestTag = 4000;

bool isVoid(QStringView name)
{
    static const QSet<QString> names{u"area"_s,  u"base"_s,  u"br"_s,     u"col"_s,   u"embed"_s,
                                     u"frame"_s, u"hr"_s,    u"img"_s,    u"input"_s, u"link"_s,
                                     u"meta"_s,  u"param"_s, u"source"_s, u"track"_s, u"wbr"_s};
    return names.contains(name.toString().toLower());
}

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'-' || c == u':' || c == u'_';
}

// A ">" within quotes ends no tag.
qsizetype endOfTag(QStringView text, qsizetype from)
{
    QChar quote;
    for (qsizetype i = from; i < text.size() && i < from + longestTag; ++i) {
        const QChar c = text[i];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (c == u'"' || c == u'\'')
            quote = c;
        else if (c == u'>')
            return i + 1;
        else if (c == u'<')
            return -1;
    }
    return -1;
}

} // namespace

bool mgs_isMarkup(const QString &language)
{
    return language.compare(u"HTML", Qt::CaseInsensitive) == 0;
}

std::vector<MGSMarkupTag> mgs_markupTags(QStringView text)
{
    std::vector<MGSMarkupTag> tags;
    for (qsizetype at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<', at)) {
        if (text.mid(at).startsWith(u"<!--")) {
            const qsizetype end = text.indexOf(u"-->", at + 4);
            if (end < 0)
                break;
            tags.push_back({TextRange::between(at, end + 3), {}, Kind::Comment});
            at = end + 3;
            continue;
        }
        const bool isClosing = at + 1 < text.size() && text[at + 1] == u'/';
        const qsizetype start = at + (isClosing ? 2 : 1);
        qsizetype nameEnd = start;
        while (nameEnd < text.size() && isNameCharacter(text[nameEnd]))
            ++nameEnd;
        const qsizetype end = nameEnd > start ? endOfTag(text, nameEnd) : -1;
        if (end < 0) {
            ++at;
            continue;
        }
        const QStringView name = text.mid(start, nameEnd - start);
        if (text[end - 2] != u'/' && !isVoid(name))
            tags.push_back(
                {TextRange::between(at, end), name, isClosing ? Kind::Closing : Kind::Opening});
        at = end;
    }
    return tags;
}
