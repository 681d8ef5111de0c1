#include "TextViewFixture.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolTip>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

class TextViewMouseTest : public support::TextViewTest
{
};

} // namespace

TEST_F(TextViewMouseTest, TheMouseSelects)
{
    set(u"one two\nthree four\nfive|"_s);
    click(pointBefore(5));
    EXPECT_EQ(marked(), u"one t|wo\nthree four\nfive"_s);
    click(pointBefore(10), Qt::ShiftModifier);
    EXPECT_EQ(marked(), u"one t[wo\nth]ree four\nfive"_s);
    click(pointBefore(2), Qt::ShiftModifier);
    EXPECT_EQ(marked(), u"on<e t>wo\nthree four\nfive"_s);
    click(pointBefore(20), Qt::AltModifier);
    EXPECT_EQ(marked(), u"on<e t>wo\nthree four\nf|ive"_s);
    click(QPoint(390, 5));
    EXPECT_EQ(marked(), u"one two|\nthree four\nfive"_s);
    click(QPoint(390, 290));
    EXPECT_EQ(marked(), u"one two\nthree four\nfive|"_s);

    doubleClick(pointOf(9));
    EXPECT_EQ(marked(), u"one two\n[three] four\nfive"_s);
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(9)); // the third
    EXPECT_EQ(marked(), u"one two\n[three four\n]five"_s);
    drag(pointOf(1));
    EXPECT_EQ(marked(), u"<one two\nthree four\n>five"_s);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, pointOf(1));

    click(QPoint(390, 290));
    doubleClick(pointOf(5)); // releases the button
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
    QMouseEvent second(QEvent::MouseButtonDblClick, pointOf(5), pointOf(5), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &second);
    drag(pointOf(15));
    EXPECT_EQ(marked(), u"one [two\nthree four]\nfive"_s); // by words
    drag(pointOf(1));
    EXPECT_EQ(marked(), u"<one two>\nthree four\nfive"_s);
}

TEST_F(TextViewMouseTest, TheRightButtonKeepsASelectionUnderIt)
{
    set(u"one [two] three"_s);
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, pointOf(5));
    EXPECT_EQ(marked(), u"one [two] three"_s);
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, pointBefore(10));
    EXPECT_EQ(marked(), u"one two th|ree"_s);

    QContextMenuEvent event(QContextMenuEvent::Mouse, pointOf(5), view.mapToGlobal(pointOf(5)));
    QCoreApplication::sendEvent(view.viewport(), &event);
    QMenu *menu = view.findChild<QMenu *>();
    ASSERT_TRUE(menu);
    const auto item = [menu](const QString &text) {
        const QList<QAction *> all = menu->actions();
        const auto found = std::ranges::find(all, text, &QAction::text);
        return found == all.end() ? nullptr : *found;
    };
    ASSERT_TRUE(item(u"Copy"_s) && item(u"Select All"_s) && item(u"Undo"_s));
    EXPECT_FALSE(item(u"Copy"_s)->isEnabled());
    item(u"Select All"_s)->trigger();
    EXPECT_EQ(marked(), u"[one two three]"_s);
    menu->close();
}

TEST_F(TextViewMouseTest, DraggingOutsideScrolls)
{
    view.textStorage()->setString(u"line\n"_s.repeated(1000));
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    drag(QPoint(20, 350));
    EXPECT_TRUE(support::waitUntil([this] { return view.scrollPosition().line > 10; }));
    EXPECT_GT(view.selectedRange().end(), 5 * 20);
    drag(QPoint(20, -50));
    EXPECT_TRUE(support::waitUntil([this] { return view.scrollPosition() == ScrollPosition(); }));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, -50));
}

TEST_F(TextViewMouseTest, TheClipboardCarriesTextAsItIs)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    set(u"a[b\r\nc\u2028]\nd"_s);
    press(u"Ctrl+C"_s);
    EXPECT_EQ(clipboard->text(), u"b\r\nc\u2028"_s);
    press(u"Ctrl+X, Ctrl+V, Ctrl+V"_s);
    EXPECT_EQ(marked(), u"ab\r\nc\u2028b\r\nc\u2028|\nd"_s);
    press(u"Ctrl+Z, Ctrl+Z"_s); // each paste by itself
    EXPECT_EQ(marked(), u"a|\nd"_s);

    set(u"[one] [two] |x"_s);
    press(u"Ctrl+C"_s);
    EXPECT_EQ(clipboard->text(), u"one\ntwo"_s);
    set(u"a|b|"_s);
    press(u"Ctrl+V"_s);
    EXPECT_EQ(marked(), u"aone|btwo|"_s);
    set(u"a|b|c|"_s); // another number: all to each
    press(u"Ctrl+V"_s);
    EXPECT_EQ(view.string(), u"aone\ntwobone\ntwocone\ntwo"_s);

    clipboard->setText(u"kept"_s);
    set(u"a|b"_s); // nothing is selected
    press(u"Ctrl+C, Ctrl+X"_s);
    EXPECT_EQ(clipboard->text(), u"kept"_s);
    EXPECT_EQ(marked(), u"a|b"_s);
}

TEST_F(TextViewMouseTest, TextCanBeDroppedFromElsewhere)
{
    set(u"one two|"_s);
    QMimeData content;
    content.setText(u"new\r\n"_s);
    QDragEnterEvent enter(pointBefore(4), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(pointBefore(4), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &drop);
    EXPECT_EQ(marked(), u"one [new\r\n]two"_s);
    press(u"Ctrl+Z"_s);
    EXPECT_EQ(marked(), u"one two|"_s);

    view.setEditable(false);
    QDragEnterEvent refused(QPoint(5, 5), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &refused);
    EXPECT_FALSE(refused.isAccepted());
}

TEST_F(TextViewMouseTest, ToolTipsComeFromTheText)
{
    set(u"good bad|"_s);
    view.layoutManager()->addTemporaryAttributes({{TextAttribute::ToolTip, u"Not <b>good"_s}},
                                                 {5, 3});
    const auto ask = [this](QPoint point) {
        QHelpEvent event(QEvent::ToolTip, point, view.viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(ask(pointOf(6)), u"<p>Not &lt;b&gt;good</p>"_s);
    QToolTip::hideText();
    EXPECT_TRUE(support::waitUntil([] { return QToolTip::text().isEmpty(); }));
    EXPECT_EQ(ask(pointOf(1)), QString());
    EXPECT_EQ(ask(QPoint(300, 200)), QString());
}
