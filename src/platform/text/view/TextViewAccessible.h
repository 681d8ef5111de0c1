#pragma once

#include <QAccessibleWidget>

namespace platform {

class TextView;
struct TextRange;

/// A text view as screen readers and the like see it: its text, its carets and selections, where
/// each character stands on the screen, and edits, which go the road of the user's own. Whatever is
/// asked costs time by what is answered, never by the length of the text. Characters count in
/// UTF-16 units, places in pixels of the screen.
///
/// Made and owned by QAccessible, when somebody asks for it; from then on it tells of edits and of
/// the caret's moves. Main thread.
class TextViewAccessible : public QAccessibleWidget,
                           public QAccessibleTextInterface,
                           public QAccessibleEditableTextInterface
{
public:
    /// From now on text views are known to QAccessible. To be called before the first is asked for;
    /// further calls do nothing.
    static void install();

    explicit TextViewAccessible(TextView *view);

    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    // Carets and selections.
    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override; ///< Carets do not count.
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    // The text. Offsets beyond it count as its ends; -1 is its length.
    using QAccessibleWidget::text;
    QString text(int start, int end) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                             int *end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                         int *end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                            int *end) const override;
    int characterCount() const override;
    QString attributes(int offset, int *start, int *end) const override;

    // Places.
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;

    // Edits.
    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

private:
    TextView *view() const;
    TextRange range(int start, int end) const;
    TextRange unitAt(qsizetype offset, QAccessible::TextBoundaryType type) const;
    TextRange rowAt(qsizetype line, qsizetype offset) const;
    QString answer(TextRange range, int *start, int *end) const;
};

} // namespace platform
