#include "platform/text/TextSearch.h"

#include <array>
#include <cstring>

namespace platform {

namespace {

using Folding = std::array<char16_t, 256>;

const Folding &narrowFolding()
{
    static const Folding table = [] {
        Folding folding;
        for (size_t unit = 0; unit < folding.size(); ++unit)
            folding[unit] = QChar::toCaseFolded(char16_t(unit));
        return folding;
    }();
    return table;
}

// Unit by unit: all letters with case beyond the BMP share the high surrogate with their other
// case.
char16_t folded(const char16_t *unit, bool isFirst)
{
    if (!QChar::isLowSurrogate(*unit) || isFirst || !QChar::isHighSurrogate(unit[-1]))
        return QChar::toCaseFolded(*unit);
    return QChar::lowSurrogate(QChar::toCaseFolded(QChar::surrogateToUcs4(unit[-1], *unit)));
}

char16_t folded(const uchar *unit, bool)
{
    return narrowFolding()[*unit];
}

/// Knuth, Morris and Pratt's search: units go in one after the other, none is looked at twice, so
/// pieces need no seams and no text makes it slow.
class Matcher
{
public:
    explicit Matcher(QString pattern) : m_pattern(std::move(pattern)), m_fallback(m_pattern.size())
    {
        for (qsizetype i = 1, state = 0; i < m_pattern.size(); ++i) {
            state = next(state, m_pattern[i].unicode());
            m_fallback[size_t(i)] = state;
        }
    }

    bool isAtStart() const { return m_state == 0; }
    const QString &pattern() const { return m_pattern; }

    /// True when the pattern ends with this unit.
    bool takes(char16_t unit)
    {
        m_state = next(m_state, unit);
        return m_state == m_pattern.size();
    }

private:
    qsizetype next(qsizetype state, char16_t unit) const
    {
        const QChar *pattern = m_pattern.constData();
        while (state > 0 && pattern[state].unicode() != unit)
            state = m_fallback[size_t(state) - 1];
        return pattern[state].unicode() == unit ? state + 1 : 0;
    }

    QString m_pattern;
    std::vector<qsizetype> m_fallback;
    qsizetype m_state = 0;
};

// How common a unit is in source texts, by guess; what is not named is rare.
qsizetype commonness(char16_t unit)
{
    static const QString common =
        QStringLiteral(" etaoinsrlcdpmuhfgbywvk/<>=\"\n.-;:_(),0123456789'xTSACEIRDPLNMOBFjqz");
    const qsizetype at = common.indexOf(QChar(unit));
    return at < 0 ? 0 : common.size() - at;
}

// The unit of the pattern that is looked for first, a rare one; -1 if none has a single form.
qsizetype anchorOf(QStringView pattern, Qt::CaseSensitivity sensitivity)
{
    qsizetype anchor = -1;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const char16_t unit = pattern[i].unicode();
        const bool hasOneForm =
            sensitivity == Qt::CaseSensitive || (unit < 0x80 && !QChar::isLetter(unit));
        if (hasOneForm && (anchor < 0 || commonness(unit) < commonness(pattern[anchor].unicode())))
            anchor = i;
    }
    return anchor;
}

const uchar *find(const uchar *first, const uchar *last, char16_t unit)
{
    const void *at = unit > 0xFF ? nullptr : std::memchr(first, unit, size_t(last - first));
    return at ? static_cast<const uchar *>(at) : last;
}

const char16_t *find(const char16_t *first, const char16_t *last, char16_t unit)
{
    const qsizetype at = QStringView(first, last).indexOf(QChar(unit));
    return at < 0 ? last : first + at;
}

const uchar *findLast(const uchar *first, const uchar *last, char16_t unit)
{
    const void *at = unit > 0xFF ? nullptr : ::memrchr(first, unit, size_t(last - first));
    return at ? static_cast<const uchar *>(at) + 1 : first;
}

const char16_t *findLast(const char16_t *first, const char16_t *last, char16_t unit)
{
    while (last != first && last[-1] != unit)
        --last;
    return last;
}

// The nearest place from `from` towards `to` at which the pattern may start, given that the unit
// is its one at `offset`.
template <class Unit>
const Unit *skipped(const Unit *from, const Unit *to, char16_t unit, qsizetype offset)
{
    if (from <= to)
        return to - from <= offset ? from : find(from + offset, to, unit) - offset;
    return from - to <= offset ? from : findLast(to, from - offset, unit) + offset;
}

template <SearchDirection direction, Qt::CaseSensitivity sensitivity>
class Search
{
public:
    explicit Search(QStringView string)
        : m_matcher(prepared(string)), m_anchor(anchorOf(m_matcher.pattern(), sensitivity)),
          m_anchorUnit(m_anchor < 0 ? u'\0' : m_matcher.pattern()[m_anchor].unicode())
    {
    }

    /// The index of the unit that completes the match, or NotFound; `units[0]` stands at
    /// `location`.
    template <class Unit>
    qsizetype run(const Unit *units, qsizetype location, TextRange part)
    {
        const Unit *first = units + (part.location - location);
        const Unit *last = first + part.length;
        const Unit *to = forward ? last : first;
        for (const Unit *at = forward ? first : last; at != to; at += forward ? 1 : -1) {
            if (m_anchor >= 0 && m_matcher.isAtStart()) {
                at = skipped(at, to, m_anchorUnit, m_anchor);
                if (at == to)
                    return NotFound;
            }
            const Unit *unit = forward ? at : at - 1;
            if (m_matcher.takes(sensitivity == Qt::CaseSensitive ? *unit
                                                                 : folded(unit, unit == first)))
                return location + (unit - units);
        }
        return NotFound;
    }

private:
    static constexpr bool forward = direction == SearchDirection::Forward;

    static QString prepared(QStringView string)
    {
        QString pattern = string.toString();
        if (sensitivity == Qt::CaseInsensitive) {
            for (qsizetype i = 0; i < string.size(); ++i)
                pattern[i] = folded(string.utf16() + i, i == 0);
        }
        if (!forward)
            std::reverse(pattern.begin(), pattern.end());
        return pattern;
    }

    Matcher m_matcher;
    qsizetype m_anchor;
    char16_t m_anchorUnit;
};

template <SearchDirection direction, Qt::CaseSensitivity sensitivity>
TextRange search(const TextStorage &storage, QStringView string, TextRange range)
{
    Search<direction, sensitivity> walk(string);
    TextRange found = TextRange::notFound();
    visitPieces(storage, range, direction, [&](const TextPiece &piece, TextRange part) {
        const qsizetype index = piece.narrow ? walk.run(piece.narrow, piece.location, part)
                                             : walk.run(piece.wide, piece.location, part);
        if (index == NotFound)
            return false;
        const bool forward = direction == SearchDirection::Forward;
        found = {forward ? index - string.size() + 1 : index, string.size()};
        return true;
    });
    return found;
}

} // namespace

TextRange rangeOfString(const TextStorage &storage, QStringView string, TextRange range,
                        SearchDirection direction, Qt::CaseSensitivity sensitivity)
{
    using enum SearchDirection;
    if (string.isEmpty())
        return TextRange::notFound();
    if (direction == Forward)
        return sensitivity == Qt::CaseSensitive
                   ? search<Forward, Qt::CaseSensitive>(storage, string, range)
                   : search<Forward, Qt::CaseInsensitive>(storage, string, range);
    return sensitivity == Qt::CaseSensitive
               ? search<Backward, Qt::CaseSensitive>(storage, string, range)
               : search<Backward, Qt::CaseInsensitive>(storage, string, range);
}

} // namespace platform
