#include "editor/EditorFixture.h"

#include "editor/MGSColourValues.h"
#include "editor/MGSLineNumberView.h"
#include "editor/MGSTagPartner.h"
#include "support/TestSupport.h"

#include <QColorDialog>

using platform::TextRange;
using platform::TextStorage;
using namespace Qt::StringLiterals;

TEST(TagPartner, IsFoundFromEitherTag)
{
    // "|" is the caret, "{" and "}" stand around the partner.
    const QString rows[] = {
        u"<d|iv a=\"x>y\"><p>a</p>{</div}>"_s,
        u"{<div}><DIV></DIV></di|v>"_s,
        u"<div>{<p} class=a>x</p>|</div>"_s,
        u"<|ul><li>a<li>b{</ul}>"_s,
        u"|<b>{</b}>"_s,
        u"<a|>{</a}><!-- </a> -->"_s,
        u"<a><!-- </a> <b|> --></a>"_s,
        u"te|xt <p>"_s,
        u"<br|>"_s,
        u"<im|g src=x />"_s,
        u"<div|><p></div"_s,
        u"</p|>"_s,
        u"a < b |> c"_s,
    };
    for (const QString &row : rows) {
        QString text = row;
        const qsizetype from = QString(row).remove(u'|').indexOf(u'{');
        const qsizetype to = QString(row).remove(u'|').remove(u'{').indexOf(u'}');
        const qsizetype caret = QString(row).remove(u'{').remove(u'}').indexOf(u'|');
        text.remove(u'|').remove(u'{').remove(u'}');
        TextStorage storage;
        storage.setString(text);
        const auto pair = MGSTagPartner(storage, caret);
        EXPECT_EQ(pair.has_value(), from >= 0) << row.toStdString();
        if (pair && from >= 0) {
            EXPECT_EQ(pair->partner, TextRange::between(from, to)) << row.toStdString();
            EXPECT_EQ(MGSTagPartner(storage, pair->partner.end())->partner, pair->tag)
                << row.toStdString();
        }
    }
}

TEST(TagPartner, ALongTextIsNotSearchedToItsEnd)
{
    TextStorage storage;
    storage.setString(u"<div>"_s + u"x"_s.repeated(2 * MGSTagPartnerReach) + u"</div>"_s);
    EXPECT_EQ(MGSTagPartner(storage, 2), std::nullopt);
}

class TagHighlight : public support::EditorFixture
{
protected:
    TagHighlight()
    {
        editor.setSyntaxDefinitionName("HTML");
        editor.setBackgroundColor(Qt::white);
        editor.setShowsTagPartners(true);
    }

    /// Whether there is a ground under the character, soon.
    bool isMarked(qsizetype index)
    {
        return support::waitUntil([&] { return isMarkedNow(index); });
    }
    bool isMarkedNow(qsizetype index)
    {
        const QPointF corner = view.rectsOf({index, 1}).at(0).topRight();
        return view.viewport()->grab().toImage().pixel(corner.toPoint() + QPoint(-1, 1)) !=
               QColor(Qt::white).rgb();
    }
};

TEST_F(TagHighlight, FollowsTheCaretThatRests)
{
    setMarked("<div>\n<p>a</p>\n¦</div>\n");
    EXPECT_TRUE(isMarked(2));
    EXPECT_TRUE(isMarkedNow(18));
    EXPECT_FALSE(isMarkedNow(8));
    press(Qt::Key_Up);
    EXPECT_TRUE(isMarked(7));
    EXPECT_TRUE(isMarkedNow(12));
    EXPECT_FALSE(isMarkedNow(2));
    type("x");
    EXPECT_FALSE(isMarkedNow(8));
    view.setSelectedRange({2, 0});
    EXPECT_TRUE(isMarked(19)) << view.string().toStdString();
    editor.setShowsTagPartners(false);
    EXPECT_FALSE(isMarkedNow(19));
}

TEST_F(TagHighlight, IsThereForHtmlAndNothingSelected)
{
    setMarked("<div>¦</div>");
    EXPECT_TRUE(isMarked(8));
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(support::waitUntil([&] { return !isMarkedNow(8); }));
    press(Qt::Key_Left);
    EXPECT_TRUE(isMarked(8));
    editor.setSyntaxDefinitionName("Standard");
    press(Qt::Key_Right);
    EXPECT_TRUE(support::waitUntil([&] { return !isMarkedNow(8); }));
}

TEST(ColourValues, StandWhereCodeMeansColours)
{
    struct Row
    {
        QString code;
        QStringList found; // "text=#aarrggbb"
    };
    const Row rows[] = {
        {u"p { color: red; margin: 0 }"_s, {"red=#ffff0000"}},
        {u"a{background:#0F0 url(#abc)}"_s, {"#0F0=#ff00ff00"}},
        {u"border: 1px solid #12345678"_s, {"#12345678=#78123456"}},
        {u"--main: #abcd"_s, {"#abcd=#ddaabbcc"}},
        {u"<td bgcolor=#ffffff style=\"color : Navy\" title=blue>"_s,
         {"#ffffff=#ffffffff", "Navy=#ff000080"}},
        {u"fill='teal' stroke-color=\"#000\""_s, {"teal=#ff008080", "#000=#ff000000"}},
        {u"rgb(255, 0, 51) RGBA(0 0 0 / 50%)"_s,
         {"rgb(255, 0, 51)=#ffff0033", "RGBA(0 0 0 / 50%)=#80000000"}},
        {u"hsl(120, 100%, 25%) hsla(480deg 100% 25% / .2)"_s,
         {"hsl(120, 100%, 25%)=#ff008000", "hsla(480deg 100% 25% / .2)=#33008000"}},
        {u"background: linear-gradient(to right, #fff, rgb(0,0,0) 50%)"_s,
         {"#fff=#ffffffff", "rgb(0,0,0)=#ff000000"}},
        {u"<a href=\"#add\">red</a> item #123456 &#123; #cafe { } color is red"_s, {}},
        {u"color: transparent inherit #12345 darkly -red rgb(1) rgb(a,b,c) rgb(-1,0,0)"_s, {}},
    };
    for (const Row &row : rows) {
        QStringList found;
        for (const MGSColourValue &value : mgs_colourValues(row.code))
            found << row.code.mid(value.range.location, value.range.length) + "=" +
                         value.colour.name(QColor::HexArgb);
        EXPECT_EQ(found, row.found) << row.code.toStdString();
    }
    for (const QString code : {"#123456", "#12345678"})
        EXPECT_EQ(mgs_colourCode(mgs_colourValues("color:" + code).at(0).colour), code);
}

class ColourSwatches : public support::EditorFixture
{
protected:
    ColourSwatches() { editor.setShowsColourSwatches(true); }

    QRgb under(qsizetype index)
    {
        const QPointF bottom = view.rectsOf({index, 1}).at(0).bottomLeft();
        return view.viewport()->grab().toImage().pixel(bottom.toPoint() + QPoint(2, -3));
    }
    void change(const QColor &colour)
    {
        view.changeColour();
        choose(colour);
    }
    void choose(const QColor &colour)
    {
        auto *dialog = editor.window()->findChild<QColorDialog *>("SMLChangeColour");
        ASSERT_TRUE(dialog);
        dialog->setCurrentColor(colour);
        dialog->accept();
    }
};

TEST_F(ColourSwatches, LieUnderTheValue)
{
    setMarked("body { color:\n  #f00; }\n¦" + QString("x ").repeated(3000) + "color: #00f");
    const QRectF place = view.rectsOf({17, 1}).at(0);
    EXPECT_EQ(under(17), QColor(Qt::red).rgb());
    EXPECT_NE(under(12), QColor(Qt::red).rgb());
    view.setSelectedRange({17, 3});
    type("00f");
    EXPECT_EQ(under(17), QColor(Qt::blue).rgb());
    EXPECT_EQ(view.rectsOf({17, 1}).at(0), place);
    view.setSelectedRange({view.textStorage()->length(), 0});
    view.scrollRangeToVisible(view.selectedRange());
    EXPECT_EQ(under(view.textStorage()->length() - 2), QColor(Qt::blue).rgb());
    editor.setShowsColourSwatches(false);
    EXPECT_NE(under(view.textStorage()->length() - 2), QColor(Qt::blue).rgb());
}

TEST_F(ColourSwatches, AreChangedByADialogAsOneStepOfUndo)
{
    setMarked("p { color: r¦ed; }");
    change(QColor(0, 255, 0, 128));
    EXPECT_EQ(marked(), "p { color: #00ff0080¦; }");
    view.undo();
    EXPECT_EQ(marked(), "p { color: r¦ed; }");
    change(Qt::red);
    EXPECT_EQ(marked(), "p { color: r¦ed; }") << "the same colour, as it is written";
    view.changeColour();
    editor.setString("p { color: blue; }");
    choose(Qt::green);
    EXPECT_EQ(view.string(), "p { color: blue; }") << "it is another one now";
    EXPECT_EQ(takeBeeps(), 1);
    setMarked("¦p { color: red; }");
    view.changeColour();
    EXPECT_EQ(takeBeeps(), 1);
}

class ChangedLines : public support::EditorFixture
{
protected:
    ChangedLines() { editor.setMarksChangedLines(true); }

    /// A "*" for each line that has a bar in the gutter, a "." for the others.
    QString marks()
    {
        const QImage gutter = editor.gutterView()->grab().toImage();
        const QRgb bar = editor.palette().color(QPalette::Link).rgb();
        QString marks;
        for (qsizetype line = 0; line < view.textStorage()->lineCount(); ++line) {
            const QPointF middle = editor.gutterView()->wholeLineRectForLine(line).center();
            marks += gutter.pixel(gutter.width() - 2, int(middle.y())) == bar ? u'*' : u'.';
        }
        return marks;
    }
};

TEST_F(ChangedLines, AreThoseThatKeysHaveTouched)
{
    struct Row
    {
        const char *text;
        const char *keys;
        const char *marks;
    };
    const Row rows[] = {
        {"one\n¦two\nthree\n", "x", ".*.."},   {"one¦\ntwo\nthree\n", "\n", ".*..."},
        {"o¦ne\ntwo\nthree\n", "\n", "**..."}, {"¦one\ntwo\nthree\n", "\n", "*...."},
        {"one\ntwo\nthree\n¦", "x", "...*"},   {"one\ntwo\nthree\n¦", "\n", "...*."},
        {"one\n‹two\n›three\n", "\b", ".*."},  {"‹one\ntwo\nthree\n›", "\b", "*"},
    };
    for (const Row &row : rows) {
        setMarked(row.text);
        view.undoHistory().markClean();
        if (*row.keys == '\b')
            press(Qt::Key_Backspace);
        else
            type(row.keys);
        EXPECT_EQ(marks().toStdString(), row.marks) << row.text << " and " << row.keys;
    }
}

TEST_F(ChangedLines, AreForgottenWhenTheTextIsSavedOrAsItWasSaved)
{
    setMarked("one\ntwo¦\nthree");
    view.undoHistory().markClean();
    type("x");
    view.setSelectedRange({0, 0});
    press(Qt::Key_Return);
    EXPECT_EQ(marks(), "*.*.") << "the mark of the second line moved down";
    view.undo();
    EXPECT_EQ(marks(), "**.");
    view.undo();
    EXPECT_EQ(marks(), "...");
    view.redo();
    view.undoHistory().markClean();
    EXPECT_EQ(marks(), "...");
    view.undo();
    EXPECT_EQ(marks(), ".*.") << "undone beyond what was saved";
}

TEST_F(ChangedLines, StayWithTheirText)
{
    const auto text = view.layoutManager()->sharedTextStorage();
    type("x");
    editor.replaceTextStorage(std::make_shared<TextStorage>());
    EXPECT_EQ(marks(), ".");
    text->replaceCharacters({0, 0}, u"\n\n");
    editor.replaceTextStorage(text);
    EXPECT_EQ(marks(), "***");
    editor.setMarksChangedLines(false);
    EXPECT_EQ(marks(), "...");
}
