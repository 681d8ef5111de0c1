#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxDefinitionKeys.h"
#include "platform/RegularExpression.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// Without what the user of this machine has added.
const MGSSyntaxController &controller()
{
    static const MGSSyntaxController shipped = [] {
        auto places = MGSSyntaxController::Places::standard();
        places.applicationSupport = u":/nowhere"_s;
        return MGSSyntaxController(places);
    }();
    return shipped;
}

MGSSyntaxDefinition definitionOf(const QString &name)
{
    return {controller().syntaxDictionaryWithName(name).value_or(QVariantMap()), name};
}

QStringList matches(const QString &pattern, const QString &text)
{
    QStringList found;
    if (auto expression = platform::RegularExpression::compile(pattern)) {
        for (const QStringView match : expression->matches(text))
            found += match.toString();
    }
    return found;
}

// What the scanner of keywords would take for a word, whole.
bool canBeCutOut(const MGSSyntaxDefinition &definition, const QString &word)
{
    if (word.isEmpty() || !definition.keywordStartCharacterSet().contains(word.front()))
        return false;
    const QString rest = word.mid(1);
    return std::none_of(rest.begin(), rest.end(), [&](QChar unit) {
        return definition.keywordEndCharacterSet().contains(unit);
    });
}

void expectSoundWords(const MGSSyntaxDefinition &definition)
{
    const std::string name = definition.name().toStdString();
    for (const auto key : {SMLSyntaxDefinitionKeywords, SMLSyntaxDefinitionAutocompleteWords,
                           SMLSyntaxDefinitionInstructions}) {
        QSet<QString> seen;
        for (const QVariant &value : definition.syntaxDictionary().value(key).toList()) {
            const QString word = value.toString();
            EXPECT_FALSE(seen.contains(word)) << name << ": twice: " << word.toStdString();
            EXPECT_FALSE(word.isEmpty() || word.contains(u' ')) << name;
            seen.insert(word);
        }
    }
    QSet<QString> coloured = definition.keywords();
    EXPECT_FALSE(coloured.intersects(definition.autocompleteWords())) << name;
    coloured.unite(definition.instructions().value_or(QSet<QString>()));
    for (const QString &word : coloured)
        EXPECT_TRUE(canBeCutOut(definition, word)) << name << ": " << word.toStdString();
}

void expectSoundPatterns(const MGSSyntaxDefinition &definition)
{
    const std::string name = definition.name().toStdString();
    for (const QString &pattern : {definition.numberDefinition(), definition.variableRegex(),
                                   definition.singleLineCommentRegex()}) {
        EXPECT_EQ(pattern.isNull() ? QStringList() : matches(pattern, u"\n \n"_s), QStringList())
            << name << pattern.toStdString();
    }
    for (const QString &delimiter : {definition.firstString(), definition.secondString()})
        EXPECT_TRUE(delimiter.isEmpty() ||
                    platform::RegularExpression::compile(delimiter + u"[^"_s + delimiter + u"]*"_s))
            << name;
    for (const auto &[begin, end] :
         {std::pair(definition.beginCommand(), definition.endCommand()),
          std::pair(definition.beginInstruction(), definition.endInstruction())})
        EXPECT_EQ(begin.isEmpty(), end.isEmpty()) << name;
}

} // namespace

TEST(ShippedDefinitions, EveryOneIsSound)
{
    const support::LogCapture log;
    EXPECT_GE(controller().syntaxDefinitionNames().size(), 2 + 45);
    EXPECT_EQ(controller().syntaxDefinitionNames().size(), controller().syntaxDefinitions().size());
    for (const QString &name : controller().syntaxDefinitionNames()) {
        const MGSSyntaxDefinition definition = definitionOf(name);
        EXPECT_EQ(definition.syntaxDefinitionAllowsColouring(), name != u"None"_s);
        expectSoundWords(definition);
        expectSoundPatterns(definition);
    }
    EXPECT_EQ(log.lines(), QStringList());
}

TEST(ShippedDefinitions, EveryFileIsListedOnceAndEveryExtensionHasOneOwner)
{
    QStringList listed;
    QMap<QString, QString> owners;
    for (const auto &entry : controller().syntaxDefinitions()) {
        listed += entry.file + u".plist"_s;
        for (const QString &extension : entry.extensions.split(u' ', Qt::SkipEmptyParts)) {
            EXPECT_FALSE(owners.contains(extension))
                << extension.toStdString() << ": " << owners.value(extension).toStdString();
            EXPECT_EQ(extension, extension.toLower());
            owners.insert(extension, entry.name);
            EXPECT_EQ(controller().syntaxDefinitionNameWithExtension(extension), entry.name);
        }
    }
    QStringList files = QDir(u":/layoutsmith/ZQFragariaResources.bundle/Syntax Definitions"_s)
                            .entryList(QDir::Files);
    listed.sort();
    files.sort();
    EXPECT_EQ(listed, files);
}

TEST(ShippedDefinitions, PatternsFindWhatTheyAreMeantFor)
{
    using Pattern = const QString &(MGSSyntaxDefinition::*)() const;
    constexpr Pattern number = &MGSSyntaxDefinition::numberDefinition;
    constexpr Pattern variable = &MGSSyntaxDefinition::variableRegex;
    constexpr Pattern comment = &MGSSyntaxDefinition::singleLineCommentRegex;
    const struct
    {
        const char *language;
        Pattern pattern;
        QString text;
        QStringList found;
    } rows[] = {
        {"HTML",
         variable,
         u"[[LBTitle]] &amp; [x] [[if a[1] or b]]<br>&#x20AC; [[open"_s,
         {u"[[LBTitle]]"_s, u"&amp;"_s, u"[[if a[1] or b]]"_s, u"&#x20AC;"_s}},
        {"HTML",
         number,
         u"12 items, 50% off: width:100%; margin:4px 1.5em; color:#fff; #fff"_s,
         {u"100%"_s, u"4px"_s, u"1.5em"_s, u"#fff"_s}},
        {"CSS",
         number,
         u"h1 #a1b2c3 .5em -2px 1e3 10% x-4"_s,
         {u"#a1b2c3"_s, u".5em"_s, u"-2px"_s, u"1e3"_s, u"10%"_s}},
        {"C",
         number,
         u"0xFFu 1'000 3.14f 1e-9 a12 12ab 0b101 x2"_s,
         {u"0xFFu"_s, u"1'000"_s, u"3.14f"_s, u"1e-9"_s, u"0b101"_s}},
        {"JavaScript",
         number,
         u"0x1f 1_000n 2.5e3 v2 0b11"_s,
         {u"0x1f"_s, u"1_000n"_s, u"2.5e3"_s, u"0b11"_s}},
        {"JSON", number, u"[-1.5e+3, 0, \"a1\"]"_s, {u"-1.5e+3"_s, u"0"_s}},
        {"PHP",
         variable,
         u"<?php $a->b = $$c + ${d};"_s,
         {u"<?php"_s, u"$a"_s, u"$$c"_s, u"${d}"_s}},
        {"Shell",
         variable,
         u"$HOME ${a:-b} $? $1 a$ \\n"_s,
         {u"$HOME"_s, u"${a:-b}"_s, u"$?"_s, u"$1"_s}},
        {"Perl",
         variable,
         u"$x @list %h $#a $_ 5%3 $A::b"_s,
         {u"$x"_s, u"@list"_s, u"%h"_s, u"$#a"_s, u"$_"_s, u"$A::b"_s}},
        {"Ruby",
         variable,
         u"@a @@b $stdout :sym? A::B x ? y : z"_s,
         {u"@a"_s, u"@@b"_s, u"$stdout"_s, u":sym?"_s}},
        {"Rust",
         variable,
         u"fn f<'a>(x: &'a str) { println!('b', 'c') } a != b"_s,
         {u"'a"_s, u"'a"_s, u"println!"_s}},
        {"Tcl",
         variable,
         u"$a ${b c} $ns::v $arr(x,1) \\$"_s,
         {u"$a"_s, u"${b c}"_s, u"$ns::v"_s, u"$arr(x,1)"_s}},
        {"Batch",
         variable,
         u"%PATH% %1 %%i !late! %~dp0\n:label"_s,
         {u"%PATH%"_s, u"%1"_s, u"%%i"_s, u"!late!"_s, u"%~dp0"_s, u":label"_s}},
        {"Makefile",
         variable,
         u"$(CC) $@ $< ${x} $(call f,$(a)) $$"_s,
         {u"$(CC)"_s, u"$@"_s, u"$<"_s, u"${x}"_s, u"$(call f,$(a))"_s, u"$$"_s}},
        {"YAML",
         variable,
         u"---\nkey: v\n- two words: 1\nurl: http://a\nref: *x"_s,
         {u"---"_s, u"key"_s, u"- two words"_s, u"url"_s, u"ref"_s, u"*x"_s}},
        {"TOML", variable, u"[a.b]\nkey = 1\n[[c]]\n"_s, {u"[a.b]"_s, u"key"_s, u"[[c]]"_s}},
        {"TOML",
         number,
         u"1979-05-27T07:32:00Z 1_000 0xff 6.2e-3"_s,
         {u"1979-05-27T07:32:00Z"_s, u"1_000"_s, u"0xff"_s, u"6.2e-3"_s}},
        {"INI", variable, u"[s]\nkey = v\n; no = 1\nb: 2"_s, {u"key"_s, u"b"_s}},
        {"Markdown",
         variable,
         u"# One\na `code` **bold** 2 * 3 * 4 snake_case_x\nTitle\n===="_s,
         {u"# One"_s, u"`code`"_s, u"**bold**"_s, u"===="_s}},
        {"Markdown", comment, u"> quoted\na > b"_s, {u"> quoted"_s}},
        {"LaTeX",
         variable,
         u"\\alpha \\section{A} \\textbf{x} \\%"_s,
         {u"\\alpha"_s, u"\\textbf"_s, u"\\%"_s}},
        {"Diff", variable, u"+++ b/f\n+new\n-old\n same"_s, {u"+new"_s}},
        {"Diff", number, u"--- a/f\n+new\n-old\n same"_s, {u"-old"_s}},
        {"Diff",
         comment,
         u"diff --git a b\n--- a/f\n+++ b/f\n same"_s,
         {u"diff --git a b"_s, u"--- a/f"_s, u"+++ b/f"_s}},
        {"COBOL",
         comment,
         u"000100* whole line\n000200 MOVE A *> rest"_s,
         {u"000100* whole line"_s, u"*> rest"_s}},
        {"Java Properties", comment, u"# one\n! two\na=#3"_s, {u"# one"_s, u"! two"_s}},
        {"PostScript", number, u"16#FF -1.5 .5 a1 /F1"_s, {u"16#FF"_s, u"-1.5"_s, u".5"_s}},
        {"Pascal", number, u"$FF 1.5e3 %101 #13 x1"_s, {u"$FF"_s, u"1.5e3"_s, u"%101"_s, u"#13"_s}},
        {"Verilog",
         number,
         u"8'hFF 4'b10x0 12 10ns a1"_s,
         {u"8'hFF"_s, u"4'b10x0"_s, u"12"_s, u"10ns"_s}},
        {"Assembly",
         number,
         u"mov eax, 0x10 0FFh 101b $5 r10"_s,
         {u"0x10"_s, u"0FFh"_s, u"101b"_s, u"$5"_s}},
        {"Lisp", number, u"(+ 1 -2.5 1/2 a1 1+)"_s, {u"1"_s, u"-2.5"_s, u"1/2"_s}},
        {"PowerShell",
         variable,
         u"$env:PATH $_ ${a b} @splat"_s,
         {u"$env:PATH"_s, u"$_"_s, u"${a b}"_s, u"@splat"_s}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(matches((definitionOf(row.language).*row.pattern)(), row.text), row.found)
            << row.language << ": " << row.text.toStdString();
}

TEST(ShippedDefinitions, HtmlKnowsTheStandardAndTheHostsWords)
{
    EXPECT_EQ(MGSSyntaxController::sharedInstance().syntaxDefinitionWithName(u"html"_s).name,
              u"HTML"_s);
    const MGSSyntaxDefinition html = definitionOf(u"HTML"_s);
    const QStringList words = html.completions();
    for (const char *word : {"a", "article", "dialog", "h6", "search", "slot", "wbr",
                             "accept-charset", "colspan", "loading", "popovertarget", "srcset",
                             "onclick", "onwheel", "aria-label", "LBTitle", "LBLayoutEnabled_"})
        EXPECT_TRUE(words.contains(QString(word))) << word;
    EXPECT_TRUE(html.keywords().isEmpty()) << "the words of a listing would be coloured";
    EXPECT_FALSE(html.instructions());
    EXPECT_EQ(html.beginCommand() + html.endCommand(), u"<>"_s);
    EXPECT_EQ(html.beginInstruction() + html.endInstruction(), u"<script</script>"_s);
    EXPECT_EQ(html.multiLineComments().front().opening, u"<!--"_s);
}

TEST(ShippedDefinitions, NoPatternStallsOnLongLines)
{
    const QString texts[] = {
        QString(u'[').repeated(20000),     QString(u"[[a"_s).repeated(20000),
        QString(u"a_-"_s).repeated(20000), QString(u' ').repeated(20000) + u'x',
        QString(u"$("_s).repeated(20000),  QString(u"`*_"_s).repeated(20000)};
    for (const QString &name : controller().syntaxDefinitionNames()) {
        const MGSSyntaxDefinition definition = definitionOf(name);
        for (const QString &pattern : {definition.numberDefinition(), definition.variableRegex(),
                                       definition.singleLineCommentRegex()}) {
            for (const QString &text : texts) {
                QElapsedTimer timer;
                timer.start();
                if (!pattern.isNull())
                    matches(pattern, text);
                EXPECT_LT(timer.elapsed(), 2000)
                    << name.toStdString() << ": " << pattern.toStdString() << " on "
                    << text.left(3).toStdString();
            }
        }
    }
}
