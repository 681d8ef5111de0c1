#include "kit/ui/ElidedLabel.h"

#include "kit/ui/ZQViewExtensions.h"
#include "platform/Bundle.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QPainter>

namespace zq {

ElidedLabel::ElidedLabel(QWidget *parent) : QFrame(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto *copy = new QAction(platform::localized("Copy"), this);
    connect(copy, &QAction::triggered, this,
            [this] { QApplication::clipboard()->setText(m_text); });
    addAction(copy);
}

void ElidedLabel::setText(const QString &text)
{
    m_text = text;
    setToolTip(plainToolTip(text));
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize ElidedLabel::sizeHint() const
{
    const QSize margins = size() - contentsRect().size();
    return QSize(fontMetrics().horizontalAdvance(m_text) + 1, fontMetrics().height()) + margins;
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_text, Qt::ElideMiddle, contentsRect().width()));
}

} // namespace zq
