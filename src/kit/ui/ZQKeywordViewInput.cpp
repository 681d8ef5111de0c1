#include "kit/ui/ZQKeywordView.h"
#include "kit/ui/ZQViewExtensions.h"

#include <algorithm>
#include <QAccessible>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

namespace {

constexpr qsizetype longestSummary = 20; // keywords

} // namespace

void ZQKeywordView::userSelectedKeyword(const QString &keyword, Qt::KeyboardModifiers modifiers)
{
    if (!isEnabled() || !m_keywords.contains(keyword))
        return;
    const bool adds =
        m_settings.allowsMultipleSelection ||
        (m_settings.requiresShiftKeyForMultipleSelection && modifiers.testFlag(Qt::ShiftModifier));
    if (isKeywordSelected(keyword)) {
        if (!mayUnselect())
            return;
        m_controller->removeSelectedObject(keyword);
        if (m_delegate)
            m_delegate->didUnselectKeyword(this, keyword);
        return;
    }
    if (adds) {
        m_controller->addSelectedObject(keyword);
    } else {
        if (m_delegate)
            m_delegate->didUnselectKeywords(this, m_controller->selectedObjects());
        m_controller->setSelectedObjects({keyword});
    }
    if (m_delegate)
        m_delegate->didSelectKeyword(this, keyword);
}

bool ZQKeywordView::mayUnselect() const
{
    return m_settings.allowsEmptySelection ||
           (m_settings.allowsMultipleSelection && m_controller->selectionIndexes().size() >= 2);
}

void ZQKeywordView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    if (chevronRect().contains(event->position()))
        return displayOverflowPopup();
    m_pressedKeyword = m_clickedKeyword = keywordAtPoint(event->position());
    if (const auto index = indexAtPoint(event->position()))
        m_focusIndex = *index;
    update();
}

void ZQKeywordView::mouseMoveEvent(QMouseEvent *event)
{
    m_mouse = event->position();
    updateHover();
    if (m_pressedKeyword.isNull())
        return;
    m_clickedKeyword =
        keywordAtPoint(event->position()) == m_pressedKeyword ? m_pressedKeyword : QString();
    update();
}

void ZQKeywordView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    m_pressedKeyword = QString();
    const QString clicked = std::exchange(m_clickedKeyword, QString());
    update();
    if (!clicked.isNull())
        userSelectedKeyword(clicked, event->modifiers());
}

void ZQKeywordView::leaveEvent(QEvent *)
{
    m_mouse.reset();
    updateHover();
}

void ZQKeywordView::updateHover()
{
    const QString keyword = m_mouse && isEnabled() ? keywordAtPoint(*m_mouse) : QString();
    if (std::exchange(m_keywordUnderMouse, keyword) != keyword)
        update();
}

bool ZQKeywordView::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const auto index = indexAtPoint(help->pos());
    const QRectF place = index ? rectForKeywordAtIndex(*index) : chevronRect();
    QString text;
    if (index)
        text = tooltipForKeyword(m_keywords.at(*index));
    else if (place.contains(help->pos()))
        text = overflowSummary();
    QToolTip::showText(help->globalPos(), zq::plainToolTip(text), this, place.toAlignedRect());
    return true;
}

// The selected ones first: in a disabled view nothing else tells of them.
QString ZQKeywordView::overflowSummary()
{
    QStringList hidden = overflowKeywords();
    std::stable_partition(hidden.begin(), hidden.end(),
                          [this](const QString &each) { return isKeywordSelected(each); });
    QStringList lines;
    for (const QString &keyword : hidden.first(qMin(hidden.size(), longestSummary)))
        lines << (isKeywordSelected(keyword) ? QStringLiteral("✓ ") : QString()) +
                     m_badges.text(keyword);
    if (hidden.size() > lines.size())
        lines << QStringLiteral("…");
    return lines.join(u'\n');
}

void ZQKeywordView::displayOverflowPopup()
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setFont(zq::KeywordBadges::labelFont());
    menu->setToolTipsVisible(true);
    for (const QString &keyword : overflowKeywords()) {
        QAction *item = menu->addAction(zq::withoutMnemonic(m_badges.text(keyword)));
        item->setToolTip(zq::plainToolTip(tooltipForKeyword(keyword)));
        item->setCheckable(true);
        item->setChecked(isKeywordSelected(keyword));
        connect(item, &QAction::triggered, this, [this, keyword] {
            userSelectedKeyword(keyword, QGuiApplication::keyboardModifiers());
        });
    }
    menu->popup(mapToGlobal(chevronRect().bottomLeft().toPoint()));
}

qsizetype ZQKeywordView::focusIndex() const
{
    const qsizetype last = qMin(drawableCount(), m_keywords.size() - 1);
    return qBound(qsizetype(0), m_focusIndex, qMax(qsizetype(0), last));
}

void ZQKeywordView::moveFocus(qsizetype index)
{
    m_showsFocusRing = true;
    m_focusIndex = qMax(qsizetype(0), index);
    m_focusIndex = focusIndex();
    update();
    if (m_keywords.isEmpty())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(int(m_focusIndex));
    QAccessible::updateAccessibility(&event);
}

void ZQKeywordView::pressFocused(Qt::KeyboardModifiers modifiers)
{
    const qsizetype index = focusIndex();
    if (index < drawableCount())
        userSelectedKeyword(m_keywords.at(index), modifiers);
    else if (!chevronRect().isEmpty())
        displayOverflowPopup();
}

void ZQKeywordView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return moveFocus(focusIndex() - 1);
    case Qt::Key_Right:
        return moveFocus(focusIndex() + 1);
    case Qt::Key_Home:
        return moveFocus(0);
    case Qt::Key_End:
        return moveFocus(m_keywords.size());
    case Qt::Key_Space:
        return pressFocused(event->modifiers());
    case Qt::Key_Down:
        if (!chevronRect().isEmpty())
            return displayOverflowPopup();
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void ZQKeywordView::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::MouseFocusReason)
        m_showsFocusRing = false;
    else if (event->reason() != Qt::PopupFocusReason)
        moveFocus(focusIndex());
    update();
}

void ZQKeywordView::focusOutEvent(QFocusEvent *)
{
    update();
}
