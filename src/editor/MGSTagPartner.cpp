#include "editor/MGSTagPartner.h"

#include <QSet>
#include <QStringView>

using platform::TextRange;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestTag = 4000;

struct Tag
{
    TextRange range; // of the whole, "<" and ">" included
    QStringView name;
    bool isClosing = false;

    bool isSame(const Tag &other) const
    {
        return name.compare(other.name, Qt::CaseInsensitive) == 0;
    }
    TextRange opening() const { return {range.location, name.size() + (isClosing ? 2 : 1)}; }
};

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

// The elements' tags of the text, in order; comments and what closes itself are none.
std::vector<Tag> tagsOf(QStringView text)
{
    std::vector<Tag> tags;
    for (qsizetype at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<', at)) {
        if (text.mid(at).startsWith(u"<!--")) {
            const qsizetype end = text.indexOf(u"-->", at + 4);
            if (end < 0)
                break;
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
            tags.push_back({TextRange::between(at, end), name, isClosing});
        at = end;
    }
    return tags;
}

template <class Iterator>
Iterator partnerOf(Iterator tag, Iterator end)
{
    int depth = 0;
    for (Iterator at = tag; at != end; ++at) {
        if (!at->isSame(*tag))
            continue;
        depth += at->isClosing == tag->isClosing ? 1 : -1;
        if (depth == 0)
            return at;
    }
    return end;
}

} // namespace

std::optional<MGSTagPair> MGSTagPartner(const platform::TextStorage &storage, qsizetype index)
{
    const qsizetype start = qMax<qsizetype>(0, index - MGSTagPartnerReach);
    const QString text = storage.substring(
        TextRange::between(start, qMin(storage.length(), index + MGSTagPartnerReach)));
    const std::vector<Tag> tags = tagsOf(text);
    const auto tag = std::ranges::find_if(tags, [at = index - start](const Tag &candidate) {
        return candidate.range.location <= at && at <= candidate.range.end();
    });
    if (tag == tags.end())
        return std::nullopt;
    const Tag *partner = nullptr;
    if (tag->isClosing) {
        const auto back = std::make_reverse_iterator(std::next(tag));
        const auto found = partnerOf(back, tags.rend());
        partner = found == tags.rend() ? nullptr : &*found;
    } else {
        const auto found = partnerOf(tag, tags.end());
        partner = found == tags.end() ? nullptr : &*found;
    }
    if (!partner)
        return std::nullopt;
    const auto placed = [start](TextRange range) {
        return TextRange{range.location + start, range.length};
    };
    return MGSTagPair{placed(tag->opening()), placed(partner->opening())};
}
