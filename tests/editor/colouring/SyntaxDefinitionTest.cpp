#include "editor/colouring/MGSSyntaxDefinition.h"

#include "editor/colouring/SMLSyntaxDefinitionKeys.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

MGSSyntaxDefinition make(const QVariantMap &dictionary)
{
    return {dictionary, u"Tested"_s};
}

QString failureOf(const QVariantMap &dictionary)
{
    try {
        make(dictionary);
    } catch (const platform::AssertionFailure &failure) {
        return failure.text();
    }
    return {};
}

QString membersOf(const platform::CharacterSet &set)
{
    QString members;
    for (char16_t unit = 0; unit < 128; ++unit) {
        if (set.contains(unit))
            members += QChar(unit);
    }
    return members;
}

} // namespace

TEST(SyntaxDefinition, DefaultCharacterSets)
{
    const QString letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"_s;
    const MGSSyntaxDefinition definition = make({});
    const struct
    {
        const char *name;
        const platform::CharacterSet &set;
        QString members;
        QString beyondAscii;
    } rows[] = {
        {"name", definition.nameCharacterSet(), letters + u'_', u"äЖ"_s},
        {"start", definition.keywordStartCharacterSet(), letters + u"_:@#"_s, u"äЖ"_s},
        {"end", definition.keywordEndCharacterSet(),
         u"\t\n\v\f\r !\"#$%&'()*+,./:;<=>?@[\\]^`{|}~"_s, u"\u00a0\u2028€–"_s},
        {"number", definition.numberCharacterSet(), u"0123456789."_s, u""_s},
        {"attributes", definition.attributesCharacterSet(), letters + u"0123456789 -"_s, u"é½"_s},
    };
    for (const auto &row : rows) {
        QString members = row.members;
        std::sort(members.begin(), members.end());
        EXPECT_EQ(membersOf(row.set), members) << row.name;
        for (const QChar unit : row.beyondAscii)
            EXPECT_TRUE(row.set.contains(unit)) << row.name << std::hex << int(unit.unicode());
    }
}

TEST(SyntaxDefinition, WordsFollowTheCaseOfTheLanguage)
{
    QVariantMap dictionary = {
        {SMLSyntaxDefinitionKeywords, QStringList{u"SELECT"_s, u"Äpfel"_s}},
        {SMLSyntaxDefinitionInstructions, QStringList{u"#Include"_s}},
        {SMLSyntaxDefinitionAutocompleteWords, QStringList{u"count"_s, u"Avg"_s, u"count"_s}}};
    const MGSSyntaxDefinition lowered = make(dictionary);
    EXPECT_EQ(lowered.keywords(), (QSet<QString>{u"select"_s, u"äpfel"_s}));
    EXPECT_EQ(lowered.instructions(), QSet<QString>{u"#include"_s});
    EXPECT_EQ(lowered.completions(), (QStringList{u"Avg"_s, u"count"_s}));

    dictionary[SMLSyntaxDefinitionKeywordsCaseSensitive] = true;
    const MGSSyntaxDefinition kept = make(dictionary);
    EXPECT_EQ(kept.keywords(), (QSet<QString>{u"SELECT"_s, u"Äpfel"_s}));
    EXPECT_EQ(kept.instructions(), QSet<QString>{u"#Include"_s});
}

TEST(SyntaxDefinition, OneWayOfSayingItLeavesTheOtherUnread)
{
    const MGSSyntaxDefinition definition =
        make({{SMLSyntaxDefinitionInstructions, QVariantList()},
              {SMLSyntaxDefinitionBeginInstruction, 7},
              {SMLSyntaxDefinitionEndInstruction, u"?>"_s},
              {SMLSyntaxDefinitionVariableRegex, u"\\$\\w+"_s},
              {SMLSyntaxDefinitionBeginVariable, u"$"_s},
              {SMLSyntaxDefinitionEndVariable, QVariantList()},
              {SMLSyntaxDefinitionSingleLineCommentRegex, u""_s},
              {SMLSyntaxDefinitionFirstSingleLineComment, u"//"_s}});
    EXPECT_EQ(definition.instructions(), QSet<QString>());
    EXPECT_TRUE(definition.endInstruction().isEmpty());
    EXPECT_FALSE(definition.beginVariableCharacterSet());
    EXPECT_FALSE(definition.endVariableCharacterSet());
    EXPECT_FALSE(definition.singleLineComments());
    EXPECT_FALSE(definition.singleLineCommentRegex().isNull());
}

TEST(SyntaxDefinition, CommentsWithoutDelimitersAreNone)
{
    const MGSSyntaxDefinition definition =
        make({{SMLSyntaxDefinitionFirstSingleLineComment, u""_s},
              {SMLSyntaxDefinitionSecondSingleLineComment, u"--"_s},
              {SMLSyntaxDefinitionBeginFirstMultiLineComment, u"/*"_s},
              {SMLSyntaxDefinitionEndFirstMultiLineComment, u""_s},
              {SMLSyntaxDefinitionBeginSecondMultiLineComment, u"(*[\\"_s},
              {SMLSyntaxDefinitionEndSecondMultiLineComment, u"+)"_s}});
    EXPECT_EQ(definition.singleLineComments(), QStringList{u"--"_s});
    const QList<MGSSyntaxDefinition::MultiLineComment> pairs = {{u"(*[\\"_s, u"+)"_s}};
    EXPECT_EQ(definition.multiLineComments(), pairs);

    const MGSSyntaxDefinition half = make({{SMLSyntaxDefinitionEndFirstMultiLineComment, u"*/"_s}});
    EXPECT_TRUE(half.multiLineComments().isEmpty());
}

TEST(SyntaxDefinition, WhatIsIncludedOutranksWhatIsExcluded)
{
    const MGSSyntaxDefinition definition =
        make({{SMLSyntaxDefinitionExcludeFromKeywordStartCharacterSet, u":@\\é"_s},
              {SMLSyntaxDefinitionIncludeInKeywordStartCharacterSet, u"@\\"_s},
              {SMLSyntaxDefinitionExcludeFromKeywordEndCharacterSet, u"!?-"_s},
              {SMLSyntaxDefinitionIncludeInKeywordEndCharacterSet, u"-?"_s}});
    const auto &start = definition.keywordStartCharacterSet();
    EXPECT_FALSE(start.contains(u':'));
    EXPECT_FALSE(start.contains(u'é'));
    EXPECT_TRUE(start.contains(u'@'));
    EXPECT_TRUE(start.contains(u'\\'));
    const auto &end = definition.keywordEndCharacterSet();
    EXPECT_FALSE(end.contains(u'!'));
    EXPECT_TRUE(end.contains(u'?'));
    EXPECT_TRUE(end.contains(u'-'));
}

TEST(SyntaxDefinition, AValueOfTheWrongTypeIsAFault)
{
    const QVariant text = u"1"_s;
    const QVariant list = QVariantList{u"a"_s};
    const QVariant number = qint64(1);
    const QVariant others[] = {QByteArray("a"), QVariantMap(), 1.5, true,
                               QVariant::fromValue(platform::PropertyListDate())};
    const auto fails = [&](QLatin1StringView key, const char *expected,
                           std::initializer_list<QVariant> values) {
        for (const QVariant &value : values)
            EXPECT_EQ(failureOf({{key, value}}), QString(expected)) << key.data();
    };
    for (const auto key :
         {SMLSyntaxDefinitionKeywordsCaseSensitive, SMLSyntaxDefinitionAllowSyntaxColouring,
          SMLSyntaxDefinitionRecolourKeywordIfAlreadyColoured})
        fails(key, "NSNumber expected", {text, list, others[0], others[1], others[4]});
    for (const auto key : {SMLSyntaxDefinitionKeywords, SMLSyntaxDefinitionAutocompleteWords,
                           SMLSyntaxDefinitionInstructions}) {
        fails(key, "NSArray expected", {text, number, others[1], others[3]});
        fails(key, "NSString expected", {QVariantList{u"a"_s, 1}, QVariantList{QVariantList()}});
    }
    for (const auto key : {SMLSyntaxDefinitionAlternativeNumberRegex,
                           SMLSyntaxDefinitionVariableRegex,
                           SMLSyntaxDefinitionSingleLineCommentRegex,
                           SMLSyntaxDefinitionBeginCommand,
                           SMLSyntaxDefinitionEndCommand,
                           SMLSyntaxDefinitionBeginInstruction,
                           SMLSyntaxDefinitionEndInstruction,
                           SMLSyntaxDefinitionBeginVariable,
                           SMLSyntaxDefinitionEndVariable,
                           SMLSyntaxDefinitionFirstString,
                           SMLSyntaxDefinitionSecondString,
                           SMLSyntaxDefinitionFirstSingleLineComment,
                           SMLSyntaxDefinitionSecondSingleLineComment,
                           SMLSyntaxDefinitionBeginFirstMultiLineComment,
                           SMLSyntaxDefinitionEndFirstMultiLineComment,
                           SMLSyntaxDefinitionBeginSecondMultiLineComment,
                           SMLSyntaxDefinitionEndSecondMultiLineComment,
                           SMLSyntaxDefinitionExcludeFromKeywordStartCharacterSet,
                           SMLSyntaxDefinitionExcludeFromKeywordEndCharacterSet,
                           SMLSyntaxDefinitionIncludeInKeywordStartCharacterSet,
                           SMLSyntaxDefinitionIncludeInKeywordEndCharacterSet})
        fails(key, "NSString expected", {number, list, others[0], others[1], others[2], others[4]});
}

TEST(SyntaxDefinition, ABrokenPatternIsLoggedAndTheRestStands)
{
    const support::LogCapture log;
    const MGSSyntaxDefinition definition =
        make({{SMLSyntaxDefinitionVariableRegex, u"$(["_s},
              {SMLSyntaxDefinitionAlternativeNumberRegex, u"[0-9]+"_s},
              {SMLSyntaxDefinitionFirstString, u"(["_s},
              {SMLSyntaxDefinitionKeywords, QStringList{u"if"_s}}});
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.contains(u"The pattern variableRegex of the syntax definition Tested"_s));
    EXPECT_TRUE(definition.keywords().contains(u"if"_s));
    EXPECT_EQ(definition.firstString(), u"(["_s);
}
