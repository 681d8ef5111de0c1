#include "editor/EditorFixture.h"

#include "editor/MGSDragOperationDelegate.h"
#include "editor/MGSExtraInterfaceController.h"
#include "kit/ui/TargetAction.h"
#include "support/TestSupport.h"
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

using platform::TextRange;

namespace {

class TextViewClicks : public support::EditorFixture
{
};

TEST_F(TextViewClicks, ADoubleClickSelectsAWordAPartOfOneOrABlock)
{
    struct Case
    {
        QString text;
        qsizetype clicked;
        QString selected;
        int beeps = 0;
    };
    for (const Case &c : {
             Case{"foo.bar.baz qux", 5, "bar"},
             Case{"foo.bar.baz qux", 1, "foo"},
             Case{"foo.bar.baz qux", 9, "baz"},
             Case{"foo bar", 1, "foo"},
             Case{"a:b", 2, "b"},
             Case{"foo bar", 5, "bar"},
             Case{"f(a[(b)])c", 1, "(a[(b)])"},
             Case{"f(a[(b)])c", 8, "(a[(b)])"},
             Case{"f(a[(b)])c", 7, "[(b)]"},
             Case{"a<b>c", 1, "<b>"},
             Case{"{a\n{b\nc}\n", 3, "{b\nc}"},
             Case{"a) b", 1, ")", 1},
             Case{"a( b", 1, "(", 1},
         }) {
        SCOPED_TRACE(c.text.toStdString() + " at " + std::to_string(c.clicked));
        setMarked("¦" + c.text);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, placeOf(c.clicked));
        EXPECT_EQ(view.textStorage()->substring(view.selectedRange()), c.selected);
        EXPECT_EQ(takeBeeps(), c.beeps);
    }
}

TEST_F(TextViewClicks, TheTextIsScrolledByHandWithBothKeysDown)
{
    constexpr auto both = Qt::ControlModifier | Qt::AltModifier;
    setMarked("¦" + QString("line\n").repeated(400));
    view.setScrollPosition({100, 0, 0});
    const qreal row = view.layoutManager()->style().rowHeight;
    const auto scrolled = [&] {
        const platform::ScrollPosition position = view.scrollPosition();
        return qRound(qreal(position.line) * row + position.above);
    };
    const int start = scrolled();
    QTest::keyPress(&view, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyPress(&view, Qt::Key_Alt, both);
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::OpenHandCursor);

    QTest::mousePress(view.viewport(), Qt::LeftButton, both, {200, 100});
    const auto moveTo = [&](QPoint place) {
        QMouseEvent move(QEvent::MouseMove, QPointF(place), view.viewport()->mapToGlobal(place),
                         Qt::LeftButton, Qt::LeftButton, both);
        QApplication::sendEvent(view.viewport(), &move);
    };
    moveTo({200, 110});
    EXPECT_EQ(scrolled(), start - 30);
    moveTo({200, 80});
    EXPECT_EQ(scrolled(), start + 60);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, both, {200, 80});
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, both, {200, 80});
    EXPECT_EQ(view.selectedRange(), (TextRange{0, 0})); // the text was not clicked

    QTest::keyRelease(&view, Qt::Key_Alt, Qt::ControlModifier);
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::IBeamCursor);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {200, 100});
    EXPECT_NE(view.selectedRange().location, 0);
}

TEST_F(TextViewClicks, AnotherButtonWithBothKeysDownLeavesTheNextSelectionAlone)
{
    setMarked("¦one two");
    QTest::mousePress(view.viewport(), Qt::RightButton, Qt::ControlModifier | Qt::AltModifier,
                      placeOf(1));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, placeOf(0) - QPoint(3, 0));
    QMouseEvent move(QEvent::MouseMove, QPointF(placeOf(5)),
                     view.viewport()->mapToGlobal(placeOf(5)), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, placeOf(5));
    EXPECT_GT(view.selectedRange().length, 3);
}

class PasteListener : public MGSFragariaTextViewDelegate
{
public:
    void mgsTextDidPaste(const platform::Notification &notification) override
    {
        pasted << notification.name;
    }
    QStringList pasted;
};

TEST_F(TextViewClicks, APasteIsToldToAllAndToTheDelegate)
{
    PasteListener delegate;
    editor.setTextViewDelegate(&delegate);
    QObject observer;
    QObject *heard = nullptr;
    platform::NotificationCenter::defaultCenter().addObserver(
        &observer, "MGSTextDidPasteNotification", &view, [&](const platform::Notification &note) {
            heard = note.userInfo["NSTextView"].value<QObject *>();
            EXPECT_EQ(view.string(), "a\u00A0\u2028b"); // already pasted, as it is
        });
    QApplication::clipboard()->setText("\u00A0\u2028");
    setMarked("a¦b");
    view.paste();
    EXPECT_EQ(heard, &view);
    EXPECT_EQ(delegate.pasted, QStringList{"MGSTextDidPasteNotification"});
    editor.setTextViewDelegate(nullptr);
}

TEST_F(TextViewClicks, TheContextMenuOffersTheCommandsThatCanAct)
{
    setMarked("a¦b");
    QMenu *menu = view.interfaceController()->contextMenu();
    const auto isEnabled = [&](const char *command) {
        for (QAction *item : menu->actions()) {
            if (zq::action(item) == QLatin1StringView(command)) {
                zq::validateItem(item);
                return item->isEnabled();
            }
        }
        ADD_FAILURE() << "no " << command;
        return false;
    };
    for (const char *command :
         {"removeNeedlessWhitespace", "lowercaseCharacters", "uppercaseCharacters",
          "capitalizeWord", "entab", "detab", "removeLineEndings"}) {
        setMarked("a¦b");
        EXPECT_FALSE(isEnabled(command)) << command;
        setMarked("‹a›b");
        EXPECT_TRUE(isEnabled(command)) << command;
    }
    editor.setSyntaxDefinitionName("HTML");
    EXPECT_FALSE(isEnabled("commentOrUncomment"));
    editor.setSyntaxDefinitionName("C");
    EXPECT_TRUE(isEnabled("commentOrUncomment"));
    view.setEditable(false);
    setMarked("‹a›b");
    for (const char *command : {"uppercaseCharacters", "shiftRight", "commentOrUncomment"})
        EXPECT_FALSE(isEnabled(command)) << command;
    EXPECT_TRUE(isEnabled("goToLine"));
    QAction dashes;
    zq::setTargetAndAction(&dashes, &view, "toggleAutomaticDashSubstitution");
    EXPECT_FALSE(view.validateMenuItem(&dashes));
}

TEST_F(TextViewClicks, SheetsAskForANumber)
{
    struct Case
    {
        const char *command, *sheet;
        QString before;
        int offered, number;
        QString after;
    };
    for (const Case &c : {Case{"entab", "SMLEntab", "‹        a\n›", 4, 2, "‹\t\t\t\ta\n›"},
                          Case{"detab", "SMLDetab", "‹\ta\n›", 4, 3, "‹   a\n›"},
                          Case{"goToLine", "SMLGoToLine", "a\n¦b\nc", 2, 3, "a\nb\n‹c›"}}) {
        SCOPED_TRACE(c.command);
        for (const bool confirms : {false, true}) {
            setMarked(c.before);
            QMetaObject::invokeMethod(&view, c.command);
            QPointer<QDialog> sheet = editor.findChild<QDialog *>(c.sheet);
            ASSERT_TRUE(sheet);
            EXPECT_TRUE(sheet->isModal());
            auto *field = sheet->findChild<QSpinBox *>();
            EXPECT_EQ(field->value(), c.offered);
            field->setValue(c.number);
            QTest::keyClick(sheet, confirms ? Qt::Key_Return : Qt::Key_Escape);
            EXPECT_EQ(marked(), confirms ? c.after : c.before);
            EXPECT_TRUE(support::waitUntil([&] { return !sheet; }));
        }
    }
}

class DragRecorder : public platform::TextViewDelegate, public MGSDragOperationDelegate
{
public:
    bool draggingEntered(QDragEnterEvent *event) override
    {
        event->acceptProposedAction();
        heard << "entered";
        return true;
    }
    std::optional<bool> prepareForDragOperation(QDropEvent *) override
    {
        heard << "prepare";
        return prepares;
    }
    std::optional<bool> performDragOperation(QDropEvent *) override
    {
        heard << "perform";
        return performs;
    }
    bool draggingUpdated(QDragMoveEvent *) override
    {
        ++updates;
        return takesUpdates;
    }
    bool wantsPeriodicDraggingUpdates() override { return wantsPeriodic; }
    void updateDraggingItemsForDrag(QDragEnterEvent *) override { heard << "items"; }
    void concludeDragOperation(QDropEvent *) override { heard << "conclude"; }
    void draggingExited(QDragLeaveEvent *) override { heard << "exited"; }
    void draggingEnded() override { heard << "ended"; }
    QStringList heard;
    std::optional<bool> prepares, performs;
    bool takesUpdates = false, wantsPeriodic = false;
    int updates = 0;
};

TEST_F(TextViewClicks, ADragGoesToADelegateThatTakesIt)
{
    DragRecorder delegate;
    editor.setTextViewDelegate(&delegate);
    QMimeData data;
    data.setText("dropped ");
    const auto drop = [&] {
        setMarked("¦a");
        delegate.heard.clear();
        QDragEnterEvent enter({40, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent event({1, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &event);
        return view.string();
    };
    EXPECT_EQ(drop(), "dropped a"); // it takes the entering alone
    EXPECT_EQ(delegate.heard,
              (QStringList{"entered", "items", "prepare", "perform", "conclude", "ended"}));
    delegate.performs = false;
    EXPECT_EQ(drop(), "a");
    EXPECT_EQ(delegate.heard, (QStringList{"entered", "items", "prepare", "perform", "ended"}));
    delegate.prepares = false;
    EXPECT_EQ(drop(), "a");
    EXPECT_EQ(delegate.heard, (QStringList{"entered", "items", "prepare", "ended"}));
    delegate.prepares = delegate.performs = std::nullopt;
    view.setEditable(false);
    EXPECT_EQ(drop(), "a");
    EXPECT_EQ(delegate.heard, (QStringList{"entered", "items", "prepare", "perform", "ended"}));
    editor.setTextViewDelegate(nullptr);
}

class TextViewDrags : public TextViewClicks
{
protected:
    TextViewDrags()
    {
        data.setText("dropped ");
        setMarked("abc def¦");
        editor.setTextViewDelegate(&delegate);
    }
    ~TextViewDrags() override { editor.setTextViewDelegate(nullptr); }

    template <class Event>
    void send(QPoint place = {20, 5})
    {
        Event event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &event);
    }

    DragRecorder delegate;
    QMimeData data;
};

TEST_F(TextViewDrags, LeaveNoMarkWhoeverTakesThem)
{
    const QImage before = view.grab().toImage();
    const auto isMarked = [&] {
        return view.grab().toImage() != before;
    };
    send<QDragEnterEvent>();
    send<QDragMoveEvent>();
    EXPECT_TRUE(isMarked());
    delegate.takesUpdates = true;
    send<QDragMoveEvent>();
    EXPECT_FALSE(isMarked());

    delegate.takesUpdates = false;
    send<QDragMoveEvent>();
    delegate.performs = true;
    send<QDropEvent>();
    EXPECT_FALSE(isMarked());
}

TEST_F(TextViewDrags, AreUpdatedWhileTheyStandStillForADelegateThatWantsIt)
{
    delegate.wantsPeriodic = true;
    send<QDragEnterEvent>();
    send<QDragMoveEvent>();
    EXPECT_TRUE(support::waitUntil([&] { return delegate.updates >= 3; }));
}

} // namespace
