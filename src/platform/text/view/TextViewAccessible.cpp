#include "platform/text/view/TextViewAccessible.h"

#include "platform/text/TextBoundaries.h"
#include "platform/text/view/TextView.h"
#include "platform/text/view/TextViewAnnouncer.h"

namespace platform {

namespace {

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<TextView *>(object);
    return view ? new TextViewAccessible(view) : nullptr;
}

QString rgb(const QColor &color)
{
    return QStringLiteral("rgb(%1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

} // namespace

void TextViewAccessible::install()
{
    static const bool once = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(once)
}

TextViewAccessible::TextViewAccessible(TextView *view)
    : QAccessibleWidget(view, QAccessible::EditableText)
{
    new TextViewAnnouncer(view);
}

TextView *TextViewAccessible::view() const
{
    return static_cast<TextView *>(widget());
}

QAccessible::State TextViewAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.editable = view()->isEditable();
    state.readOnly = !state.editable;
    return state;
}

void *TextViewAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

TextRange TextViewAccessible::range(int start, int end) const
{
    const qsizetype length = view()->textStorage()->length();
    const auto place = [length](int offset) {
        return offset < 0 ? length : qMin(qsizetype(offset), length);
    };
    return TextRange::between(qMin(place(start), place(end)), qMax(place(start), place(end)));
}

int TextViewAccessible::selectionCount() const
{
    const std::vector<TextRange> ranges = view()->selectedRanges();
    return int(std::count_if(ranges.begin(), ranges.end(),
                             [](TextRange each) { return !each.isEmpty(); }));
}

void TextViewAccessible::selection(int index, int *start, int *end) const
{
    *start = *end = cursorPosition();
    for (const TextRange each : view()->selectedRanges()) {
        if (!each.isEmpty() && index-- == 0) {
            *start = int(each.location);
            *end = int(each.end());
        }
    }
}

void TextViewAccessible::addSelection(int start, int end)
{
    TextSelections all = view()->selections();
    const TextSelection added = TextSelection::of(range(start, end));
    if (selectionCount() == 0)
        all = TextSelections({added});
    else
        all.add(added);
    view()->setSelections(all);
}

void TextViewAccessible::removeSelection(int index)
{
    setSelection(index, cursorPosition(), cursorPosition());
}

void TextViewAccessible::setSelection(int index, int start, int end)
{
    std::vector<TextSelection> all = view()->selections().all();
    for (TextSelection &each : all) {
        if (each.isEmpty() || index-- != 0)
            continue;
        each = TextSelection::of(range(start, end));
        view()->setSelections(TextSelections(all));
        return;
    }
    if (index == 0)
        addSelection(start, end);
}

int TextViewAccessible::cursorPosition() const
{
    return int(view()->selections().main().caret);
}

void TextViewAccessible::setCursorPosition(int position)
{
    view()->setSelectedRange(range(position, position));
}

QString TextViewAccessible::text(int start, int end) const
{
    return view()->textStorage()->substring(range(start, end));
}

int TextViewAccessible::characterCount() const
{
    return int(view()->textStorage()->length());
}

TextRange TextViewAccessible::unitAt(qsizetype offset, QAccessible::TextBoundaryType type) const
{
    const TextStorage &storage = *view()->textStorage();
    const TextRange paragraph = storage.lineRange({offset, 0});
    const qsizetype line = storage.lineAt(offset);
    const TextRange contents = storage.lineContents(line);
    const qsizetype next = nextCluster(storage, offset);
    switch (type) {
    case QAccessible::CharBoundary:
        return TextRange::between(offset < next ? previousCluster(storage, next) : next, next);
    case QAccessible::WordBoundary:
        return offset < contents.end() ? wordRange(storage, offset)
                                       : TextRange::between(contents.end(), paragraph.end());
    case QAccessible::LineBoundary:
        return rowAt(line, offset - paragraph.location);
    case QAccessible::NoBoundary:
        return {0, storage.length()};
    default:
        return paragraph;
    }
}

// The last row of a line has its line end.
TextRange TextViewAccessible::rowAt(qsizetype line, qsizetype offset) const
{
    LineLayout &layout = view()->layoutManager()->line(line);
    TextRange row = layout.rowRange(layout.rowAt(qMin(offset, layout.length())));
    const TextStorage &storage = *view()->textStorage();
    const qsizetype start = storage.lineStart(line);
    if (row.end() == layout.length())
        row = TextRange::between(row.location, storage.lineRange({start, 0}).length);
    return row.movedBy(start);
}

QString TextViewAccessible::answer(TextRange range, int *start, int *end) const
{
    *start = int(range.location);
    *end = int(range.end());
    return view()->textStorage()->substring(range);
}

QString TextViewAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType type,
                                             int *start, int *end) const
{
    const qsizetype before = unitAt(range(offset, offset).location, type).location;
    return answer(before > 0 ? unitAt(before - 1, type) : TextRange(), start, end);
}

QString TextViewAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                                         int *end) const
{
    return answer(unitAt(range(offset, offset).location, type), start, end);
}

QString TextViewAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType type,
                                            int *start, int *end) const
{
    const TextRange at = unitAt(range(offset, offset).location, type);
    const bool isLast = at.end() == characterCount();
    return answer(isLast ? TextRange{at.end(), 0} : unitAt(at.end(), type), start, end);
}

QString TextViewAccessible::attributes(int offset, int *start, int *end) const
{
    const TemporaryAttributes &all = view()->layoutManager()->temporaryAttributes();
    TextRange run = range(offset, offset);
    TextAttributes attributes;
    if (run.location < all.length())
        attributes = all.attributes(run.location, &run);
    *start = int(run.location);
    *end = int(run.end());
    const QFont &font = view()->layoutManager()->style().font;
    const QVariant own = attributes.value(TextAttribute::ForegroundColor);
    const QVariant back = attributes.value(TextAttribute::BackgroundColor);
    QString text = QStringLiteral("font-family:\"%1\";font-size:%2pt;color:%3;")
                       .arg(font.family())
                       .arg(font.pointSizeF())
                       .arg(rgb(own.isValid() ? own.value<QColor>() : view()->textColor()));
    if (back.isValid())
        text += QStringLiteral("background-color:%1;").arg(rgb(back.value<QColor>()));
    if (attributes.value(TextAttribute::UnderlineStyle).toInt() != 0)
        text += QStringLiteral("text-underline-style:solid;");
    return text;
}

QRect TextViewAccessible::characterRect(int offset) const
{
    const TextRange character = range(offset, offset);
    QRectF rect = view()->caretRect(character.location);
    if (character.location < view()->textStorage()->length()) {
        const auto parts = view()->rectsOf({character.location, 1});
        if (!parts.empty())
            rect = parts.front();
    }
    const QRect local = rect.toAlignedRect();
    return {view()->viewport()->mapToGlobal(local.topLeft()), local.size()};
}

int TextViewAccessible::offsetAtPoint(const QPoint &point) const
{
    const QPoint local = view()->viewport()->mapFromGlobal(point);
    return view()->viewport()->rect().contains(local) ? int(view()->indexAt(local)) : -1;
}

void TextViewAccessible::scrollToSubstring(int start, int end)
{
    view()->scrollRangeToVisible(range(start, end));
}

void TextViewAccessible::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void TextViewAccessible::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void TextViewAccessible::replaceText(int start, int end, const QString &text)
{
    view()->changeText(range(start, end), text);
}

} // namespace platform
