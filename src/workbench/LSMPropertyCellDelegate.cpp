#include "workbench/LSMPropertyCellDelegate.h"

#include "kit/ui/TintedIcon.h"
#include "library/LSMDesignKeys.h"
#include "platform/Appearance.h"
#include "workbench/LSMPropertyTableModel.h"
#include "workbench/LSMPropertyTransformers.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

using Model = LSMPropertyTableModel;
using platform::namedColor;

namespace {

constexpr int margin = 8;               // pixels at either side of a cell
constexpr int signSize = 16;            // of a popup's arrow, of the sign that opens values
constexpr int wellWidth = 44;           // of a colour
constexpr int checkWidth = 32;          // of a check box with what is around it
constexpr qsizetype longestText = 1000; // more fits in no cell, and is not worth the measuring
constexpr const char *textBefore = "textBefore"; // of an editor, when it began

/// Squares of two greys, on which a clear colour shows that it is one.
QBrush clearPattern()
{
    QImage pattern(8, 8, QImage::Format_RGB32);
    pattern.fill(Qt::white);
    QPainter painter(&pattern);
    painter.fillRect(0, 0, 4, 4, Qt::lightGray);
    painter.fillRect(4, 4, 4, 4, Qt::lightGray);
    return pattern;
}

void paintWell(QPainter *painter, const QRect &frame, const QVariant &color)
{
    if (color.isValid()) {
        painter->fillRect(frame, clearPattern());
        painter->fillRect(frame, color.value<QColor>());
    }
    const QPen text = painter->pen();
    painter->setPen(namedColor(QStringLiteral("controlBorder")));
    painter->drawRect(frame);
    painter->setPen(text);
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

void paintText(QPainter *painter, const QRect &frame, const QString &text)
{
    const QString line = text.left(longestText).simplified();
    painter->drawText(frame, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(line, Qt::ElideRight, frame.width()));
}

/// At the place where the base class looks for it.
void paintCheckBox(QPainter *painter, QStyleOptionViewItem item)
{
    const QStyle *style = item.widget->style();
    const bool isChecked = item.checkState == Qt::Checked;
    item.rect = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget);
    item.state.setFlag(QStyle::State_On, isChecked);
    item.state.setFlag(QStyle::State_Off, !isChecked);
    item.state.setFlag(QStyle::State_HasFocus, false);
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &item, painter, item.widget);
}

/// Run by run, as far as there is room.
void paintSummary(QPainter *painter, QRect frame, const LSMAttributedText &text)
{
    const QFont plain = painter->font();
    qsizetype end = 0;
    const auto paintRun = [&](qsizetype until, const QFont &font) {
        painter->setFont(font);
        const QFontMetrics metrics = painter->fontMetrics();
        const QString run = text.string.sliced(end, qMin(until - end, longestText));
        const int more = until < text.string.size() ? metrics.horizontalAdvance(u'…') : 0;
        const QString shown = metrics.elidedText(run, Qt::ElideRight, frame.width() - more);
        paintText(painter, frame, shown == run || !shown.isEmpty() ? shown : QStringLiteral("…"));
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

} // namespace

QWidget *LSMPropertyCellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                               const QModelIndex &index) const
{
    auto *field = new QLineEdit(parent);
    field->setText(index.data(Qt::EditRole).toString());
    field->setProperty(textBefore, field->text());
    field->setAccessibleName(
        index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    auto *self = const_cast<LSMPropertyCellDelegate *>(this); // whose signals are not const
    connect(field, &QLineEdit::textEdited, self, [self, field] { Q_EMIT self->commitData(field); });
    return field;
}

// What it shows is what was typed; what the model has is that.
void LSMPropertyCellDelegate::setEditorData(QWidget *, const QModelIndex &) const {}

void LSMPropertyCellDelegate::updateEditorGeometry(QWidget *editor,
                                                   const QStyleOptionViewItem &option,
                                                   const QModelIndex &) const
{
    editor->setGeometry(option.rect.adjusted(margin - 3, 2, -2, -2));
}

bool LSMPropertyCellDelegate::eventFilter(QObject *editor, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    auto *field = qobject_cast<QLineEdit *>(editor);
    if (isKey && field && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        field->setText(field->property(textBefore).toString());
        Q_EMIT commitData(field);
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

void LSMPropertyCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    painter->save();
    paintBackground(painter, item);
    painter->setPen(item.palette.color(QPalette::Text));
    painter->setFont(item.font);
    const QRect frame = paintControl(painter, item, index);
    const QVariant summary = index.data(Model::SummaryRole);
    if (summary.canConvert<LSMAttributedText>())
        paintSummary(painter, frame, summary.value<LSMAttributedText>());
    else
        paintText(painter, frame, item.text);
    painter->restore();
}

void LSMPropertyCellDelegate::paintBackground(QPainter *painter,
                                              const QStyleOptionViewItem &item) const
{
    const bool isSelected = item.state & QStyle::State_Selected;
    const bool isActive = item.state & QStyle::State_Active;
    if (isSelected)
        painter->fillRect(item.rect,
                          item.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                             QPalette::Highlight));
    else
        painter->fillRect(item.rect, item.backgroundBrush);
    if (item.state & QStyle::State_HasFocus) {
        painter->setPen(namedColor(QStringLiteral("accentColor")));
        painter->drawRect(item.rect.adjusted(0, 0, -1, -1));
    }
}

QRect LSMPropertyCellDelegate::paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                                            const QModelIndex &index) const
{
    QRect frame = item.rect.adjusted(margin, 0, -margin, 0);
    const QRect sign(frame.right() - signSize, frame.center().y() - signSize / 2, signSize,
                     signSize);
    const QString type = index.data(Model::TypeRole).toString();
    const bool isValue = index.column() == Model::ValueColumn;
    const bool isEditable = index.flags() & Qt::ItemIsDragEnabled;
    if (item.features & QStyleOptionViewItem::HasCheckIndicator) {
        paintCheckBox(painter, item);
        frame.setLeft(item.rect.left() + checkWidth);
    } else if (isValue && type == LSMDesignKeys::colorProperty) {
        paintWell(painter, {frame.left(), item.rect.top() + 6, wellWidth, item.rect.height() - 13},
                  index.data(Model::ColorRole));
        frame.setLeft(frame.left() + wellWidth + margin);
    } else if (isEditable && isValue && type == LSMDesignKeys::valuesProperty) {
        zq::tintedIcon(QStringLiteral("EditKeywords")).paint(painter, sign);
        frame.setRight(sign.left() - margin);
    } else if (isEditable && index.data(Model::HasTypeRole).toBool()) {
        paintArrow(painter, sign);
        frame.setRight(sign.left() - margin);
    }
    return frame;
}
