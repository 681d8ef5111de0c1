#include "platform/text/LinePiece.h"

#include "platform/text/PlainLayout.h"
#include "platform/text/ShapedLayout.h"

#include <cmath>

namespace platform {

namespace {

constexpr char16_t replacement = 0xFFFD;

// Units for units, so that offsets stay what they are.
void showSigns(QString &text)
{
    const auto isHalf = [&text](qsizetype i) {
        if (text[i].isHighSurrogate())
            return i + 1 == text.size() || !text[i + 1].isLowSurrogate();
        return text[i].isLowSurrogate() && (i == 0 || !text[i - 1].isHighSurrogate());
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit >= u' ' && unit < 0x7F)
            continue;
        if (unit < u' ' && unit != u'\t')
            text[i] = QChar(0x2400 + unit);
        else if (unit == 0x7F)
            text[i] = QChar(0x2421);
        else if ((unit > 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029 || isHalf(i))
            text[i] = QChar(replacement);
    }
}

std::unique_ptr<PieceLayout> layoutOf(const QString &text, const LineStyle &style)
{
    if (auto plain = PlainLayout::of(text, style))
        return plain;
    auto shaped = std::make_unique<ShapedLayout>(text, style);
    if (style.plainGlyphs)
        style.plainGlyphs->learn(text, *shaped, style.baseline);
    return shaped;
}

} // namespace

LinePiece::LinePiece(const QString &text, const LineStyle &style) : m_text(text)
{
    showSigns(m_text);
    m_width = qreal(length()) * style.characterWidth;
    if (style.wrapWidth > 0) {
        m_rowCount = qMax<qsizetype>(1, qsizetype(std::ceil(m_width / style.wrapWidth)));
        m_width = qMin(m_width, style.wrapWidth);
    }
}

void LinePiece::layOut(const LineStyle &style, const LineFormats &formats, qsizetype location)
{
    const bool isNew = !m_layout;
    if (isNew) {
        m_layout = layoutOf(m_text, style);
        m_width = m_layout->width();
        m_rowCount = m_layout->rowCount();
        m_rowHeight = style.rowHeight;
    } else if (m_formatsAreFresh) {
        return;
    }
    std::vector<LineFormats::Run> runs = formats.runs({location, length()});
    for (LineFormats::Run &run : runs)
        run.range = run.range.movedBy(-location);
    m_formatsAreFresh = true;
    if (!isNew && runs == m_runs)
        return;
    m_runs = std::move(runs);
    collectStrokes();
}

void LinePiece::forgetLayout()
{
    m_layout.reset();
    m_strokes.clear();
    m_runs.clear();
}

void LinePiece::collectStrokes()
{
    m_strokes.clear();
    TextRange stretch; // of one colour
    QColor color;
    const auto extend = [&](qsizetype end, const QColor &next) {
        if (next != color) {
            addStroke(stretch, color);
            stretch = {stretch.end(), 0};
            color = next;
        }
        stretch = TextRange::between(stretch.location, end);
    };
    for (const LineFormats::Run &run : m_runs) {
        if (run.range.location > stretch.end())
            extend(run.range.location, {});
        extend(run.range.end(),
               run.attributes.value(TextAttribute::ForegroundColor).value<QColor>());
    }
    if (length() > stretch.end())
        extend(length(), {});
    addStroke(stretch, color);
}

void LinePiece::addStroke(TextRange offsets, const QColor &color)
{
    if (offsets.isEmpty())
        return;
    for (qsizetype row = m_layout->rowAt(offsets.location, TextAffinity::Downstream);
         row < m_rowCount; ++row) {
        const TextRange part = m_layout->rowRange(row).intersected(offsets);
        if (part.isEmpty())
            return;
        for (const QGlyphRun &glyphs : m_layout->glyphsOf(part, row)) {
            if (!glyphs.isEmpty())
                m_strokes.push_back({glyphs, glyphs.positions().constFirst(), color});
        }
    }
}

void LinePiece::draw(QPainter *painter, QPointF origin, const QRectF &clip) const
{
    drawUnderlines(painter, origin);
    const QRectF wanted = clip.translated(-origin).adjusted(0, -m_rowHeight, 0, m_rowHeight);
    const QPen pen = painter->pen();
    QColor color = pen.color();
    for (const Stroke &stroke : m_strokes) {
        if (stroke.start.y() < wanted.top() || stroke.start.y() > wanted.bottom() ||
            stroke.start.x() > wanted.right())
            continue;
        const QColor &next = stroke.color.isValid() ? stroke.color : pen.color();
        if (next != color)
            painter->setPen(color = next);
        painter->drawGlyphRun(origin, stroke.glyphs);
    }
    painter->setPen(pen);
}

/// Calls `function(rect)` for each row and direction of the range.
template <class Function>
void LinePiece::forEachRect(TextRange offsets, QPointF origin, Function function) const
{
    for (qsizetype row = 0; row < m_rowCount; ++row) {
        for (const auto &[left, right] : m_layout->spansOf(offsets, row))
            function(QRectF(origin.x() + left, origin.y() + qreal(row) * m_rowHeight, right - left,
                            m_rowHeight));
    }
}

void LinePiece::drawBackground(QPainter *painter, QPointF origin) const
{
    for (const LineFormats::Run &run : m_runs) {
        const QVariant background = run.attributes.value(TextAttribute::BackgroundColor);
        if (background.isValid())
            forEachRect(run.range, origin, [&](const QRectF &rect) {
                painter->fillRect(rect, background.value<QColor>());
            });
    }
}

void LinePiece::drawUnderlines(QPainter *painter, QPointF origin) const
{
    for (const LineFormats::Run &run : m_runs) {
        const int underline = run.attributes.value(TextAttribute::UnderlineStyle).toInt();
        if (underline != 0 && !isErrorUnderline(underline))
            forEachRect(run.range, origin, [painter](const QRectF &rect) {
                painter->drawLine(rect.bottomLeft() - QPointF(0, 2),
                                  rect.bottomRight() - QPointF(0, 2));
            });
    }
}

} // namespace platform
