#include "kit/ui/PopUpButton.h"

#include <QPainter>
#include <QWheelEvent>

namespace zq {

void PopUpButton::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void PopUpButton::paintEvent(QPaintEvent *event)
{
    QComboBox::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(palette().color(QPalette::Text), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    painter.translate(isMirrored ? 13 : width() - 13, height() / 2.0);
    painter.drawPolyline(QPolygonF{{-3.5, -2}, {0, 2}, {3.5, -2}});
}

} // namespace zq
