#include "editor/EditorFixture.h"

#include <QTest>

using platform::TextRange;

namespace {

struct TypingCase
{
    const char *name;
    QVariantMap settings;
    QString before;
    QString keys;
    QString after;
    int beeps = 0;
};

const QVariantMap spaces = {{"indentWithSpaces", true}};
const QVariantMap closing = {{"insertClosingParenthesisAutomatically", true},
                             {"insertClosingBraceAutomatically", true}};

const TypingCase typingCases[] = {
    {"a letter goes in", {}, "a¦c", "b", "ab¦c"},
    {"typing replaces", {}, "a‹bc›d", "x", "ax¦d"},

    {"return keeps the indentation", {}, "  \tab¦c", "\n", "  \tab\n  \t¦c"},
    {"return in the indentation", {}, "    ¦ab", "\n", "    \n    ¦ab"},
    {"return at the start", {}, "¦ab", "\n", "\n¦ab"},
    {"return without automatics", {{"indentNewLinesAutomatically", false}}, "  {¦", "\n", "  {\n¦"},
    {"return after a brace", {}, "\tif {  ¦", "\n", "\tif {  \n\t\t¦"},
    {"return after a brace, in blanks", spaces, "  {¦", "\n", "  {\n    ¦"},
    {"a brace without automatics",
     {{"indentBracesAutomatically", false}},
     "  {¦",
     "\n",
     "  {\n  ¦"},
    {"return replaces", {}, "  a‹b›c", "\n", "  a\n  ¦c"},
    {"return at two carets", {}, "  a¦b\n\t{¦", "\n", "  a\n  ¦b\n\t{\n\t\t¦"},

    {"a closing brace goes back", {}, "  a {\n\t\t¦", "}", "  a {\n  }¦"},
    {"from the line's start too", {}, "  a {\n¦", "}", "  a {\n  }¦"},
    {"past inner blocks", {}, "a {\n  b {}\n      ¦", "}", "a {\n  b {}\n}¦"},
    {"not after text", {}, "  {\n    x¦", "}", "  {\n    x}¦"},
    {"not without a partner", {}, "    ¦", "}", "    }¦", 1},
    {"not without automatics", {{"indentNewLinesAutomatically", false}}, "{\n  ¦", "}", "{\n  }¦"},
    {"at two carets", {}, "{\n    ¦\n  {\n      ¦", "}", "{\n}¦\n  {\n  }¦", 0},

    {"closing parenthesis", closing, "a¦b", "(", "a(¦)b"},
    {"closing brace", closing, "a¦b", "{", "a{¦}b"},
    {"none of the others", closing, "¦", "[", "[¦"},
    {"not when off", {}, "¦", "(", "(¦"},
    {"closing at two carets", closing, "a¦ b¦", "(", "a(¦) b(¦)"},

    {"a partner is shown", {}, "(a¦", ")", "(a)¦", 0},
    {"nested partners", {}, "f(a[(b)¦", "]", "f(a[(b)]¦", 0},
    {"no partner", {}, "[a¦", ")", "[a)¦", 1},
    {"no partner for >", {}, "a¦", ">", "a>¦", 1},
    {"quiet when off", {{"showsMatchingBraces", false}}, "a¦", ")", "a)¦", 0},

    {"a tab", {}, "a¦b", "\t", "a\t¦b"},
    {"blanks to the next stop", spaces, "abc¦", "\t", "abc ¦"},
    {"blanks at a stop", spaces, "abcd¦", "\t", "abcd    ¦"},
    {"blanks after a tab", spaces, "\ta¦", "\t", "\ta   ¦"},
    {"blanks without stops",
     {{"indentWithSpaces", true}, {"useTabStops", false}},
     "abc¦",
     "\t",
     "abc    ¦"},
    {"no width, no blanks", {{"indentWithSpaces", true}, {"tabWidth", 0}}, "abc¦", "\t", "abc¦"},
    {"blanks at two carets", spaces, "a¦\nabc¦", "\t", "a   ¦\nabc ¦"},
    {"a selection from the indentation on", {}, "  ‹  ab›\nc", "\t", "‹\t\tab\n›c"},
    {"a selection from the text on", {}, "  a‹b›\nc", "\t", "  ab¦\nc"},
    {"blanks at two carets of a line", spaces, "a¦b¦", "\t", "a   ¦b   ¦"},
    {"a selection becomes blanks", spaces, "  a‹b›\nc", "\t", "  a ¦\nc"},
    {"of blanks at the end of the text", {}, "‹  ›", "\t", "‹\t  ›"},
};

class TextViewTyping : public support::EditorFixture
{
protected:
    void prepare(const TypingCase &c)
    {
        editor.resetDefaults();
        for (auto it = c.settings.cbegin(); it != c.settings.cend(); ++it)
            ASSERT_TRUE(editor.setProperty(it.key().toLatin1().constData(), *it));
        setMarked(c.before);
    }
};

TEST_F(TextViewTyping, DoesWhatTheTableSays)
{
    for (const TypingCase &c : typingCases) {
        SCOPED_TRACE(c.name);
        prepare(c);
        type(c.keys);
        EXPECT_EQ(marked(), c.after);
        EXPECT_EQ(takeBeeps(), c.beeps);
    }
}

TEST_F(TextViewTyping, EachKeyIsOneStepOfUndo)
{
    for (const TypingCase &c : typingCases) {
        SCOPED_TRACE(c.name);
        prepare(c);
        const QString before = view.string();
        type(c.keys);
        expectOneStepSince(before);
    }
}

/// Says no to some changes.
class Refusal : public platform::TextViewDelegate
{
public:
    bool shouldChangeTextInRanges(platform::TextView *, const std::vector<TextRange> &ranges,
                                  const QStringList &replacements) override
    {
        ++asked;
        return !refused(ranges, replacements);
    }
    std::function<bool(const std::vector<TextRange> &, const QStringList &)> refused;
    int asked = 0;
};

TEST_F(TextViewTyping, ARefusalLeavesTextAndCaret)
{
    Refusal refusal;
    refusal.refused = [](const auto &, const auto &) {
        return true;
    };
    for (const TypingCase &c : typingCases) {
        if (c.after == c.before || c.after.count(u'›') != c.before.count(u'›'))
            continue; // only what was selected has changed
        SCOPED_TRACE(c.name);
        prepare(c);
        const QString text = view.string();
        editor.setTextViewDelegate(&refusal);
        type(c.keys);
        editor.setTextViewDelegate(nullptr);
        EXPECT_EQ(view.string(), text);
        EXPECT_EQ(marked(), c.before);
        EXPECT_FALSE(view.undoHistory().canUndo());
    }
    EXPECT_GT(refusal.asked, 20);
}

TEST_F(TextViewTyping, ARefusedIndentationStillBreaksTheLine)
{
    Refusal refusal;
    refusal.refused = [](const auto &, const QStringList &replacements) {
        return replacements.contains("  ");
    };
    setMarked("  a¦");
    editor.setTextViewDelegate(&refusal);
    type("\n");
    editor.setTextViewDelegate(nullptr);
    EXPECT_EQ(marked(), "  a\n¦");
}

TEST_F(TextViewTyping, BacktabTakesIndentationBack)
{
    setMarked("\t‹\ta\n    b›");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view.string(), "\ta\nb");
    setMarked("a¦");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(view.string(), "a");
    EXPECT_EQ(takeBeeps(), 1);
}

} // namespace
