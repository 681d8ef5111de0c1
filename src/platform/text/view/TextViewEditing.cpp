// Selecting, and what keys and menus do to the text.
#include "platform/text/TextBoundaries.h"
#include "platform/text/TextSearch.h"
#include "platform/text/view/TextView.h"

namespace platform {

namespace {

// Those that overlap or follow each other become one.
std::vector<TextRange> joined(std::vector<TextRange> ranges)
{
    std::ranges::sort(ranges, {}, &TextRange::location);
    std::vector<TextRange> result;
    for (const TextRange range : ranges) {
        if (range.isEmpty())
            continue;
        if (!result.empty() && range.location <= result.back().end())
            result.back() = result.back().united(range);
        else
            result.push_back(range);
    }
    return result;
}

QStringList copies(const QString &text, size_t count)
{
    return QStringList(qsizetype(count), text);
}

QString capitalized(QString text)
{
    bool isInWord = false;
    for (QChar &c : text) {
        if (c.isLetter())
            c = isInWord ? c.toLower() : c.toTitleCase();
        isInWord = c.isLetterOrNumber() || c.isMark() || c == u'\'' || c == u'’';
    }
    return text;
}

} // namespace

void TextView::setSelectedRange(TextRange range)
{
    setSelections(TextSelection::of(range));
}

void TextView::setSelectedRanges(const std::vector<TextRange> &ranges)
{
    setSelections(TextSelections::of(ranges));
}

void TextView::setSelections(const TextSelections &selections)
{
    const TextSelections before =
        std::exchange(m_selections, selections.within(textStorage()->length()));
    if (!m_layoutManager->hiddenLines().isEmpty()) {
        for (const TextSelection &selection : std::vector(m_selections.all()))
            showEnds(selection.range());
    }
    if (m_selections == before && !m_selectionMoved)
        return restartBlinking();
    if (m_selections != before && !m_isChanging)
        undoHistory().breakCoalescing();
    if (std::exchange(m_selectionMoved, false))
        updateSelectionsInSight();
    else
        updateSelections(before);
    restartBlinking();
    updateMicroFocus();
    constexpr int primaryDelay = 100; // milliseconds
    if (hasFocus() && !m_selections.isEmpty())
        m_primaryTimer.start(primaryDelay);
    Q_EMIT selectionDidChange();
    if (m_delegate)
        m_delegate->textViewDidChangeSelection(this);
}

QString TextView::selectedText() const
{
    QStringList texts;
    for (const TextSelection &selection : m_selections.all()) {
        if (!selection.isEmpty())
            texts << textStorage()->substring(selection.range());
    }
    return texts.join(u'\n');
}

void TextView::showEnds(TextRange range)
{
    for (const qsizetype index : {range.location, range.end()})
        m_layoutManager->showLine(textStorage()->lineAt(qMin(index, textStorage()->length())));
}

void TextView::scrollRangeToVisible(TextRange range)
{
    showEnds(range);
    for (const qsizetype index : {range.end(), range.location}) {
        const auto place = navigator().placeOf(qMin(index, textStorage()->length()));
        const QRectF rect = m_layoutManager->line(place.line).caretRect(place.offset);
        revealInLine(place.line, rect);
    }
    scrollPositionMayHaveChanged();
}

bool TextView::replaceSelections(const QString &text, TextUndo::Kind kind)
{
    return changeText(selectedRanges(), copies(text, m_selections.all().size()), kind);
}

void TextView::insertText(const QString &text)
{
    replaceSelections(text, TextUndo::Kind::Typing);
}

void TextView::insertNewline()
{
    replaceSelections(lineEnding(*textStorage()), TextUndo::Kind::Typing);
}

void TextView::insertTab()
{
    insertText(QStringLiteral("\t"));
}

void TextView::complete()
{
    Q_EMIT completionWasAskedFor();
}

TextRange TextView::rangeForUserCompletion() const
{
    const TextRange selection = selectedRange();
    if (!selection.isEmpty() || selection.location == 0)
        return TextRange::notFound();
    const TextRange word = wordRange(*textStorage(), selection.location - 1);
    const bool isWord = QChar(textStorage()->character(word.location)).isLetterOrNumber();
    return isWord ? TextRange::between(word.location, selection.location) : TextRange::notFound();
}

void TextView::selectAll()
{
    setSelectedRange({0, textStorage()->length()});
}

void TextView::moveCarets(TextMovement movement, TextMode mode)
{
    const bool isPage = movement == TextMovement::PageUp || movement == TextMovement::PageDown;
    if (isPage) {
        const qreal page = qreal(rowsOfPage()) * m_layoutManager->style().rowHeight;
        scrollByPixels({0, movement == TextMovement::PageUp ? -page : page});
    }
    std::vector<TextSelection> moved;
    size_t main = 0;
    for (const TextSelection &selection : m_selections.all()) {
        if (&selection == &m_selections.main())
            main = moved.size();
        moved.push_back(navigator().moved(selection, movement, mode));
    }
    setSelections(TextSelections(std::move(moved), main));
    scrollToCaret();
}

void TextView::deleteText(TextMovement movement)
{
    std::vector<TextRange> ranges;
    for (const TextSelection &selection : m_selections.all()) {
        const bool isCaret = selection.isEmpty();
        ranges.push_back(isCaret ? navigator().moved(selection, movement, TextMode::Select).range()
                                 : selection.range());
    }
    TextUndo::Kind kind = TextUndo::Kind::Other;
    if (m_selections.isEmpty() && movement == TextMovement::Backward)
        kind = TextUndo::Kind::DeletingBackward;
    if (m_selections.isEmpty() && movement == TextMovement::Forward)
        kind = TextUndo::Kind::DeletingForward;
    ranges = joined(std::move(ranges));
    changeText(ranges, copies({}, ranges.size()), kind);
}

void TextView::deleteLines()
{
    std::vector<TextRange> lines;
    for (const TextRange range : selectedRanges())
        lines.push_back(textStorage()->lineRange(range));
    lines = joined(std::move(lines));
    changeText(lines, copies({}, lines.size()));
}

void TextView::addCaretAbove()
{
    addCaret(TextMovement::Up);
}

void TextView::addCaretBelow()
{
    addCaret(TextMovement::Down);
}

void TextView::addCaret(TextMovement movement)
{
    const bool isUp = movement == TextMovement::Up;
    const TextSelection &outermost = isUp ? m_selections.all().front() : m_selections.all().back();
    TextSelection from = outermost;
    from.anchor = from.caret;
    const TextSelection caret = navigator().moved(from, movement, TextMode::Move);
    const auto rowOf = [this](const TextSelection &selection) {
        const auto place = navigator().placeOf(selection.caret);
        return std::pair(place.line,
                         m_layoutManager->line(place.line).rowAt(place.offset, selection.affinity));
    };
    if (rowOf(caret) == rowOf(from))
        return;
    TextSelections selections = m_selections;
    selections.add(caret);
    setSelections(selections);
    scrollToCaret();
}

void TextView::selectNextOccurrence()
{
    const TextRange selected = selectedRange();
    if (selected.isEmpty()) {
        TextSelections selections = m_selections;
        selections.add(TextSelection::of(wordRange(*textStorage(), selected.location)));
        return setSelections(selections);
    }
    const QString text = textStorage()->substring(selected);
    const std::vector<TextRange> taken = selectedRanges();
    const qsizetype length = textStorage()->length();
    const TextRange areas[] = {TextRange::between(selected.end(), length),
                               TextRange::between(0, selected.location)};
    for (TextRange area : areas) {
        TextRange found;
        while ((found = rangeOfString(*textStorage(), text, area)).isFound()) {
            const bool isTaken = std::ranges::any_of(taken, [found](TextRange range) {
                return range.location < found.end() && found.location < range.end();
            });
            if (!isTaken) {
                TextSelections selections = m_selections;
                selections.add(TextSelection::of(found));
                setSelections(selections);
                return scrollToCaret();
            }
            area = TextRange::between(found.end(), area.end());
        }
    }
}

void TextView::selectOne()
{
    const TextSelection main = m_selections.main();
    setSelections(m_selections.isMultiple() ? main : TextSelection::at(main.caret));
}

void TextView::transpose()
{
    const TextStorage &text = *textStorage();
    std::vector<TextRange> ranges;
    QStringList replacements;
    for (const TextSelection &selection : m_selections.all()) {
        qsizetype middle = selection.caret;
        const TextRange line = text.lineContents(text.lineAt(middle));
        if (middle == line.end())
            middle = previousCluster(text, middle);
        if (!selection.isEmpty() || middle <= line.location)
            continue;
        const qsizetype start = previousCluster(text, middle);
        const qsizetype end = nextCluster(text, middle);
        if (!ranges.empty() && ranges.back().end() > start)
            continue;
        ranges.push_back(TextRange::between(start, end));
        replacements << text.substring(TextRange::between(middle, end)) +
                            text.substring(TextRange::between(start, middle));
    }
    changeText(ranges, replacements);
}

// The selected text, which stays selected; the words at carets, which end behind them.
void TextView::capitalizeWord()
{
    std::vector<TextRange> ranges;
    QStringList replacements;
    std::vector<TextRange> after;
    qsizetype shift = 0;
    for (const TextRange selected : selectedRanges()) {
        const bool isCaret = selected.isEmpty();
        const TextRange range = isCaret ? wordRange(*textStorage(), selected.location) : selected;
        if (!ranges.empty() && ranges.back().end() > range.location)
            continue;
        ranges.push_back(range);
        replacements << capitalized(textStorage()->substring(range));
        const TextRange changed{range.location + shift, replacements.last().size()};
        after.push_back(isCaret ? TextRange{changed.end(), 0} : changed);
        shift += changed.length - range.length;
    }
    changeText(ranges, replacements, TextUndo::Kind::Other, TextSelections::of(after));
}

} // namespace platform
