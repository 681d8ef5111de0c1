// The commands on selected lines and ranges.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSExtraInterfaceController.h"
#include "editor/MGSMutableSubstring.h"
#include "editor/MGSTextActions.h"
#include "editor/SMLTextView.h"
#include "editor/SMLUndoGroup.h"
#include "kit/ui/TargetAction.h"

using platform::TextRange;
using platform::TextStorage;
using platform::TextUndo;

namespace {

/// Commands that need a selection to act on.
constexpr QLatin1StringView commandsOnSelections[] = {
    QLatin1StringView("removeNeedlessWhitespace"),
    QLatin1StringView("lowercaseCharacters"),
    QLatin1StringView("uppercaseCharacters"),
    QLatin1StringView("capitalizeWord"),
    QLatin1StringView("entab"),
    QLatin1StringView("detab"),
    QLatin1StringView("removeLineEndings"),
};

/// Code stays what was typed, and runs from left to right.
constexpr QLatin1StringView commandsNeverEnabled[] = {
    QLatin1StringView("toggleAutomaticDashSubstitution"),
    QLatin1StringView("toggleAutomaticQuoteSubstitution"),
    QLatin1StringView("changeLayoutOrientation"),
};

/// The token that comments a line out; null where the language has none.
QString commentToken(const SMLSyntaxColouring &colouring)
{
    const auto &definition = colouring.syntaxDefinition();
    const auto tokens = definition ? definition->singleLineComments() : std::nullopt;
    return tokens ? tokens->value(0) : QString();
}

} // namespace

bool SMLTextView::validateMenuItem(QObject *item)
{
    const QString command = zq::action(item);
    if (std::ranges::find(commandsNeverEnabled, command) != std::end(commandsNeverEnabled))
        return false;
    if (std::ranges::find(commandsOnSelections, command) != std::end(commandsOnSelections))
        return !selections().isEmpty();
    if (command == u"commentOrUncomment")
        return !commentToken(*m_syntaxColouring).isNull();
    return true;
}

/// Gives the change in length.
qsizetype SMLTextView::editSelections(const TextEdit &edit)
{
    if (!isEditable())
        return 0;
    TextStorage &text = *textStorage();
    const qsizetype lengthBefore = text.length();
    const platform::TextSelections selectionsBefore = selections();
    const SMLUndoGroup group(&undoHistory());
    const auto editOne = [&](MGSMutableSubstring &substring, bool &) {
        const QString old = substring.string();
        const QString edited = edit(old);
        const TextRange range = substring.superstringRange();
        if (edited == old || !shouldChangeText({range}, {edited}))
            return;
        undoHistory().record(TextUndo::Kind::Other, {{range, old, edited}}, selectionsBefore);
        substring.setString(edited);
        didChangeText();
    };
    setSelectedRanges(enumerateMutableSubstringsFromRangeArray(text, selectedRanges(), editOne));
    return text.length() - lengthBefore;
}

void SMLTextView::alignSelectionToLineBoundaries()
{
    setSelectedRanges(mgs::alignedToLines(*textStorage(), selectedRanges()));
}

void SMLTextView::shiftSelectionBy(qsizetype width)
{
    alignSelectionToLineBoundaries();
    const mgs::IndentStyle style{m_tabWidth, indentWithSpaces()};
    if (editSelections([&](const QString &text) { return mgs::shifted(text, width, style); }) == 0)
        beep();
}

void SMLTextView::shiftLeft(QObject *)
{
    shiftSelectionBy(-qsizetype(indentWidth()));
}

void SMLTextView::shiftRight(QObject *)
{
    shiftSelectionBy(qsizetype(indentWidth()));
}

void SMLTextView::removeNeedlessWhitespace(QObject *)
{
    alignSelectionToLineBoundaries();
    editSelections(mgs::withoutNeedlessWhitespace);
}

void SMLTextView::lowercaseCharacters(QObject *)
{
    editSelections([](const QString &text) { return text.toLower(); });
}

void SMLTextView::uppercaseCharacters(QObject *)
{
    editSelections([](const QString &text) { return text.toUpper(); });
}

void SMLTextView::capitalizeWord(QObject *)
{
    TextView::capitalizeWord();
}

void SMLTextView::transpose(QObject *)
{
    TextView::transpose();
}

void SMLTextView::entab(QObject *)
{
    m_interfaceController->showEntab();
}

void SMLTextView::detab(QObject *)
{
    m_interfaceController->showDetab();
}

void SMLTextView::performEntabWithNumberOfSpaces(qsizetype spaces)
{
    alignSelectionToLineBoundaries();
    editSelections([&](const QString &text) { return mgs::entabbed(text, spaces); });
}

void SMLTextView::performDetabWithNumberOfSpaces(qsizetype spaces)
{
    alignSelectionToLineBoundaries();
    editSelections([&](const QString &text) { return mgs::detabbed(text, spaces); });
}

void SMLTextView::removeLineEndings(QObject *)
{
    editSelections(mgs::withoutLineEndings);
}

void SMLTextView::prepareForXML(QObject *)
{
    editSelections(mgs::preparedForXML);
}

void SMLTextView::commentOrUncomment(QObject *)
{
    const QString token = commentToken(*m_syntaxColouring);
    if (token.isNull())
        return beep();
    alignSelectionToLineBoundaries();
    const auto edit = [&](const QString &text) {
        return mgs::commentedOrUncommented(text, token);
    };
    if (editSelections(edit) == 0)
        beep();
}

void SMLTextView::closeTag(QObject *)
{
    const TextRange caret = selectedRange();
    const QString tag =
        caret.isEmpty() ? mgs::closingTag(*textStorage(), caret.location) : QString();
    if (tag.isNull())
        beep();
    else
        changeText(caret, tag);
}

void SMLTextView::goToLine(QObject *)
{
    m_interfaceController->showGoToLine();
}

void SMLTextView::performGoToLine(qsizetype line, bool setSelected)
{
    const TextStorage &text = *textStorage();
    if (line < 1 || line > text.lineCount())
        return beep();
    const TextRange range = text.lineRange({text.lineStart(line - 1), 0});
    if (setSelected)
        setSelectedRange(range);
    scrollRangeToVisible(range);
}
