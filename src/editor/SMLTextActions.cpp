// The commands on selected lines and ranges.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSColourSwatches.h"
#include "editor/MGSExtraInterfaceController.h"
#include "editor/MGSFolding.h"
#include "editor/MGSMutableSubstring.h"
#include "editor/MGSTextActions.h"
#include "editor/SMLTextView.h"
#include "kit/ui/TargetAction.h"

#include <span>

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

/// Commands that edit wherever the caret is.
constexpr QLatin1StringView commandsThatEdit[] = {
    QLatin1StringView("shiftLeft"), QLatin1StringView("shiftRight"),
    QLatin1StringView("closeTag"),  QLatin1StringView("prepareForXML"),
    QLatin1StringView("transpose"), QLatin1StringView("commentOrUncomment"),
};

/// Code stays what was typed, and runs from left to right.
constexpr QLatin1StringView commandsNeverEnabled[] = {
    QLatin1StringView("toggleAutomaticDashSubstitution"),
    QLatin1StringView("toggleAutomaticQuoteSubstitution"),
    QLatin1StringView("changeLayoutOrientation"),
};

bool isOneOf(std::span<const QLatin1StringView> commands, const QString &command)
{
    return std::ranges::find(commands, command) != commands.end();
}

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
    if (isOneOf(commandsNeverEnabled, command))
        return false;
    if (isOneOf(commandsOnSelections, command))
        return isEditable() && !selections().isEmpty();
    if (isOneOf(commandsThatEdit, command) && !isEditable())
        return false;
    if (command == u"commentOrUncomment")
        return !commentToken(*m_syntaxColouring).isNull();
    if (command == u"toggleFold")
        return m_folding->isEnabled();
    if (command == u"changeColour")
        return isEditable() && m_colourSwatches->valueAt(selectedRange().location);
    return true;
}

/// Gives the change in length; nothing where the delegate refused a part of it.
std::optional<qsizetype> SMLTextView::editSelections(const TextEdit &edit)
{
    if (!isEditable())
        return std::nullopt;
    TextStorage &text = *textStorage();
    const qsizetype lengthBefore = text.length();
    const platform::TextSelections selectionsBefore = selections();
    const platform::TextUndo::Group group(undoHistory());
    quint64 revision = text.revision();
    bool isRefused = false;
    const auto editOne = [&](MGSMutableSubstring &substring, bool &stop) {
        const QString old = substring.string();
        const QString edited = edit(old);
        const TextRange range = substring.superstringRange();
        const bool isAllowed = edited == old || shouldChangeText({range}, {edited});
        isRefused = isRefused || !isAllowed;
        if (edited != old && isAllowed) {
            undoHistory().record(TextUndo::Kind::Other, {{range, old, edited}}, selectionsBefore);
            substring.setString(edited);
            revision = text.revision();
            didChangeText();
        }
        stop = text.revision() != revision; // the delegate has edited: the ranges do not hold
    };
    const auto edited = enumerateMutableSubstringsFromRangeArray(text, selectedRanges(), editOne);
    if (text.revision() == revision)
        setSelectedRanges(edited);
    return isRefused ? std::nullopt : std::optional(text.length() - lengthBefore);
}

void SMLTextView::alignSelectionToLineBoundaries()
{
    setSelectedRanges(mgs::alignedToLines(*textStorage(), selectedRanges()));
}

void SMLTextView::shiftSelectionBy(qsizetype width)
{
    const platform::TextSelections before = selections();
    const quint64 revision = textStorage()->revision();
    alignSelectionToLineBoundaries();
    const mgs::IndentStyle style{m_tabWidth, indentWithSpaces()};
    const auto change =
        editSelections([&](const QString &text) { return mgs::shifted(text, width, style); });
    if (!change && textStorage()->revision() == revision)
        setSelections(before);
    if (change.value_or(0) == 0)
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

void SMLTextView::toggleFold(QObject *)
{
    if (!m_folding->toggle(textStorage()->lineAt(selectedRange().location)))
        beep();
}

void SMLTextView::changeColour(QObject *)
{
    const auto value = m_colourSwatches->valueAt(selectedRange().location);
    if (value && isEditable())
        m_interfaceController->showColours(*value);
    else
        beep();
}

// Other hands may have edited the text while the dialog was open.
void SMLTextView::performChangeColour(const MGSColourValue &value, const QColor &colour)
{
    if (value.range.end() > textStorage()->length() ||
        m_colourSwatches->valueAt(value.range.location) != value)
        beep();
    else if (colour.rgba() != value.colour.rgba()) // else it is another way to write the same
        changeText(value.range, mgs_colourCode(colour));
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
