#include "platform/PatternStart.h"

namespace platform {

namespace {

/// Reads a pattern in ICU's dialect as far as the first character of each alternative. What it does
/// not know ends it with false.
class Reader
{
public:
    explicit Reader(QStringView pattern) : m_pattern(pattern) {}

    bool readAlternatives()
    {
        do {
            if (!readSequence())
                return false;
        } while (take(u"|"));
        return true;
    }
    bool isAtEnd() const { return m_at == m_pattern.size(); }
    const AsciiSet &start() const { return m_start; }

private:
    bool readSequence()
    {
        for (;;) {
            while (take(u"\\b")) {
            }
            if (!readItem())
                return false; // what is left may be nothing at all, too
            if (!takeOptionality())
                return passRest();
        }
    }

    bool readItem()
    {
        if (take(u"(?:"))
            return readAlternatives() && take(u")");
        if (take(u"["))
            return readClass();
        const bool isEscaped = take(u"\\");
        if (isAtEnd())
            return false;
        const char16_t unit = next();
        const bool isLiteral =
            isEscaped ? isPunctuation(unit) : !QStringView(u"^$.|?*+()[]{}").contains(unit);
        return isLiteral && add(unit, unit);
    }

    /// Behind "[", and to the "]".
    bool readClass()
    {
        while (!take(u"]")) {
            const char16_t first = next();
            if (!isPlainInClass(first))
                return false;
            const bool isRange = peek() == u'-' && peek(1) != u']' && take(u"-");
            const char16_t last = isRange ? next() : first;
            if (!isPlainInClass(last) || !add(first, last))
                return false;
        }
        return true;
    }

    /// "*", "?" and "{0,2}", behind which the next item may be the first one.
    bool takeOptionality()
    {
        const bool isOptional = peek() == u'*' || peek() == u'?' || peek() == u'{';
        if (isOptional && next() == u'{') {
            while (!isAtEnd() && next() != u'}') {
            }
        }
        if (isOptional && (peek() == u'+' || peek() == u'?'))
            next();
        return isOptional;
    }

    /// To the end of the alternative, or of the group that it is in.
    bool passRest()
    {
        for (int depth = 0; !isAtEnd();) {
            if (depth == 0 && (peek() == u'|' || peek() == u')'))
                return true;
            switch (next()) {
            case u'\\':
                if (peek() == u'Q' || peek() == u'G')
                    return false;
                next();
                break;
            case u'[':
                if (!passClass())
                    return false;
                break;
            case u'(':
                if (peek() == u'?' && !QStringView(u":=!<>").contains(peek(1)))
                    return false; // flags, comments
                ++depth;
                break;
            case u')':
                --depth;
                break;
            default:
                break;
            }
        }
        return true;
    }

    bool passClass()
    {
        take(u"^");
        if (peek() == u']')
            return false;
        while (!isAtEnd() && !take(u"]")) {
            const char16_t unit = next();
            if (unit == u'[')
                return false; // a class in a class
            if (unit == u'\\')
                next();
        }
        return true;
    }

    bool add(char16_t first, char16_t last)
    {
        if (first > last || last >= m_start.size())
            return false;
        for (char16_t unit = first; unit <= last; ++unit)
            m_start.set(unit);
        return true;
    }

    static bool isLetterOrDigit(char16_t unit)
    {
        return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
               (unit >= u'a' && unit <= u'z');
    }
    static bool isPunctuation(char16_t unit)
    {
        return unit > u' ' && unit < 0x7F && !isLetterOrDigit(unit);
    }
    static bool isPlainInClass(char16_t unit)
    {
        return isLetterOrDigit(unit) || QStringView(u"_-+.$@#%").contains(unit);
    }

    bool take(QStringView text)
    {
        const bool isThere = m_pattern.sliced(m_at).startsWith(text);
        m_at += isThere ? text.size() : 0;
        return isThere;
    }
    char16_t peek(qsizetype further = 0) const
    {
        const qsizetype at = m_at + further;
        return at < m_pattern.size() ? m_pattern[at].unicode() : u'\0';
    }
    char16_t next()
    {
        const char16_t unit = peek();
        m_at += !isAtEnd();
        return unit;
    }

    QStringView m_pattern;
    qsizetype m_at = 0;
    AsciiSet m_start;
};

} // namespace

std::optional<AsciiSet> startOfPattern(QStringView pattern)
{
    Reader reader(pattern);
    return reader.readAlternatives() && reader.isAtEnd() ? std::optional(reader.start())
                                                         : std::nullopt;
}

} // namespace platform
