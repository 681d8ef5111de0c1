#include "platform/text/LineLayout.h"

#include <cmath>
#include <QTextBoundaryFinder>

namespace platform {

namespace {

constexpr size_t mostLayouts = 64; // of one line; a screen needs fewer

// Not within a cluster, if there is another place near.
qsizetype goodBreak(QStringView text, qsizetype wanted)
{
    constexpr qsizetype window = 64;
    const qsizetype start = qMax<qsizetype>(0, wanted - window);
    const QStringView near = text.mid(start, 2 * window);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, near.data(), near.size());
    finder.setPosition(wanted - start);
    if (!finder.isAtBoundary() && finder.toPreviousBoundary() <= 0)
        return text[wanted].isLowSurrogate() ? wanted - 1 : wanted;
    return start + finder.position();
}

// Behind a blank, where a row may end.
qsizetype breakForRow(QStringView text, qsizetype wanted)
{
    constexpr qsizetype window = 200;
    const qsizetype blank = text.left(wanted).lastIndexOf(u' ');
    return blank >= wanted - window ? blank + 1 : goodBreak(text, wanted);
}

} // namespace

qsizetype LineLayout::longestPiece(const LineStyle &style)
{
    return style.wrapWidth > 0 ? 4096 : 1024;
}

LineLayout::LineLayout(const QString &text, const LineStyle &style, const LineFormats &formats)
    : m_style(style), m_formats(formats), m_length(text.size())
{
    cut(text, m_pieces);
}

void LineLayout::cut(const QString &text, std::vector<LinePiece> &pieces) const
{
    const qsizetype longest = longestPiece(m_style);
    qsizetype start = 0;
    while (text.size() - start > longest + longest / 2) {
        const QStringView rest = QStringView(text).mid(start);
        const qsizetype end = isWrapped() ? breakForRow(rest, longest) : goodBreak(rest, longest);
        pieces.emplace_back(text.mid(start, end), m_style);
        start += end;
    }
    pieces.emplace_back(start == 0 ? text : text.mid(start), m_style);
}

qsizetype LineLayout::rowCount()
{
    if (!isWrapped())
        return 1;
    if (m_pieces.size() == 1 && !m_pieces.front().isLaidOut())
        laidOut(first());
    qsizetype rows = 0;
    for (const LinePiece &piece : m_pieces)
        rows += piece.rowCount();
    return rows;
}

qreal LineLayout::width() const
{
    qreal width = 0;
    for (const LinePiece &piece : m_pieces)
        width = isWrapped() ? qMax(width, piece.width()) : width + piece.width();
    return width;
}

LineLayout::Place LineLayout::next(const Place &place) const
{
    const LinePiece &piece = m_pieces[place.index];
    return {place.index + 1, place.offset + piece.length(),
            isWrapped() ? place.row + piece.rowCount() : 0,
            isWrapped() ? 0 : place.x + piece.width()};
}

LineLayout::Place LineLayout::placeOf(qsizetype offset, TextAffinity affinity) const
{
    Place place = first();
    while (!isLast(place)) {
        const qsizetype end = place.offset + m_pieces[place.index].length();
        if (offset < end || (offset == end && affinity == TextAffinity::Upstream))
            break;
        place = next(place);
    }
    return place;
}

LineLayout::Place LineLayout::placeAtRow(qsizetype row) const
{
    Place place = first();
    while (!isLast(place) && row >= place.row + m_pieces[place.index].rowCount())
        place = next(place);
    return place;
}

LineLayout::Place LineLayout::placeAt(QPointF point) const
{
    if (isWrapped())
        return placeAtRow(qsizetype(std::floor(point.y() / m_style.rowHeight)));
    Place place = first();
    while (!isLast(place) && point.x() >= place.x + m_pieces[place.index].width())
        place = next(place);
    return place;
}

LinePiece &LineLayout::laidOut(const Place &place)
{
    LinePiece &piece = m_pieces[place.index];
    if (!piece.isLaidOut() && ++m_laidOut > mostLayouts)
        forgetFarPieces(place.index);
    piece.layOut(m_style, m_formats, m_location + place.offset);
    return piece;
}

void LineLayout::forgetFarPieces(size_t index)
{
    m_laidOut = 1;
    for (size_t i = 0; i < m_pieces.size(); ++i) {
        const size_t distance = i > index ? i - index : index - i;
        if (distance > mostLayouts / 4)
            m_pieces[i].forgetLayout();
        else if (m_pieces[i].isLaidOut())
            ++m_laidOut;
    }
}

qsizetype LineLayout::rowAt(qsizetype offset, TextAffinity affinity)
{
    if (!isWrapped())
        return 0;
    const Place place = placeOf(offset, affinity);
    return place.row + laidOut(place).layout().rowAt(offset - place.offset, affinity);
}

TextRange LineLayout::rowRange(qsizetype row)
{
    if (!isWrapped())
        return {0, m_length};
    const Place place = placeAtRow(row);
    LinePiece &piece = laidOut(place);
    const qsizetype within = std::clamp<qsizetype>(row - place.row, 0, piece.rowCount() - 1);
    return piece.layout().rowRange(within).movedBy(place.offset);
}

QRectF LineLayout::caretRect(qsizetype offset, TextAffinity affinity)
{
    const Place place = placeOf(offset, affinity);
    LinePiece &piece = laidOut(place);
    const qsizetype row = piece.layout().rowAt(offset - place.offset, affinity);
    return {place.x + piece.layout().xOf(offset - place.offset, row),
            qreal(place.row + row) * m_style.rowHeight, 0, m_style.rowHeight};
}

// The nearest row of the piece.
qsizetype LineLayout::rowIn(const Place &place, qreal y) const
{
    if (!isWrapped())
        return 0;
    const auto row = qsizetype(std::floor(y / m_style.rowHeight));
    return std::clamp<qsizetype>(row - place.row, 0, m_pieces[place.index].rowCount() - 1);
}

qsizetype LineLayout::offsetAt(QPointF point, TextAffinity *affinity)
{
    const Place place = placeAt(point);
    LinePiece &piece = laidOut(place);
    const qsizetype row = rowIn(place, point.y());
    const qsizetype offset = piece.layout().offsetAt(point.x() - place.x, row);
    if (affinity) {
        const bool isAtBreak =
            isWrapped() && offset > 0 && offset == piece.layout().rowRange(row).end();
        *affinity = isAtBreak ? TextAffinity::Upstream : TextAffinity::Downstream;
    }
    return place.offset + offset;
}

TextRange LineLayout::clusterAt(QPointF point)
{
    const Place place = placeAt(point);
    const PieceLayout &layout = laidOut(place).layout();
    return layout.clusterAt(point.x() - place.x, rowIn(place, point.y())).movedBy(place.offset);
}

qsizetype LineLayout::leftOf(qsizetype offset)
{
    const Place place = placeOf(offset, TextAffinity::Upstream);
    return place.offset + laidOut(place).layout().leftOf(offset - place.offset);
}

qsizetype LineLayout::rightOf(qsizetype offset)
{
    const Place place = placeOf(offset, TextAffinity::Downstream);
    return place.offset + laidOut(place).layout().rightOf(offset - place.offset);
}

std::vector<QRectF> LineLayout::rectsOf(TextRange offsets, const QRectF &clip)
{
    std::vector<QRectF> rects;
    for (Place place = first();; place = next(place)) {
        LinePiece &piece = m_pieces[place.index];
        const TextRange range{place.offset, piece.length()};
        const QRectF frame(place.x, qreal(place.row) * m_style.rowHeight, qMax(piece.width(), 1.0),
                           qreal(piece.rowCount()) * m_style.rowHeight);
        if (!range.intersected(offsets).isEmpty() && frame.intersects(clip)) {
            laidOut(place);
            const TextRange part = range.intersected(offsets).movedBy(-place.offset);
            for (qsizetype row = 0; row < piece.rowCount(); ++row) {
                for (const auto &[left, right] : piece.layout().spansOf(part, row)) {
                    const QRectF rect(place.x + left, qreal(place.row + row) * m_style.rowHeight,
                                      right - left, m_style.rowHeight);
                    if (rect.intersects(clip))
                        rects.push_back(rect);
                }
            }
        }
        if (isLast(place))
            return rects;
    }
}

/// Calls `function(piece, corner)` for the pieces that reach into `clip`, laid out.
template <class Function>
void LineLayout::forEachPiece(QPointF origin, const QRectF &clip, Function function)
{
    const QRectF wanted = clip.translated(-origin);
    for (Place place = first();; place = next(place)) {
        const qreal top = qreal(place.row) * m_style.rowHeight;
        if (top >= wanted.bottom() || place.x >= wanted.right())
            return;
        const LinePiece &piece = m_pieces[place.index];
        const bool isBefore =
            isWrapped() ? top + qreal(piece.rowCount()) * m_style.rowHeight <= wanted.top()
                        : place.x + piece.width() < wanted.left() && !isLast(place);
        if (!isBefore)
            function(laidOut(place), origin + QPointF(place.x, top));
        if (isLast(place))
            return;
    }
}

void LineLayout::drawBackground(QPainter *painter, QPointF origin, const QRectF &clip)
{
    forEachPiece(origin, clip, [&](const LinePiece &piece, QPointF corner) {
        piece.drawBackground(painter, corner);
    });
}

void LineLayout::draw(QPainter *painter, QPointF origin, const QRectF &clip)
{
    forEachPiece(origin, clip, [&](const LinePiece &piece, QPointF corner) {
        piece.draw(painter, corner, clip);
    });
}

void LineLayout::formatsDidChange(TextRange offsets)
{
    qsizetype offset = 0;
    for (LinePiece &piece : m_pieces) {
        if (offset > offsets.end())
            return;
        if (offset + piece.length() >= offsets.location)
            piece.formatsDidChange();
        offset += piece.length();
    }
}

void LineLayout::replace(TextRange range, const QString &text)
{
    const Place from = placeOf(range.location, TextAffinity::Upstream);
    Place to = from;
    while (!isLast(to) && to.offset + m_pieces[to.index].length() < range.end())
        to = next(to);
    QString joined;
    for (size_t i = from.index; i <= to.index; ++i)
        joined += m_pieces[i].text();
    joined.replace(range.location - from.offset, range.length, text);
    std::vector<LinePiece> pieces;
    cut(joined, pieces);
    const auto start = m_pieces.begin() + ptrdiff_t(from.index);
    m_pieces.erase(start, m_pieces.begin() + ptrdiff_t(to.index) + 1);
    m_pieces.insert(m_pieces.begin() + ptrdiff_t(from.index),
                    std::make_move_iterator(pieces.begin()), std::make_move_iterator(pieces.end()));
    m_length += text.size() - range.length;
}

} // namespace platform
