#include "kit/ui/ZQToolbarItem.h"

#include "kit/ui/TargetAction.h"
#include "kit/ui/Toolbar.h"
#include "kit/ui/ZQViewExtensions.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

QList<QWidget *> viewAndSubviews(QWidget *view)
{
    return view ? QList<QWidget *>{view} + zq::allSubviewsDeep(view) : QList<QWidget *>();
}

} // namespace

ZQToolbarItem::ZQToolbarItem(const QString &itemIdentifier, QObject *parent)
    : QWidgetAction(parent), m_itemIdentifier(itemIdentifier)
{
}

zq::Toolbar *ZQToolbarItem::toolbar() const
{
    return qobject_cast<zq::Toolbar *>(parent());
}

QString ZQToolbarItem::paletteLabel() const
{
    return m_paletteLabel.isNull() ? text() : m_paletteLabel;
}

QWidget *ZQToolbarItem::view() const
{
    return m_view;
}

void ZQToolbarItem::setView(QWidget *view)
{
    const auto change = [&] {
        QWidget *frame = nullptr;
        if (view) {
            frame = new QWidget;
            auto *caption = new QLabel(text(), frame);
            caption->setAlignment(Qt::AlignHCenter);
            caption->setVisible(false);
            connect(this, &QAction::changed, caption,
                    [this, caption] { caption->setText(text()); });
            auto *layout = new QVBoxLayout(frame);
            layout->setContentsMargins(3, 2, 3, 2);
            layout->setSpacing(2);
            layout->addWidget(view, 1);
            layout->addWidget(caption);
            m_caption = caption;
        }
        setDefaultWidget(frame);
        m_view = view;
    };
    if (toolbar())
        toolbar()->replaceWidget(this, change);
    else
        change();
}

QAbstractButton *ZQToolbarItem::getButtonAndTarget(QObject **target) const
{
    // The segments of a segmented control are buttons too, but none of the item's.
    for (QWidget *each : viewAndSubviews(m_view))
        if (auto *button = qobject_cast<QAbstractButton *>(each);
            button && !zq::enclosingViewOfClass<zq::SegmentedControl>(button)) {
            findTarget(button, target);
            return button;
        }
    return nullptr;
}

zq::SegmentedControl *ZQToolbarItem::getSegmentedControlAndTarget(QObject **target) const
{
    for (QWidget *each : viewAndSubviews(m_view))
        if (auto *control = qobject_cast<zq::SegmentedControl *>(each)) {
            findTarget(control, target);
            return control;
        }
    return nullptr;
}

void ZQToolbarItem::findTarget(const QObject *control, QObject **target) const
{
    if (!target)
        return;
    *target = zq::target(control);
    if (*target || !toolbar())
        return;
    auto *delegate = dynamic_cast<QObject *>(toolbar()->delegate());
    if (zq::respondsToAction(delegate, zq::action(control)))
        *target = delegate;
}

void ZQToolbarItem::validate()
{
    QObject *target = zq::target(this);
    if (!m_view && target)
        setEnabled(
            zq::respondsToAction(target, zq::action(this)) &&
            zq::askTarget(target, QStringLiteral("validateToolbarItem"), this).value_or(true));
    if (!toolbar() || !toolbar()->delegate())
        return;
    if (const auto answer = toolbar()->delegate()->validateZQToolbarItem(this))
        setEnabled(*answer);
}

QAction *ZQToolbarItem::menuFormRepresentation()
{
    if (!m_menuForm)
        m_menuForm = new QAction(this);
    m_menuForm->setText(text());
    m_menuForm->setIcon(icon());
    QObject *target = zq::target(this);
    const QAbstractButton *button = getButtonAndTarget(&target);
    zq::setTargetAndAction(m_menuForm, target,
                           zq::action(button ? button : static_cast<QObject *>(this)));
    return m_menuForm;
}

void ZQToolbarItem::setToolbarBorderedExceptForButtonClasses(
    const QList<const QMetaObject *> &classes)
{
    QObject *target = nullptr;
    const QAbstractButton *button = getButtonAndTarget(&target);
    if (!button || zq::action(button).isEmpty())
        return;
    for (const QMetaObject *each : classes)
        if (button->metaObject()->inherits(each))
            return;
    setIcon(button->icon());
    zq::setTargetAndAction(this, target, zq::action(button));
    setView(nullptr);
    setBordered(true);
}

void ZQToolbarItem::setToolButtonStyle(Qt::ToolButtonStyle style)
{
    if (!m_view)
        return;
    m_view->setVisible(style != Qt::ToolButtonTextOnly || !m_caption || text().isEmpty());
    m_caption->setVisible(style != Qt::ToolButtonIconOnly && !text().isEmpty());
}
