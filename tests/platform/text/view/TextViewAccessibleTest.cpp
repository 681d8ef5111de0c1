#include "platform/text/view/TextViewAccessible.h"

#include "platform/text/view/TextView.h"
#include "platform/text/view/TextViewAnnouncer.h"
#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::LayoutManager;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;
using platform::TextView;
using platform::TextViewAnnouncer;

namespace {

/// Keeps what it is told of.
class Listener : public TextViewAnnouncer
{
public:
    using TextViewAnnouncer::TextViewAnnouncer;
    QStringList told;

protected:
    bool isHeard() const override { return true; }
    void tell(QAccessibleEvent *event) override
    {
        if (event->type() == QAccessible::TextInserted) {
            auto *insert = static_cast<QAccessibleTextInsertEvent *>(event);
            told << u"+%1 %2"_s.arg(insert->changePosition()).arg(insert->textInserted());
        } else if (event->type() == QAccessible::TextRemoved) {
            auto *remove = static_cast<QAccessibleTextRemoveEvent *>(event);
            told << u"-%1 %2"_s.arg(remove->changePosition()).arg(remove->textRemoved());
        } else if (event->type() == QAccessible::TextUpdated) {
            auto *update = static_cast<QAccessibleTextUpdateEvent *>(event);
            told << u"%1 %2>%3"_s.arg(update->changePosition())
                        .arg(update->textRemoved(), update->textInserted());
        } else if (event->type() == QAccessible::TextCaretMoved) {
            auto *caret = static_cast<QAccessibleTextCursorEvent *>(event);
            told << u"|%1"_s.arg(caret->cursorPosition());
        }
    }
};

class TextViewAccessibleTest : public testing::Test
{
protected:
    TextViewAccessibleTest() : view(std::make_unique<LayoutManager>()) {}
    void SetUp() override
    {
        view.resize(400, 200);
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
        view.textStorage()->setString(u"Hello big world.\r\nSecond 😀 line"_s);
        QAccessibleInterface *found = QAccessible::queryAccessibleInterface(&view);
        text = found->textInterface();
        editable = found->editableTextInterface();
        ASSERT_NE(text, nullptr);
        ASSERT_NE(editable, nullptr);
    }

    TextView view;
    QAccessibleTextInterface *text = nullptr;
    QAccessibleEditableTextInterface *editable = nullptr;
};

} // namespace

TEST_F(TextViewAccessibleTest, ReadsByUnits)
{
    const struct
    {
        int offset;
        QAccessible::TextBoundaryType type;
        QStringList units; ///< Before, at and after.
    } cases[] = {
        {6, QAccessible::WordBoundary, {u" "_s, u"big"_s, u" "_s}},
        {0, QAccessible::CharBoundary, {u""_s, u"H"_s, u"e"_s}},
        {16, QAccessible::CharBoundary, {u"."_s, u"\r\n"_s, u"S"_s}},
        {3, QAccessible::LineBoundary, {u""_s, u"Hello big world.\r\n"_s, u"Second 😀 line"_s}},
        {20,
         QAccessible::ParagraphBoundary,
         {u"Hello big world.\r\n"_s, u"Second 😀 line"_s, u""_s}},
        {32, QAccessible::LineBoundary, {u"Hello big world.\r\n"_s, u"Second 😀 line"_s, u""_s}},
        {99, QAccessible::CharBoundary, {u"e"_s, u""_s, u""_s}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.offset);
        int start = 0;
        int end = 0;
        QStringList units{text->textBeforeOffset(each.offset, each.type, &start, &end)};
        units << text->textAtOffset(each.offset, each.type, &start, &end);
        EXPECT_EQ(text->text(start, end), units.last());
        units << text->textAfterOffset(each.offset, each.type, &start, &end);
        EXPECT_EQ(units, each.units);
    }
    EXPECT_EQ(text->characterCount(), 32);
    EXPECT_EQ(text->text(18, -1), u"Second 😀 line"_s);
}

TEST_F(TextViewAccessibleTest, RowsOfAWrappedLineAreItsLines)
{
    view.textStorage()->setString(u"word "_s.repeated(100));
    view.layoutManager()->setWrapWidth(200);
    int start = 0;
    int end = 0;
    QString all;
    for (int offset = 0; offset < text->characterCount(); offset = end)
        all += text->textAtOffset(offset, QAccessible::LineBoundary, &start, &end) + u'|';
    EXPECT_GT(all.count(u'|'), 5);
    EXPECT_EQ(all.remove(u'|'), view.string());
}

TEST_F(TextViewAccessibleTest, CaretSelectionsAndPlaces)
{
    text->setCursorPosition(7);
    EXPECT_EQ(view.selectedRange(), (TextRange{7, 0}));
    EXPECT_EQ(text->selectionCount(), 0);
    text->addSelection(0, 5);
    text->addSelection(10, 15);
    EXPECT_EQ(text->selectionCount(), 2);
    int start = 0;
    int end = 0;
    text->selection(1, &start, &end);
    EXPECT_EQ(QPoint(start, end), QPoint(10, 15));
    text->setSelection(1, 6, 9);
    EXPECT_EQ(view.selectedRanges(), (std::vector<TextRange>{{0, 5}, {6, 3}}));
    for (const int offset : {0, 8, 20}) {
        const QRect place = text->characterRect(offset);
        EXPECT_EQ(text->offsetAtPoint(place.center() - QPoint(1, 0)), offset);
    }
    EXPECT_EQ(text->offsetAtPoint({-5000, -5000}), -1);
    view.layoutManager()->addTemporaryAttributes(
        TextAttributes{{TextAttribute::ForegroundColor, QColor(1, 2, 3)}}, {2, 3});
    EXPECT_TRUE(text->attributes(3, &start, &end).contains(u"color:rgb(1,2,3);"_s));
    EXPECT_EQ(QPoint(start, end), QPoint(2, 5));
}

TEST_F(TextViewAccessibleTest, EditsAndTellsOfEdits)
{
    auto *listener = new Listener(&view);
    const QStringList &told = listener->told;
    editable->replaceText(0, 5, u"Good"_s);
    editable->deleteText(4, 8);
    editable->insertText(4, u"bye"_s);
    EXPECT_EQ(view.textStorage()->substring({0, 14}), u"Goodbye world."_s);
    EXPECT_TRUE(told.contains(u"0 Hello>Good"_s)) << told.join(u';').toStdString();
    EXPECT_TRUE(told.contains(u"-4  big"_s)) << told.join(u';').toStdString();
    EXPECT_TRUE(told.contains(u"+4 bye"_s)) << told.join(u';').toStdString();
    listener->told.clear();
    view.setSelectedRange({3, 0});
    EXPECT_EQ(told, QStringList{u"|3"_s});
    view.setEditable(false);
    editable->insertText(0, u"x"_s);
    EXPECT_EQ(view.textStorage()->character(0), u'G');
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&view)->state().readOnly);
}

TEST_F(TextViewAccessibleTest, TheLengthOfTheTextCostsNothing)
{
    view.textStorage()->setString(u"a long line of words \n"_s.repeated(1'000'000) +
                                  u"x "_s.repeated(1'000'000));
    view.setSelectedRange({0, 0});
    int start = 0;
    int end = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100; ++i) {
        const int offset = i * 240'000;
        for (const auto type :
             {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::SentenceBoundary})
            text->textAfterOffset(offset, type, &start, &end);
        text->attributes(offset, &start, &end);
        view.textStorage()->replaceCharacters({offset, 1}, u"y"_s);
    }
    EXPECT_LT(timer.elapsed(), 1000);
}
