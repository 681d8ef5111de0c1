#include "library/LSMPlaceholders.h"

#include "library/LSMDesignKeys.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"

#include <QSet>
#include <vector>

namespace LSMPlaceholders {

namespace {

bool isOperator(const QString &word)
{
    return std::ranges::any_of(
        QStringList{QStringLiteral("not"), QStringLiteral("and"), QStringLiteral("or")},
        [&word](const QString &one) { return word.compare(one, Qt::CaseInsensitive) == 0; });
}

/// Reads an expression from left to right, each rule as its binding has it.
class Expression
{
public:
    Expression(const QString &text, const Values &values)
        : m_words(text.simplified().split(u' ', Qt::SkipEmptyParts)), m_values(values)
    {
    }

    /// Nullopt where it cannot be read.
    std::optional<bool> result()
    {
        const bool result = alternatives();
        return m_isReadable && m_at == m_words.size() ? std::optional(result) : std::nullopt;
    }

    /// Where the reading came to its end; null behind the last.
    QString word() const { return m_words.value(m_at); }

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
        while (m_isReadable && take(u"or"))
            result = conjunction() || result;
        return result;
    }

    bool conjunction()
    {
        bool result = term();
        while (m_isReadable && take(u"and"))
            result = term() && result;
        return result;
    }

    bool term()
    {
        bool isNegated = false;
        while (take(u"not"))
            isNegated = !isNegated;
        if (m_at == m_words.size() || isOperator(m_words[m_at]))
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

constexpr auto propertyPrefix = QLatin1StringView("LBProperty_");
constexpr auto noLayout = QLatin1StringView("LBLayoutNotDefined");

const Values noValues = [](const QString &) {
    return QString();
};

/// With those in the menu of placeholders, whose texts are what is inserted.
QStringList allKnownNames()
{
    QSet<QString> names{noLayout};
    const auto list = platform::PropertyList::parse(
        platform::Bundle::mainBundle()
            .stringForResource(QStringLiteral("placeholder"), QStringLiteral("plist"))
            .toUtf8());
    for (const QVariant &text : list ? list->root.toMap() : QVariantMap()) {
        const QString html = text.toString();
        for (auto found = nextBracketed(html, 0); found; found = nextBracketed(html, found->end)) {
            for (const QString &name : found->names())
                names.insert(name);
        }
    }
    QStringList sorted = names.values();
    sorted.sort();
    return sorted;
}

} // namespace

QStringList Bracketed::names() const
{
    if (endsPart())
        return {};
    if (!beginsPart())
        return isName(inside) ? QStringList{inside} : QStringList();
    QStringList words = inside.sliced(3).simplified().split(u' ', Qt::SkipEmptyParts);
    words.removeIf(isOperator);
    return words;
}

bool Bracketed::isReadable() const
{
    return beginsPart() ? Expression(inside.sliced(3), noValues).result().has_value()
                        : endsPart() || isName(inside);
}

QString Bracketed::misplacedWord() const
{
    Expression expression(inside.sliced(3), noValues);
    expression.result();
    return expression.word();
}

std::optional<Bracketed> nextBracketed(const QString &html, qsizetype from)
{
    const qsizetype first = html.indexOf(u"[[", from);
    const qsizetype end = first < 0 ? -1 : html.indexOf(u"]]", first + 2);
    if (end < 0)
        return std::nullopt;
    const qsizetype start = html.lastIndexOf(u"[[", end - 2);
    return Bracketed{start, end + 2, html.sliced(start + 2, end - start - 2)};
}

const QStringList &knownNames()
{
    static const QStringList names = allKnownNames();
    return names;
}

QString nameOfProperty(const QString &property)
{
    return propertyPrefix + QString(property).replace(u' ', u'_');
}

bool isNameOfProperty(const QString &name)
{
    return name.startsWith(propertyPrefix);
}

bool holds(const QString &expression, const Values &values)
{
    return Expression(expression, values).result().value_or(false);
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
    while (const std::optional<Bracketed> found = nextBracketed(html, at)) {
        put(QStringView(html).sliced(at, found->start - at));
        at = found->end;
        if (found->beginsPart()) {
            open.push_back(isThere);
            isThere = isThere && holds(found->inside.sliced(3), values);
        } else if (found->endsPart() && !open.empty()) {
            isThere = open.back();
            open.pop_back();
        } else {
            const QString value = isName(found->inside) ? values(found->inside) : QString();
            put(value.isNull() ? QStringView(html).sliced(found->start, at - found->start) : value);
        }
    }
    put(QStringView(html).sliced(at));
    return result;
}

} // namespace LSMPlaceholders
