#include "editor/SMLLayoutManager.h"

#include "editor/MGSFont.h"

#include <cmath>
#include <QFontMetricsF>

using platform::LineLayout;
using platform::NotFound;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;

namespace {

constexpr qreal errorStep = 3; // pixels from point to point of the zigzag
constexpr qreal errorAmplitude = 3;
constexpr qreal errorWavelength = 6;

// Text of both directions does not stand in order: rows up to this are looked at whole.
constexpr qsizetype shortRow = 4096;

/// What of the row lies between the edges of `clip`, which counts from the line's corner.
TextRange visiblePart(LineLayout &line, qsizetype row, qreal y, const QRectF &clip)
{
    const TextRange all = line.rowRange(row);
    if (all.length <= shortRow)
        return all;
    const qsizetype left = line.offsetAt({clip.left(), y});
    const qsizetype right = line.offsetAt({clip.right(), y});
    const qsizetype start = qMax(all.location, qMin(left, right) - 1);
    return TextRange::between(start, qMin(all.end(), qMax(left, right) + 1));
}

QPolygonF zigzag(const QRectF &rect, qreal baseline)
{
    QPolygonF points;
    const qreal start = errorStep / 2; // the turns are where the waves have their tops
    const qreal first = std::floor((rect.left() - start) / errorStep) * errorStep + start;
    for (qreal x = first; x < rect.right() + errorStep; x += errorStep) {
        const qreal phase = (x - start) / errorWavelength;
        const qreal t = phase - std::floor(phase);
        points << QPointF(x, baseline + (2 * (t > 0.5 ? 1 - t : t) - 0.5) * errorAmplitude);
    }
    return points;
}

} // namespace

SMLLayoutManager::SMLLayoutManager(std::shared_ptr<platform::TextStorage> storage, QObject *parent)
    : LayoutManager(std::move(storage), parent), m_invisibleCharactersFont(mgs_defaultFont())
{
    prepareSigns();
}

void SMLLayoutManager::setShowsInvisibleCharacters(bool shows)
{
    m_showsInvisibleCharacters = shows;
    Q_EMIT displayDidChange({0, textStorage()->length()});
}

void SMLLayoutManager::setInvisibleCharactersFont(const QFont &font)
{
    m_invisibleCharactersFont = font;
    prepareSigns();
}

void SMLLayoutManager::setInvisibleCharactersColour(const QColor &colour)
{
    m_invisibleCharactersColour = colour;
    Q_EMIT displayDidChange({0, textStorage()->length()});
}

void SMLLayoutManager::prepareSigns()
{
    m_signs[Tab].setText(QStringLiteral("⇢"));
    m_signs[Space].setText(QStringLiteral("⋅"));
    m_signs[Newline].setText(QStringLiteral("¶"));
    for (QStaticText &sign : m_signs) {
        sign.setTextFormat(Qt::PlainText);
        sign.prepare({}, m_invisibleCharactersFont);
    }
    Q_EMIT displayDidChange({0, textStorage()->length()});
}

MGSAttributedString SMLLayoutManager::attributedStringWithTemporaryAttributesApplied() const
{
    MGSAttributedString result{textStorage()->string(), {}};
    const auto append = [&](TextRange range, const TextAttributes &attributes) {
        const auto value = [&](TextAttribute key) {
            return std::pair(key, attributes.value(key));
        };
        const TextAttributes kept = {value(TextAttribute::ForegroundColor),
                                     value(TextAttribute::UnderlineStyle),
                                     value(TextAttribute::ToolTip), value(TextAttribute::Group)};
        if (kept.isEmpty())
            return;
        if (!result.runs.empty() && result.runs.back().range.end() == range.location &&
            result.runs.back().attributes == kept)
            result.runs.back().range.length += range.length;
        else
            result.runs.push_back({range, kept});
    };
    temporaryAttributes().forEachRun({0, textStorage()->length()}, append);
    return result;
}

void SMLLayoutManager::drawLineBackground(QPainter *painter, qsizetype line, QPointF origin,
                                          const QRectF &clip)
{
    const QColor colour = backgroundOfLine(line);
    if (colour.isValid())
        painter->fillRect(clip, colour);
    else
        LayoutManager::drawLineBackground(painter, line, origin, clip);
}

// Long lines have many runs: few of them have a background.
QColor SMLLayoutManager::backgroundOfLine(qsizetype line) const
{
    constexpr TextAttribute key = TextAttribute::BackgroundColor;
    const TextRange whole = textStorage()->lineRange({textStorage()->lineStart(line), 0});
    if (whole.isEmpty() || !temporaryAttributes().value(key, whole.location).isValid())
        return {};
    TextRange run;
    const QVariant colour = temporaryAttributes().value(key, whole.location, whole, &run);
    return run == whole ? colour.value<QColor>() : QColor();
}

void SMLLayoutManager::drawLine(QPainter *painter, qsizetype line, QPointF origin,
                                const QRectF &clip)
{
    if (m_showsInvisibleCharacters)
        drawInvisibleCharacters(painter, line, origin, clip);
    LayoutManager::drawLine(painter, line, origin, clip);
    drawErrorUnderlines(painter, line, origin, clip);
}

void SMLLayoutManager::drawInvisibleCharacters(QPainter *painter, qsizetype line, QPointF origin,
                                               const QRectF &clip)
{
    painter->save();
    painter->setFont(m_invisibleCharactersFont);
    painter->setPen(m_invisibleCharactersColour);
    LineLayout &layout = this->line(line);
    const TextRange contents = textStorage()->lineContents(line);
    const QRectF inLine = clip.translated(-origin);
    const qreal height = style().rowHeight;
    const qsizetype rows = layout.rowCount();
    const auto first = qBound(qsizetype(0), qsizetype(inLine.top() / height), rows - 1);
    for (qsizetype row = first; row < rows && qreal(row) * height < inLine.bottom(); ++row) {
        const TextRange part = visiblePart(layout, row, (qreal(row) + 0.5) * height, inLine);
        const QString text = textStorage()->substring(part.movedBy(contents.location));
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i] == u'\t' || text[i] == u' ')
                drawSign(painter, text[i] == u'\t' ? Tab : Space,
                         layout.caretRect(part.location + i).translated(origin));
        }
    }
    const qsizetype end = contents.end();
    const char16_t terminator = end < textStorage()->length() ? textStorage()->character(end) : 0;
    if (terminator == u'\n' || terminator == u'\r')
        drawSign(painter, Newline, layout.caretRect(layout.length()).translated(origin));
    painter->restore();
}

void SMLLayoutManager::drawSign(QPainter *painter, Sign sign, const QRectF &place) const
{
    const qreal baseline = place.top() + style().baseline;
    const qreal ascent = QFontMetricsF(m_invisibleCharactersFont).ascent();
    painter->drawStaticText(QPointF(place.left(), baseline - ascent), m_signs[sign]);
}

void SMLLayoutManager::drawErrorUnderlines(QPainter *painter, qsizetype line, QPointF origin,
                                           const QRectF &clip)
{
    LineLayout &layout = this->line(line);
    const TextRange contents = textStorage()->lineContents(line);
    const QRectF inLine = clip.translated(-origin);
    const qsizetype start = layout.offsetAt(inLine.topLeft());
    const qsizetype end = layout.offsetAt(inLine.bottomRight());
    const bool isShort = contents.length <= shortRow;
    const TextRange visible = isShort ? contents
                                      : TextRange::between(contents.location + qMin(start, end),
                                                           contents.location + qMax(start, end));
    temporaryAttributes().forEachRun(visible, [&](TextRange run, const TextAttributes &attributes) {
        if (!platform::isErrorUnderline(attributes.value(TextAttribute::UnderlineStyle).toInt()))
            return;
        for (const QRectF &rect : layout.rectsOf(run.movedBy(-contents.location), inLine)) {
            painter->save();
            painter->translate(origin);
            painter->setPen(Qt::red);
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setClipRect(rect.adjusted(0, 0, 0, errorAmplitude), Qt::IntersectClip);
            painter->drawPolyline(zigzag(rect, rect.top() + style().baseline));
            painter->restore();
        }
    });
}
