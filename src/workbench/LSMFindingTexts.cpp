#include "workbench/LSMFindingTexts.h"

#include "platform/Bundle.h"
#include "platform/Format.h"

#include <algorithm>
#include <QSet>
#include <tuple>

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
    return error;
}

/// In order of their starts, longer ones first.
auto place(const LSMFinding &finding)
{
    return std::tuple(finding.line, finding.length == 0 ? 0 : finding.character, -finding.length);
}

/// One for each place, with all that is to say of it.
LSMFindings joinedByPlace(LSMFindings findings)
{
    std::ranges::stable_sort(findings, {}, place);
    LSMFindings joined;
    for (const LSMFinding &finding : findings) {
        if (joined.empty() || place(joined.back()) != place(finding)) {
            joined.push_back(finding);
            continue;
        }
        joined.back().text += u'\n' + finding.text;
        joined.back().level = std::max(joined.back().level, finding.level);
    }
    return joined;
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
    placed = joinedByPlace(placed);
    QSet<qsizetype> colouredLines;
    for (const LSMFinding &finding : placed) {
        if (finding.level != LSMFinding::Level::Note)
            colouredLines << finding.line;
    }
    QVariantList errors;
    for (const LSMFinding &finding : placed) {
        SMLSyntaxError error = syntaxErrorOf(finding);
        if (!colouredLines.contains(finding.line))
            error.errorLineHighlightColor = Qt::transparent;
        errors << QVariant::fromValue(error);
    }
    return errors;
}
