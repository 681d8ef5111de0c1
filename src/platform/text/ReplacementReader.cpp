#include "platform/text/ReplacementReader.h"

#include <algorithm>

namespace platform {

ReplacementReader::Part ReplacementReader::next()
{
    if (m_rest.startsWith(u'\\') && m_rest.size() > 1)
        return nextEscape();
    if (const qsizetype count = digits(); count > 0)
        return {take(1 + count).mid(1), true};
    const qsizetype closing = m_rest.indexOf(u'}');
    if (m_rest.startsWith(u"${") && closing > 2)
        return {take(closing + 1).sliced(2, closing - 2), true};
    const auto special = std::find_if(m_rest.begin() + 1, m_rest.end(),
                                      [](QChar c) { return c == u'\\' || c == u'$'; });
    return {take(special - m_rest.begin())};
}

QStringView ReplacementReader::take(qsizetype length)
{
    const QStringView taken = m_rest.first(length);
    m_rest = m_rest.sliced(length);
    return taken;
}

ReplacementReader::Part ReplacementReader::nextEscape()
{
    const QStringView escaped = take(2).mid(1);
    if (escaped == u'n')
        return {u"\n"};
    if (escaped == u't')
        return {u"\t"};
    if (escaped == u'r')
        return {u"\r"};
    return {escaped};
}

// "$12" is the twelfth group where there are so many, and else the first before a 2.
qsizetype ReplacementReader::digits() const
{
    qsizetype count = 0;
    int number = 0;
    while (m_rest.startsWith(u'$') && 1 + count < m_rest.size()) {
        const int digit = m_rest[1 + count].unicode() - u'0';
        if (digit < 0 || digit > 9 || (count > 0 && number * 10 + digit > m_groupCount))
            break;
        number = number * 10 + digit;
        ++count;
    }
    return count;
}

} // namespace platform
