#include "editor/EditorFixture.h"

#include "support/TestSupport.h"
#include <QTest>

using platform::TextRange;

namespace support {

namespace {

constexpr char16_t caretMark = u'¦';
constexpr char16_t startMark = u'‹';
constexpr char16_t endMark = u'›';

} // namespace

EditorFixture::EditorFixture() : view(*editor.textView())
{
    QObject::connect(&view, &SMLTextView::didBeep, [this] { ++m_beeps; });
    editor.resize(700, 400);
    editor.show();
    view.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
}

void EditorFixture::setMarked(const QString &marked)
{
    QString text;
    std::vector<TextRange> ranges;
    for (const QChar character : marked) {
        if (character == caretMark || character == startMark)
            ranges.push_back({text.size(), 0});
        else if (character == endMark)
            ranges.back().length = text.size() - ranges.back().location;
        else
            text += character;
    }
    editor.setString(text);
    if (!ranges.empty())
        view.setSelectedRanges(ranges);
    view.undoHistory().clear();
    takeBeeps();
}

QString EditorFixture::marked() const
{
    QString text = view.string();
    const std::vector<TextRange> ranges = view.selectedRanges();
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        if (range->isEmpty()) {
            text.insert(range->location, caretMark);
        } else {
            text.insert(range->end(), endMark);
            text.insert(range->location, startMark);
        }
    }
    return text;
}

void EditorFixture::type(const QString &keys)
{
    for (const QChar key : keys) {
        if (key == u'\n')
            press(Qt::Key_Return);
        else if (key == u'\t')
            press(Qt::Key_Tab);
        else
            QTest::sendKeyEvent(QTest::Click, &view, Qt::Key_unknown, key, {});
    }
}

void EditorFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&view, key, modifiers);
}

void EditorFixture::expectOneStepSince(const QString &before)
{
    const QString after = view.string();
    if (after != before) {
        view.undo();
        EXPECT_EQ(view.string(), before);
    }
    EXPECT_FALSE(view.undoHistory().canUndo());
    if (after != before) {
        view.redo();
        EXPECT_EQ(view.string(), after);
    }
}

QPoint EditorFixture::placeOf(qsizetype index)
{
    return view.rectsOf({index, 1}).at(0).center().toPoint();
}

} // namespace support
