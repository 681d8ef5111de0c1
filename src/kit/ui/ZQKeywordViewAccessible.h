#pragma once

#include <QAccessibleWidget>
#include <QHash>

class ZQKeywordView;

/// A keyword view as screen readers and the like see it: a group of check boxes, one for each
/// keyword, in the overflow menu or not. Made and owned by QAccessible when somebody asks for it.
/// Main thread.
class ZQKeywordViewAccessible : public QAccessibleWidget
{
public:
    /// From now on keyword views are known to QAccessible; further calls do nothing.
    static void install();

    explicit ZQKeywordViewAccessible(ZQKeywordView *view);
    ~ZQKeywordViewAccessible() override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

private:
    class Badge;
    ZQKeywordView *view() const;

    mutable QHash<int, QAccessible::Id> m_children; // by index, once asked for
};
