#include "editor/MGSChangedLines.h"

using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;

MGSChangedLines::MGSChangedLines(platform::TextStorage *text, QObject *parent)
    : QObject(parent), m_text(text), m_marks(text->length())
{
    connect(text, &platform::TextStorage::charactersReplaced, this,
            &MGSChangedLines::textDidChange);
}

bool MGSChangedLines::isChanged(qsizetype line) const
{
    if (!m_text || line >= m_text->lineCount())
        return false;
    const qsizetype start = m_text->lineStart(line);
    if (start == m_text->length())
        return m_isLastLineChanged;
    return !m_marks.attributes(start).isEmpty();
}

void MGSChangedLines::forget()
{
    m_marks.reset(m_text ? m_text->length() : 0);
    m_isLastLineChanged = false;
    Q_EMIT didChange();
}

void MGSChangedLines::textDidChange(TextRange range, qsizetype changeInLength)
{
    static const TextAttributes mark{{TextAttribute::Group, QStringLiteral("changed")}};
    m_marks.textDidChange(range, changeInLength);
    const TextRange lines = m_text->lineRange(range);
    m_marks.set(mark, lines);
    // What stands behind the last line end that was put in has only moved.
    if (range.end() == m_text->length())
        m_isLastLineChanged = true;
    Q_EMIT didChange();
}
