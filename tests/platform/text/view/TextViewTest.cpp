#include "platform/text/RandomText.h"
#include "platform/text/view/TextViewDelegate.h"
#include "TextViewFixture.h"

#include <QClipboard>

using namespace platform;
using namespace Qt::StringLiterals;
using support::TextViewTest;

namespace {

class KeysTest : public TextViewTest
{
protected:
    struct Case
    {
        QString before;
        QString keys;
        QString after;
    };

    void expect(const std::vector<Case> &cases)
    {
        for (const Case &c : cases) {
            set(c.before);
            press(c.keys);
            EXPECT_EQ(marked(), c.after) << qPrintable(c.before) << " " << qPrintable(c.keys);
        }
    }
};

} // namespace

TEST_F(KeysTest, MoveAndSelect)
{
    expect({
        {u"a|b"_s, u"Right, Right"_s, u"ab|"_s},
        {u"a|\r\nb"_s, u"Right"_s, u"a\r\n|b"_s},
        {u"a\r\n|b"_s, u"Left"_s, u"a|\r\nb"_s},
        {u"a|👩‍👩‍👧b"_s, u"Right"_s, u"a👩‍👩‍👧|b"_s},
        {u"e\u0301|"_s, u"Left"_s, u"|e\u0301"_s},
        {u"|"_s, u"Left, Up, Ctrl+Left, PgUp, Home"_s, u"|"_s},
        {u"a[bc]d"_s, u"Left"_s, u"a|bcd"_s},
        {u"a<bc>d"_s, u"Right"_s, u"abc|d"_s},
        {u"a[bc]d"_s, u"Ctrl+Right"_s, u"abcd|"_s},
        {u"|one two.x"_s, u"Ctrl+Right, Ctrl+Right, Ctrl+Right"_s, u"one two.|x"_s},
        {u"one two|"_s, u"Shift+Ctrl+Left, Shift+Ctrl+Left"_s, u"<one two>"_s},
        {u"a|bc"_s, u"Shift+Right, Shift+Right, Shift+Left"_s, u"a[b]c"_s},
        {u"a[b]c"_s, u"Shift+Left, Shift+Left"_s, u"<a>bc"_s},
        {u"abcd|ef\nab\nabcdef"_s, u"Down, Down"_s, u"abcdef\nab\nabcd|ef"_s}, // keeps its column
        {u"abcd|ef\nab\nabcdef"_s, u"Down, Left, Down"_s, u"abcdef\nab\na|bcdef"_s},
        {u"a\nb|c"_s, u"Up, Up"_s, u"|a\nbc"_s},
        {u"a|b\ncd"_s, u"Shift+Down, Shift+Down"_s, u"a[b\ncd]"_s},
        {u"ab\n[cd]\nef"_s, u"Up"_s, u"|ab\ncd\nef"_s},
        {u"ab\n[cd]\nef"_s, u"Down"_s, u"ab\ncd\nef|"_s},
        {u"ab\n  c|d\nef"_s, u"Home"_s, u"ab\n|  cd\nef"_s},
        {u"ab\nc|d\nef"_s, u"End"_s, u"ab\ncd|\nef"_s},
        {u"ab\nc|d\nef"_s, u"Ctrl+Home"_s, u"|ab\ncd\nef"_s},
        {u"ab\nc|d\nef"_s, u"Shift+Ctrl+End"_s, u"ab\nc[d\nef]"_s},
        {u"ab\nc|d"_s, u"Ctrl+A"_s, u"[ab\ncd]"_s},
        {u"\u05D0|\u05D1\u05D2"_s, u"Left"_s, u"\u05D0\u05D1|\u05D2"_s}, // to the left is onward
        {u"\u05D0|\u05D1\u05D2"_s, u"Right"_s, u"|\u05D0\u05D1\u05D2"_s},
        {u"\u05D0\u05D1|\nx"_s, u"Left"_s, u"\u05D0\u05D1\n|x"_s},
        {u"\u05D0[\u05D1]\u05D2"_s, u"Left"_s, u"\u05D0\u05D1|\u05D2"_s},
        {u"\u05D0\u05D1 |\u05D2\u05D3"_s, u"Ctrl+Right"_s, u"|\u05D0\u05D1 \u05D2\u05D3"_s},
        {u"a|b\nc|d"_s, u"Right"_s, u"ab|\ncd|"_s}, // all carets
        {u"a|b|"_s, u"Left"_s, u"|a|b"_s},
        {u"|a|b"_s, u"Left"_s, u"|ab"_s}, // those that meet are one
        {u"a|b|c"_s, u"Shift+End"_s, u"a[bc]"_s},
        {u"a[b]c"_s, u"Esc"_s, u"ab|c"_s},
        {u"a|b|c"_s, u"Esc"_s, u"ab|c"_s},
    });
}

TEST_F(KeysTest, Edit)
{
    expect({
        {u"a|c"_s, u"b"_s, u"ab|c"_s},
        {u"a[xyz]c"_s, u"b"_s, u"ab|c"_s},
        {u"a|b\nc|d"_s, u"x, y"_s, u"axy|b\ncxy|d"_s},
        {u"ab|"_s, u"Backspace"_s, u"a|"_s},
        {u"|ab"_s, u"Backspace, Backspace"_s, u"|ab"_s},
        {u"a\r\n|b"_s, u"Backspace"_s, u"a|b"_s},
        {u"a|\r\nb"_s, u"Del"_s, u"a|b"_s},
        {u"e\u0301|"_s, u"Backspace"_s, u"e|"_s},
        {u"|e\u0301x"_s, u"Del"_s, u"|x"_s},
        {u"a👩‍👩‍👧|"_s, u"Backspace"_s, u"a|"_s},
        {u"a[bc]d"_s, u"Backspace"_s, u"a|d"_s},
        {u"a|b|c|"_s, u"Backspace"_s, u"|"_s}, // ranges that touch
        {u"one two|"_s, u"Ctrl+Backspace"_s, u"one |"_s},
        {u"on|e two"_s, u"Ctrl+Del"_s, u"on|two"_s},
        {u"o|n|e two"_s, u"Ctrl+Del"_s, u"o|two"_s}, // and such that overlap
        {u"a|\n|b"_s, u"Shift+Backspace"_s, u"|b"_s},
        {u"ab|c"_s, u"Return"_s, u"ab\n|c"_s},
        {u"a\r\nb|"_s, u"Return"_s, u"a\r\nb\r\n|"_s}, // as the text does
        {u"a\rb|\n"_s, u"Shift+Return"_s, u"a\rb\r|\n"_s},
        {u"a|"_s, u"Tab"_s, u"a\t|"_s},
        {u"a|b"_s, u"Ctrl+Z"_s, u"a|b"_s},
        {u"ab|"_s, u"c, d, Left, e, Ctrl+Z"_s, u"abc|d"_s},
        {u"ab|"_s, u"c, d, Ctrl+Z"_s, u"ab|"_s},
        {u"ab|"_s, u"c, d, Ctrl+Z, Ctrl+Shift+Z"_s, u"abcd|"_s},
        {u"[ab]"_s, u"c, d, Ctrl+Z"_s, u"[ab]"_s}, // selections come back
        {u"<ab>c|d"_s, u"x, Ctrl+Z"_s, u"<ab>c|d"_s},
        {u"abc|"_s, u"Backspace, Backspace, Ctrl+Z"_s, u"abc|"_s},
        {u"a|b\nc"_s, u"Alt+Shift+Down, x"_s, u"ax|b\ncx|"_s},
        {u"ab|\nc\nde"_s, u"Alt+Shift+Down, Alt+Shift+Down, x"_s, u"abx|\ncx|\ndex|"_s},
        {u"ab\nc|d"_s, u"Alt+Shift+Up, Alt+Shift+Up"_s, u"a|b\nc|d"_s},
        {u"fo|o bar foo food"_s, u"Ctrl+D"_s, u"[foo] bar foo food"_s},
        {u"fo|o bar foo food"_s, u"Ctrl+D, Ctrl+D, Ctrl+D, Ctrl+D"_s, u"[foo] bar [foo] [foo]d"_s},
        {u"foo [foo]"_s, u"Ctrl+D, x"_s, u"x| x|"_s},
    });
}

TEST_F(TextViewTest, CommandsChangeWordsAndCharacters)
{
    const struct
    {
        QString before;
        void (TextView::*command)();
        QString after;
    } cases[] = {
        {u"a|b"_s, &TextView::transpose, u"ba|"_s},
        {u"ab|\ncd|e"_s, &TextView::transpose, u"ba|\nced|"_s},
        {u"|ab"_s, &TextView::transpose, u"|ab"_s},
        {u"x👍🏽|e\u0301"_s, &TextView::transpose, u"xe\u0301👍🏽|"_s},
        {u"hEL|lo you"_s, &TextView::capitalizeWord, u"Hello| you"_s},
        {u"[don't STOP élan]"_s, &TextView::capitalizeWord, u"[Don't Stop Élan]"_s},
        {u"a [ǆ] b|c"_s, &TextView::capitalizeWord, u"a [ǅ] Bc|"_s},
        {u"a\n[b\nc]d\ne"_s, &TextView::deleteLines, u"a\n|e"_s},
    };
    for (const auto &c : cases) {
        set(c.before);
        (view.*c.command)();
        EXPECT_EQ(marked(), c.after);
    }
}

TEST_F(TextViewTest, RowsOfAWrappedLineAreLinesToTheKeys)
{
    view.layoutManager()->setWrapWidth(view.layoutManager()->style().characterWidth * 10.5);
    set(u"aaaa bbbb cccc dd|dd\nee"_s); // "aaaa bbbb " "cccc dddd"
    press(u"Home"_s);
    EXPECT_EQ(marked(), u"aaaa bbbb |cccc dddd\nee"_s);
    press(u"Up, End"_s);
    EXPECT_EQ(marked(), u"aaaa bbbb |cccc dddd\nee"_s);
    EXPECT_EQ(view.caretRect(10, view.selections().main().affinity).y(), 0); // in the upper row
    press(u"Home, Down, Right, Right"_s);
    EXPECT_EQ(marked(), u"aaaa bbbb cc|cc dddd\nee"_s);
    press(u"Down"_s);
    EXPECT_EQ(marked(), u"aaaa bbbb cccc dddd\nee|"_s);
    press(u"Up, Up, Up"_s);
    EXPECT_EQ(marked(), u"|aaaa bbbb cccc dddd\nee"_s);
    EXPECT_EQ(view.rectOfLine(0).height(), 2 * rowHeight());
}

TEST_F(TextViewTest, OtherKeysGoOn)
{
    set(u"a|b"_s);
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_F5, Qt::NoModifier), std::pair(Qt::Key_S, Qt::ControlModifier),
          std::pair(Qt::Key_Escape, Qt::NoModifier)}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, u"\x13"_s);
        QCoreApplication::sendEvent(&view, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    QKeyEvent thirdLevel(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier,
                         u"@"_s);
    QCoreApplication::sendEvent(&view, &thirdLevel);
    EXPECT_EQ(marked(), u"a@|b"_s);

    // Shortcuts of the window do not take what the view wants.
    QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    undo.ignore();
    QCoreApplication::sendEvent(&view, &undo);
    EXPECT_TRUE(undo.isAccepted());
    QKeyEvent save(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier, u"\x13"_s);
    save.ignore();
    QCoreApplication::sendEvent(&view, &save);
    EXPECT_FALSE(save.isAccepted());
}

TEST_F(TextViewTest, AReadOnlyViewSelectsAndCopies)
{
    set(u"one [two]\n"_s);
    view.setEditable(false);
    press(u"x, Backspace, Del, Return, Tab, Ctrl+X, Ctrl+V, Ctrl+Z, Ctrl+Backspace"_s);
    view.insertText(u"x"_s);
    view.capitalizeWord();
    EXPECT_FALSE(view.changeText({0, 1}, u"x"_s));
    QInputMethodEvent composed(u"か"_s, {});
    QCoreApplication::sendEvent(&view, &composed);
    EXPECT_EQ(marked(), u"one [two]\n"_s);
    press(u"Shift+Left, Ctrl+C"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"tw"_s);
    EXPECT_FALSE(view.inputMethodQuery(Qt::ImEnabled).toBool());
}

namespace {

class Delegate : public TextViewDelegate
{
public:
    bool shouldChangeTextInRanges(TextView *view, const std::vector<TextRange> &ranges,
                                  const QStringList &replacements) override
    {
        asked.push_back({ranges, replacements});
        if (inShouldChange)
            inShouldChange(view);
        return allows;
    }
    void textDidChange(TextView *view) override
    {
        ++changes;
        if (inDidChange)
            inDidChange(view);
    }
    void textViewDidChangeSelection(TextView *view) override
    {
        ++selectionChanges;
        if (inSelection)
            std::exchange(inSelection, nullptr)(view);
    }

    std::vector<std::pair<std::vector<TextRange>, QStringList>> asked;
    bool allows = true;
    int changes = 0;
    int selectionChanges = 0;
    std::function<void(TextView *)> inShouldChange, inDidChange, inSelection;
};

} // namespace

TEST_F(TextViewTest, TheDelegateIsAskedAndTold)
{
    Delegate delegate;
    set(u"a|b[c]d"_s);
    view.setDelegate(&delegate);
    type(u"x"_s);
    EXPECT_EQ(marked(), u"ax|bx|d"_s);
    ASSERT_EQ(delegate.asked.size(), 1U);
    EXPECT_EQ(delegate.asked[0].first, (std::vector<TextRange>{{1, 0}, {2, 1}}));
    EXPECT_EQ(delegate.asked[0].second, (QStringList{u"x"_s, u"x"_s}));
    EXPECT_EQ(delegate.changes, 1);
    EXPECT_EQ(delegate.selectionChanges, 1);
    press(u"Ctrl+Z"_s);
    EXPECT_EQ(delegate.asked.size(), 2U);
    EXPECT_EQ(delegate.changes, 2);

    delegate.allows = false;
    QGuiApplication::clipboard()->setText(u"pasted"_s);
    press(u"x, Backspace, Del, Return, Ctrl+V, Ctrl+X, Ctrl+Shift+Z"_s);
    EXPECT_EQ(marked(), u"a|b[c]d"_s);
    EXPECT_EQ(delegate.changes, 2);
    delegate.allows = true;
    press(u"Ctrl+Shift+Z"_s);
    EXPECT_EQ(marked(), u"ax|bx|d"_s);
    view.setDelegate(nullptr);
}

TEST_F(TextViewTest, TheDelegateMayEditAndSelectWithinItsCalls)
{
    Delegate delegate;
    set(u"abc|"_s);
    view.setDelegate(&delegate);
    // An edit in the question is the answer: what was asked about is not there any more.
    delegate.inShouldChange = [](TextView *v) {
        v->textStorage()->setString(u""_s);
    };
    type(u"x"_s);
    EXPECT_EQ(marked(), u"|"_s);
    delegate.inShouldChange = nullptr;
    delegate.inDidChange = [](TextView *v) {
        if (!v->string().startsWith(u"<"_s))
            v->changeText({0, 0}, u"<"_s);
    };
    type(u"x"_s);
    EXPECT_EQ(view.string(), u"<x"_s);
    delegate.inDidChange = [](TextView *v) {
        v->textStorage()->setString(u"z"_s);
    };
    type(u"y"_s);
    EXPECT_EQ(view.string(), u"z"_s);
    delegate.inDidChange = nullptr;
    delegate.inSelection = [](TextView *v) {
        v->setSelectedRange({0, 1});
    };
    press(u"Ctrl+Home"_s);
    EXPECT_EQ(view.selectedRange(), (TextRange{0, 1}));
    view.setDelegate(nullptr);
}

TEST_F(TextViewTest, InputMethodsComposeInPlace)
{
    set(u"ab [xx]cd\nef"_s);
    QInputMethodEvent composing(u"かな"_s, {{QInputMethodEvent::Cursor, 1, 1, {}}});
    QCoreApplication::sendEvent(&view, &composing);
    EXPECT_EQ(marked(), u"ab |cd\nef"_s); // not in the text
    const QRectF within = view.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    EXPECT_GT(within.x(), view.caretRect(3).x());
    EXPECT_EQ(view.inputMethodQuery(Qt::ImSurroundingText).toString(), u"ab cd"_s);
    EXPECT_EQ(view.inputMethodQuery(Qt::ImCursorPosition).toInt(), 3);
    const QImage composed = view.grab().toImage();

    QInputMethodEvent committing;
    committing.setCommitString(u"仮名"_s);
    QCoreApplication::sendEvent(&view, &committing);
    EXPECT_EQ(marked(), u"ab 仮名|cd\nef"_s);
    EXPECT_NE(view.grab().toImage(), composed);
    press(u"Ctrl+Z, Ctrl+Z"_s);
    EXPECT_EQ(marked(), u"ab [xx]cd\nef"_s);

    set(u"hallo|"_s);
    QInputMethodEvent correcting;
    correcting.setCommitString(u"e"_s, -4, 1);
    QCoreApplication::sendEvent(&view, &correcting);
    EXPECT_EQ(marked(), u"he|llo"_s);
}

TEST_F(TextViewTest, AReloadIsOneStepAndKeepsThePlace)
{
    QString text;
    for (int i = 0; i < 500; ++i)
        text += u"line %1\n"_s.arg(i);
    view.textStorage()->setString(text);
    const qsizetype caret = text.indexOf(u"line 300"_s);
    view.setSelectedRange({caret, 4});
    view.scrollRangeToVisible({caret, 4});
    type(u"LINE"_s);
    view.setSelectedRange({caret, 4});
    const qreal y = view.caretRect(caret).y();
    const QString typed = view.string();
    const QString other = QString(typed).replace(u"line 10\n"_s, u"line ten\nand more\n"_s);
    view.reloadString(other);
    EXPECT_EQ(view.string(), other);
    EXPECT_EQ(view.selectedText(), u"LINE"_s);
    EXPECT_EQ(view.caretRect(view.selectedRange().location).y(), y);
    type(u"x"_s);
    press(u"Ctrl+Z"_s);
    EXPECT_EQ(view.string(), other);
    press(u"Ctrl+Z"_s);
    EXPECT_EQ(view.string(), typed);
    press(u"Ctrl+Z"_s);
    EXPECT_EQ(view.string(), text);
    view.reloadString(text); // the same: no step
    EXPECT_TRUE(view.undoHistory().canRedo());
}

TEST_F(TextViewTest, RandomKeysGiveWhatAPlainStringGives)
{
    support::RandomText random(3);
    QString text;
    TextRange selection;
    view.textStorage()->setString({});
    for (int round = 0; round < 1500; ++round) {
        const qsizetype what = random.below(12);
        if (what < 5) {
            const QString letter = QStringList{u"a"_s, u"é"_s, u" "_s, u"字"_s}[random.below(4)];
            view.insertText(letter);
            text.replace(selection.location, selection.length, letter);
            selection = {selection.location + 1, 0};
        } else if (what < 6) {
            press(u"Return"_s);
            text.replace(selection.location, selection.length, u"\n"_s);
            selection = {selection.location + 1, 0};
        } else if (what < 8) {
            press(u"Backspace"_s);
            if (selection.isEmpty() && selection.location > 0)
                selection = {selection.location - 1, 1};
            text.remove(selection.location, selection.length);
            selection.length = 0;
        } else if (what < 10) {
            selection = random.range(text.size(), 8);
            view.setSelectedRange(selection);
        } else if (what < 11) {
            const QString before = view.string();
            press(u"Ctrl+Z, Ctrl+Shift+Z"_s);
            ASSERT_EQ(view.string(), before);
            selection = view.selectedRange();
        } else {
            view.scrollByPixels({0, qreal(random.below(400)) - 200});
            view.grab();
        }
        ASSERT_EQ(view.string(), text) << round;
        ASSERT_EQ(view.selectedRange(), selection) << round;
    }
    while (view.undoHistory().canUndo())
        view.undo();
    EXPECT_EQ(view.string(), QString());
    while (view.undoHistory().canRedo())
        view.redo();
    EXPECT_EQ(view.string(), text);
}
