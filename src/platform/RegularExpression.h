#pragma once

#include "platform/Error.h"
#include "platform/PatternStart.h"
#include <memory>
#include <optional>
#include <vector>

struct URegularExpression;

namespace platform {

/// A compiled pattern in ICU's dialect, without options. Owned by whoever made it; one thread at a
/// time. Matching stops at a limit of time and stack, so that no pattern can hang the program.
class RegularExpression
{
public:
    /// Nullopt, with the place and reason, for a pattern that cannot be read.
    static std::optional<RegularExpression> compile(const QString &pattern, Error *error = nullptr);

    /// All matches in order, as views into `text`, which `^` and `$` take for a text of its own.
    /// A search that hits the limit ends with what was found before it.
    std::vector<QStringView> matches(QStringView text);

private:
    struct Close
    {
        void operator()(URegularExpression *expression) const;
    };
    using Handle = std::unique_ptr<URegularExpression, Close>;

    RegularExpression(Handle handle, const std::optional<AsciiSet> &start)
        : m_handle(std::move(handle)), m_start(start)
    {
    }

    bool findFrom(QStringView text, qsizetype from);

    Handle m_handle;
    std::optional<AsciiSet> m_start; ///< What a match can begin with; none: anything.
};

/// What `\w` stands for.
bool isWordCharacter(char32_t character);

} // namespace platform
