#include "platform/text/TextPattern.h"

#include "platform/Bundle.h"
#include "platform/CharacterSet.h"
#include "platform/text/ExpressionPattern.h"
#include "platform/text/TextSearch.h"

namespace platform {

namespace {

class PlainPattern : public TextPattern
{
public:
    explicit PlainPattern(const TextQuery &query)
        : m_string(query.string),
          m_sensitivity(query.matchesCase ? Qt::CaseSensitive : Qt::CaseInsensitive)
    {
    }

protected:
    Step search(const TextStorage &storage, qsizetype position, QDeadlineTimer deadline) override
    {
        const qsizetype window = 0x40000; // units, a fraction of a millisecond
        do {
            const qsizetype end = qMin(position + window + m_string.size() - 1, storage.length());
            const TextRange range = TextRange::between(qMin(position, end), end);
            const TextRange match =
                rangeOfString(storage, m_string, range, SearchDirection::Forward, m_sensitivity);
            if (match.isFound())
                return {Outcome::Found, match, match.location};
            if (end == storage.length())
                return {Outcome::Ended, {}, end};
            position += window;
        } while (!deadline.hasExpired());
        return {Outcome::Interrupted, {}, position};
    }

private:
    QString m_string;
    Qt::CaseSensitivity m_sensitivity;
};

bool isInWord(char16_t unit)
{
    static const CharacterSet word = CharacterSet::alphanumerics().include(QStringLiteral("_"));
    return word.contains(unit);
}

bool goesOn(const TextStorage &storage, qsizetype index)
{
    return index > 0 && index < storage.length() && isInWord(storage.character(index - 1)) &&
           isInWord(storage.character(index));
}

} // namespace

std::unique_ptr<TextPattern> TextPattern::compile(const TextQuery &query, Error *error)
{
    std::unique_ptr<TextPattern> pattern;
    if (query.string.isEmpty())
        fail(error, QStringLiteral("platform.find"), 0, localized("There is nothing to look for."));
    else if (query.isRegularExpression)
        pattern = ExpressionPattern::compile(query, error);
    else
        pattern = std::make_unique<PlainPattern>(query);
    if (pattern)
        pattern->m_wholeWords = query.matchesWholeWords;
    return pattern;
}

TextPattern::Step TextPattern::find(const TextStorage &storage, qsizetype position,
                                    QDeadlineTimer deadline)
{
    for (;;) {
        const Step step = search(storage, position, deadline);
        if (step.outcome != Outcome::Found || !m_wholeWords ||
            (!goesOn(storage, step.match.location) && !goesOn(storage, step.match.end())))
            return step;
        position = positionAfter(storage, {step.match.location, 0});
        if (position > storage.length())
            return {Outcome::Ended, {}, storage.length()};
        if (deadline.hasExpired())
            return {Outcome::Interrupted, {}, position};
    }
}

qsizetype TextPattern::positionAfter(const TextStorage &storage, TextRange match)
{
    if (!match.isEmpty())
        return match.end();
    const qsizetype index = match.location;
    const bool isPair = index + 1 < storage.length() &&
                        QChar::isHighSurrogate(storage.character(index)) &&
                        QChar::isLowSurrogate(storage.character(index + 1));
    return index + (isPair ? 2 : 1);
}

std::optional<QString> TextPattern::replacement(const TextStorage &, TextRange, const QString &text,
                                                Error *)
{
    return text;
}

} // namespace platform
