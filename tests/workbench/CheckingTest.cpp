#include "workbench/WorkbenchFixture.h"

#include "editor/MGSFragariaView.h"
#include "editor/MGSLineNumberView.h"
#include "editor/SMLSyntaxError.h"
#include "editor/SMLTextView.h"
#include "workbench/LSMDesignChecking.h"
#include "workbench/LSMFindingsView.h"
#include <QListWidget>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class CheckingTest : public WorkbenchTest
{
protected:
    SMLTextView *text() const { return child<MGSFragariaView>("fragariaView")->textView(); }
    LSMFindingsView *panel() const { return child<LSMFindingsView>("findingsView"); }
    QListWidget *list() const { return panel()->findChild<QListWidget *>(); }
    QToolButton *count() const { return child<QToolButton>("findingsCountButton"); }

    bool waitForFindings(qsizetype number)
    {
        return support::waitUntil(
            [&] { return qsizetype(editor()->checking()->findings().size()) == number; });
    }
    QStringList rows() const
    {
        QStringList rows;
        for (int i = 0; i < list()->count(); ++i)
            rows << list()->item(i)->text();
        return rows;
    }
    void openHtml(const QString &title)
    {
        select(title);
        editor()->setSelectedTab(LSMDesignEditorViewController::HtmlTab);
        giveFocus(text());
    }
};

TEST_F(CheckingTest, FindingsAreShownWhereTheyAreAndGoWithTheirFault)
{
    writeDesign(u"A"_s, Group::Custom, "<p>one</p>\n<b>two\n<img src='https://a.de/b.png'>");
    writeDesign(u"Clean"_s);
    launch();
    openHtml(u"A"_s);
    ASSERT_TRUE(waitForFindings(2));
    EXPECT_EQ(
        rows(),
        (QStringList{u"Line 2: </b> is missing."_s,
                     u"Line 3: The picture has no text (alt) for those who cannot see it."_s}));
    EXPECT_EQ(count()->text(), u"1 warning, 1 note"_s);
    EXPECT_TRUE(panel()->isVisible());
    auto *view = child<MGSFragariaView>("fragariaView");
    EXPECT_EQ(view->gutterView()->decorations().keys(), (QList<qsizetype>{2, 3}));
    const int gutterWidth = view->gutterView()->width();

    list()->setCurrentRow(1);
    giveFocus(list());
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(text()->selectedText(), u"<img src='https://a.de/b.png'>"_s);
    EXPECT_TRUE(text()->hasFocus());
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                      list()->visualItemRect(list()->item(0)).center());
    EXPECT_EQ(text()->selectedText(), u"<b>"_s);

    editor()->setSelectedTab(LSMDesignEditorViewController::DesignTab);
    for (const char *expected : {"<img src='https://a.de/b.png'>", "<b>"}) {
        pressShortcut("actionNextFinding");
        EXPECT_EQ(text()->selectedText(), QString::fromLatin1(expected)) << "round the end";
    }
    EXPECT_TRUE(text()->hasFocus());
    pressShortcut("actionPreviousFinding");
    EXPECT_EQ(text()->selectedText(), u"<img src='https://a.de/b.png'>"_s);
    EXPECT_EQ(list()->currentRow(), 1);

    text()->setSelectedRange({17, 0});
    text()->insertText(u"</b>"_s);
    ASSERT_TRUE(waitForFindings(1));
    EXPECT_EQ(count()->text(), u"1 note"_s);
    text()->selectAll();
    text()->insertText(u"x"_s);
    ASSERT_TRUE(waitForFindings(0));
    EXPECT_TRUE(view->syntaxErrors().isEmpty());
    EXPECT_EQ(view->gutterView()->width(), gutterWidth) << "lines must not jump sideways";
    EXPECT_FALSE(count()->isVisible());
    EXPECT_TRUE(panel()->isVisible()) << "lines must not jump while somebody types";
    openHtml(u"Clean"_s);
    EXPECT_FALSE(panel()->isVisible());
}

TEST_F(CheckingTest, EachPlaceHasOneMarkWithAllThatIsToSayOfIt)
{
    writeDesign(u"A"_s, Group::Custom, "[[if]]<img src='b.png'>\n<img src='[[LBPicture1]]'>");
    launch();
    openHtml(u"A"_s);
    ASSERT_TRUE(waitForFindings(5));
    QStringList marks;
    for (const SMLSyntaxError &error : child<MGSFragariaView>("fragariaView")->syntaxErrors()) {
        marks << u"%1:%2+%3 %4 %5%6"_s.arg(error.line)
                     .arg(error.character)
                     .arg(error.length)
                     .arg(error.warningLevel())
                     .arg(error.errorDescription.count(u'\n') + 1)
                     .arg(error.errorLineHighlightColor == QColor(Qt::transparent) ? u" bare"_s
                                                                                   : u""_s);
    }
    EXPECT_EQ(marks, (QStringList{u"1:1+6 400 2"_s, u"1:7+17 300 1"_s, u"1:17+5 400 1"_s,
                                  u"2:1+26 300 1 bare"_s}));
}

TEST_F(CheckingTest, TypingPutsTheCheckOff)
{
    writeDesign(u"A"_s, Group::Custom, "<p>one</p>");
    launch();
    openHtml(u"A"_s);
    int told = 0;
    QObject::connect(editor()->checking(), &LSMDesignChecking::findingsDidChange,
                     [&told] { ++told; });
    QElapsedTimer timer;
    for (int i = 0; i < 20; ++i) {
        text()->insertText(u"<b>"_s);
        timer.start();
        QTest::qWait(5);
    }
    ASSERT_TRUE(support::waitUntil([&] { return told > 0; }));
    EXPECT_GE(timer.elapsed(), 490);
    EXPECT_EQ(told, 1);
}

TEST_F(CheckingTest, TheListAndTheCheckCanBeSwitchedOff)
{
    writeDesign(u"A"_s, Group::Custom, "<b>one");
    writeDesign(u"B"_s, Group::BuiltIn, "<b>one");
    launch();
    openHtml(u"A"_s);
    ASSERT_TRUE(waitForFindings(1));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_FALSE(panel()->isVisible());
    EXPECT_TRUE(text()->hasFocus());
    editor()->setSelectedTab(LSMDesignEditorViewController::DesignTab);
    count()->click();
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_EQ(editor()->selectedTab(), LSMDesignEditorViewController::HtmlTab);
    EXPECT_TRUE(list()->hasFocus());
    QTest::keyClick(list(), Qt::Key_Escape);
    pressShortcut("actionNextFinding");
    EXPECT_TRUE(panel()->isVisible()) << "it tells what was found there";
    pressShortcut("actionShowFindings");
    EXPECT_TRUE(list()->hasFocus());
    pressShortcut("actionShowFindings");
    EXPECT_FALSE(panel()->isVisible());
    EXPECT_TRUE(text()->hasFocus());
    pressShortcut("actionShowFindings");
    EXPECT_TRUE(list()->hasFocus());

    clickMenuItem("actionCheckHtml");
    EXPECT_TRUE(editor()->checking()->findings().empty());
    EXPECT_FALSE(panel()->isVisible());
    EXPECT_TRUE(text()->hasFocus());
    EXPECT_FALSE(count()->isVisible());
    clickMenuItem("actionCheckHtml");
    ASSERT_TRUE(waitForFindings(1));
    openHtml(u"B"_s);
    EXPECT_TRUE(editor()->checking()->findings().empty()) << "it cannot be edited";
}

TEST_F(CheckingTest, OtherDesignsAndPropertiesCount)
{
    writeDesign(u"A"_s, Group::Custom, "[[LBProperty_Gloss]]",
                {{u"CFBundleIdentifier"_s, u"same"_s}});
    writeDesign(u"B"_s, Group::Custom, "", {{u"CFBundleIdentifier"_s, u"same"_s}});
    launch();
    LSMDesignTemplate *design = select(u"A"_s);
    ASSERT_TRUE(waitForFindings(2));
    EXPECT_EQ(rows(),
              (QStringList{u"Another design has the same identifier."_s,
                           u"Line 1: The design has no property for “LBProperty_Gloss”."_s}));
    design->templateDictionary()->setValue(u"LBDesignProperties"_s,
                                           QVariantList{QVariantMap{{u"name"_s, u"Gloss"_s}}});
    design->templateDictionary()->setValue(u"CFBundleIdentifier"_s, u"other"_s);
    EXPECT_TRUE(waitForFindings(0));
}

TEST_F(CheckingTest, NoKeyWaitsForTheCheckOfALargeText)
{
    writeDesign(
        u"A"_s, Group::Custom,
        QByteArray("<p>text <b>bold</b> &amp; more</p>\n<img src='a.png'>\n").repeated(20000));
    launch();
    openHtml(u"A"_s);
    ASSERT_TRUE(waitForFindings(LSMHtmlCheck::mostFindings + 1));
    const auto longestKey = [this] {
        qint64 longest = 0;
        for (int i = 0; i < 40; ++i) {
            QElapsedTimer timer;
            timer.start();
            QTest::keyClick(text(), Qt::Key_Y);
            QCoreApplication::processEvents();
            longest = std::max(longest, timer.elapsed());
        }
        return longest;
    };
    const qint64 usual = longestKey();
    QTest::qWait(500); // the check begins
    EXPECT_LT(longestKey(), usual + 150);
}

} // namespace
