// How the gutter looks.
#include "editor/MGSChangedLines.h"
#include "editor/MGSFolding.h"
#include "editor/MGSLineNumberView.h"
#include "platform/Appearance.h"

#include <cmath>
#include <QPainter>
#include <QPainterPath>
#include <QPaintEvent>

namespace {

constexpr qreal dividerDarkening = 0.3933333333333333;
constexpr qreal changeBarWidth = 3;
constexpr qreal markerSlant = 2.6; // the tip of a marker is the height by this long

/// An arrow-shaped tag that points to the right.
QPainterPath markerShape(const QRectF &rect)
{
    const QRectF tag = rect.adjusted(0, 0, 0, -1);
    const qreal shoulder = tag.right() - rect.height() / markerSlant;
    QPainterPath shape(tag.topLeft());
    shape.lineTo(shoulder, tag.top());
    shape.lineTo(tag.right(), tag.center().y());
    shape.lineTo(shoulder, tag.bottom());
    shape.lineTo(tag.bottomLeft());
    shape.closeSubpath();
    return shape;
}

} // namespace

void MGSLineNumberView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setClipRect(event->rect());
    drawBackground(&painter);
    const qsizetype rows = lineCount();
    for (qsizetype row = lineNumberForLocation(event->rect().top()); row < rows;
         row = m_textView->lineAfter(row)) {
        const QRectF rect = wholeLineRectForLine(row);
        if (rect.isNull() || rect.top() > event->rect().bottom())
            break;
        drawRow(&painter, row, rect);
    }
}

void MGSLineNumberView::drawBackground(QPainter *painter) const
{
    painter->fillRect(rect(), m_backgroundColor);
    const QColor line = platform::mixed(m_backgroundColor, 0.5, m_textView->backgroundColor());
    const QLineF divider(width() - 0.5, 0, width() - 0.5, height());
    painter->setPen(QPen(line, 1, Qt::SolidLine, Qt::FlatCap));
    painter->drawLine(divider);

    QPen dashes(platform::mixed(Qt::black, dividerDarkening, line), 1, Qt::CustomDashLine,
                Qt::FlatCap);
    dashes.setDashPattern({1, 2});
    const platform::ScrollPosition scrolled = m_textView->scrollPosition();
    const qreal rowHeight = m_textView->layoutManager()->style().rowHeight;
    dashes.setDashOffset(std::fmod(qreal(scrolled.line) * rowHeight + scrolled.above, 3));
    painter->setPen(dashes);
    painter->drawLine(divider);
}

void MGSLineNumberView::drawRow(QPainter *painter, qsizetype row, const QRectF &rect)
{
    QColor colour = m_textColor;
    if (const auto marker = m_breakpointData.constFind(row + 1);
        marker != m_breakpointData.cend()) {
        drawMarker(painter, rect, *marker);
        colour = platform::mixed(Qt::white, marker->alphaF(), colour);
    }
    if (m_showsLineNumbers)
        drawLineNumber(painter, row, rect, colour);
    drawFoldMark(painter, row);
    if (m_changedLines && m_changedLines->isChanged(row))
        drawChangeBar(painter, row);
    const QRectF decoration = decorationRectOfLine(row);
    if (!decoration.isNull()) {
        const QRect place = decoration.toRect();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawPixmap(place,
                            m_decorations[row + 1].pixmap(place.size(), devicePixelRatioF()));
    }
}

// Points down at what can be folded, to the right at what is.
void MGSLineNumberView::drawFoldMark(QPainter *painter, qsizetype row) const
{
    const QRectF place = foldRectOfLine(row);
    if (place.isNull())
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(place.center());
    painter->rotate(m_folding->isFolded(row) ? -90 : 0);
    painter->setPen(QPen(m_textColor, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF({{-3.5, -1.75}, {0, 1.75}, {3.5, -1.75}}));
    painter->restore();
}

// Beside all rows of a wrapped line.
void MGSLineNumberView::drawChangeBar(QPainter *painter, qsizetype row) const
{
    const QRectF line = m_textView->rectOfLine(row);
    const qreal top = line.top() + m_textView->viewport()->y() - y();
    const QRectF bar(width() - changeBarWidth, top, changeBarWidth, line.height());
    painter->fillRect(bar, palette().color(QPalette::Link));
}

void MGSLineNumberView::drawMarker(QPainter *painter, const QRectF &rect, const QColor &colour)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(markerShape(rect), colour);
    painter->restore();
}

void MGSLineNumberView::drawLineNumber(QPainter *painter, qsizetype row, const QRectF &rect,
                                       const QColor &colour) const
{
    const QFontMetricsF metrics(font());
    const QString number = QString::number(m_startingLineNumber + row);
    const qreal baseline = rect.top() + m_textView->layoutManager()->style().baseline;
    painter->setFont(font());
    painter->setPen(colour);
    painter->drawText(
        QPointF(width() - numberMargin - foldColumnWidth() - metrics.horizontalAdvance(number),
                baseline),
        number);
}
