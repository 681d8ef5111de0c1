#pragma once

#include "platform/text/view/TextView.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QPaintEvent>
#include <QTest>

namespace support {

/// A view that notes what it paints.
class RecordingTextView : public platform::TextView
{
public:
    RecordingTextView() : TextView(std::make_unique<platform::LayoutManager>()) {}

    QRegion painted;
    QList<platform::TextRange> announced;
    std::function<void(platform::TextRange)> colour;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        painted += event->region();
        TextView::paintEvent(event);
    }
    void willDrawText(platform::TextRange characters) override
    {
        announced << characters;
        if (colour)
            colour(characters);
    }
};

/// A view in a window, in a font of one width. Texts are written with their selections: "|" is a
/// caret, "[" and "]" hold a selection with its caret at the end, "<" and ">" one with its caret at
/// the start.
class TextViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPixelSize(13);
        view.layoutManager()->setFont(font);
        view.resize(400, 300);
        view.show();
        view.activateWindow();
        view.setFocus();
        ASSERT_TRUE(waitUntil([this] { return view.hasFocus(); }));
        settle();
    }

    void set(const QString &marked)
    {
        QString text;
        std::vector<platform::TextSelection> selections;
        qsizetype open = 0;
        for (const QChar c : marked) {
            if (c == u'[' || c == u'<')
                open = text.size();
            else if (c == u'|')
                selections.push_back({text.size(), text.size()});
            else if (c == u']')
                selections.push_back({open, text.size()});
            else if (c == u'>')
                selections.push_back({text.size(), open});
            else
                text += c;
        }
        view.textStorage()->setString(text);
        const size_t main = selections.size() - 1;
        view.setSelections(platform::TextSelections(selections, main));
    }

    QString marked() const { return marked(view.string()); }

    QString marked(QString text) const
    {
        const auto &all = view.selections().all();
        for (auto selection = all.rbegin(); selection != all.rend(); ++selection) {
            const bool isBackward = selection->caret < selection->anchor;
            if (selection->isEmpty()) {
                text.insert(selection->caret, u'|');
            } else {
                text.insert(selection->range().end(), isBackward ? u'>' : u']');
                text.insert(selection->range().location, isBackward ? u'<' : u'[');
            }
        }
        return text;
    }

    void press(const QString &keys) // such as "Shift+Right, Del"
    {
        for (const QString &key : keys.split(QStringLiteral(", ")))
            QTest::keySequence(&view, QKeySequence(key));
    }

    void type(const QString &text) { QTest::keyClicks(&view, text); }

    /// The middle of the character.
    QPoint pointOf(qsizetype index)
    {
        return (view.caretRect(index).center() +
                QPointF(view.layoutManager()->style().characterWidth / 2, 0))
            .toPoint();
    }
    /// Just right of where a caret stands.
    QPoint pointBefore(qsizetype index)
    {
        return view.caretRect(index).center().toPoint() + QPoint(1, 0);
    }

    void click(QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, point);
    }

    /// A second and a third click come by themselves, so that time between tests plays no part.
    void doubleClick(QPoint point)
    {
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }

    void drag(QPoint to)
    {
        QMouseEvent event(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    qreal rowHeight() const { return view.layoutManager()->style().rowHeight; }

    RecordingTextView view;
};

} // namespace support
