#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace platform {

/// Draws the eye to a place: a bright frame that shrinks onto it and fades. Deletes itself when it
/// is done. Owned by the widget that it lies on; mouse and keys go through it.
class FindIndicator : public QWidget
{
    Q_OBJECT

public:
    FindIndicator(const QList<QRectF> &rects, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QList<QRectF> m_rects;
    QVariantAnimation m_animation; ///< From 0 to 1.
};

} // namespace platform
