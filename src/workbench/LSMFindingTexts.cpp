#include "workbench/LSMFindingTexts.h"

#include "platform/Bundle.h"
#include "platform/Format.h"

#include <algorithm>

using platform::localizable;
using platform::localized;

namespace {

struct Level
{
    float warningLevel;
    const char *one;
    const char *many;
};

constexpr Level levels[] = {
    {300, localizable("1 note"), localizable("%ld notes")},
    {400, localizable("1 warning"), localizable("%ld warnings")},
    {500, localizable("1 error"), localizable("%ld errors")},
};

SMLSyntaxError syntaxErrorOf(const LSMFinding &finding)
{
    SMLSyntaxError error = SMLSyntaxError::errorWithDescription(
        finding.text, LSMWarningLevel(finding.level), quint64(finding.line));
    error.character = quint64(finding.character);
    error.length = quint64(finding.length);
    if (finding.level == LSMFinding::Level::Note)
        error.errorLineHighlightColor = Qt::transparent;
    return error;
}

} // namespace

float LSMWarningLevel(LSMFinding::Level level)
{
    return levels[int(level)].warningLevel;
}

QIcon LSMIconOfLevel(LSMFinding::Level level)
{
    return SMLSyntaxError::defaultImageForWarningLevel(LSMWarningLevel(level));
}

QString LSMCountOfFindings(const LSMFindings &findings)
{
    QStringList counts;
    for (int level = int(std::size(levels)) - 1; level >= 0; --level) {
        const auto count =
            std::ranges::count(findings, LSMFinding::Level(level), &LSMFinding::level);
        if (count > 0)
            counts << (count == 1 ? localized(levels[level].one)
                                  : platform::format(localized(levels[level].many), count));
    }
    return counts.join(QStringLiteral(", "));
}

QVariantList LSMSyntaxErrorsOf(const LSMFindings &findings)
{
    LSMFindings placed = findings;
    std::erase_if(placed, [](const LSMFinding &finding) { return finding.line == 0; });
    std::ranges::stable_sort(placed, std::ranges::greater(), &LSMFinding::level);
    QVariantList errors;
    for (const LSMFinding &finding : placed)
        errors << QVariant::fromValue(syntaxErrorOf(finding));
    return errors;
}
