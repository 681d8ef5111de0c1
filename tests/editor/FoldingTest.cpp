#include "editor/EditorFixture.h"

#include "editor/MGSFolding.h"
#include "editor/MGSLineNumberView.h"
#include "editor/MGSTagPartner.h"
#include "platform/text/view/FindBar.h"
#include "support/TestSupport.h"

#include <QLineEdit>
#include <QTest>

using platform::NotFound;
using platform::TextStorage;

namespace {

MGSFoldRegions regionsOf(const QString &text)
{
    TextStorage storage;
    storage.setString(text);
    return mgs_foldRegions(storage, 0, storage.lineCount() - 1);
}

} // namespace

TEST(FoldRegions, AreElementsAndCommentsWithLinesBetween)
{
    struct Row
    {
        const char *text;
        MGSFoldRegions regions;
    };
    const Row rows[] = {
        {"<div>\n<p>a</p>\n</div>", {{0, 2}}},
        {"<div>\n</div>", {}},
        {"<a><b>\n\n</b>\n\n</a>", {{0, 4}}},
        {"<ul>\n<li>a\n<li>b\n\n</UL>\n</li>", {{0, 4}, {2, 5}}},
        {"<!--\n<b>\nx\n</b>\n-->", {{0, 4}}},
        {"<br>\n\n</br>\n<img\n\n/>", {}},
        {"<div>\n<div>\n\n\n</div>\n</div>", {{0, 5}, {1, 4}}},
        {"<div\n\nclass=a>x</div>", {{0, 2}}},
        {"<div>\n\n\n", {}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(regionsOf(row.text), row.regions) << row.text;
    EXPECT_TRUE(regionsOf("<p>\n\n" + QString(3 * MGSTagPartnerReach, 'x') + "</p>").empty());
}

class Folding : public support::EditorFixture
{
protected:
    Folding() : gutter(*editor.gutterView())
    {
        editor.setSyntaxDefinitionName("HTML");
        editor.setFoldsLines(true);
        setMarked("<body>¦\n<div>\n<p>\n  text\n</p>\n</div>\n<b>\n\n</b>\n</body>\n");
        text = view.string();
    }
    ~Folding() override { EXPECT_EQ(view.string(), text) << "folding changes no text"; }

    /// Waits for the mark of the line and clicks it.
    bool clickMark(qsizetype line)
    {
        if (!support::waitUntil([&] { return !gutter.foldRectOfLine(line).isNull(); }))
            return false;
        QTest::mouseClick(&gutter, Qt::LeftButton, {},
                          gutter.foldRectOfLine(line).center().toPoint());
        return true;
    }
    QList<qsizetype> shown()
    {
        QList<qsizetype> lines;
        for (qsizetype line = 0; line < view.textStorage()->lineCount(); ++line) {
            if (!view.rectOfLine(line).isNull())
                lines << line;
        }
        return lines;
    }

    MGSLineNumberView &gutter;
    QString text;
};

TEST_F(Folding, AClickInTheGutterFoldsAndUnfolds)
{
    ASSERT_TRUE(clickMark(1));
    EXPECT_EQ(shown(), (QList<qsizetype>{0, 1, 5, 6, 7, 8, 9, 10}));
    EXPECT_TRUE(view.folding()->isFolded(1));
    EXPECT_EQ(gutter.wholeLineRectForLine(5).top(), gutter.wholeLineRectForLine(1).bottom());
    EXPECT_TRUE(gutter.foldRectOfLine(5).isNull());
    ASSERT_TRUE(clickMark(6));
    EXPECT_EQ(shown(), (QList<qsizetype>{0, 1, 5, 6, 8, 9, 10}));
    ASSERT_TRUE(clickMark(1));
    ASSERT_TRUE(clickMark(6));
    EXPECT_EQ(shown().size(), 11);
}

TEST_F(Folding, TheEllipsisUnfolds)
{
    ASSERT_TRUE(clickMark(1));
    const QPointF end = view.caretRect(view.textStorage()->lineContents(1).end()).center();
    EXPECT_EQ(view.folding()->foldedLineAt(end + QPointF(200, 0)), NotFound);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, (end + QPointF(10, 0)).toPoint());
    EXPECT_EQ(shown().size(), 11);
}

TEST_F(Folding, ACaretWithinGoesToTheLineThatStays)
{
    view.setSelectedRange({text.indexOf("text"), 4});
    ASSERT_TRUE(clickMark(1));
    EXPECT_EQ(view.selectedRange(), (platform::TextRange{text.indexOf("\n<p>"), 0}));
    EXPECT_TRUE(view.folding()->isFolded(1));
}

TEST_F(Folding, FindingWithinUnfolds)
{
    ASSERT_TRUE(clickMark(1));
    editor.findBar()->commands().first()->trigger();
    auto *field = editor.findBar()->findChild<QLineEdit *>();
    ASSERT_TRUE(field);
    QTest::keyClicks(field, "text");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(support::waitUntil([&] { return view.selectedText() == "text"; }));
    EXPECT_EQ(shown().size(), 11);
}

TEST_F(Folding, TheCommandActsOnTheCaretsLine)
{
    view.toggleFold();
    EXPECT_EQ(shown(), (QList<qsizetype>{0, 9, 10}));
    view.toggleFold();
    EXPECT_EQ(shown().size(), 11);
    EXPECT_EQ(takeBeeps(), 0);
    view.setSelectedRange({text.indexOf("text"), 0});
    view.toggleFold();
    EXPECT_EQ(takeBeeps(), 1);
    view.setSelectedRange({0, 0});
    view.toggleFold();
    editor.setFoldsLines(false);
    EXPECT_EQ(shown().size(), 11);
}

TEST_F(Folding, MarksMoveWithTheirLinesAtOnce)
{
    ASSERT_TRUE(support::waitUntil([&] { return view.folding()->canFold(6); }));
    view.setSelectedRange({0, 0});
    type("\n");
    EXPECT_TRUE(view.folding()->canFold(7));
    EXPECT_FALSE(view.folding()->canFold(6));
    view.undo();
    EXPECT_TRUE(view.folding()->canFold(6));
}
