#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QPushButton;

namespace zq {

/// A line in a status bar that tells what has been done and offers one button, mostly to take it
/// back. It goes by itself after a while, and at a press of the button. Hidden at first; main
/// thread.
class ActionNotice : public QFrame
{
    Q_OBJECT

public:
    explicit ActionNotice(const QString &buttonTitle, QWidget *parent = nullptr);

    void showNotice(const QString &text);

Q_SIGNALS:
    void buttonWasPressed();

private:
    QLabel *m_text;
    QPushButton *m_button;
    QTimer m_patience;
};

} // namespace zq
