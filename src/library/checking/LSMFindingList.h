#pragma once

#include "library/checking/LSMFinding.h"
#include "platform/text/TextStorage.h"

/// Gathers what is found in one text. One thread.
class LSMFindingList
{
public:
    explicit LSMFindingList(const QString &text) { m_lines.setString(text); }

    /// About a place. What goes on in the next line is marked to the end of the first.
    void add(platform::TextRange range, LSMFinding::Level level, const QString &text);

    /// About the whole text.
    void add(LSMFinding::Level level, const QString &text);

    /// That so many more could not even be added.
    void addLeftOut(qsizetype count) { m_leftOut += count; }

    /// Ordered by their places. At most so many, the gravest, and one that tells how many more
    /// there are.
    LSMFindings take(qsizetype most);

private:
    void sortByPlace();

    platform::TextStorage m_lines;
    LSMFindings m_findings;
    qsizetype m_leftOut = 0;
};
