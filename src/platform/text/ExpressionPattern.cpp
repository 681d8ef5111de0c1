#include "platform/text/ExpressionPattern.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/text/ReplacementReader.h"
#include "platform/text/StorageText.h"
#include <unicode/uregex.h>

namespace platform {

namespace {

const QString domain = QStringLiteral("platform.find");
constexpr int32_t stackBytes = 32 << 20;
constexpr int attemptMilliseconds = 400; // at one place of the text

struct Reason
{
    UErrorCode code;
    const char *text;
};

constexpr Reason reasons[] = {
    {U_REGEX_MISMATCHED_PAREN, localizable("A parenthesis is missing or stands alone.")},
    {U_REGEX_MISSING_CLOSE_BRACKET, localizable("A closing bracket is missing.")},
    {U_REGEX_BAD_ESCAPE_SEQUENCE, localizable("A backslash stands before something that has no "
                                              "meaning with it.")},
    {U_REGEX_RULE_SYNTAX, localizable("Something to repeat is missing, or a character needs a "
                                      "backslash before it.")},
    {U_REGEX_BAD_INTERVAL, localizable("The numbers in braces cannot be read.")},
    {U_REGEX_MAX_LT_MIN, localizable("The numbers in braces stand in the wrong order.")},
    {U_REGEX_INVALID_RANGE, localizable("A range of characters ends before it begins.")},
    {U_REGEX_LOOK_BEHIND_LIMIT, localizable("What is looked for behind has no greatest length.")},
};

bool failToRead(Error *error, UErrorCode status, int character)
{
    QString text = localized("The expression cannot be read.");
    for (const Reason &reason : reasons) {
        if (reason.code == status)
            text = localized(reason.text);
    }
    return fail(error, domain, status,
                character > 0 ? format(localized("%@ (At character %d.)"), text, character) : text);
}

// How far one call has come and how long it may go on. ICU asks at each place where it tries, and
// within an attempt now and then.
struct Progress
{
    QDeadlineTimer deadline;
    QDeadlineTimer attempt;
    qsizetype position = 0;
    int placesToClock = 256; // looking at it takes longer than most attempts
    bool isTooCostly = false;

    static UBool nextPlace(const void *context, int64_t index)
    {
        auto *self = static_cast<Progress *>(const_cast<void *>(context));
        self->position = index;
        if (--self->placesToClock > 0)
            return true;
        self->placesToClock = 256;
        self->attempt.setRemainingTime(attemptMilliseconds);
        return !self->deadline.hasExpired();
    }

    static UBool withinAttempt(const void *context, int32_t)
    {
        auto *self = static_cast<Progress *>(const_cast<void *>(context));
        self->placesToClock = 0;
        self->isTooCostly = self->attempt.hasExpired();
        return !self->isTooCostly;
    }
};

} // namespace

void ExpressionPattern::Close::operator()(URegularExpression *expression) const
{
    uregex_close(expression);
}

std::unique_ptr<TextPattern> ExpressionPattern::compile(const TextQuery &query, Error *error)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError place = {};
    const uint32_t flags =
        UREGEX_MULTILINE | (query.matchesCase ? 0U : uint32_t(UREGEX_CASE_INSENSITIVE));
    Handle handle(uregex_open(reinterpret_cast<const UChar *>(query.string.utf16()),
                              int32_t(query.string.size()), flags, &place, &status));
    if (U_SUCCESS(status))
        uregex_setStackLimit(handle.get(), stackBytes, &status);
    if (U_SUCCESS(status))
        return std::unique_ptr<TextPattern>(new ExpressionPattern(std::move(handle)));
    failToRead(error, status, place.offset);
    return nullptr;
}

void ExpressionPattern::readFrom(const TextStorage &storage)
{
    if (m_storage == &storage && m_revision == storage.revision())
        return;
    UErrorCode status = U_ZERO_ERROR;
    const StorageText text(storage);
    uregex_setUText(m_handle.get(), text.get(), &status);
    m_storage = &storage;
    m_revision = storage.revision();
}

TextPattern::Step ExpressionPattern::search(const TextStorage &storage, qsizetype position,
                                            QDeadlineTimer deadline)
{
    readFrom(storage);
    Progress progress{deadline, QDeadlineTimer(attemptMilliseconds), position};
    UErrorCode status = U_ZERO_ERROR;
    uregex_setFindProgressCallback(m_handle.get(), &Progress::nextPlace, &progress, &status);
    uregex_setMatchCallback(m_handle.get(), &Progress::withinAttempt, &progress, &status);
    const bool found = uregex_find64(m_handle.get(), position, &status);
    const qsizetype start = found ? uregex_start64(m_handle.get(), 0, &status) : 0;
    const qsizetype end = found ? uregex_end64(m_handle.get(), 0, &status) : 0;
    UErrorCode ignored = U_ZERO_ERROR;
    uregex_setFindProgressCallback(m_handle.get(), nullptr, nullptr, &ignored);
    uregex_setMatchCallback(m_handle.get(), nullptr, nullptr, &ignored);
    if (U_FAILURE(status)) {
        const bool isInterrupted = status == U_REGEX_STOPPED_BY_CALLER && !progress.isTooCostly;
        return {isInterrupted ? Outcome::Interrupted : Outcome::TooCostly, {}, progress.position};
    }
    if (!found)
        return {Outcome::Ended, {}, storage.length()};
    return {Outcome::Found, TextRange::between(start, end), start};
}

int ExpressionPattern::group(QStringView name) const
{
    UErrorCode status = U_ZERO_ERROR;
    bool isNumber = false;
    int number = name.toInt(&isNumber);
    if (!isNumber)
        number = uregex_groupNumberFromName(m_handle.get(),
                                            reinterpret_cast<const UChar *>(name.utf16()),
                                            int32_t(name.size()), &status);
    return U_SUCCESS(status) && number <= uregex_groupCount(m_handle.get(), &status) ? number : -1;
}

QString ExpressionPattern::groupText(const TextStorage &storage, int group) const
{
    UErrorCode status = U_ZERO_ERROR;
    const qsizetype start = uregex_start64(m_handle.get(), group, &status);
    const qsizetype end = uregex_end64(m_handle.get(), group, &status);
    return start < 0 ? QString() : storage.substring(TextRange::between(start, end));
}

std::optional<QString> ExpressionPattern::replacement(const TextStorage &storage, TextRange match,
                                                      const QString &text, Error *error)
{
    const Step step = search(storage, match.location, QDeadlineTimer(attemptMilliseconds));
    if (step.outcome != Outcome::Found || step.match != match) {
        fail(error, domain, 0, localized("The text there does not match any more."));
        return std::nullopt;
    }
    QString result;
    UErrorCode status = U_ZERO_ERROR;
    const int groups = uregex_groupCount(m_handle.get(), &status);
    for (ReplacementReader reader(text, groups); !reader.isAtEnd();) {
        const auto [part, isGroup] = reader.next();
        const int number = isGroup ? group(part) : 0;
        if (number < 0) {
            fail(error, domain, 0,
                 format(localized("The expression has no group \"%@\"."), part.toString()));
            return std::nullopt;
        }
        result += isGroup ? groupText(storage, number) : part.toString();
    }
    return result;
}

} // namespace platform
