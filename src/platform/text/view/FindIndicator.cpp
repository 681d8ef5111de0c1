#include "platform/text/view/FindIndicator.h"

#include <QPainter>

namespace platform {

namespace {

constexpr int duration = 900;        // milliseconds
constexpr qreal shrinkingPart = 0.2; // of them
constexpr qreal fadingPart = 0.4;
constexpr qreal margin = 8; // pixels that it is larger at first
constexpr QColor color(255, 204, 0);

} // namespace

FindIndicator::FindIndicator(const QList<QRectF> &rects, QWidget *parent)
    : QWidget(parent), m_rects(rects)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    QRectF all;
    for (const QRectF &rect : rects)
        all |= rect;
    setGeometry(all.adjusted(-margin, -margin, margin, margin).toAlignedRect());
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setDuration(duration);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_animation, &QVariantAnimation::finished, this, &QObject::deleteLater);
    m_animation.start();
    show();
}

void FindIndicator::paintEvent(QPaintEvent *)
{
    const qreal time = m_animation.currentValue().toReal();
    const qreal larger = margin * qMax(0.0, 1 - time / shrinkingPart);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(qMin(1.0, (1 - time) / fadingPart));
    painter.translate(-pos());
    painter.setPen(QPen(color.darker(120), 1.5));
    painter.setBrush(QColor(color.red(), color.green(), color.blue(), 110));
    for (const QRectF &rect : m_rects)
        painter.drawRoundedRect(rect.adjusted(-larger, -larger / 2, larger, larger / 2), 3, 3);
}

} // namespace platform
