#include "platform/text/view/TextZoom.h"

#include <algorithm>
#include <QWheelEvent>

namespace platform {

namespace {

constexpr qreal smallest = 4;
constexpr qreal largest = 200;

} // namespace

void TextZoom::setFont(const QFont &font)
{
    m_font = font;
    m_steps = 0;
}

QFont TextZoom::font() const
{
    QFont font = m_font;
    if (m_steps == 0)
        return font;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::clamp(font.pointSizeF() + m_steps, smallest, largest));
    else
        font.setPixelSize(std::clamp(font.pixelSize() + m_steps, int(smallest), int(largest)));
    return font;
}

void TextZoom::zoom(int steps)
{
    const int before = m_steps;
    const QFont shown = font();
    m_steps = steps == 0 ? 0 : m_steps + steps;
    if (steps != 0 && font() == shown)
        m_steps = before;
}

int TextZoom::stepsOfWheel(int angle)
{
    m_angle += angle;
    const int steps = m_angle / QWheelEvent::DefaultDeltasPerStep;
    m_angle -= steps * QWheelEvent::DefaultDeltasPerStep;
    return steps;
}

} // namespace platform
