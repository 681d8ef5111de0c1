#include "editor/colouring/MGSSyntaxDefinition.h"

#include "editor/colouring/SMLSyntaxDefinitionKeys.h"
#include "platform/Assert.h"
#include "platform/Log.h"
#include "platform/PropertyList.h"
#include "platform/RegularExpression.h"

#include <algorithm>

namespace {

using platform::CharacterSet;

bool booleanValue(const QVariantMap &dictionary, QLatin1StringView key, bool absent)
{
    const QVariant value = dictionary.value(key);
    if (!value.isValid())
        return absent;
    PLATFORM_ASSERT(platform::isNumber(value), "NSNumber expected");
    return value.toDouble() != 0;
}

QString text(const QVariant &value)
{
    PLATFORM_ASSERT(value.typeId() == QMetaType::QString, "NSString expected");
    return QLatin1StringView("") + value.toString();
}

// Null where the key is absent, and only there.
QString stringValue(const QVariantMap &dictionary, QLatin1StringView key)
{
    const QVariant value = dictionary.value(key);
    return value.isValid() ? text(value) : QString();
}

std::optional<QStringList> arrayValue(const QVariantMap &dictionary, QLatin1StringView key)
{
    const QVariant value = dictionary.value(key);
    if (!value.isValid())
        return std::nullopt;
    PLATFORM_ASSERT(value.typeId() == QMetaType::QVariantList ||
                        value.typeId() == QMetaType::QStringList,
                    "NSArray expected");
    QStringList words;
    for (const QVariant &word : value.toList())
        words.append(text(word));
    return words;
}

QSet<QString> setOf(const QStringList &words)
{
    return {words.begin(), words.end()};
}

} // namespace

MGSSyntaxDefinition::MGSSyntaxDefinition(const QVariantMap &syntaxDictionary, const QString &name)
    : m_syntaxDictionary(syntaxDictionary), m_name(name)
{
    setDefaults();
    readWords();
    readDelimiters();
    readComments();
    adjustKeywordCharacterSets();
    logBrokenPatterns();
}

void MGSSyntaxDefinition::setDefaults()
{
    m_nameCharacterSet = CharacterSet::letters().include(QStringLiteral("_"));
    m_keywordStartCharacterSet = CharacterSet::letters().include(QStringLiteral("_:@#"));
    m_keywordEndCharacterSet = CharacterSet::whitespaceAndNewlines()
                                   .include(CharacterSet::symbols())
                                   .include(CharacterSet::punctuation())
                                   .exclude(QStringLiteral("_-"));
    m_numberCharacterSet = CharacterSet::of(QStringLiteral("0123456789."));
    m_attributesCharacterSet = CharacterSet::alphanumerics().include(QStringLiteral(" -"));
}

void MGSSyntaxDefinition::readWords()
{
    const QVariantMap &from = m_syntaxDictionary;
    m_keywordsCaseSensitive = booleanValue(from, SMLSyntaxDefinitionKeywordsCaseSensitive, false);
    m_syntaxDefinitionAllowsColouring =
        booleanValue(from, SMLSyntaxDefinitionAllowSyntaxColouring, true);
    m_numberDefinition = stringValue(from, SMLSyntaxDefinitionAlternativeNumberRegex);
    m_keywords = caseAdjustedSetFromKeywordArray(
        arrayValue(from, SMLSyntaxDefinitionKeywords).value_or(QStringList()));
    m_autocompleteWords =
        setOf(arrayValue(from, SMLSyntaxDefinitionAutocompleteWords).value_or(QStringList()));
    m_recolourKeywordIfAlreadyColoured =
        booleanValue(from, SMLSyntaxDefinitionRecolourKeywordIfAlreadyColoured, false);
    if (const auto words = arrayValue(from, SMLSyntaxDefinitionInstructions))
        m_instructions = caseAdjustedSetFromKeywordArray(*words);
}

void MGSSyntaxDefinition::readDelimiters()
{
    const QVariantMap &from = m_syntaxDictionary;
    m_beginCommand = stringValue(from, SMLSyntaxDefinitionBeginCommand);
    m_endCommand = stringValue(from, SMLSyntaxDefinitionEndCommand);
    if (!m_instructions) {
        m_beginInstruction = stringValue(from, SMLSyntaxDefinitionBeginInstruction);
        m_endInstruction = stringValue(from, SMLSyntaxDefinitionEndInstruction);
    }
    m_variableRegex = stringValue(from, SMLSyntaxDefinitionVariableRegex);
    if (m_variableRegex.isNull()) {
        m_beginVariable = CharacterSet::of(stringValue(from, SMLSyntaxDefinitionBeginVariable));
        m_endVariable = CharacterSet::of(stringValue(from, SMLSyntaxDefinitionEndVariable));
    }
    m_firstString = stringValue(from, SMLSyntaxDefinitionFirstString);
    m_secondString = stringValue(from, SMLSyntaxDefinitionSecondString);
}

void MGSSyntaxDefinition::readComments()
{
    const QVariantMap &from = m_syntaxDictionary;
    m_singleLineCommentRegex = stringValue(from, SMLSyntaxDefinitionSingleLineCommentRegex);
    if (m_singleLineCommentRegex.isNull()) {
        m_singleLineComments = {stringValue(from, SMLSyntaxDefinitionFirstSingleLineComment),
                                stringValue(from, SMLSyntaxDefinitionSecondSingleLineComment)};
        m_singleLineComments->removeAll(QString());
    }
    const MultiLineComment pairs[] = {
        {stringValue(from, SMLSyntaxDefinitionBeginFirstMultiLineComment),
         stringValue(from, SMLSyntaxDefinitionEndFirstMultiLineComment)},
        {stringValue(from, SMLSyntaxDefinitionBeginSecondMultiLineComment),
         stringValue(from, SMLSyntaxDefinitionEndSecondMultiLineComment)},
    };
    for (const MultiLineComment &pair : pairs) {
        if (!pair.opening.isEmpty() && !pair.closing.isEmpty())
            m_multiLineComments.append(pair);
    }
}

// What is included comes last, so that it stands whatever is excluded.
void MGSSyntaxDefinition::adjustKeywordCharacterSets()
{
    const QVariantMap &from = m_syntaxDictionary;
    m_keywordStartCharacterSet
        .exclude(stringValue(from, SMLSyntaxDefinitionExcludeFromKeywordStartCharacterSet))
        .include(stringValue(from, SMLSyntaxDefinitionIncludeInKeywordStartCharacterSet));
    m_keywordEndCharacterSet
        .exclude(stringValue(from, SMLSyntaxDefinitionExcludeFromKeywordEndCharacterSet))
        .include(stringValue(from, SMLSyntaxDefinitionIncludeInKeywordEndCharacterSet));
}

QSet<QString> MGSSyntaxDefinition::caseAdjustedSetFromKeywordArray(const QStringList &words) const
{
    if (m_keywordsCaseSensitive)
        return setOf(words);
    QSet<QString> adjusted;
    for (const QString &word : words)
        adjusted.insert(word.toLower());
    return adjusted;
}

void MGSSyntaxDefinition::logBrokenPatterns() const
{
    for (const auto key :
         {SMLSyntaxDefinitionAlternativeNumberRegex, SMLSyntaxDefinitionVariableRegex,
          SMLSyntaxDefinitionSingleLineCommentRegex}) {
        const QString pattern = stringValue(m_syntaxDictionary, key);
        platform::Error error;
        if (!pattern.isNull() && !platform::RegularExpression::compile(pattern, &error))
            platform::log("The pattern %@ of the syntax definition %@ colours nothing: %@",
                          QString(key), m_name, error.description);
    }
}

QStringList MGSSyntaxDefinition::completions() const
{
    if (!m_sortedAutocompleteWords) {
        m_sortedAutocompleteWords = m_autocompleteWords.values();
        std::sort(m_sortedAutocompleteWords->begin(), m_sortedAutocompleteWords->end());
    }
    return *m_sortedAutocompleteWords;
}
