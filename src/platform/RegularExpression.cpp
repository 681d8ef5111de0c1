#include "platform/RegularExpression.h"

#include "platform/Format.h"

#include <algorithm>
#include <limits>
#include <unicode/uchar.h>
#include <unicode/uregex.h>

namespace platform {

namespace {

// ICU counts in steps of its machine, of about a millisecond each.
constexpr int32_t timeLimit = 500;

} // namespace

void RegularExpression::Close::operator()(URegularExpression *expression) const
{
    uregex_close(expression);
}

std::optional<RegularExpression> RegularExpression::compile(const QString &pattern, Error *error)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError place = {};
    Handle handle;
    if (pattern.size() > std::numeric_limits<int32_t>::max())
        status = U_REGEX_PATTERN_TOO_BIG;
    else
        handle.reset(uregex_open(reinterpret_cast<const UChar *>(pattern.utf16()),
                                 int32_t(pattern.size()), 0, &place, &status));
    if (U_SUCCESS(status))
        uregex_setTimeLimit(handle.get(), timeLimit, &status);
    if (U_SUCCESS(status))
        return RegularExpression(std::move(handle), startOfPattern(pattern));
    fail(error, QStringLiteral("icu"), status,
         format(QStringLiteral("%s at line %d, character %d"), u_errorName(status), place.line,
                place.offset));
    return std::nullopt;
}

std::vector<QStringView> RegularExpression::matches(QStringView text)
{
    std::vector<QStringView> found;
    if (text.size() > std::numeric_limits<int32_t>::max())
        return found;
    // A null pointer is no text to ICU.
    const QStringView searched = text.isNull() ? QStringView(u"") : text;
    UErrorCode status = U_ZERO_ERROR;
    uregex_setText(m_handle.get(), reinterpret_cast<const UChar *>(searched.utf16()),
                   int32_t(searched.size()), &status);
    for (qsizetype end = 0; findFrom(searched, end);) {
        const auto start = uregex_start(m_handle.get(), 0, &status);
        end = uregex_end(m_handle.get(), 0, &status);
        found.push_back(searched.mid(start, end - start));
    }
    return found;
}

// Most of a text is passed by here, at a tenth of what ICU takes for it.
bool RegularExpression::findFrom(QStringView text, qsizetype from)
{
    UErrorCode status = U_ZERO_ERROR;
    if (!m_start)
        return uregex_findNext(m_handle.get(), &status) && U_SUCCESS(status);
    const auto canStart = [this](QChar unit) {
        return unit.unicode() < m_start->size() && m_start->test(unit.unicode());
    };
    const auto at = std::find_if(text.begin() + from, text.end(), canStart) - text.begin();
    return at < text.size() && uregex_find(m_handle.get(), int32_t(at), &status) &&
           U_SUCCESS(status);
}

bool isWordCharacter(char32_t character)
{
    if (character < 0x80)
        return (character >= U'a' && character <= U'z') ||
               (character >= U'A' && character <= U'Z') ||
               (character >= U'0' && character <= U'9') || character == U'_';
    const auto point = UChar32(character);
    return u_hasBinaryProperty(point, UCHAR_ALPHABETIC) ||
           (U_GET_GC_MASK(point) & (U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK)) != 0 ||
           character == 0x200C || character == 0x200D;
}

} // namespace platform
