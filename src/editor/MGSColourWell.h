#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QPointer>

class QColorDialog;

/// Shows a colour and lets the user choose another one in the colour dialog. Main thread.
class MGSColourWell : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorDidChange USER true)

public:
    explicit MGSColourWell(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color); ///< Tells of it, too, if it is another one.

    void showColorDialog(); ///< Asked while it is open, it comes to the front.

    QSize sizeHint() const override;

Q_SIGNALS:
    void colorDidChange();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color;
    QPointer<QColorDialog> m_dialog;
};
