// Painting, colours and what is to be painted again.
#include "platform/Appearance.h"
#include "platform/text/view/TextComposition.h"
#include "platform/text/view/TextView.h"
#include <QApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace platform {

namespace {

constexpr qreal selectionStrength = 0.32; // of the palette's link colour over the background
constexpr qreal inactiveSelectionStrength = 0.16; // of the text's colour

QColor orElse(const QColor &color, const QColor &other)
{
    return color.isValid() ? color : other;
}

} // namespace

void TextView::setTextColor(const QColor &color)
{
    m_textColor = color;
    viewport()->update();
}

QColor TextView::textColor() const
{
    return orElse(m_textColor, palette().color(QPalette::Text));
}

void TextView::setBackgroundColor(const QColor &color)
{
    m_backgroundColor = color;
    viewport()->update();
}

QColor TextView::backgroundColor() const
{
    return orElse(m_backgroundColor, palette().color(QPalette::Base));
}

void TextView::setInsertionPointColor(const QColor &color)
{
    m_insertionPointColor = color;
    viewport()->update();
}

QColor TextView::insertionPointColor() const
{
    return orElse(m_insertionPointColor, textColor());
}

QColor TextView::selectionColor() const
{
    if (!hasFocus())
        return mixed(textColor(), inactiveSelectionStrength, backgroundColor());
    return mixed(palette().color(QPalette::Link), selectionStrength, backgroundColor());
}

void TextView::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    viewport()->update();
}

template <class Function>
void TextView::forEachLine(qreal from, qreal to, Function function)
{
    const qsizetype count = textStorage()->lineCount();
    qreal top = -scrollPosition().above;
    for (qsizetype line = scrollPosition().line; line < count && top < to; line = lineAfter(line)) {
        const qreal bottom = top + heightOfLine(line);
        if (bottom > from)
            function(line, top);
        top = bottom;
    }
}

void TextView::paintEvent(QPaintEvent *event)
{
    const QRectF dirty = event->region().boundingRect();
    const QScopedValueRollback painting(m_painted, event->region());
    viewWillDraw(dirty);
    announceText(dirty);
    QPainter painter(viewport());
    drawViewBackground(&painter, dirty);
    drawLineBackgrounds(&painter, event->region());
    drawBehindText(&painter, dirty);
    drawSelections(&painter, dirty);
    drawLines(&painter, event->region());
    drawCarets(&painter);
    drawOverText(&painter, dirty);

    m_shownHeights.clear();
    forEachLine(0, viewport()->height(),
                [this](qsizetype line, qreal) { m_shownHeights[line] = heightOfLine(line); });
    m_shownTop = scrollPosition().above > 0 ? indexAt({0, 0}) : 0;
    const qreal width = m_scroller.width();
    noteWidths();
    if (m_scroller.width() > width)
        QMetaObject::invokeMethod(this, &TextView::updateScrollBars, Qt::QueuedConnection);
}

// In as few stretches as there are gaps between what is to be painted.
void TextView::announceText(const QRectF &dirty)
{
    std::vector<TextRange> stretches;
    forEachLine(dirty.top(), dirty.bottom(), [&](qsizetype line, qreal) {
        const TextRange part = charactersIn(line, dirty);
        if (!stretches.empty() && stretches.back().end() == part.location)
            stretches.back() = stretches.back().united(part);
        else
            stretches.push_back(part);
    });
    for (const TextRange stretch : stretches)
        willDrawText(stretch);
}

void TextView::drawViewBackground(QPainter *painter, const QRectF &dirty)
{
    painter->fillRect(dirty, backgroundColor());
}

void TextView::drawLineBackgrounds(QPainter *painter, const QRegion &region)
{
    const QRectF dirty = region.boundingRect();
    forEachLine(dirty.top(), dirty.bottom(), [&](qsizetype line, qreal top) {
        const QRectF rect(0, top, viewport()->width(), heightOfLine(line));
        if (region.intersects(rect.toAlignedRect()))
            m_layoutManager->drawLineBackground(painter, line, originOfLine(top),
                                                dirty.intersected(rect));
    });
}

// From the start of the first to the end of the last.
TextRange TextView::linesInSight() const
{
    const qsizetype last = lineAtY(m_scroller.size().height());
    return TextRange::between(textStorage()->lineStart(scrollPosition().line),
                              textStorage()->lineContents(last).end());
}

std::span<const TextSelection> TextView::selectionsInSight() const
{
    const std::vector<TextSelection> &all = m_selections.all();
    const TextRange seen = linesInSight();
    const auto first = std::ranges::lower_bound(
        all, seen.location, {}, [](const auto &selection) { return selection.range().end(); });
    const auto last =
        std::ranges::upper_bound(first, all.end(), seen.end(), {},
                                 [](const auto &selection) { return selection.range().location; });
    return {first, last};
}

void TextView::drawSelections(QPainter *painter, const QRectF &dirty)
{
    const QColor color = selectionColor();
    for (const TextSelection &selection : selectionsInSight()) {
        const TextRange range = selection.range();
        if (range.isEmpty())
            continue;
        forEachLine(dirty.top(), dirty.bottom(), [&](qsizetype number, qreal top) {
            const TextRange contents = textStorage()->lineContents(number);
            if (range.location > contents.end() || range.end() < contents.location)
                return;
            LineLayout &line = m_layoutManager->line(number);
            const QPointF origin = originOfLine(top);
            const TextRange part = contents.intersected(range).movedBy(-contents.location);
            for (const QRectF &rect : line.rectsOf(part, dirty.translated(-origin)))
                painter->fillRect(rect.translated(origin), color);
            if (range.end() > contents.end()) { // the line end is selected too
                QRectF end = line.caretRect(contents.length);
                end.setWidth(m_layoutManager->style().characterWidth / 2);
                painter->fillRect(end.translated(origin), color);
            }
        });
    }
}

void TextView::drawLines(QPainter *painter, const QRegion &region)
{
    const QRectF dirty = region.boundingRect();
    const qsizetype caret = m_selections.main().caret;
    const qsizetype composed = m_composition->isActive() ? textStorage()->lineAt(caret) : -1;
    painter->setPen(textColor());
    forEachLine(dirty.top(), dirty.bottom(), [&](qsizetype line, qreal top) {
        const QRectF rect(0, top, viewport()->width(), heightOfLine(line));
        if (!region.intersects(rect.toAlignedRect()))
            return;
        if (line == composed) {
            m_composition->lineAt(caret).drawBackground(painter, originOfLine(top), dirty);
            m_composition->lineAt(caret).draw(painter, originOfLine(top), dirty);
        } else {
            m_layoutManager->drawLine(painter, line, originOfLine(top), dirty);
        }
    });
}

QRectF TextView::caretOf(const TextSelection &selection)
{
    QRectF rect = caretRect(selection.caret, selection.affinity);
    if (m_composition->isActive() && selection == m_selections.main() && !rect.isNull()) {
        const qsizetype line = textStorage()->lineAt(selection.caret);
        rect = m_composition->caretRect(selection.caret)
                   .translated(originOfLine(m_scroller.topOfLine(line).value_or(0)));
    }
    if (rect.height() == 0)
        return {};
    const int width = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    return {std::floor(rect.x()), rect.y(), qreal(qMax(1, width)), rect.height()};
}

void TextView::drawCarets(QPainter *painter)
{
    for (const TextSelection &selection : selectionsInSight()) {
        if (m_showsCarets && (!m_composition->isActive() || m_composition->showsCaret()))
            painter->fillRect(caretOf(selection), insertionPointColor());
    }
    if (m_dropIndex != NotFound)
        painter->fillRect(caretOf(TextSelection::at(m_dropIndex)), insertionPointColor());
}

void TextView::updateCarets()
{
    for (const TextSelection &selection : selectionsInSight())
        viewport()->update(caretOf(selection).toAlignedRect());
}

// While painting, what is being painted is up to date already.
void TextView::updateLines(TextRange range)
{
    const qsizetype length = textStorage()->length();
    const qsizetype first = textStorage()->lineAt(qMin(range.location, length));
    const qsizetype last = textStorage()->lineAt(qMin(range.end(), length));
    QRectF band;
    forEachLine(0, m_scroller.size().height(), [&](qsizetype line, qreal top) {
        if (line >= first && line <= last)
            band |= QRectF(0, top, viewport()->width(), heightOfLine(line));
    });
    const QRegion wanted = QRegion(band.toAlignedRect()).subtracted(m_painted);
    if (!wanted.isEmpty())
        viewport()->update(wanted);
}

void TextView::updateFrom(qreal top)
{
    const QRectF rect(0, top, viewport()->width(), viewport()->height() - top);
    viewport()->update(rect.toAlignedRect());
    if (m_ruler)
        m_ruler->update();
}

void TextView::updateSelectionsInSight()
{
    for (const TextSelection &selection : selectionsInSight())
        updateLines(selection.range());
}

void TextView::updateSelections(const TextSelections &before)
{
    const auto &old = before.all();
    const auto &now = m_selections.all();
    if (old.size() != now.size()) {
        const TextRange seen = linesInSight();
        for (const auto *all : {&old, &now}) {
            for (const TextSelection &selection : *all) {
                if (selection.range().location <= seen.end() &&
                    selection.range().end() >= seen.location)
                    updateLines(selection.range());
            }
        }
        return;
    }
    for (size_t i = 0; i < old.size(); ++i) {
        if (old[i].anchor == now[i].anchor) {
            updateLines(TextSelection{old[i].caret, now[i].caret}.range());
        } else if (old[i] != now[i]) {
            updateLines(old[i].range());
            updateLines(now[i].range());
        }
    }
}

void TextView::restartBlinking()
{
    const int period = QApplication::cursorFlashTime();
    m_showsCarets = hasFocus();
    if (m_showsCarets && period > 1)
        m_blinkTimer.start(period / 2);
    else
        m_blinkTimer.stop();
    updateCarets();
}

void TextView::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    restartBlinking();
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    restartBlinking();
    viewport()->update();
}

} // namespace platform
