#include "kit/ui/ColorPanel.h"

#include <QColorDialog>
#include <QPainter>

namespace zq {

namespace {

QBrush clearPattern()
{
    QImage pattern(8, 8, QImage::Format_RGB32);
    pattern.fill(Qt::white);
    QPainter painter(&pattern);
    painter.fillRect(0, 0, 4, 4, Qt::lightGray);
    painter.fillRect(4, 4, 4, 4, Qt::lightGray);
    return pattern;
}

} // namespace

// The panel rounds to 8 bits, which is no other choice.
QColorDialog *newColorPanel(QWidget *parent, const QString &title, const QColor &color,
                            const std::function<void(const QColor &)> &chosen)
{
    auto *panel = new QColorDialog(color.isValid() ? color : Qt::white, parent);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
    panel->setWindowTitle(title);
    QObject::connect(panel, &QColorDialog::colorSelected, parent,
                     [color, chosen](const QColor &taken) {
                         if (!color.isValid() || color.rgba() != taken.rgba())
                             chosen(taken);
                     });
    return panel;
}

void paintColor(QPainter *painter, const QPainterPath &shape, const QColor &color)
{
    if (color.alpha() < 255)
        painter->fillPath(shape, clearPattern());
    painter->fillPath(shape, color);
}

} // namespace zq
