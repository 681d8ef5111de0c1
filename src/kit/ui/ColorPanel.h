#pragma once

#include <functional>
#include <QColor>
#include <QPainterPath>

class QColorDialog;
class QPainter;

namespace zq {

/// A panel to choose a colour in, with its opacity, which deletes itself when it closes; the caller
/// shows it. `chosen` is called once, if the user takes another colour than `color`, and not when
/// `parent` has gone. Without a valid colour the panel begins with white, and any choice counts.
/// Main thread.
QColorDialog *newColorPanel(QWidget *parent, const QString &title, const QColor &color,
                            const std::function<void(const QColor &)> &chosen);

/// Fills the shape; where the colour is not opaque, squares of two greys shine through.
void paintColor(QPainter *painter, const QPainterPath &shape, const QColor &color);

} // namespace zq
