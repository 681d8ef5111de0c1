#include "kit/ui/ZQKeywordViewAccessible.h"

#include "kit/ui/ZQKeywordView.h"

namespace {

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<ZQKeywordView *>(object);
    return view ? new ZQKeywordViewAccessible(view) : nullptr;
}

} // namespace

/// One keyword, by its place in the list.
class ZQKeywordViewAccessible::Badge : public QAccessibleInterface,
                                       public QAccessibleActionInterface
{
public:
    Badge(ZQKeywordView *view, int index) : m_view(view), m_index(index) {}

    bool isValid() const override { return m_view && m_index < m_view->keywords().size(); }
    QObject *object() const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::CheckBox; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    QString text(QAccessible::Text what) const override
    {
        if (what == QAccessible::Name)
            return m_view->textForKeyword(keyword());
        return what == QAccessible::Description ? m_view->tooltipForKeyword(keyword()) : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}

    QRect rect() const override
    {
        if (!m_view->canDrawKeywordAtIndex(m_index))
            return {};
        const QRect place = m_view->rectForKeywordAtIndex(m_index).toAlignedRect();
        return {m_view->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.checkable = true;
        state.checked = m_view->isKeywordSelected(keyword());
        state.disabled = !m_view->isEnabled();
        state.focusable = m_view->isEnabled();
        state.focused = m_view->hasFocus() && m_view->focusIndex() == m_index;
        state.offscreen = !m_view->canDrawKeywordAtIndex(m_index);
        state.invisible = !m_view->isVisible();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }
    QStringList actionNames() const override { return {toggleAction()}; }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == toggleAction())
            m_view->userSelectedKeyword(keyword());
    }

private:
    QString keyword() const { return m_view->keywords().value(m_index); }

    QPointer<ZQKeywordView> m_view;
    int m_index;
};

void ZQKeywordViewAccessible::install()
{
    static const bool once = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(once)
}

ZQKeywordViewAccessible::ZQKeywordViewAccessible(ZQKeywordView *view)
    : QAccessibleWidget(view, QAccessible::Grouping)
{
}

ZQKeywordViewAccessible::~ZQKeywordViewAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

ZQKeywordView *ZQKeywordViewAccessible::view() const
{
    return static_cast<ZQKeywordView *>(widget());
}

int ZQKeywordViewAccessible::childCount() const
{
    return int(view()->keywords().size());
}

QAccessibleInterface *ZQKeywordViewAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    auto found = m_children.constFind(index);
    if (found == m_children.constEnd())
        found = m_children.insert(
            index, QAccessible::registerAccessibleInterface(new Badge(view(), index)));
    return QAccessible::accessibleInterface(*found);
}

int ZQKeywordViewAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return m_children.key(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)), -1);
}

QAccessibleInterface *ZQKeywordViewAccessible::childAt(int x, int y) const
{
    const auto index = view()->indexAtPoint(view()->mapFromGlobal(QPoint(x, y)));
    return index ? child(int(*index)) : nullptr;
}

QAccessibleInterface *ZQKeywordViewAccessible::focusChild() const
{
    return view()->hasFocus() ? child(int(view()->focusIndex())) : nullptr;
}
