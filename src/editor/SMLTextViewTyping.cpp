// What keys and clicks do beyond the usual.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSStringExtensions.h"
#include "editor/MGSTextStorageExtensions.h"
#include "editor/SMLTextView.h"
#include "editor/SMLUndoGroup.h"
#include "platform/CharacterSet.h"
#include "platform/text/TextSearch.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;
using platform::TextStorage;
using platform::TextUndo;

namespace {

constexpr char16_t braces[][2] = {{u'(', u')'}, {u'[', u']'}, {u'{', u'}'}, {u'<', u'>'}};

const char16_t *bracePair(char16_t brace)
{
    for (const auto &pair : braces) {
        if (pair[0] == brace || pair[1] == brace)
            return pair;
    }
    return nullptr;
}

QString leadingWhitespace(const TextStorage &text, TextRange line)
{
    const QString string = text.substring(line);
    return string.first(mgs_leadingWhitespace(string));
}

qsizetype lineStart(const TextStorage &text, qsizetype index)
{
    return text.lineRange({index, 0}).location;
}

} // namespace

void SMLTextView::insertText(const QString &text)
{
    const bool shifts =
        text == u"}" && indentNewLinesAutomatically() && indentBracesAutomatically();
    const bool closesParenthesis = text == u"(" && insertClosingParenthesisAutomatically();
    const bool closesBrace = text == u"{" && insertClosingBraceAutomatically();
    const quint64 revision = textStorage()->revision();
    {
        const SMLUndoGroup group(shifts || closesParenthesis || closesBrace ? &undoHistory()
                                                                            : nullptr);
        if (shifts)
            shiftBackToLastOpenBrace();
        TextView::insertText(text);
        const bool isRefused = textStorage()->revision() == revision;
        if (isRefused)
            return;
        if (closesParenthesis || closesBrace)
            insertStringAfterInsertionPoint(closesBrace ? QStringLiteral("}")
                                                        : QStringLiteral(")"));
    }
    const char16_t *pair = text.size() == 1 ? bracePair(text[0].unicode()) : nullptr;
    if (pair && pair[1] == text[0].unicode() && showsMatchingBraces())
        showBraceMatchingBrace(text[0].unicode());
    if (autoCompleteEnabled())
        scheduleAutocomplete();
}

void SMLTextView::insertStringAfterInsertionPoint(const QString &string)
{
    const std::vector<TextRange> ranges = selectedRanges();
    std::vector<platform::TextSelection> carets;
    carets.reserve(ranges.size());
    for (const TextRange range : ranges)
        carets.push_back(
            platform::TextSelection::at(range.location + qsizetype(carets.size()) * string.size()));
    changeText(ranges, QStringList(qsizetype(ranges.size()), string), TextUndo::Kind::Typing,
               platform::TextSelections(carets, carets.size() - 1));
}

// All carets go one road: a caret that is not to move replaces nothing by nothing.
void SMLTextView::shiftBackToLastOpenBrace()
{
    const TextStorage &text = *textStorage();
    std::vector<TextRange> ranges;
    QStringList replacements;
    for (const TextRange selection : selectedRanges()) {
        const qsizetype caret = selection.location;
        const TextRange before = TextRange::between(lineStart(text, caret), caret);
        const qsizetype brace = findBeginningOfNestedBlock(caret, u'{', u'}');
        const bool isOverlapping = !ranges.empty() && ranges.back().end() > before.location;
        if (!selection.isEmpty() || isOverlapping || brace == NotFound ||
            leadingWhitespace(text, before).size() < before.length) {
            ranges.push_back({caret, 0});
            replacements << QString();
        } else {
            ranges.push_back(before);
            replacements << leadingWhitespace(text, text.lineRange({brace, 0}));
        }
    }
    if (std::ranges::any_of(ranges, [](TextRange range) { return !range.isEmpty(); }))
        changeText(ranges, replacements);
}

void SMLTextView::showBraceMatchingBrace(char16_t brace)
{
    const qsizetype caret = selectedRange().location;
    const char16_t *pair = bracePair(brace);
    const qsizetype partner = findBeginningOfNestedBlock(caret - 1, pair[0], pair[1]);
    if (partner == NotFound)
        beep();
    else
        showFindIndicatorForRange({partner, 1});
}

QString SMLTextView::textOfTab(qsizetype column) const
{
    if (!indentWithSpaces())
        return QStringLiteral("\t");
    const int width = m_tabWidth;
    if (!useTabStops())
        return QString(width, u' ');
    return QString(width > 0 ? width - column % width : 0, u' ');
}

QString SMLTextView::indentAfterNewline(qsizetype caret) const
{
    const TextStorage &text = *textStorage();
    if (caret == 0)
        return {};
    const TextRange line = text.lineRange({caret - 1, 0});
    const QString indent = leadingWhitespace(text, line);
    const qsizetype last = platform::indexOfCharacter(
        text, [](char16_t unit) { return !mgs_isWhitespace(unit) && !mgs_isNewline(unit); }, line,
        SearchDirection::Backward);
    if (!indentBracesAutomatically() || last == NotFound || text.character(last) != u'{')
        return indent;
    return indent + textOfTab(mgs_columnOfCharacter(indent, indent.size(), m_tabWidth));
}

void SMLTextView::insertNewline()
{
    const SMLUndoGroup group(&undoHistory());
    const quint64 revision = textStorage()->revision();
    TextView::insertNewline();
    if (!indentNewLinesAutomatically() || textStorage()->revision() == revision)
        return;
    QStringList indents;
    for (const TextRange caret : selectedRanges())
        indents << indentAfterNewline(caret.location);
    if (std::ranges::any_of(indents, [](const QString &indent) { return !indent.isEmpty(); }))
        changeText(selectedRanges(), indents, TextUndo::Kind::Typing);
}

bool SMLTextView::selectionStartsInIndentation() const
{
    const TextRange selection = selectedRange();
    if (selection.isEmpty())
        return false;
    const qsizetype start = lineStart(*textStorage(), selection.location);
    const TextRange rest = TextRange::between(start, textStorage()->length());
    const qsizetype first = platform::indexOfCharacter(
        *textStorage(), [](char16_t unit) { return unit != u' ' && unit != u'\t'; }, rest);
    return selection.location <= first;
}

void SMLTextView::insertTab()
{
    if (selectionStartsInIndentation()) {
        shiftRight();
    } else if (indentWithSpaces()) {
        QStringList blanks;
        for (const TextRange selection : selectedRanges())
            blanks << textOfTab(realColumnOfCharacter(selection.location));
        changeText(selectedRanges(), blanks, TextUndo::Kind::Typing);
    } else if (selections().isEmpty()) {
        TextView::insertTab();
    } else {
        std::vector<TextRange> carets;
        for (const TextRange selection : selectedRanges())
            carets.push_back({selection.end(), 0});
        setSelectedRanges(carets);
    }
}

void SMLTextView::insertBacktab()
{
    shiftLeft();
}

void SMLTextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QScopedValueRollback doubleClick(m_isDoubleClick, event->button() == Qt::LeftButton);
    m_lacksPartner = false;
    TextView::mouseDoubleClickEvent(event);
    if (m_lacksPartner)
        beep();
}

TextRange SMLTextView::selectionRange(TextRange proposed, qsizetype clicked,
                                      platform::TextGranularity granularity)
{
    const TextRange word = TextView::selectionRange(proposed, clicked, granularity);
    if (!m_isDoubleClick || granularity != platform::TextGranularity::Word ||
        clicked >= textStorage()->length())
        return word;
    const char16_t unit = textStorage()->character(clicked);
    if (const char16_t *pair = bracePair(unit)) {
        const qsizetype partner = unit == pair[0]
                                      ? findEndOfNestedBlock(clicked, pair[0], pair[1])
                                      : findBeginningOfNestedBlock(clicked, pair[0], pair[1]);
        m_lacksPartner = partner == NotFound;
        const TextRange brace{clicked, 1};
        return m_lacksPartner ? brace : brace.united({partner, 1});
    }
    const auto isSeparator = [](char16_t c) {
        return c == u'.' || c == u':';
    };
    if (!word.contains(clicked) || isSeparator(unit))
        return word;
    const qsizetype left = platform::indexOfCharacter(*textStorage(), isSeparator,
                                                      TextRange::between(word.location, clicked),
                                                      SearchDirection::Backward);
    const qsizetype right = platform::indexOfCharacter(*textStorage(), isSeparator,
                                                       TextRange::between(clicked, word.end()));
    return TextRange::between(left == NotFound ? word.location : left + 1,
                              right == NotFound ? word.end() : right);
}
