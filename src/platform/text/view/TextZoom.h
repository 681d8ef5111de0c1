#pragma once

#include <QFont>

namespace platform {

/// The size that a text is read in, apart from the font that was set for it. A value of the view.
class TextZoom
{
public:
    void setFont(const QFont &font); ///< The one to return to; ends the zoom.
    QFont font() const;              ///< As zoomed, within 4 to 200 points (or pixels).

    void zoom(int steps); ///< Of one point each; 0: back to the font that was set.

    /// The whole steps of a wheel's turn (in eighths of a degree); what is left waits for the next.
    int stepsOfWheel(int angle);

private:
    QFont m_font;
    int m_steps = 0;
    int m_angle = 0;
};

} // namespace platform
