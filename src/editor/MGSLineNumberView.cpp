#include "editor/MGSLineNumberView.h"

#include "editor/MGSBreakpointDelegate.h"
#include "editor/MGSChangedLines.h"
#include "editor/MGSFolding.h"
#include "editor/MGSFont.h"
#include "editor/MGSTextStorageExtensions.h"
#include "platform/Assert.h"

#include <cmath>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFontInfo>
#include <QMenu>

using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;

namespace {

constexpr qreal greatestMinimumWidth = 400;
constexpr qreal foldMarkWidth = 12;
constexpr QSize largestDecoration(256, 256); // asked for to learn a picture's proportions

QColor defaultBreakpointColour()
{
    return QColor::fromRgbF(1.0F, 0.5F, 1.0F);
}

} // namespace

MGSLineNumberView::MGSLineNumberView(platform::TextView *textView, MGSFragariaView *fragaria)
    : m_textView(textView), m_fragaria(fragaria)
{
    setObjectName(QStringLiteral("MGSLineNumberView"));
    setCursor(Qt::ArrowCursor);
    m_textView->setRuler(this);
    setFont(mgs_defaultFont());
    const auto redisplay = [this] {
        update();
    };
    connect(m_textView, &platform::TextView::scrollPositionDidChange, this, redisplay);
    connect(m_textView, &platform::TextView::frameDidChange, this, redisplay, Qt::QueuedConnection);
    connect(m_textView->layoutManager(), &platform::LayoutManager::layoutDidChange, this,
            redisplay);
    connect(m_textView->layoutManager(), &platform::LayoutManager::didProcessEditing, this,
            &MGSLineNumberView::textStorageDidProcessEditing);
    layoutManagerDidChangeTextStorage();
}

void MGSLineNumberView::layoutManagerWillChangeTextStorage()
{
    if (m_changedLines)
        m_changedLines->disconnect(this);
}

void MGSLineNumberView::layoutManagerDidChangeTextStorage()
{
    m_lastLineCount = lineCount();
    setMarksChangedLines(m_marksChangedLines);
    updateThickness();
}

void MGSLineNumberView::textStorageDidProcessEditing(TextRange range, qsizetype changeInLength)
{
    const qsizetype delta = lineCount() - m_lastLineCount;
    m_lastLineCount = lineCount();
    if (m_breakpointDelegate && changeInLength != 0 && delta != 0) {
        const TextStorage &text = *m_textView->textStorage();
        const qsizetype end = qMin(range.end(), text.length());
        const qsizetype first = text.lineAt(qMin(range.location, end));
        const qsizetype count = range.isEmpty() ? 1 : text.lineAt(end) - first + 1;
        m_breakpointDelegate->fixBreakpointsOfAddedLines(delta, {first + 1, count}, m_fragaria);
        reloadBreakpointData();
    }
    if (delta != 0)
        updateThickness();
    else if (m_changedLines)
        updateLines(range);
}

// When lines change their height the text view has all of the gutter painted.
void MGSLineNumberView::updateLines(TextRange range)
{
    const TextStorage &text = *m_textView->textStorage();
    const QRectF first = m_textView->rectOfLine(text.lineAt(range.location));
    const QRectF last = m_textView->rectOfLine(text.lineAt(range.end()));
    if (first.isNull() || last.isNull())
        return update();
    const QRectF lines(0, first.top() + m_textView->viewport()->y() - y(), width(),
                       last.bottom() - first.top());
    update(lines.toAlignedRect());
}

void MGSLineNumberView::setBreakpointDelegate(MGSBreakpointDelegate *delegate)
{
    m_breakpointDelegate = delegate;
    reloadBreakpointData();
}

void MGSLineNumberView::reloadBreakpointData()
{
    m_breakpointData.clear();
    update();
    if (!m_breakpointDelegate)
        return;
    if (const auto coloured = m_breakpointDelegate->colouredBreakpointsForFragaria(m_fragaria)) {
        m_breakpointData = *coloured;
        return;
    }
    const auto lines = m_breakpointDelegate->breakpointsForFragaria(m_fragaria);
    if (!lines)
        throw platform::Exception(
            QStringLiteral("MGSBrokenBreakpointDelegate"),
            platform::format(
                QStringLiteral(
                    "The breakpoint delegate %p of %p does not implement at least one of "
                    "the following methods: -colouredBreakpointsForFragaria:, "
                    "-breakpointsForFragaria:."),
                static_cast<const void *>(m_breakpointDelegate),
                static_cast<const void *>(m_fragaria)));
    for (const qsizetype line : *lines) {
        const QColor colour = m_breakpointDelegate->breakpointColourForLine(line, m_fragaria);
        m_breakpointData.insert(line, colour.isValid() ? colour : defaultBreakpointColour());
    }
}

void MGSLineNumberView::setFont(const QFont &font)
{
    QWidget::setFont(font);
    updateDigitWidthCache();
    updateThickness();
}

void MGSLineNumberView::setTextColor(const QColor &colour)
{
    m_textColor = colour;
    update();
}

void MGSLineNumberView::setBackgroundColor(const QColor &colour)
{
    m_backgroundColor = colour;
    update();
}

void MGSLineNumberView::setMinimumWidth(double pixels)
{
    m_minimumWidth = qMin(pixels, greatestMinimumWidth);
    updateThickness();
}

void MGSLineNumberView::setStartingLineNumber(int number)
{
    m_startingLineNumber = number;
    updateThickness();
}

void MGSLineNumberView::setShowsLineNumbers(bool shows)
{
    m_showsLineNumbers = shows;
    updateThickness();
}

void MGSLineNumberView::setMarksChangedLines(bool marks)
{
    if (m_changedLines)
        m_changedLines->disconnect(this);
    m_marksChangedLines = marks;
    m_changedLines = marks ? &MGSChangedLines::of(m_textView->textStorage()) : nullptr;
    if (marks)
        connect(m_changedLines, &MGSChangedLines::didForget, this, qOverload<>(&QWidget::update));
    update();
}

void MGSLineNumberView::setFolding(MGSFolding *folding)
{
    m_folding = folding;
    connect(folding, &MGSFolding::didChange, this, &MGSLineNumberView::updateThickness);
}

void MGSLineNumberView::setDecorations(const Decorations &decorations)
{
    m_decorations = decorations;
    updateThickness();
}

void MGSLineNumberView::setReservesDecorationColumn(bool reserves)
{
    m_reservesDecorationColumn = reserves;
    updateThickness();
}

void MGSLineNumberView::setDecorationAction(QObject *target, const QByteArray &selector)
{
    m_decorationActionTarget = target;
    m_decorationActionSelector = selector;
}

qsizetype MGSLineNumberView::lineCount() const
{
    return mgs_lineCount(*m_textView->textStorage());
}

void MGSLineNumberView::updateDigitWidthCache()
{
    const QFontMetricsF metrics(font());
    m_fontSize = QFontInfo(font()).pixelSize();
    m_maxDigitWidthOfCurrentFont = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        m_maxDigitWidthOfCurrentFont =
            qMax(m_maxDigitWidthOfCurrentFont, metrics.horizontalAdvance(QChar(digit)));
}

void MGSLineNumberView::updateThickness()
{
    if (sizeHint().width() != width())
        m_textView->updateRulerWidth();
    update();
}

QSize MGSLineNumberView::sizeHint() const
{
    return {int(requiredThickness()), 0};
}

double MGSLineNumberView::requiredThickness() const
{
    const qsizetype lastNumber = qMax(qsizetype(0), lineCount() + m_startingLineNumber - 1);
    const qsizetype digits = QString::number(lastNumber).size();
    const qreal numbers =
        m_showsLineNumbers ? qreal(digits) * m_maxDigitWidthOfCurrentFont + numberMargin : 0;
    return std::ceil(
        qMax(numbers + foldColumnWidth() + decorationColumnWidth() + numberMargin, m_minimumWidth));
}

double MGSLineNumberView::decorationColumnWidth() const
{
    const qreal height = m_textView->layoutManager()->style().rowHeight;
    qreal column =
        m_reservesDecorationColumn ? decorationInset(height) + decorationHeight(height) : 0;
    for (auto it = m_decorations.cbegin(); it != m_decorations.cend(); ++it) {
        if (it.key() >= 1 && it.key() <= lineCount())
            column = qMax(column, decorationInset(height) + decorationSize(*it, height).width());
    }
    return std::ceil(column);
}

qsizetype MGSLineNumberView::lineNumberForLocation(qreal y) const
{
    return m_textView->lineAtY(y + this->y() - m_textView->viewport()->y());
}

QRectF MGSLineNumberView::wholeLineRectForLine(qsizetype row) const
{
    if (mgs_firstCharacterInRow(*m_textView->textStorage(), row) == NotFound)
        return {};
    const QRectF inViewport = m_textView->rectOfLine(row);
    if (inViewport.isNull())
        return {};
    const qreal top = inViewport.top() + m_textView->viewport()->y() - y();
    return {0, top, qreal(width()), m_textView->layoutManager()->style().rowHeight};
}

qreal MGSLineNumberView::decorationInset(qreal lineHeight) const
{
    return qMax<qreal>(1, qMin(lineHeight / 12, m_fontSize / 11)) + numberMargin;
}

qreal MGSLineNumberView::decorationHeight(qreal lineHeight) const
{
    const qreal inset = decorationInset(lineHeight) - numberMargin;
    return qMin<qreal>(lineHeight - 2 * inset, m_fontSize);
}

QSizeF MGSLineNumberView::decorationSize(const QIcon &decoration, qreal lineHeight) const
{
    const QSizeF natural = decoration.actualSize(largestDecoration);
    return natural.isEmpty() ? QSizeF()
                             : natural * (decorationHeight(lineHeight) / natural.height());
}

QRectF MGSLineNumberView::decorationRectOfLine(qsizetype row) const
{
    const auto decoration = m_decorations.constFind(row + 1);
    const QRectF line = wholeLineRectForLine(row);
    if (decoration == m_decorations.cend() || line.isNull())
        return {};
    const QSizeF size = decorationSize(*decoration, line.height());
    const QPointF corner(line.left() + decorationInset(line.height()),
                         line.bottom() - size.height() - 1);
    return QRectF(corner, size).toAlignedRect();
}

qreal MGSLineNumberView::foldColumnWidth() const
{
    return m_folding && m_folding->isEnabled() ? foldMarkWidth : 0;
}

QRectF MGSLineNumberView::foldRectOfLine(qsizetype row) const
{
    if (foldColumnWidth() == 0 || !m_folding->canFold(row))
        return {};
    const QRectF line = wholeLineRectForLine(row);
    if (line.isNull())
        return {};
    return {line.right() - numberMargin - foldMarkWidth + 2, line.top(), foldMarkWidth,
            line.height()};
}

MGSLineNumberView::Hit MGSLineNumberView::testHit(QPointF point) const
{
    if (!QRectF(rect()).contains(point))
        return {};
    const qsizetype row = lineNumberForLocation(point.y());
    const QRectF decoration = decorationRectOfLine(row);
    if (decoration.contains(point))
        return {row, HitKind::Decoration, decoration};
    const QRectF fold = foldRectOfLine(row);
    if (fold.contains(point))
        return {row, HitKind::Fold, fold};
    return {row, HitKind::Line, wholeLineRectForLine(row)};
}

void MGSLineNumberView::mousePressEvent(QMouseEvent *event)
{
    m_mouseDown = event->button() == Qt::LeftButton ? testHit(event->position()) : Hit();
    if (m_mouseDown.kind == HitKind::Line)
        breakpointClickedOnLine(m_mouseDown.row + 1);
    else if (m_mouseDown.kind == HitKind::Fold)
        m_folding->toggle(m_mouseDown.row);
}

void MGSLineNumberView::mouseReleaseEvent(QMouseEvent *event)
{
    const Hit down = std::exchange(m_mouseDown, Hit());
    if (event->button() != Qt::LeftButton || down.row == NotFound)
        return;
    const Hit up = testHit(event->position());
    if (up.rect != down.rect) {
        if (down.kind == HitKind::Line)
            breakpointClickedOnLine(down.row + 1);
    } else if (down.kind == HitKind::Decoration && up.kind == HitKind::Decoration) {
        m_selectedLineNumber = down.row;
        if (m_decorationActionTarget)
            QMetaObject::invokeMethod(m_decorationActionTarget,
                                      m_decorationActionSelector.constData(),
                                      Q_ARG(QObject *, this));
    }
}

void MGSLineNumberView::breakpointClickedOnLine(qsizetype line)
{
    m_selectedLineNumber = line;
    if (m_breakpointDelegate)
        m_breakpointDelegate->toggleBreakpointForFragaria(m_fragaria, line);
    reloadBreakpointData();
}

void MGSLineNumberView::contextMenuEvent(QContextMenuEvent *event)
{
    const Hit hit = testHit(event->pos());
    const bool isOnLine = m_breakpointDelegate && hit.kind == HitKind::Line;
    const std::unique_ptr<QMenu> menu(
        isOnLine ? m_breakpointDelegate->menuForBreakpointInLine(hit.row + 1, m_fragaria)
                 : nullptr);
    if (menu)
        menu->exec(event->globalPos());
    else
        event->ignore();
}

void MGSLineNumberView::wheelEvent(QWheelEvent *event)
{
    QCoreApplication::sendEvent(m_textView->viewport(), event);
}
