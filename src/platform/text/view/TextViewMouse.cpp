// The mouse, and the context menu.
#include "platform/Bundle.h"
#include "platform/text/TextBoundaries.h"
#include "platform/text/view/TextComposition.h"
#include "platform/text/view/TextView.h"
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputMethod>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextDocument>
#include <QToolTip>

namespace platform {

namespace {

constexpr int autoscrollInterval = 30; // milliseconds

bool isNear(QPointF one, QPointF other)
{
    return (one - other).manhattanLength() < QApplication::startDragDistance();
}

} // namespace

TextRange TextView::selectionRange(TextRange proposed, qsizetype, TextGranularity)
{
    return proposed;
}

TextRange TextView::rangeAt(QPointF point, TextGranularity granularity)
{
    if (granularity == TextGranularity::Character)
        return {indexAt(point), 0};
    const TextRange cluster = clusterAt(point);
    const qsizetype clicked = cluster.isEmpty() ? indexAt(point) : cluster.location;
    const TextRange proposed = granularity == TextGranularity::Word
                                   ? wordRange(*textStorage(), clicked)
                                   : textStorage()->lineRange({clicked, 0});
    return selectionRange(proposed, clicked, granularity);
}

bool TextView::isSelectedAt(QPointF point)
{
    const TextRange cluster = clusterAt(point);
    return !cluster.isEmpty() &&
           std::ranges::any_of(m_selections.all(), [cluster](const TextSelection &selection) {
               return selection.range().contains(cluster.location);
           });
}

void TextView::mousePressEvent(QMouseEvent *event)
{
    if (m_composition->isActive())
        QGuiApplication::inputMethod()->commit();
    const QPointF point = event->position();
    const bool isTriple = m_sinceDoubleClick.isValid() && isNear(point, m_doubleClickAt) &&
                          !m_sinceDoubleClick.hasExpired(QApplication::doubleClickInterval());
    if (event->button() == Qt::LeftButton)
        beginSelecting(*event, isTriple ? TextGranularity::Paragraph : TextGranularity::Character);
    else if (event->button() == Qt::MiddleButton)
        pastePrimarySelection(point);
    else if (event->button() == Qt::RightButton && !isSelectedAt(point))
        setSelections(TextSelection::at(indexAt(point)));
    m_sinceDoubleClick.invalidate();
}

void TextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return mousePressEvent(event);
    beginSelecting(*event, TextGranularity::Word);
    m_sinceDoubleClick.start();
    m_doubleClickAt = event->position();
}

// With Shift the main selection goes on, with Alt there is one more.
void TextView::beginSelecting(const QMouseEvent &event, TextGranularity granularity)
{
    const bool extends = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool adds = event.modifiers().testFlag(Qt::AltModifier);
    m_mouse.emplace();
    m_mouse->granularity = granularity;
    m_mouse->pressedAt = m_mouse->lastAt = event.position();
    m_mouse->start = rangeAt(event.position(), granularity);
    if (granularity == TextGranularity::Character && !extends && !adds &&
        isSelectedAt(event.position())) {
        m_mouse->mayDragText = true;
        return;
    }
    if (extends)
        m_mouse->start = {m_selections.main().anchor, 0};
    for (const TextSelection &selection : m_selections.all()) {
        const bool isRepeated = granularity != TextGranularity::Character &&
                                m_mouse->start.united(selection.range()) == m_mouse->start;
        if ((adds || extends) && !(extends && selection == m_selections.main()) && !isRepeated)
            m_mouse->others.push_back(selection);
    }
    selectTo(event.position());
}

void TextView::selectTo(QPointF point)
{
    const TextRange start = m_mouse->start;
    TextAffinity affinity = TextAffinity::Downstream;
    indexAt(point, &affinity);
    const TextRange here = rangeAt(point, m_mouse->granularity);
    TextSelection selection{start.location, qMax(start.end(), here.end())};
    if (here.location < start.location)
        selection = {start.end(), here.location};
    if (m_mouse->granularity == TextGranularity::Character)
        selection.affinity = affinity;
    std::vector<TextSelection> all = m_mouse->others;
    all.push_back(selection);
    const size_t main = all.size() - 1;
    setSelections(TextSelections(std::move(all), main));
}

void TextView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_mouse || !event->buttons().testFlag(Qt::LeftButton))
        return;
    m_mouse->lastAt = event->position();
    if (m_mouse->mayDragText) {
        if (!isNear(event->position(), m_mouse->pressedAt))
            startDrag();
        return;
    }
    if (m_mouse->granularity == TextGranularity::Word &&
        isNear(event->position(), m_mouse->pressedAt))
        return;
    selectTo(event->position());
    if (viewport()->rect().contains(event->position().toPoint()))
        m_autoscrollTimer.stop();
    else if (!m_autoscrollTimer.isActive())
        m_autoscrollTimer.start(autoscrollInterval);
}

// The further outside the mouse is, the faster.
void TextView::autoscroll()
{
    if (!m_mouse)
        return m_autoscrollTimer.stop();
    const QRectF rect = viewport()->rect();
    const QPointF at = m_mouse->lastAt;
    const QPointF inside(std::clamp(at.x(), rect.left(), rect.right()),
                         std::clamp(at.y(), rect.top(), rect.bottom()));
    scrollByPixels((at - inside) / 2);
    selectTo(at);
}

void TextView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_mouse)
        return;
    m_autoscrollTimer.stop();
    if (m_mouse->mayDragText)
        setSelections(TextSelection::at(indexAt(event->position())));
    m_mouse.reset();
}

void TextView::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillContextMenu(menu);
    const QRectF caret = caretOf(m_selections.main());
    const bool isAtCaret = event->reason() == QContextMenuEvent::Keyboard && !caret.isNull();
    menu->popup(isAtCaret ? viewport()->mapToGlobal(caret.bottomLeft().toPoint())
                          : event->globalPos());
}

void TextView::fillContextMenu(QMenu *menu)
{
    const TextUndo &history = undoHistory();
    const bool hasSelection = !m_selections.isEmpty();
    const QMimeData *clipboard = QGuiApplication::clipboard()->mimeData();
    const auto add = [&](const QString &text, QKeySequence::StandardKey key, bool isEnabled,
                         const auto &act) {
        QAction *action = menu->addAction(text, this, act);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut); // shown here, worked by the view
        action->setEnabled(isEnabled);
    };
    add(localized("Undo"), QKeySequence::Undo, m_isEditable && history.canUndo(), &TextView::undo);
    add(localized("Redo"), QKeySequence::Redo, m_isEditable && history.canRedo(), &TextView::redo);
    menu->addSeparator();
    add(localized("Cut"), QKeySequence::Cut, m_isEditable && hasSelection, &TextView::cut);
    add(localized("Copy"), QKeySequence::Copy, hasSelection, &TextView::copy);
    add(localized("Paste"), QKeySequence::Paste, m_isEditable && clipboard && clipboard->hasText(),
        &TextView::paste);
    add(localized("Delete"), QKeySequence::Delete, m_isEditable && hasSelection,
        [this] { deleteText(TextMovement::Forward); });
    menu->addSeparator();
    add(localized("Select All"), QKeySequence::SelectAll, textStorage()->length() > 0,
        &TextView::selectAll);
}

bool TextView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const TextRange cluster = clusterAt(help->pos());
    const QString tip = cluster.isEmpty() ? QString()
                                          : m_layoutManager->temporaryAttributes()
                                                .value(TextAttribute::ToolTip, cluster.location)
                                                .toString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal),
                           viewport());
    return true;
}

} // namespace platform
