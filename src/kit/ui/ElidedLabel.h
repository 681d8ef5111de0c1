#pragma once

#include <QFrame>

namespace zq {

/// One line of text that gives way: what does not fit is left out of its middle, and the tool tip
/// tells all of it; the context menu copies it. Fit for paths, whose ends matter most. Main thread.
class ElidedLabel : public QFrame
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    void setText(const QString &text);
    QString text() const { return m_text; } ///< The whole of it.

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
};

} // namespace zq
