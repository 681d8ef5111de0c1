#include "workbench/LSMPropertyCellDelegate.h"

#include "kit/ui/ColorPanel.h"
#include "kit/ui/TintedIcon.h"
#include "platform/Appearance.h"
#include "workbench/LSMPropertyTableModel.h"
#include "workbench/LSMPropertyTransformers.h"

#include <QPainter>

using Model = LSMPropertyTableModel;
using Control = LSMPropertyTableModel::Control;

namespace {

constexpr int signSize = 16;           // of a popup's arrow, of the sign that opens values
constexpr int wellWidth = 44;          // of a colour
constexpr qsizetype longestRun = 1000; // of a summary; more fits in no cell

void paintWell(QPainter *painter, const QRect &frame, const QVariant &color)
{
    QPainterPath shape;
    shape.addRect(frame);
    if (color.isValid())
        zq::paintColor(painter, shape, color.value<QColor>());
    painter->save();
    painter->setPen(platform::namedColor(QStringLiteral("controlBorder")));
    painter->drawPath(shape);
    painter->restore();
}

void paintArrow(QPainter *painter, const QRect &place)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(painter->pen().color(), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->translate(place.center() + QPoint(0, 1));
    painter->drawPolyline(QPolygonF{{-3.5, -2}, {0, 2}, {3.5, -2}});
    painter->restore();
}

} // namespace

QRect LSMPropertyCellDelegate::paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                                            const QModelIndex &index, QRect frame) const
{
    const QRect sign(frame.right() - signSize, frame.center().y() - signSize / 2, signSize,
                     signSize);
    switch (Control(index.data(Model::ControlRole).toInt())) {
    case Control::Well:
        paintWell(painter, {frame.left(), item.rect.top() + 6, wellWidth, item.rect.height() - 13},
                  index.data(Model::ColorRole));
        frame.setLeft(frame.left() + wellWidth + margin);
        return frame;
    case Control::Values:
        zq::tintedIcon(QStringLiteral("EditKeywords")).paint(painter, sign);
        frame.setRight(sign.left() - margin);
        return frame;
    case Control::Popup:
        paintArrow(painter, sign);
        frame.setRight(sign.left() - margin);
        return frame;
    default:
        return LSMTextCellDelegate::paintControl(painter, item, index, frame);
    }
}

void LSMPropertyCellDelegate::paintContent(QPainter *painter, const QStyleOptionViewItem &item,
                                           const QModelIndex &index, const QRect &frame) const
{
    const QVariant summary = index.data(Model::SummaryRole);
    if (summary.canConvert<LSMAttributedText>())
        paintSummary(painter, frame, summary.value<LSMAttributedText>());
    else
        LSMTextCellDelegate::paintContent(painter, item, index, frame);
}

// Run by run, as far as there is room.
void LSMPropertyCellDelegate::paintSummary(QPainter *painter, QRect frame,
                                           const LSMAttributedText &text)
{
    const QFont plain = painter->font();
    qsizetype end = 0;
    const auto paintRun = [&](qsizetype until, const QFont &font) {
        painter->setFont(font);
        const QFontMetrics metrics = painter->fontMetrics();
        const QString run = text.string.sliced(end, qMin(until - end, longestRun));
        const int more = until < text.string.size() ? metrics.horizontalAdvance(u'…') : 0;
        const QString shown = metrics.elidedText(run, Qt::ElideRight, frame.width() - more);
        paintLine(painter, frame, shown == run || !shown.isEmpty() ? shown : QStringLiteral("…"));
        frame.setLeft(frame.left() + metrics.horizontalAdvance(run));
        end = until;
        return shown == run;
    };
    for (const QTextLayout::FormatRange &range : text.formats) {
        if (!paintRun(range.start, plain) ||
            !paintRun(range.start + range.length, range.format.font()))
            break;
    }
}
