#include "library/LSMPlaceholders.h"

#include <QStringList>
#include <vector>

namespace LSMPlaceholders {

namespace {

/// Reads an expression from left to right, each rule as its binding has it.
class Expression
{
public:
    Expression(const QString &text, const Values &values)
        : m_words(text.simplified().split(u' ', Qt::SkipEmptyParts)), m_values(values)
    {
    }

    bool holds()
    {
        const bool result = alternatives();
        return result && m_isReadable && m_at == m_words.size();
    }

private:
    bool take(QStringView word)
    {
        const bool isHere =
            m_at < m_words.size() && m_words[m_at].compare(word, Qt::CaseInsensitive) == 0;
        m_at += isHere;
        return isHere;
    }

    bool alternatives()
    {
        bool result = conjunction();
        while (take(u"or"))
            result = conjunction() || result;
        return result;
    }

    bool conjunction()
    {
        bool result = term();
        while (take(u"and"))
            result = term() && result;
        return result;
    }

    bool term()
    {
        bool isNegated = false;
        while (take(u"not"))
            isNegated = !isNegated;
        if (m_at == m_words.size())
            return m_isReadable = false;
        return !m_values(m_words[m_at++]).isEmpty() != isNegated;
    }

    QStringList m_words;
    const Values &m_values;
    qsizetype m_at = 0;
    bool m_isReadable = true;
};

bool isName(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.isLetterOrNumber() || c == u'_';
    });
}

} // namespace

bool holds(const QString &expression, const Values &values)
{
    return Expression(expression, values).holds();
}

QString filled(const QString &html, const Values &values)
{
    QString result;
    std::vector<bool> open; // the parts that this place is in, and whether each is there
    bool isThere = true;
    const auto put = [&](QStringView text) {
        if (isThere)
            result += text;
    };
    qsizetype at = 0;
    for (;;) {
        const qsizetype start = html.indexOf(u"[[", at);
        const qsizetype end = start < 0 ? -1 : html.indexOf(u"]]", start);
        if (end < 0)
            break;
        put(QStringView(html).sliced(at, start - at));
        const QString inside = html.sliced(start + 2, end - start - 2);
        at = end + 2;
        if (inside.startsWith(u"if ")) {
            open.push_back(isThere);
            isThere = isThere && holds(inside.sliced(3), values);
        } else if (inside == u"endif" && !open.empty()) {
            isThere = open.back();
            open.pop_back();
        } else {
            const QString value = isName(inside) ? values(inside) : QString();
            put(value.isNull() ? QStringView(html).sliced(start, at - start) : value);
        }
    }
    put(QStringView(html).sliced(at));
    return result;
}

} // namespace LSMPlaceholders
