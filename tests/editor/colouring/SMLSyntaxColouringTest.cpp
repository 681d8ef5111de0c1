#include "editor/colouring/SMLSyntaxColouring.h"

#include "editor/colouring/SMLSyntaxColouringDelegate.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;

namespace {

const QVariantMap language = {
    {u"beginCommand"_s, u"<"_s},
    {u"endCommand"_s, u">"_s},
    {u"firstString"_s, u"\""_s},
    {u"firstSingleLineComment"_s, u"//"_s},
    {u"beginFirstMultiLineComment"_s, u"/*"_s},
    {u"endFirstMultiLineComment"_s, u"*/"_s},
    {u"keywords"_s, QStringList{u"if"_s, u"else"_s}},
};

class SyntaxColouring : public testing::Test
{
protected:
    SyntaxColouring() { define(language); }

    void define(const QVariantMap &dictionary)
    {
        colouring.setSyntaxDefinition(std::make_shared<MGSSyntaxDefinition>(dictionary, u"T"_s));
    }
    void set(const QString &text) { layout.textStorage()->setString(text); }
    void insert(qsizetype at, const QString &text)
    {
        layout.textStorage()->replaceCharacters({at, 0}, text);
    }
    TextRange all() const { return {0, layout.textStorage()->length()}; }
    void colourAll() { colouring.recolourRange(all()); }

    /// The first letter of each character's group, "." for none.
    std::string groups() const
    {
        std::string groups;
        for (qsizetype i = 0; i < all().length; ++i) {
            const QString group = colouring.syntaxColouringGroupOfCharacterAtIndex(i);
            groups += group.isNull() ? '.' : char(group[0].toLatin1());
        }
        return groups;
    }

    platform::LayoutManager layout;
    SMLSyntaxColouring colouring{&layout};
};

/// Notes what it is asked; answers as it is told to.
class Delegate : public SMLSyntaxColouringDelegate
{
public:
    std::optional<bool> fragariaDocumentShouldColour(const Context &context, TextRange range,
                                                     const QVariantMap &info) override
    {
        view = context.fragaria;
        note("should", range, info);
        if (act)
            act(context, QString());
        return should;
    }
    void fragariaDocumentDidColour(const Context &, TextRange range,
                                   const QVariantMap &info) override
    {
        note("did", range, info);
    }
    std::optional<bool> fragariaDocumentShouldColourGroup(const Context &context, TextRange range,
                                                          const QVariantMap &info) override
    {
        const QString group = info[SMLSyntaxGroup].toString();
        groups += group;
        groupRange = range;
        willColour.insert(group, info[SMLSyntaxWillColour].toBool());
        painted.insert(group, info[SMLSyntaxAttributes]
                                  .value<TextAttributes>()
                                  .value(TextAttribute::Group)
                                  .toString());
        if (act)
            act(context, group);
        return shouldGroup;
    }
    void fragariaDocumentDidColourGroup(const Context &, TextRange,
                                        const QVariantMap &info) override
    {
        numbersDone += info[SMLSyntaxGroupID].toInt();
    }

    void note(const char *call, TextRange range, const QVariantMap &info)
    {
        calls += u"%1 %2+%3 %4"_s.arg(QLatin1StringView(call))
                     .arg(range.location)
                     .arg(range.length)
                     .arg(QStringList(info.keys()).join(u','));
    }

    std::optional<bool> should;
    std::optional<bool> shouldGroup;
    std::function<void(const Context &, const QString &group)> act;
    QObject *view = nullptr;
    QStringList calls;
    QStringList groups;
    QMap<QString, bool> willColour;
    QMap<QString, QString> painted;
    TextRange groupRange;
    QList<int> numbersDone;
};

} // namespace

TEST_F(SyntaxColouring, NothingIsPaintedBeforeItIsAskedFor)
{
    set(u"if\nelse\nif\n"_s);
    EXPECT_EQ(groups(), "...........");
    colouring.recolourRange({4, 1});
    EXPECT_EQ(groups(), "...kkkk....");
    EXPECT_EQ(colouring.inspectedCharacterIndexes().ranges(), std::vector{TextRange(3, 5)});
    insert(5, u"x"_s);
    EXPECT_EQ(groups(), "...kkkkk...."); // as it was, until it is drawn
    EXPECT_TRUE(colouring.inspectedCharacterIndexes().isEmpty());
    colouring.recolourRange({0, 1000});
    EXPECT_EQ(groups(), "kk.......kk.");
    colouring.invalidateAllColouring();
    EXPECT_EQ(groups(), "............");
}

TEST_F(SyntaxColouring, TypingRecoloursItsLineAlone)
{
    set(u"if a\n<b c=\"d\">\n/* e */\n"_s);
    colourAll();
    const std::string before = groups();
    insert(3, u"x"_s);
    std::vector<TextRange> changed;
    QObject::connect(&layout, &platform::LayoutManager::displayDidChange,
                     [&changed](TextRange range) { changed.push_back(range); });
    EXPECT_EQ(colouring.recolourChangedRange({3, 1}), TextRange(0, 6));
    EXPECT_TRUE(changed.empty()); // the line looks as before
    EXPECT_EQ(groups(), std::string(before).insert(3, "."));
    colouring.recolourRange(all());
    EXPECT_TRUE(changed.empty());
    insert(0, u"x"_s);
    colouring.recolourRange(all());
    EXPECT_EQ(changed, std::vector{TextRange(0, 3)});
}

TEST_F(SyntaxColouring, AnEditInACommentRecoloursAllOfIt)
{
    set(u"if\n/* if\nif\nif */ if\nif"_s);
    colourAll();
    const std::string comment(14, 'c');
    EXPECT_EQ(groups(), "kk." + comment + ".kk.kk");
    insert(11, u"*/"_s); // it ends earlier now
    EXPECT_EQ(colouring.recolourChangedRange({11, 2}).location, 3);
    EXPECT_EQ(groups(), "kk.cccccccccc.kk....kk.kk");
    layout.textStorage()->replaceCharacters({3, 2}, u""_s);
    colourAll();
    EXPECT_EQ(groups(), "kk..kk.kk...kk....kk.kk");
}

TEST_F(SyntaxColouring, StringsCrossLinesOnlyWhenTheyMay)
{
    set(u" \"a\nif\nb\" if"_s);
    colouring.recolourRange({4, 1});
    EXPECT_EQ(groups(), "....kk......");
    colouring.setColoursMultiLineStrings(true);
    EXPECT_EQ(groups(), "............");
    colourAll();
    EXPECT_EQ(groups(), ".ssssssss.kk");
    insert(4, u"x"_s);
    colouring.recolourRange({4, 1}); // the quote before tells that this is in a string
    EXPECT_EQ(groups(), ".sssssssss.kk");
}

TEST_F(SyntaxColouring, UnclosedCommentsEndWhereTheyAreToldTo)
{
    set(u"/* if\nif"_s);
    colourAll();
    EXPECT_EQ(groups(), "cccccckk"); // with the line's end
    colouring.setColoursOnlyUntilEndOfLine(false);
    colourAll();
    EXPECT_EQ(groups(), "cccccccc");
}

TEST_F(SyntaxColouring, ALanguageMayBeWithoutColours)
{
    QVariantMap plain = language;
    plain[u"allowSyntaxColouring"_s] = false;
    define(plain);
    set(u"if"_s);
    colourAll();
    EXPECT_EQ(groups(), "..");
    EXPECT_FALSE(colouring.isSyntaxColouringRequired());
    colouring.setSyntaxDefinition(nullptr);
    colourAll();
    EXPECT_TRUE(colouring.syntaxDefinitionName().isNull());
    colouring.setSyntaxDefinitionName(u"hTmL"_s);
    EXPECT_EQ(colouring.syntaxDefinitionName(), u"hTmL"_s);
    EXPECT_EQ(colouring.syntaxDefinition()->beginCommand(), u"<"_s);
}

TEST_F(SyntaxColouring, ColoursAndSwitchesTakeEffectAtTheNextDrawing)
{
    set(u"if // if"_s);
    colourAll();
    const auto colourAt = [this](qsizetype index) {
        return layout.temporaryAttributes()
            .value(TextAttribute::ForegroundColor, index)
            .value<QColor>();
    };
    EXPECT_EQ(colourAt(0), QColor::fromRgbF(0.737F, 0.0F, 0.647F));
    EXPECT_EQ(colourAt(3), QColor::fromRgbF(0.0F, 0.45F, 0.0F));
    ASSERT_TRUE(colouring.setProperty("colourForKeywords", QColor(Qt::cyan)));
    ASSERT_TRUE(colouring.setProperty("coloursComments", false));
    EXPECT_EQ(groups(), "........");
    colourAll();
    EXPECT_EQ(groups(), "kk....kk");
    EXPECT_EQ(colourAt(6), QColor(Qt::cyan));
    EXPECT_FALSE(colouring.property("coloursAutocomplete").toBool());
}

TEST_F(SyntaxColouring, OtherAttributesStay)
{
    set(u"if \"if\" if"_s);
    layout.addTemporaryAttributes({{TextAttribute::ToolTip, u"tip"_s}}, {1, 5});
    colourAll();
    insert(4, u"\""_s);
    colourAll();
    colouring.invalidateAllColouring();
    for (qsizetype i = 0; i < all().length; ++i)
        EXPECT_EQ(layout.temporaryAttributes().value(TextAttribute::ToolTip, i).isValid(),
                  i >= 1 && i < 7);
}

TEST_F(SyntaxColouring, PaintWipesOutTheRunsItTouches)
{
    set(u"0123456789"_s);
    const auto paint = [this](const QString &group, TextRange range) {
        colouring.setColour({{TextAttribute::Group, group}}, range);
    };
    paint(u"keyword"_s, {1, 4});
    paint(u"strings"_s, {3, 2});
    EXPECT_EQ(groups(), "...ss....."); // the keyword is gone before the string too
    paint(u"command"_s, {2, 7});
    paint(u"attribute"_s, {4, 2});
    EXPECT_EQ(groups(), "..ccaaccc."); // a command stays around it
    paint(u"number"_s, {5, 100});
    EXPECT_EQ(groups(), "..cc.nnnnn");
    paint(u"strings"_s, {8, 0});
    EXPECT_EQ(groups(), "..cc.nnnnn");
}

TEST_F(SyntaxColouring, DelegatesAreAskedAndToldInOrder)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    colouring.setFragaria(&layout);
    set(u"a\nif \"b\"\n"_s);
    colouring.recolourRange({3, 1});
    EXPECT_EQ(delegate.calls,
              (QStringList{u"should 3+1 syntaxInfo,willColour"_s, u"did 3+1 syntaxInfo"_s}));
    EXPECT_EQ(delegate.view, &layout);
    EXPECT_EQ(delegate.groupRange, TextRange(2, 7));
    EXPECT_EQ(
        delegate.groups,
        (QStringList{u"number"_s, u"command"_s, u"instruction"_s, u"keyword"_s, u"autocomplete"_s,
                     u"variable"_s, u"secondString"_s, u"firstString"_s, u"attribute"_s,
                     u"singleLineComment"_s, u"multiLineComment"_s, u"secondStringPass2"_s}));
    EXPECT_EQ(delegate.numbersDone, (QList<int>{0, 1, 3, 5, 7, 8, 9, 10}));
    EXPECT_FALSE(delegate.willColour[u"instruction"_s]);
    EXPECT_EQ(delegate.painted[u"secondStringPass2"_s], u"strings"_s);
    EXPECT_EQ(delegate.painted[u"multiLineComment"_s], u"comments"_s);
    EXPECT_EQ(groups(), "..kk.sss.");
}

TEST_F(SyntaxColouring, DelegatesRefuseAndForce)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    set(u"if // 1"_s);
    delegate.should = false;
    colourAll();
    EXPECT_EQ(groups(), ".......");
    EXPECT_TRUE(colouring.inspectedCharacterIndexes().contains(all()));
    EXPECT_EQ(delegate.calls.size(), 1);

    delegate.should = true;
    delegate.shouldGroup = false;
    colouring.invalidateAllColouring();
    colourAll();
    EXPECT_EQ(groups(), ".......");
    EXPECT_TRUE(delegate.numbersDone.isEmpty());

    delegate.shouldGroup = true; // with delimiters that do not exist
    define({});
    colourAll();
    EXPECT_EQ(delegate.numbersDone.size(), 12);
    EXPECT_EQ(groups(), "......n");
}

TEST_F(SyntaxColouring, DelegatesPaintBetweenThePasses)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    set(u"if <a b=\"c\"> // x"_s);
    std::string seen;
    delegate.act = [&](const Delegate::Context &context, const QString &group) {
        EXPECT_EQ(context.string.length(), all().length);
        if (group == u"attribute"_s)
            seen = groups();
        if (group == u"keyword"_s) { // as if it were in a command
            EXPECT_TRUE(context.block({{TextAttribute::Group, u"command"_s}}, {0, 3}));
        }
        if (group == u"multiLineComment"_s)
            layout.setTemporaryAttributes({{TextAttribute::Group, u"mine"_s}}, {14, 1});
    };
    colourAll();
    EXPECT_EQ(seen, "ccccccccsssc.....");
    EXPECT_EQ(groups(), "cccccaacsssc.cmcc");
}

TEST_F(SyntaxColouring, WhatDelegatesThrowIsLogged)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    set(u"1 if\n2"_s);
    delegate.act = [](const Delegate::Context &, const QString &group) {
        if (group == u"variable"_s)
            throw std::runtime_error("no variables");
    };
    const support::LogCapture log;
    colouring.recolourRange({0, 1});
    EXPECT_TRUE(log.contains(u"Syntax colouring exception: no variables"_s));
    EXPECT_EQ(groups(), "n.kk.."); // what was painted before stays
    EXPECT_TRUE(colouring.inspectedCharacterIndexes().contains({0, 5}));
    delegate.act = nullptr;
    colourAll();
    EXPECT_EQ(groups(), "n.kk.n");
}

TEST_F(SyntaxColouring, WhatDelegatesPaintStaysHoweverMuchItIs)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    set(u"x"_s.repeated(400));
    delegate.act = [](const Delegate::Context &context, const QString &group) {
        for (qsizetype i = 0; group.isNull() && i < 400; ++i)
            context.block({{TextAttribute::Group, QString::number(i)}}, {i, 1});
    };
    const support::LogCapture log;
    colourAll();
    EXPECT_TRUE(log.contains(u"more than 255 colours"_s));
    EXPECT_EQ(colouring.syntaxColouringGroupOfCharacterAtIndex(0), u"0"_s);
    EXPECT_EQ(colouring.syntaxColouringGroupOfCharacterAtIndex(399), u"399"_s);
}

TEST_F(SyntaxColouring, ADelimiterThatMatchesNothingIsNoString)
{
    define({{u"firstString"_s, u"|"_s}, {u"firstSingleLineComment"_s, u"//"_s}});
    set(u"a| //"_s);
    const support::LogCapture log;
    colourAll();
    EXPECT_EQ(groups(), "...cc");
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(SyntaxColouring, DelegatesThatEditEndTheColouring)
{
    Delegate delegate;
    colouring.setSyntaxColouringDelegate(&delegate);
    set(u"if if if"_s);
    delegate.act = [this](const Delegate::Context &, const QString &group) {
        if (group == u"attribute"_s)
            set(u"x"_s);
    };
    const support::LogCapture log;
    colourAll();
    EXPECT_TRUE(log.contains(u"Syntax colouring exception: "_s));
    delegate.act = [this](const Delegate::Context &, const QString &group) {
        if (group == u"attribute"_s)
            layout.replaceTextStorage(std::make_shared<platform::TextStorage>());
    };
    set(u"if"_s);
    colourAll();
    delegate.act = nullptr;
    set(u"else"_s);
    colourAll();
    EXPECT_EQ(groups(), "kkkk");
}

TEST_F(SyntaxColouring, FollowsTheLayoutManagersText)
{
    set(u"if"_s);
    colourAll();
    const auto old = layout.sharedTextStorage();
    colouring.layoutManagerWillChangeTextStorage();
    layout.replaceTextStorage(std::make_shared<platform::TextStorage>());
    colouring.layoutManagerDidChangeTextStorage();
    old->setString(u"nobody colours this"_s);
    set(u"else"_s);
    colourAll();
    EXPECT_EQ(groups(), "kkkk");

    auto manager = std::make_unique<platform::LayoutManager>();
    SMLSyntaxColouring orphan(manager.get());
    orphan.setSyntaxDefinitionName(u"HTML"_s);
    manager.reset();
    orphan.recolourRange({0, 10});
    orphan.invalidateAllColouring();
    EXPECT_TRUE(orphan.syntaxColouringGroupOfCharacterAtIndex(0).isNull());
}

TEST_F(SyntaxColouring, LongLinesAreColouredByStretches)
{
    const QString piece = u"if <a b=\"c\"> "_s;
    set(piece.repeated(SMLSyntaxColouring::longestWholeLine / piece.size() + 2));
    const qsizetype middle = all().length / 2;
    colouring.recolourRange({middle, 100});
    const auto inspected = colouring.inspectedCharacterIndexes().ranges();
    EXPECT_EQ(inspected, std::vector{TextRange(middle - SMLSyntaxColouring::lineMargin / 2,
                                               SMLSyntaxColouring::lineMargin + 100)});
    const std::string piecemeal = groups();
    colouring.recolourRange({0, 10});
    colourAll();
    const std::string whole = groups();
    EXPECT_TRUE(piecemeal.find_first_not_of('.') < size_t(middle));
    colouring.invalidateAllColouring();
    colourAll();
    EXPECT_TRUE(groups() == whole);
}

TEST_F(SyntaxColouring, NoPatternAndNoTextHangs)
{
    QVariantMap slow = language;
    slow[u"variableRegex"_s] = u"(a|aa|a?)+$"_s;
    slow[u"singleLineCommentRegex"_s] = u"(("_s;
    slow[u"beginInstruction"_s] = u"</"_s;
    slow[u"endInstruction"_s] = u"/>"_s;
    const support::LogCapture log;
    define(slow);
    set(u"if "_s + u"a"_s.repeated(40) + u"!"_s);
    colourAll();
    EXPECT_EQ(groups().substr(0, 3), "kk.");

    define({{u"beginCommand"_s, u"<"_s},
            {u"endCommand"_s, u">"_s},
            {u"firstSingleLineComment"_s, u"#"_s},
            {u"beginFirstMultiLineComment"_s, u"<!--"_s},
            {u"endFirstMultiLineComment"_s, u"-->"_s},
            {u"beginInstruction"_s, u"<"_s},
            {u"endInstruction"_s, u"</nothing>"_s},
            {u"firstString"_s, u"\""_s}});
    for (const QString &unit :
         {u"<"_s, u"<\n"_s, u"<!--"_s, u"<!---->"_s, u"\\\""_s, u"$#"_s, u"\"#"_s, u"<a b "_s}) {
        set(unit.repeated(100'000)); // any work by its square would take minutes
        colourAll();
        EXPECT_TRUE(colouring.inspectedCharacterIndexes().contains(all()));
    }
}
