#pragma once

#include <bitset>
#include <QString>

namespace platform {

/// A set of UTF-16 units, told by Unicode categories and by single characters. A value; any thread.
/// Halves of surrogate pairs belong to no set. Asking costs a table look-up for ASCII.
class CharacterSet
{
public:
    CharacterSet() = default; ///< The empty set.

    static CharacterSet letters();                ///< Letters and marks.
    static CharacterSet alphanumerics();          ///< Letters, marks and numbers.
    static CharacterSet punctuation();            ///< All kinds of it.
    static CharacterSet symbols();                ///< Of currencies and mathematics too.
    static CharacterSet whitespace();             ///< Blanks of all widths, and the tab.
    static CharacterSet newlines();               ///< Line ends, vertical tab, form feed.
    static CharacterSet whitespaceAndNewlines();  ///< Both.
    static CharacterSet of(const QString &units); ///< The characters of a string.

    bool contains(char16_t unit) const
    {
        return unit < asciiSize ? m_ascii[unit] : containsBeyondAscii(unit);
    }
    bool contains(QChar character) const { return contains(character.unicode()); }
    bool isEmpty() const { return m_ascii.none() && !m_categories && m_included.isEmpty(); }

    CharacterSet &include(const CharacterSet &other);
    CharacterSet &include(const QString &units);
    CharacterSet &exclude(const QString &units);

private:
    static constexpr char16_t asciiSize = 128;

    static CharacterSet ofCategories(quint32 categories);
    bool containsBeyondAscii(char16_t unit) const;
    bool hasCategoryOf(char16_t unit) const;

    std::bitset<asciiSize> m_ascii; // Decides alone below 128; the rest speaks of what is above.
    quint32 m_categories = 0;       // Bits by QChar::Category.
    QString m_included;             // Members whatever their category; shares nothing with
    QString m_excluded;             // what is no member whatever its category.
};

} // namespace platform
