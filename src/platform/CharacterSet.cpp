#include "platform/CharacterSet.h"

namespace platform {

namespace {

template <class... Categories>
constexpr quint32 bits(Categories... categories)
{
    return ((1U << categories) | ...);
}

constexpr quint32 letterBits =
    bits(QChar::Letter_Uppercase, QChar::Letter_Lowercase, QChar::Letter_Titlecase,
         QChar::Letter_Modifier, QChar::Letter_Other, QChar::Mark_NonSpacing,
         QChar::Mark_SpacingCombining, QChar::Mark_Enclosing);
constexpr quint32 numberBits =
    bits(QChar::Number_DecimalDigit, QChar::Number_Letter, QChar::Number_Other);
constexpr quint32 punctuationBits =
    bits(QChar::Punctuation_Connector, QChar::Punctuation_Dash, QChar::Punctuation_Open,
         QChar::Punctuation_Close, QChar::Punctuation_InitialQuote, QChar::Punctuation_FinalQuote,
         QChar::Punctuation_Other);
constexpr quint32 symbolBits =
    bits(QChar::Symbol_Math, QChar::Symbol_Currency, QChar::Symbol_Modifier, QChar::Symbol_Other);

void removeUnit(QString &units, QChar unit)
{
    units.remove(unit, Qt::CaseSensitive);
}

} // namespace

CharacterSet CharacterSet::ofCategories(quint32 categories)
{
    CharacterSet set;
    set.m_categories = categories;
    for (char16_t unit = 0; unit < asciiSize; ++unit)
        set.m_ascii[unit] = set.hasCategoryOf(unit);
    return set;
}

CharacterSet CharacterSet::letters()
{
    return ofCategories(letterBits);
}

CharacterSet CharacterSet::alphanumerics()
{
    return ofCategories(letterBits | numberBits);
}

CharacterSet CharacterSet::punctuation()
{
    return ofCategories(punctuationBits);
}

CharacterSet CharacterSet::symbols()
{
    return ofCategories(symbolBits);
}

CharacterSet CharacterSet::whitespace()
{
    return ofCategories(bits(QChar::Separator_Space)).include(QStringLiteral("\t"));
}

CharacterSet CharacterSet::newlines()
{
    return of(QStringLiteral("\n\v\f\r\u0085\u2028\u2029"));
}

CharacterSet CharacterSet::whitespaceAndNewlines()
{
    return whitespace().include(newlines());
}

CharacterSet CharacterSet::of(const QString &units)
{
    return CharacterSet().include(units);
}

bool CharacterSet::hasCategoryOf(char16_t unit) const
{
    return (m_categories >> QChar::category(char32_t(unit))) & 1U;
}

bool CharacterSet::containsBeyondAscii(char16_t unit) const
{
    if (m_included.contains(QChar(unit)))
        return true;
    return hasCategoryOf(unit) && !m_excluded.contains(QChar(unit));
}

CharacterSet &CharacterSet::include(const CharacterSet &other)
{
    QString excluded;
    for (const QChar unit : QString(m_excluded + other.m_excluded)) {
        if (!contains(unit) && !other.contains(unit))
            excluded += unit;
    }
    m_ascii |= other.m_ascii;
    m_categories |= other.m_categories;
    m_included += other.m_included;
    m_excluded = excluded;
    return *this;
}

CharacterSet &CharacterSet::include(const QString &units)
{
    for (const QChar unit : units) {
        if (unit.unicode() < asciiSize) {
            m_ascii.set(unit.unicode());
        } else if (!unit.isSurrogate() && !contains(unit)) {
            removeUnit(m_excluded, unit);
            m_included += unit;
        }
    }
    return *this;
}

CharacterSet &CharacterSet::exclude(const QString &units)
{
    for (const QChar unit : units) {
        if (unit.unicode() < asciiSize) {
            m_ascii.reset(unit.unicode());
        } else if (contains(unit)) {
            removeUnit(m_included, unit);
            m_excluded += unit;
        }
    }
    return *this;
}

} // namespace platform
