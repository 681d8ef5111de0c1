#include "editor/MGSColourSwatches.h"

#include "editor/SMLTextView.h"
#include <QPainter>

using platform::TextRange;

namespace {

// A value is found by what stands before it, and may reach over an edge of what is painted.
constexpr qsizetype before = 200; // units
constexpr qsizetype behind = 80;

constexpr qreal barHeight = 4; // pixels, with its frame

} // namespace

void MGSColourSwatches::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    m_view->viewport()->update();
}

void MGSColourSwatches::willDrawText(TextRange characters)
{
    if (m_isEnabled)
        std::ranges::move(valuesIn(characters), std::back_inserter(m_found));
}

std::vector<MGSColourValue> MGSColourSwatches::valuesIn(TextRange characters) const
{
    const platform::TextStorage &text = *m_view->textStorage();
    const TextRange around = TextRange::between(qMax<qsizetype>(0, characters.location - before),
                                                qMin(text.length(), characters.end() + behind));
    std::vector<MGSColourValue> values = mgs_colourValues(text.substring(around));
    for (MGSColourValue &value : values)
        value.range.location += around.location;
    std::erase_if(values, [characters](const MGSColourValue &value) {
        return value.range.end() < characters.location || value.range.location > characters.end();
    });
    return values;
}

std::optional<MGSColourValue> MGSColourSwatches::valueAt(qsizetype index) const
{
    const std::vector<MGSColourValue> values = valuesIn({index, 0});
    return values.empty() ? std::nullopt : std::optional(values.front());
}

void MGSColourSwatches::draw(QPainter *painter)
{
    QColor frame = m_view->textColor();
    frame.setAlphaF(0.45F); // so that a bar in the ground's colour is seen
    painter->setPen(frame);
    for (const MGSColourValue &value : m_found) {
        painter->setBrush(value.colour);
        for (const QRectF &rect : m_view->rectsOf(value.range)) {
            const QRectF bar(rect.left(), rect.bottom() - barHeight, rect.width(), barHeight);
            painter->drawRect(bar.toRect().adjusted(0, 0, -1, -1));
        }
    }
    painter->setBrush(Qt::NoBrush);
}
