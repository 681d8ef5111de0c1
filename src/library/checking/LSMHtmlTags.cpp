#include "library/checking/LSMHtmlTags.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace LSMHtmlTags {

namespace {

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool endsName(QChar c)
{
    return c.isSpace() || c == u'>' || c == u'/' || c == u'=';
}

class Reader
{
public:
    explicit Reader(QStringView html) : m_html(html) {}

    /// Moves to the next "<" of a tag and behind it; false at the end.
    bool toTag()
    {
        for (;;) {
            m_at = m_html.indexOf(u'<', m_at);
            if (m_at < 0 || m_at + 1 >= m_html.size())
                return false;
            if (m_html.sliced(m_at).startsWith(u"<!--")) {
                skipTo(u"-->", m_at + 4);
                continue;
            }
            ++m_at;
            const qsizetype letter = m_at + (m_html[m_at] == u'/' ? 1 : 0);
            if (letter < m_html.size() && isLetter(m_html[letter]))
                return true;
        }
    }

    Tag tag()
    {
        Tag tag;
        tag.start = m_at - 1;
        tag.isEnd = m_html[m_at] == u'/';
        m_at += tag.isEnd ? 1 : 0;
        tag.name = word();
        while (toAttribute())
            tag.attributes.push_back(attribute());
        tag.end = m_at;
        if (!tag.isEnd &&
            (tag.is(QLatin1StringView("script")) || tag.is(QLatin1StringView("style"))))
            tag.rawText = rawText(tag.name);
        return tag;
    }

private:
    bool atEnd() const { return m_at >= m_html.size(); }

    void skipTo(QStringView text, qsizetype from)
    {
        const qsizetype found = m_html.indexOf(text, from);
        m_at = found < 0 ? m_html.size() : found + text.size();
    }

    QStringView rawText(QStringView tagName)
    {
        const qsizetype start = m_at;
        const QString end = QStringLiteral("</") + tagName.toString();
        const qsizetype found = m_html.indexOf(end, m_at, Qt::CaseInsensitive);
        m_at = found < 0 ? m_html.size() : found;
        return m_html.sliced(start, m_at - start);
    }

    QStringView word()
    {
        const qsizetype start = m_at;
        while (!atEnd() && !endsName(m_html[m_at]))
            ++m_at;
        return m_html.sliced(start, m_at - start);
    }

    void skipSpace()
    {
        while (!atEnd() && m_html[m_at].isSpace())
            ++m_at;
    }

    // Takes the tag's ">" along.
    bool toAttribute()
    {
        while (!atEnd() && m_html[m_at] != u'>' && endsName(m_html[m_at]))
            ++m_at;
        if (atEnd() || m_html[m_at] == u'>') {
            m_at = qMin(m_at + 1, m_html.size());
            return false;
        }
        return true;
    }

    Attribute attribute()
    {
        Attribute attribute{word(), {}};
        const qsizetype behind = m_at;
        skipSpace();
        if (atEnd() || m_html[m_at] != u'=') {
            m_at = behind;
            return attribute;
        }
        ++m_at;
        skipSpace();
        attribute.value = value();
        return attribute;
    }

    QStringView value()
    {
        qsizetype start = m_at;
        if (!atEnd() && (m_html[m_at] == u'"' || m_html[m_at] == u'\'')) {
            const qsizetype end = m_html.indexOf(m_html[m_at], ++start);
            const QStringView text = m_html.sliced(start, (end < 0 ? m_html.size() : end) - start);
            m_at = end < 0 ? m_html.size() : end + 1;
            return text;
        }
        while (!atEnd() && !m_html[m_at].isSpace() && m_html[m_at] != u'>')
            ++m_at;
        return m_html.sliced(start, m_at - start);
    }

    QStringView m_html;
    qsizetype m_at = 0;
};

} // namespace

bool Attribute::is(QLatin1StringView attributeName) const
{
    return name.compare(attributeName, Qt::CaseInsensitive) == 0;
}

bool Tag::is(QLatin1StringView tagName) const
{
    return name.compare(tagName, Qt::CaseInsensitive) == 0;
}

const Attribute *Tag::attribute(QLatin1StringView attributeName) const
{
    const auto found = std::ranges::find_if(
        attributes, [&](const Attribute &attribute) { return attribute.is(attributeName); });
    return found == attributes.end() ? nullptr : &*found;
}

void forEachTag(QStringView html, const std::function<bool(const Tag &)> &function)
{
    for (Reader reader(html); reader.toTag();) {
        if (!function(reader.tag()))
            return;
    }
}

QStringList unbalanced(QStringView html)
{
    static const QStringList withoutEnd =
        u"area base br col embed hr img input link meta param source track wbr"_s.split(u' ');
    QStringList names;
    forEachTag(html, [&names](const Tag &tag) {
        const QString name = tag.name.toString().toLower();
        if (tag.isEnd && !names.isEmpty() && names.last() == name)
            names.removeLast();
        else if (!withoutEnd.contains(name))
            names << (tag.isEnd ? u'/' + name : name);
        return true;
    });
    return names;
}

} // namespace LSMHtmlTags
