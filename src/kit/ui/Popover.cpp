#include "kit/ui/Popover.h"

#include <QScreen>
#include <QVBoxLayout>

namespace zq {

Popover::Popover(QWidget *content) : m_content(content)
{
    setWindowFlags(Qt::Popup);
    setFrameShape(QFrame::StyledPanel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(content);
}

void Popover::showRelativeTo(QWidget *anchor)
{
    showRelativeTo(anchor->rect(), anchor);
}

void Popover::showRelativeTo(const QRect &rect, QWidget *ofView)
{
    setParent(ofView->window(), windowFlags());
    resize(sizeHint()); // adjustSize() has a least size of its own
    const QRect from(ofView->mapToGlobal(rect.topLeft()), rect.size());
    const QRect screen = ofView->screen()->availableGeometry();
    const int below = from.bottom() + 1;
    const int top = below + height() > screen.bottom() ? from.top() - height() : below;
    const int left = from.center().x() - width() / 2;
    move(qBound(screen.left(), left, qMax(screen.left(), screen.right() - width())),
         qMax(screen.top(), top));
    show();
    m_content->setFocus(Qt::PopupFocusReason);
}

void Popover::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    Q_EMIT didClose();
    deleteLater();
}

} // namespace zq
