#include "editor/MGSChangedLines.h"

#include "platform/text/TextUndo.h"

using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;
using platform::TextStorage;
using platform::TextUndo;

namespace {

// Lines before and behind what was put in have only moved, if it came between them.
TextRange changedLines(const TextStorage &text, TextRange range, qsizetype changeInLength)
{
    const qsizetype first = text.lineAt(range.location);
    const qsizetype last = text.lineAt(range.end());
    if (first == last)
        return {first, 1};
    if (range.location == text.lineStart(first) && range.end() == text.lineStart(last))
        return TextRange::between(first, last);
    const bool isPutBehindLine = changeInLength == range.length &&
                                 range.location == text.lineContents(first).end() &&
                                 range.end() == text.lineContents(last).end();
    return TextRange::between(isPutBehindLine ? first + 1 : first, last + 1);
}

} // namespace

MGSChangedLines::MGSChangedLines(TextStorage *text)
    : QObject(text), m_text(text), m_marks(text->length())
{
    TextUndo &history = TextUndo::of(text);
    connect(text, &TextStorage::charactersReplaced, this, &MGSChangedLines::textDidChange);
    connect(text, &TextStorage::didProcessEditing, this, [this, &history] {
        if (history.isClean())
            forget();
    });
    connect(&history, &TextUndo::didMarkClean, this, &MGSChangedLines::forget);
}

MGSChangedLines &MGSChangedLines::of(TextStorage *text)
{
    auto *lines = text->findChild<MGSChangedLines *>({}, Qt::FindDirectChildrenOnly);
    return lines ? *lines : *new MGSChangedLines(text);
}

bool MGSChangedLines::isChanged(qsizetype line) const
{
    const qsizetype start = m_text->lineStart(line);
    return start == m_text->length() ? m_isLastLineChanged : !m_marks.attributes(start).isEmpty();
}

void MGSChangedLines::forget()
{
    m_marks.reset(m_text->length());
    m_isLastLineChanged = false;
    Q_EMIT didForget();
}

void MGSChangedLines::textDidChange(TextRange range, qsizetype changeInLength)
{
    static const TextAttributes mark{{TextAttribute::Group, QStringLiteral("changed")}};
    m_marks.textDidChange(range, changeInLength);
    const TextRange lines = changedLines(*m_text, range, changeInLength);
    const bool reachesEnd = lines.end() == m_text->lineCount();
    const qsizetype end = reachesEnd ? m_text->length() : m_text->lineStart(lines.end());
    m_marks.set(mark, TextRange::between(m_text->lineStart(lines.location), end));
    m_isLastLineChanged = m_isLastLineChanged || reachesEnd;
}
