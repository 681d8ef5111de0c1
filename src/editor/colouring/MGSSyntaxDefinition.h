#pragma once

#include "editor/colouring/SMLAutoCompleteDelegate.h"
#include "platform/CharacterSet.h"
#include <optional>
#include <QSet>
#include <QVariantMap>

/// How one language looks, made from a definition's dictionary (docs/syntax-definitions.md) and
/// never changed afterwards. Owned by whoever makes it; the main thread.
class MGSSyntaxDefinition : public SMLAutoCompleteDelegate
{
public:
    /// Both delimiters of a comment; neither is empty. They may be equal.
    struct MultiLineComment
    {
        QString opening;
        QString closing;
        bool operator==(const MultiLineComment &) const = default;
    };

    /// Throws AssertionFailure ("NSNumber expected", "NSString expected", "NSArray expected") for a
    /// value of the wrong type; keys that mean nothing here are left alone. A pattern that cannot
    /// be compiled is logged; it stays, and colours nothing.
    MGSSyntaxDefinition(const QVariantMap &syntaxDictionary, const QString &name);

    const QString &name() const { return m_name; }
    const QVariantMap &syntaxDictionary() const { return m_syntaxDictionary; }
    bool syntaxDefinitionAllowsColouring() const { return m_syntaxDefinitionAllowsColouring; }

    /// Words are in lower case unless `keywordsCaseSensitive`, and text is to be lower-cased before
    /// it is looked up; `autocompleteWords` stay as they are. No instructions at all (nullopt) is
    /// not the same as an empty list, which leaves the delimiters unread.
    bool keywordsCaseSensitive() const { return m_keywordsCaseSensitive; }
    bool recolourKeywordIfAlreadyColoured() const { return m_recolourKeywordIfAlreadyColoured; }
    const QSet<QString> &keywords() const { return m_keywords; }
    const QSet<QString> &autocompleteWords() const { return m_autocompleteWords; }
    const std::optional<QSet<QString>> &instructions() const { return m_instructions; }

    /// Patterns in ICU's dialect; null where the definition has none.
    const QString &numberDefinition() const { return m_numberDefinition; }
    const QString &variableRegex() const { return m_variableRegex; }
    const QString &singleLineCommentRegex() const { return m_singleLineCommentRegex; }

    /// Delimiters; empty where the definition has none. Those of strings go into patterns as they
    /// are.
    const QString &beginCommand() const { return m_beginCommand; }
    const QString &endCommand() const { return m_endCommand; }
    const QString &beginInstruction() const { return m_beginInstruction; }
    const QString &endInstruction() const { return m_endInstruction; }
    const QString &firstString() const { return m_firstString; }
    const QString &secondString() const { return m_secondString; }

    /// Nullopt with a `singleLineCommentRegex`. No token is empty.
    const std::optional<QStringList> &singleLineComments() const { return m_singleLineComments; }
    const QList<MultiLineComment> &multiLineComments() const { return m_multiLineComments; }

    using CharacterSet = platform::CharacterSet;
    const CharacterSet &nameCharacterSet() const { return m_nameCharacterSet; }
    const CharacterSet &keywordStartCharacterSet() const { return m_keywordStartCharacterSet; }
    const CharacterSet &keywordEndCharacterSet() const { return m_keywordEndCharacterSet; }
    const CharacterSet &numberCharacterSet() const { return m_numberCharacterSet; }
    const CharacterSet &attributesCharacterSet() const { return m_attributesCharacterSet; }
    char16_t decimalPointCharacter() const { return m_decimalPointCharacter; }

    /// Nullopt with a `variableRegex`, empty where the definition says nothing of variables.
    const std::optional<CharacterSet> &beginVariableCharacterSet() const { return m_beginVariable; }
    const std::optional<CharacterSet> &endVariableCharacterSet() const { return m_endVariable; }

    /// The sorted `autocompleteWords`, made at the first call and kept.
    QStringList completions() const override;

private:
    void setDefaults();
    void readWords();
    void readDelimiters();
    void readComments();
    void adjustKeywordCharacterSets();
    QSet<QString> caseAdjustedSetFromKeywordArray(const QStringList &words) const;
    void logBrokenPatterns() const;

    QVariantMap m_syntaxDictionary;
    QString m_name;
    bool m_syntaxDefinitionAllowsColouring = true;
    bool m_keywordsCaseSensitive = false;
    bool m_recolourKeywordIfAlreadyColoured = false;
    QSet<QString> m_keywords;
    QSet<QString> m_autocompleteWords;
    std::optional<QSet<QString>> m_instructions;
    QString m_numberDefinition;
    QString m_variableRegex;
    QString m_singleLineCommentRegex;
    QString m_beginCommand;
    QString m_endCommand;
    QString m_beginInstruction;
    QString m_endInstruction;
    QString m_firstString;
    QString m_secondString;
    std::optional<QStringList> m_singleLineComments;
    QList<MultiLineComment> m_multiLineComments;
    CharacterSet m_nameCharacterSet;
    CharacterSet m_keywordStartCharacterSet;
    CharacterSet m_keywordEndCharacterSet;
    CharacterSet m_numberCharacterSet;
    CharacterSet m_attributesCharacterSet;
    std::optional<CharacterSet> m_beginVariable;
    std::optional<CharacterSet> m_endVariable;
    char16_t m_decimalPointCharacter = u'.';
    mutable std::optional<QStringList> m_sortedAutocompleteWords;
};
