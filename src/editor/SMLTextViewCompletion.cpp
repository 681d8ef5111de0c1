// Completion of words.
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/SMLTextView.h"
#include "platform/CharacterSet.h"
#include "platform/text/TextSearch.h"
#include "platform/text/view/CompletionList.h"

using platform::CharacterSet;
using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;

namespace {

constexpr double longestDelay = 86'400; // seconds

bool isEndOfWord(char16_t unit)
{
    static const CharacterSet ends = CharacterSet::symbols()
                                         .include(CharacterSet::punctuation())
                                         .include(CharacterSet::whitespaceAndNewlines());
    return ends.contains(unit);
}

bool isOfCompletion(char16_t unit)
{
    const bool isLetter = (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z';
    return isLetter || (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'\\';
}

} // namespace

void SMLTextView::scheduleAutocomplete()
{
    m_autocompleteWordsTimer.start(qRound(qBound(0.0, autoCompleteDelay(), longestDelay) * 1000));
}

void SMLTextView::autocompleteWordsTimerDidFire()
{
    const qsizetype length = textStorage()->length();
    const TextRange selection = selectedRange();
    const bool isOpen = m_completionList->isVisible(); // and follows what is typed by itself
    if (!hasFocus() || isOpen || length == 0 || !selection.isEmpty())
        return;
    if (selection.location == length || isEndOfWord(textStorage()->character(selection.location)))
        complete();
}

void SMLTextView::complete()
{
    m_autocompleteWordsTimer.stop();
    TextView::complete();
}

TextRange SMLTextView::rangeForUserCompletion() const
{
    const TextRange selection = selectedRange();
    if (!selection.isEmpty() || selection.location == 0)
        return TextRange::notFound();
    const qsizetype before = platform::indexOfCharacter(
        *textStorage(), [](char16_t unit) { return !isOfCompletion(unit); },
        {0, selection.location}, SearchDirection::Backward);
    const qsizetype start = before == NotFound ? 0 : before + 1;
    return start == selection.location ? TextRange::notFound()
                                       : TextRange::between(start, selection.location);
}

const QStringList &SMLTextView::keywords()
{
    const auto &definition = m_syntaxColouring->syntaxDefinition();
    if (!definition || definition != m_syntaxDefOfCachedKeywords.lock()) {
        m_cachedKeywords = definition ? definition->keywords().values() : QStringList();
        m_cachedKeywords.sort();
        m_syntaxDefOfCachedKeywords = definition;
    }
    return m_cachedKeywords;
}

QStringList SMLTextView::completionsForPartialWord(TextRange range)
{
    const SMLAutoCompleteDelegate *source = autoCompleteDelegate();
    if (!source)
        source = m_syntaxColouring->syntaxDefinition().get();
    if (!source)
        return {};
    QStringList words = source->completions();
    if (autoCompleteWithKeywords())
        words += keywords();
    const QString start = textStorage()->substring(range);
    words.removeIf(
        [&](const QString &word) { return !word.startsWith(start, Qt::CaseInsensitive); });
    return words;
}
