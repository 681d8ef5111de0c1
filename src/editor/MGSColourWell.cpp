#include "editor/MGSColourWell.h"

#include "editor/MGSColourValues.h"

#include <QColorDialog>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

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
        m_dialog = new QColorDialog(m_color, window());
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setOptions(QColorDialog::DontUseNativeDialog | QColorDialog::ShowAlphaChannel);
        connect(m_dialog, &QColorDialog::colorSelected, this, &MGSColourWell::takeColor);
        m_dialog->open();
    }
    m_dialog->raise();
}

// The dialog rounds to 8 bits, which is no other choice.
void MGSColourWell::takeColor(const QColor &color)
{
    if (color.rgba() != m_color.rgba())
        setColor(color);
}

void MGSColourWell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), cornerRadius, cornerRadius);
    if (m_color.alpha() < 255) {
        painter.fillPath(shape, Qt::white);
        painter.fillPath(shape, QBrush(Qt::lightGray, Qt::Dense4Pattern));
    }
    painter.fillPath(shape, m_color);
    painter.setPen(hasFocus() ? QPen(palette().highlight(), 2) : QPen(palette().mid(), 1));
    painter.drawPath(shape);
}
