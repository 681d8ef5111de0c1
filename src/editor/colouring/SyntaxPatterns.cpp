#include "editor/colouring/SyntaxPatterns.h"

using Lines = StringPattern::Lines;

SyntaxPatterns::SyntaxPatterns(const MGSSyntaxDefinition &definition)
    : m_first{{definition.firstString(), Lines::One}, {definition.firstString(), Lines::Many}},
      m_second{{definition.secondString(), Lines::BehindBackslash},
               {definition.secondString(), Lines::Many}}
{
}

std::vector<QStringView> SyntaxPatterns::matches(const QString &pattern, QStringView text)
{
    auto known = m_expressions.find(pattern);
    if (known == m_expressions.end())
        known = m_expressions.emplace(pattern, platform::RegularExpression::compile(pattern)).first;
    return known->second ? known->second->matches(text) : std::vector<QStringView>();
}
