#include "editor/MGSColourWell.h"

#include "editor/MGSColourValues.h"
#include "kit/ui/ColorPanel.h"
#include "platform/Appearance.h"

#include <QColorDialog>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr QSize wellSize(44, 22);
constexpr qreal cornerRadius = 4;
constexpr qreal disabledOpacity = 0.4;

} // namespace

MGSColourWell::MGSColourWell(QWidget *parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, &MGSColourWell::showColorDialog);
}

QSize MGSColourWell::sizeHint() const
{
    return wellSize;
}

void MGSColourWell::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    setToolTip(mgs_colourCode(color));
    setAccessibleDescription(mgs_colourCode(color));
    QWidget::update();
    Q_EMIT colorDidChange();
}

void MGSColourWell::showColorDialog()
{
    if (!m_dialog) {
        m_dialog = zq::newColorPanel(window(), accessibleName(), m_color,
                                     [well = QPointer(this)](const QColor &chosen) {
                                         if (well)
                                             well->setColor(chosen);
                                     });
        m_dialog->open();
    }
    m_dialog->raise();
}

void MGSColourWell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius, cornerRadius);
    zq::paintColor(&painter, shape, m_color);
    painter.setPen(hasFocus() ? QPen(platform::namedColor(QStringLiteral("accentColor")), 2)
                              : QPen(palette().mid(), 1));
    painter.drawPath(shape);
}
