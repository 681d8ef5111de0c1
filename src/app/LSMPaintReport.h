#pragma once

#include <QWindow>

/// Tells on standard error how long it took from the start of the process until the window stood
/// painted for the first time: "painted 0.41 s". For measurements; asked for by
/// `LAYOUTSMITH_REPORT_PAINT=1` in the environment. Child of the window; gone once it has told.
class LSMPaintReport : public QObject
{
    Q_OBJECT

public:
    /// A window that was shown, before the event loop has turned. Does nothing unless the
    /// environment asks for it.
    static void watch(QWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit LSMPaintReport(QWindow *window);
};
