#include "app/LSMPaintReport.h"

#include "platform/ProcessClock.h"

#include <cstdio>
#include <QEvent>
#include <QTimer>

void LSMPaintReport::watch(QWindow *window)
{
    if (qEnvironmentVariableIntValue("LAYOUTSMITH_REPORT_PAINT") == 1)
        new LSMPaintReport(window);
}

LSMPaintReport::LSMPaintReport(QWindow *window) : QObject(window)
{
    window->installEventFilter(this);
}

// When a window is first exposed, all its widgets are painted and brought to the screen within that
// event, so the next turn of the event loop finds it done.
bool LSMPaintReport::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose) {
        watched->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] {
            std::fprintf(stderr, "painted %.2f s\n", platform::secondsSinceProcessStart());
            deleteLater();
        });
    }
    return false;
}
