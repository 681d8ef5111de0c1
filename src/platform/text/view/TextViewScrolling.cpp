// Geometry, scrolling and zoom.
#include "platform/text/TextBoundaries.h"
#include "platform/text/view/FindIndicator.h"
#include "platform/text/view/TextComposition.h"
#include "platform/text/view/TextView.h"
#include <cmath>
#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

namespace platform {

namespace {

constexpr qsizetype longLine = 4096; // units; of a longer one only what is in sight is spoken of
} // namespace

qreal TextView::heightOfLine(qsizetype line) const
{
    const qsizetype caret = qMin(m_selections.main().caret, textStorage()->length());
    if (m_composition->isActive() && line == textStorage()->lineAt(caret))
        return m_composition->lineAt(caret).height();
    return m_layoutManager->heightOfLine(line);
}

QPointF TextView::originOfLine(qreal top) const
{
    return {textInset - scrollPosition().left, top};
}

QRectF TextView::rectOfLine(qsizetype line)
{
    const std::optional<qreal> top = m_scroller.topOfLine(line);
    return top ? QRectF(0, *top, viewport()->width(), heightOfLine(line)) : QRectF();
}

QRectF TextView::caretRect(qsizetype index, TextAffinity affinity)
{
    const auto place = navigator().placeOf(index);
    const std::optional<qreal> top = m_scroller.topOfLine(place.line);
    if (!top)
        return {};
    const QRectF rect = m_layoutManager->line(place.line).caretRect(place.offset, affinity);
    return rect.translated(originOfLine(*top));
}

std::vector<QRectF> TextView::rectsOf(TextRange range)
{
    std::vector<QRectF> rects;
    const QRectF clip = viewport()->rect();
    const qsizetype last = qMin(textStorage()->lineAt(range.end()), lineAtY(clip.bottom()));
    for (qsizetype line =
             lineAfter(qMax(scrollPosition().line, textStorage()->lineAt(range.location)) - 1);
         line <= last; line = lineAfter(line)) {
        const TextRange contents = textStorage()->lineContents(line);
        const TextRange part = contents.intersected(range).movedBy(-contents.location);
        const QPointF origin = originOfLine(m_scroller.topOfLine(line).value_or(0));
        for (const QRectF &rect :
             m_layoutManager->line(line).rectsOf(part, clip.translated(-origin)))
            rects.push_back(rect.translated(origin));
    }
    return rects;
}

qsizetype TextView::indexAt(QPointF point, TextAffinity *affinity)
{
    const qsizetype line = lineAtY(point.y());
    const qreal top = m_scroller.topOfLine(line).value_or(0);
    const qsizetype offset =
        m_layoutManager->line(line).offsetAt(point - originOfLine(top), affinity);
    return startOfCluster(*textStorage(), textStorage()->lineStart(line) + offset);
}

TextRange TextView::clusterAt(QPointF point)
{
    const qsizetype line = lineAtY(point.y());
    const QPointF within = point - originOfLine(m_scroller.topOfLine(line).value_or(0));
    TextRange cluster = m_layoutManager->line(line).clusterAt(within);
    if (within.y() >= heightOfLine(line))
        cluster = {m_layoutManager->line(line).length(), 0};
    return cluster.movedBy(textStorage()->lineStart(line));
}

// Of a very long line only what lies in the rectangle, give or take a character.
TextRange TextView::charactersIn(qsizetype line, const QRectF &rect)
{
    const TextRange whole = textStorage()->lineRange({textStorage()->lineStart(line), 0});
    if (whole.length <= longLine)
        return whole;
    LineLayout &layout = m_layoutManager->line(line);
    const QRectF within = rect.translated(-originOfLine(m_scroller.topOfLine(line).value_or(0)));
    const bool isWrapped = m_layoutManager->style().wrapWidth > 0;
    const qsizetype first = layout.offsetAt({isWrapped ? 0 : within.left(), within.top()});
    const qsizetype last = layout.offsetAt(
        {isWrapped ? m_layoutManager->style().wrapWidth : within.right(), within.bottom()});
    return TextRange::between(previousCluster(*textStorage(), whole.location + first),
                              nextCluster(*textStorage(), whole.location + qMax(first, last)));
}

qsizetype TextView::lineAfter(qsizetype line) const
{
    return m_layoutManager->hiddenLines().shownAtOrAfter(line + 1);
}

qsizetype TextView::rowsOfPage() const
{
    const qreal rows = m_scroller.size().height() / m_layoutManager->style().rowHeight;
    return qMax<qsizetype>(1, qsizetype(rows) - 1);
}

void TextView::setScrollPosition(const ScrollPosition &position)
{
    m_scroller.setPosition(position);
    scrollPositionMayHaveChanged();
}

void TextView::scrollByPixels(QPointF delta)
{
    m_scroller.scrollBy(delta);
    scrollPositionMayHaveChanged();
}

void TextView::scrollPositionMayHaveChanged()
{
    if (std::exchange(m_shownPosition, scrollPosition()) != scrollPosition()) {
        delete m_findIndicator;
        updateFrom(0);
        updateMicroFocus();
        Q_EMIT scrollPositionDidChange();
    }
    updateScrollBars();
}

void TextView::revealInLine(qsizetype line, const QRectF &rect)
{
    const QRectF withInset = rect.translated(textInset, 0).adjusted(-textInset, 0, textInset, 0);
    m_scroller.noteWidth(withInset.right());
    m_scroller.reveal(line, withInset);
}

void TextView::scrollToCaret()
{
    const TextSelection &main = m_selections.main();
    const auto place = navigator().placeOf(main.caret);
    // A long line may turn out larger where it comes into sight.
    for (int i = 0; i < 2; ++i) {
        const QRectF rect =
            m_composition->isActive()
                ? m_composition->caretRect(main.caret)
                : m_layoutManager->line(place.line).caretRect(place.offset, main.affinity);
        revealInLine(place.line, rect);
    }
    scrollPositionMayHaveChanged();
}

void TextView::noteWidths()
{
    if (m_layoutManager->style().wrapWidth > 0)
        return m_scroller.noteWidth(m_layoutManager->style().wrapWidth + 2 * textInset);
    const qsizetype last = lineAtY(m_scroller.size().height());
    for (qsizetype line = scrollPosition().line; line <= last; line = lineAfter(line))
        m_scroller.noteWidth(m_layoutManager->line(line).width() + 2 * textInset);
}

// Before an edit there: if that is the widest line, another one may be after it.
void TextView::forgetWidthOf(TextRange range)
{
    const qsizetype line = textStorage()->lineAt(range.location);
    if (m_layoutManager->style().wrapWidth <= 0 && m_scroller.topOfLine(line) &&
        m_layoutManager->line(line).width() + 2 * textInset >= m_scroller.width())
        m_widestMayBeGone = true;
}

// Units of the vertical bar: pixels if lines are not wrapped and not too many.
int TextView::barStepsOfLine() const
{
    constexpr qsizetype highest = 1 << 30;
    const bool isWrapped = m_layoutManager->style().wrapWidth > 0;
    const auto wanted = isWrapped ? 1 << 20 : int(m_layoutManager->style().rowHeight);
    return int(std::clamp<qsizetype>(highest / textStorage()->lineCount(), 1, wanted));
}

int TextView::barValue(const ScrollPosition &position) const
{
    const int steps = barStepsOfLine();
    const qreal part = qMin(1.0, position.above / heightOfLine(position.line));
    return int(position.line * steps + qsizetype(part * (steps - (part == 1 ? 0 : 1e-6))));
}

void TextView::updateScrollBars()
{
    const QScopedValueRollback updating(m_updatesBars, true);
    noteWidths();
    const QSizeF size = m_scroller.size();
    const int value = barValue(scrollPosition());
    const qsizetype last = lineAtY(size.height());
    const qreal top = m_scroller.topOfLine(last).value_or(0);
    const qreal below = qMax<qreal>(0, size.height() - top);
    const int bottom = barValue({last, qMin(below, heightOfLine(last)), 0});
    QScrollBar *vertical = verticalScrollBar();
    vertical->setRange(0, barValue(m_scroller.end()));
    vertical->setPageStep(qMax(1, bottom - value));
    vertical->setSingleStep(barStepsOfLine());
    vertical->setValue(value);
    QScrollBar *horizontal = horizontalScrollBar();
    horizontal->setRange(0, int(qMax<qreal>(0, m_scroller.width() - size.width())));
    horizontal->setPageStep(int(size.width()));
    horizontal->setSingleStep(int(m_layoutManager->style().characterWidth));
    horizontal->setValue(int(scrollPosition().left));
}

// By the user, with the bars.
void TextView::scrollContentsBy(int, int)
{
    if (m_updatesBars)
        return;
    const int value = verticalScrollBar()->value();
    const int steps = barStepsOfLine();
    const qsizetype line = qMin<qsizetype>(value / steps, textStorage()->lineCount() - 1);
    ScrollPosition position{line, heightOfLine(line) * (value % steps) / steps, 0};
    if (value == barValue(scrollPosition()))
        position = scrollPosition();
    else if (value == verticalScrollBar()->maximum())
        position = m_scroller.end();
    position.left = horizontalScrollBar()->value();
    setScrollPosition(position);
}

void TextView::verticalBarActed(int action)
{
    const qreal row = m_layoutManager->style().rowHeight;
    const qreal page = qreal(rowsOfPage()) * row;
    if (action == QAbstractSlider::SliderSingleStepAdd)
        scrollByPixels({0, row});
    else if (action == QAbstractSlider::SliderSingleStepSub)
        scrollByPixels({0, -row});
    else if (action == QAbstractSlider::SliderPageStepAdd)
        scrollByPixels({0, page});
    else if (action == QAbstractSlider::SliderPageStepSub)
        scrollByPixels({0, -page});
}

void TextView::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (const int steps = m_zoom.stepsOfWheel(event->angleDelta().y()))
            zoom(steps);
        return;
    }
    const qreal row = m_layoutManager->style().rowHeight;
    QPointF delta = event->pixelDelta();
    if (delta.isNull())
        delta = QPointF(event->angleDelta()) * row * QApplication::wheelScrollLines() /
                QWheelEvent::DefaultDeltasPerStep;
    if (event->modifiers().testFlag(Qt::ShiftModifier) && delta.x() == 0)
        delta = delta.transposed();
    m_wheelRest -= delta;
    const QPointF whole(std::trunc(m_wheelRest.x()), std::trunc(m_wheelRest.y()));
    m_wheelRest -= whole;
    const ScrollPosition before = scrollPosition();
    scrollByPixels(whole);
    if (scrollPosition() == before && event->phase() == Qt::NoScrollPhase)
        m_wheelRest = {};
}

void TextView::zoom(int steps)
{
    m_zoom.zoom(steps);
    m_layoutManager->setFont(m_zoom.font());
}

bool TextView::isCaretInSight()
{
    const TextSelection &main = m_selections.main();
    const QRectF caret = caretRect(main.caret, main.affinity);
    return !caret.isNull() && QRectF({}, m_scroller.size()).contains(caret.center());
}

// The place that is being worked on stays in sight.
void TextView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    placeRuler();
    const bool caretWasInSight = isCaretInSight();
    m_scroller.setSize(viewport()->size());
    noteWidths();
    Q_EMIT frameDidChange();
    setScrollPosition(scrollPosition());
    if (caretWasInSight)
        scrollToCaret();
}

void TextView::setRuler(QWidget *ruler)
{
    delete m_ruler;
    m_ruler = ruler;
    if (ruler) {
        ruler->setParent(this);
        ruler->show();
    }
    updateRulerWidth();
}

void TextView::updateRulerWidth()
{
    const int width = m_ruler && !m_ruler->isHidden() ? m_ruler->sizeHint().width() : 0;
    if (width != viewportMargins().left())
        setViewportMargins(width, 0, 0, 0);
    placeRuler();
}

void TextView::placeRuler()
{
    const int width = viewportMargins().left();
    if (m_ruler)
        m_ruler->setGeometry(viewport()->x() - width, viewport()->y(), width, viewport()->height());
}

void TextView::showFindIndicatorForRange(TextRange range)
{
    delete m_findIndicator;
    const std::vector<QRectF> rects = rectsOf(range);
    if (!rects.empty())
        m_findIndicator = new FindIndicator(QList<QRectF>(rects.begin(), rects.end()), viewport());
}

} // namespace platform
