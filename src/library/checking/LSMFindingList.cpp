#include "library/checking/LSMFindingList.h"

#include "platform/Bundle.h"
#include "platform/Format.h"

#include <algorithm>

using platform::localized;
using platform::TextRange;

void LSMFindingList::add(TextRange range, LSMFinding::Level level, const QString &text)
{
    const qsizetype line = m_lines.lineAt(range.location);
    const TextRange contents = m_lines.lineContents(line);
    m_findings.push_back({{},
                          level,
                          text,
                          line + 1,
                          range.location - contents.location + 1,
                          qMax<qsizetype>(0, qMin(range.end(), contents.end()) - range.location)});
}

void LSMFindingList::add(LSMFinding::Level level, const QString &text)
{
    m_findings.push_back({{}, level, text, 0, 0, 0});
}

void LSMFindingList::sortByPlace()
{
    std::ranges::stable_sort(m_findings, {}, [](const LSMFinding &finding) {
        return std::pair(finding.line, finding.character);
    });
}

LSMFindings LSMFindingList::take(qsizetype most)
{
    sortByPlace();
    qsizetype more = m_leftOut;
    if (qsizetype(m_findings.size()) > most) {
        more += qsizetype(m_findings.size()) - most;
        std::ranges::stable_sort(m_findings, std::greater(), &LSMFinding::level);
        m_findings.resize(size_t(most));
        sortByPlace();
    }
    if (more > 0)
        add(LSMFinding::Level::Note,
            more == 1 ? localized("One more finding is not listed.")
                      : platform::format(localized("%ld more findings are not listed."), more));
    return std::move(m_findings);
}
