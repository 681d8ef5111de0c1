#pragma once

#include <QComboBox>

namespace zq {

/// A choice with the arrow of the application's look. A wheel turned over it scrolls the page and
/// changes nothing. Main thread.
class PopUpButton : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace zq
