#include "platform/text/view/TextComposition.h"

#include "platform/text/TextNavigator.h"
#include <QTextFormat>

namespace platform {

void TextComposition::set(const QString &text,
                          const QList<QInputMethodEvent::Attribute> &attributes)
{
    m_text = text;
    m_formats.clear();
    m_caret = text.size();
    m_showsCaret = true;
    m_line.reset();
    for (const QInputMethodEvent::Attribute &attribute : attributes) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            m_caret = std::clamp<qsizetype>(attribute.start, 0, text.size());
            m_showsCaret = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            const QBrush brush = attribute.value.value<QTextFormat>().background();
            const TextRange range = TextRange{0, text.size()}.intersected(
                {qMax(0, attribute.start), qMax(0, attribute.length)});
            if (brush.style() != Qt::NoBrush && !range.isEmpty())
                m_formats.push_back({range,
                                     {{TextAttribute::UnderlineStyle, 1},
                                      {TextAttribute::BackgroundColor, brush.color()}}});
        }
    }
}

LineLayout &TextComposition::lineAt(qsizetype index)
{
    const TextStorage &storage = *m_layout.textStorage();
    if (!m_line || index != m_index || storage.revision() != m_revision) {
        const auto place = TextNavigator(m_layout).placeOf(index);
        QString text = storage.substring(storage.lineContents(place.line));
        text.insert(place.offset, m_text);
        m_index = index;
        m_offset = place.offset;
        m_revision = storage.revision();
        const LineFormats &formats = *this;
        m_line = std::make_unique<LineLayout>(text, m_layout.style(), formats);
    }
    return *m_line;
}

QRectF TextComposition::caretRect(qsizetype index)
{
    LineLayout &line = lineAt(index);
    return line.caretRect(m_offset + m_caret);
}

// Ranges count from the start of the composed line: it has no place in the text.
std::vector<LineFormats::Run> TextComposition::runs(TextRange range) const
{
    const TextAttributes underlined{{TextAttribute::UnderlineStyle, 1}};
    const TextRange composed{m_offset, m_text.size()};
    const qsizetype start = m_index - m_offset;
    std::vector<Run> runs;
    const auto append = [&](TextRange part, qsizetype shift) {
        m_layout.temporaryAttributes().forEachRun(
            part, [&](TextRange run, const TextAttributes &attributes) {
                runs.push_back({run.movedBy(shift), attributes});
            });
    };
    const TextRange before = range.intersected({0, m_offset});
    if (!before.isEmpty())
        append(before.movedBy(start), -start);
    qsizetype at = composed.location;
    for (const Run &format : m_formats) {
        const qsizetype from = qMax(at, format.range.location + m_offset);
        if (from > at)
            runs.push_back({TextRange::between(at, from), underlined});
        at = qMax(at, format.range.end() + m_offset);
        if (at > from)
            runs.push_back({TextRange::between(from, at), format.attributes});
    }
    if (at < composed.end())
        runs.push_back({TextRange::between(at, composed.end()), underlined});
    if (range.end() > composed.end()) {
        const qsizetype from = qMax(range.location, composed.end());
        const qsizetype shift = start - m_text.size();
        append(TextRange::between(from + shift, range.end() + shift), -shift);
    }
    std::erase_if(runs, [range](const Run &run) { return range.intersected(run.range).isEmpty(); });
    for (Run &run : runs)
        run.range = range.intersected(run.range);
    return runs;
}

} // namespace platform
