// What keys and clicks do beyond the usual.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSBracePair.h"
#include "editor/MGSStringExtensions.h"
#include "editor/MGSTextStorageExtensions.h"
#include "editor/SMLTextView.h"
#include "platform/text/TextSearch.h"

using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;
using platform::TextStorage;
using platform::TextUndo;

namespace {

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
    {
        std::optional<TextUndo::Group> group;
        if (shifts || closesParenthesis || closesBrace)
            group.emplace(undoHistory());
        if (shifts)
            shiftBackToLastOpenBrace();
        const quint64 revision = textStorage()->revision();
        TextView::insertText(text);
        const bool isRefused = textStorage()->revision() == revision;
        if (isRefused)
            return;
        if (closesParenthesis || closesBrace)
            insertStringAfterInsertionPoint(closesBrace ? QStringLiteral("}")
                                                        : QStringLiteral(")"));
    }
    const char16_t *pair = text.size() == 1 ? mgs_bracePair(text[0].unicode()) : nullptr;
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
        const bool isOverlapping = !ranges.empty() && ranges.back().end() > before.location;
        const bool mayMove = selection.isEmpty() && !isOverlapping &&
                             leadingWhitespace(text, before).size() == before.length;
        const qsizetype brace =
            mayMove ? findBeginningOfNestedBlock(caret, u'{', u'}') : qsizetype(NotFound);
        if (brace == NotFound) {
            ranges.push_back({caret, 0});
            replacements << QString();
        } else {
            ranges.push_back(before);
            replacements << leadingWhitespace(text, text.lineRange({brace, 0}));
        }
    }
    const auto isEmpty = [](const auto &part) {
        return part.isEmpty();
    };
    if (!std::ranges::all_of(ranges, isEmpty) || !std::ranges::all_of(replacements, isEmpty))
        changeText(ranges, replacements);
}

void SMLTextView::showBraceMatchingBrace(char16_t brace)
{
    const qsizetype caret = selectedRange().location;
    const char16_t *pair = mgs_bracePair(brace);
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

// One for each selection; those behind another in its line are moved along by it.
QStringList SMLTextView::blanksOfTabs() const
{
    const TextStorage &text = *textStorage();
    QStringList blanks;
    qsizetype line = NotFound;
    qsizetype moved = 0;
    for (const TextRange selection : selectedRanges()) {
        if (const qsizetype start = lineStart(text, selection.location); start != line)
            moved = 0;
        const qsizetype column = realColumnOfCharacter(selection.location);
        blanks << textOfTab(column + moved);
        line = lineStart(text, selection.end());
        moved += blanks.back().size() + column - realColumnOfCharacter(selection.end());
    }
    return blanks;
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
    const TextUndo::Group group(undoHistory());
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
        changeText(selectedRanges(), blanksOfTabs(), TextUndo::Kind::Typing);
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
