#pragma once

#include <QLatin1StringView>

/// The keys of a syntax definition file. docs/syntax-definitions.md explains them.

// Whether and how words match
inline constexpr QLatin1StringView SMLSyntaxDefinitionAllowSyntaxColouring("allowSyntaxColouring");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionKeywordsCaseSensitive("keywordsCaseSensitive");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionRecolourKeywordIfAlreadyColoured("recolourKeywordIfAlreadyColoured");

// Lists of words
inline constexpr QLatin1StringView SMLSyntaxDefinitionKeywords("keywords");
inline constexpr QLatin1StringView SMLSyntaxDefinitionAutocompleteWords("autocompleteWords");
inline constexpr QLatin1StringView SMLSyntaxDefinitionInstructions("instructions");

// Patterns
inline constexpr QLatin1StringView SMLSyntaxDefinitionAlternativeNumberRegex("numberDefinition");
inline constexpr QLatin1StringView SMLSyntaxDefinitionVariableRegex("variableRegex");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionSingleLineCommentRegex("singleLineCommentRegex");

// Delimiters
inline constexpr QLatin1StringView SMLSyntaxDefinitionBeginCommand("beginCommand");
inline constexpr QLatin1StringView SMLSyntaxDefinitionEndCommand("endCommand");
inline constexpr QLatin1StringView SMLSyntaxDefinitionBeginInstruction("beginInstruction");
inline constexpr QLatin1StringView SMLSyntaxDefinitionEndInstruction("endInstruction");
inline constexpr QLatin1StringView SMLSyntaxDefinitionBeginVariable("beginVariable");
inline constexpr QLatin1StringView SMLSyntaxDefinitionEndVariable("endVariable");
inline constexpr QLatin1StringView SMLSyntaxDefinitionFirstString("firstString");
inline constexpr QLatin1StringView SMLSyntaxDefinitionSecondString("secondString");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionFirstSingleLineComment("firstSingleLineComment");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionSecondSingleLineComment("secondSingleLineComment");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionBeginFirstMultiLineComment("beginFirstMultiLineComment");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionEndFirstMultiLineComment("endFirstMultiLineComment");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionBeginSecondMultiLineComment("beginSecondMultiLineComment");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionEndSecondMultiLineComment("endSecondMultiLineComment");

// Where a keyword starts and ends
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionExcludeFromKeywordStartCharacterSet("excludeFromKeywordStartCharacterSet");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionExcludeFromKeywordEndCharacterSet("excludeFromKeywordEndCharacterSet");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionIncludeInKeywordStartCharacterSet("includeInKeywordStartCharacterSet");
inline constexpr QLatin1StringView
    SMLSyntaxDefinitionIncludeInKeywordEndCharacterSet("includeInKeywordEndCharacterSet");
