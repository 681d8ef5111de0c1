#include "kit/ui/SegmentedControl.h"

#include "platform/Appearance.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace zq {

namespace {

constexpr qreal radius = 6;
constexpr int focusRing = 2; // Around the frame, in pixels.
constexpr int leastHeight = 18;
constexpr int horizontalPadding = 14;

} // namespace

/// One segment; a checkable button, so that it has a place of its own for assistive technology.
class SegmentedControl::Segment : public QAbstractButton
{
public:
    explicit Segment(SegmentedControl *parent) : QAbstractButton(parent)
    {
        setFocusPolicy(Qt::NoFocus);
        setCheckable(true);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 2 * horizontalPadding,
                qMax(fontMetrics().height(), leastHeight) + 8};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void enterEvent(QEnterEvent *) override { update(); }
    void leaveEvent(QEvent *) override { update(); }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintGround(painter);
        const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
        const bool isLit = isChecked() && isEnabled();
        painter.setPen(
            palette().color(group, isLit ? QPalette::HighlightedText : QPalette::ButtonText));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    void paintGround(QPainter &painter)
    {
        const QRectF inner = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(Qt::NoPen);
        const QColor text = palette().color(QPalette::ButtonText);
        if (isChecked())
            painter.setBrush(isEnabled()
                                 ? palette().color(QPalette::Active, QPalette::Highlight)
                                 : platform::mixed(text, 0.3, palette().color(QPalette::Window)));
        else if (isEnabled() && (isDown() || underMouse()))
            painter.setBrush(QColor(text.red(), text.green(), text.blue(), isDown() ? 45 : 22));
        else
            painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(inner, radius - 1.5, radius - 1.5);
    }
};

SegmentedControl::SegmentedControl(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(focusRing, focusRing, focusRing, focusRing);
    layout->setSpacing(0);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

SegmentedControl::SegmentedControl(const QStringList &labels, QWidget *parent)
    : SegmentedControl(parent)
{
    setSegmentCount(int(labels.size()));
    for (int segment = 0; segment < segmentCount(); ++segment)
        setLabel(segment, labels[segment]);
}

int SegmentedControl::segmentCount() const
{
    return int(m_segments.size());
}

void SegmentedControl::setSegmentCount(int count)
{
    count = qMax(0, count);
    if (m_selected >= count)
        setSelectedSegment(-1);
    while (segmentCount() > count)
        delete m_segments.takeLast();
    while (segmentCount() < count) {
        auto *segment = new Segment(this);
        const int index = segmentCount();
        connect(segment, &Segment::clicked, this, [this, index] { select(index); });
        m_segments << segment;
        layout()->addWidget(segment);
        segment->show();
    }
}

int SegmentedControl::selectedSegment() const
{
    return m_selected;
}

void SegmentedControl::setSelectedSegment(int segment)
{
    if (segment < -1 || segment >= segmentCount())
        return;
    const bool isOther = segment != m_selected;
    m_selected = segment;
    for (int index = 0; index < segmentCount(); ++index)
        m_segments[index]->setChecked(index == segment);
    update();
    if (isOther)
        Q_EMIT selectedSegmentDidChange(segment);
}

void SegmentedControl::setLabel(int segment, const QString &label)
{
    m_segments.at(segment)->setText(label);
    m_segments.at(segment)->updateGeometry();
}

void SegmentedControl::select(int segment)
{
    setSelectedSegment(segment);
    Q_EMIT activated(segment);
}

void SegmentedControl::selectByKey(int segment)
{
    if (segment >= 0 && segment < segmentCount() && segment != m_selected)
        select(segment);
}

void SegmentedControl::keyPressEvent(QKeyEvent *event)
{
    const int forward = layoutDirection() == Qt::LeftToRight ? 1 : -1;
    switch (event->key()) {
    case Qt::Key_Left:
        return selectByKey(m_selected < 0 ? 0 : m_selected - forward);
    case Qt::Key_Right:
        return selectByKey(m_selected < 0 ? 0 : m_selected + forward);
    case Qt::Key_Home:
        return selectByKey(0);
    case Qt::Key_End:
        return selectByKey(segmentCount() - 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void SegmentedControl::focusInEvent(QFocusEvent *)
{
    update();
}

void SegmentedControl::focusOutEvent(QFocusEvent *)
{
    update();
}

void SegmentedControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    const QRectF frame = QRectF(rect()).adjusted(focusRing, focusRing, -focusRing, -focusRing);
    if (hasFocus()) {
        painter.setPen(QPen(platform::namedColor(QStringLiteral("accentColor")), focusRing));
        painter.drawRoundedRect(frame.adjusted(-0.5, -0.5, 0.5, 0.5), radius + 1, radius + 1);
    }
    painter.setPen(platform::mixed(text, 0.25, window));
    painter.setBrush(platform::mixed(text, 0.06, window));
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    for (int segment = 1; segment < segmentCount(); ++segment) {
        if (segment == m_selected || segment - 1 == m_selected)
            continue;
        const int x = m_segments[segment]->geometry().left();
        painter.drawLine(QPointF(x, frame.top() + 6), QPointF(x, frame.bottom() - 6));
    }
}

} // namespace zq
