#pragma once

#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/StringPattern.h"
#include <map>

/// The patterns of one definition, compiled once. Owned by the engine.
class SyntaxPatterns
{
public:
    explicit SyntaxPatterns(const MGSSyntaxDefinition &definition);

    StringPattern &firstString(bool multiLine) { return m_first[multiLine]; }
    StringPattern &secondString(bool multiLine) { return m_second[multiLine]; }

    /// All matches of a pattern of the definition; none for one that cannot be compiled.
    std::vector<QStringView> matches(const QString &pattern, QStringView text);

private:
    StringPattern m_first[2];
    StringPattern m_second[2];
    std::map<QString, std::optional<platform::RegularExpression>> m_expressions;
};
