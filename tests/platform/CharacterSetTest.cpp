#include "platform/CharacterSet.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using platform::CharacterSet;

TEST(CharacterSet, KnowsMembersByCategoryBelowAndBeyondAscii)
{
    const struct
    {
        const char *name;
        CharacterSet set;
        QString members;
        QString others;
    } rows[] = {
        {"letters", CharacterSet::letters(), u"azAZäßΩжあ\u0301"_s, u"09_ -$\u00a0٣"_s},
        {"alphanumerics", CharacterSet::alphanumerics(), u"a0é٣½Ⅷ"_s, u"_ -."_s},
        {"punctuation", CharacterSet::punctuation(), u"!\"#%&'()*,-./:;?@[\\]_{}¿«。"_s,
         u"$+<=>^`|~ a0"_s},
        {"symbols", CharacterSet::symbols(), u"$+<=>^`|~€©×"_s, u"#%_ a0"_s},
        {"blanks", CharacterSet::whitespaceAndNewlines(),
         u" \t\r\n\v\f\u0085\u00a0\u2003\u2028\u2029\u3000"_s, u"a\u200b_"_s},
        {"none", CharacterSet(), u""_s, u"a ä"_s},
    };
    for (const auto &row : rows) {
        for (const QChar unit : row.members)
            EXPECT_TRUE(row.set.contains(unit))
                << row.name << " U+" << std::hex << int(unit.unicode());
        for (const QChar unit : row.others)
            EXPECT_FALSE(row.set.contains(unit))
                << row.name << " U+" << std::hex << int(unit.unicode());
    }
}

TEST(CharacterSet, TheLastWordOnACharacterStands)
{
    CharacterSet set = CharacterSet::letters();
    set.exclude(u"xé"_s);
    EXPECT_FALSE(set.contains(u'x'));
    EXPECT_FALSE(set.contains(u'é'));
    EXPECT_TRUE(set.contains(u'è'));
    set.include(u"é€-"_s).exclude(u"€"_s);
    EXPECT_TRUE(set.contains(u'é'));
    EXPECT_TRUE(set.contains(u'-'));
    EXPECT_FALSE(set.contains(u'€'));
}

TEST(CharacterSet, HalvesOfCharactersAreNoMembers)
{
    const QString emoji = u"😀"_s;
    const CharacterSet set = CharacterSet::of(emoji);
    EXPECT_TRUE(set.isEmpty());
    EXPECT_FALSE(set.contains(emoji.front()));
    EXPECT_FALSE(CharacterSet::symbols().contains(emoji.back()));
}
