#pragma once

#include <QStringView>

namespace platform {

/// Takes the text apart that is to replace a match: what stands for itself, and what stands for a
/// group of the expression (see TextPattern::replacement). Borrows the text.
class ReplacementReader
{
public:
    struct Part
    {
        QStringView text; ///< A group's number or name.
        bool isGroup = false;
    };

    /// `groupCount` decides how many digits behind a "$" belong to a number.
    ReplacementReader(QStringView text, int groupCount) : m_rest(text), m_groupCount(groupCount) {}

    bool isAtEnd() const { return m_rest.isEmpty(); }
    Part next();

private:
    QStringView take(qsizetype length);
    Part nextEscape();
    qsizetype digits() const;

    QStringView m_rest;
    int m_groupCount;
};

} // namespace platform
