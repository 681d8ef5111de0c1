#include "workbench/LSMTextCellDelegate.h"

#include "platform/Appearance.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr int checkWidth = 32;          // of a check box with what is around it
constexpr qsizetype longestText = 1000; // more fits in no cell, and is not worth the measuring
constexpr const char *textBefore = "textBefore"; // of an editor, when it began

void paintBackground(QPainter *painter, const QStyleOptionViewItem &item)
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
        painter->setPen(platform::namedColor(QStringLiteral("accentColor")));
        painter->drawRect(item.rect.adjusted(0, 0, -1, -1));
    }
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

} // namespace

QWidget *LSMTextCellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                           const QModelIndex &index) const
{
    auto *field = new QLineEdit(parent);
    field->setText(index.data(Qt::EditRole).toString());
    field->setProperty(textBefore, field->text());
    field->setAccessibleName(
        index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    auto *self = const_cast<LSMTextCellDelegate *>(this); // whose signals are not const
    connect(field, &QLineEdit::textEdited, self, [self, field] { Q_EMIT self->commitData(field); });
    return field;
}

// What it shows is what was typed; what the model has is that.
void LSMTextCellDelegate::setEditorData(QWidget *, const QModelIndex &) const {}

void LSMTextCellDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                               const QModelIndex &) const
{
    editor->setGeometry(option.rect.adjusted(margin - 3, 2, -2, -2));
}

bool LSMTextCellDelegate::eventFilter(QObject *editor, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    auto *field = qobject_cast<QLineEdit *>(editor);
    if (isKey && field && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        field->setText(field->property(textBefore).toString());
        Q_EMIT commitData(field);
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

void LSMTextCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    painter->save();
    paintBackground(painter, item);
    painter->setPen(item.palette.color(QPalette::Text));
    painter->setFont(item.font);
    const QRect frame = item.rect.adjusted(margin, 0, -margin, 0);
    paintContent(painter, item, index, paintControl(painter, item, index, frame));
    painter->restore();
}

QRect LSMTextCellDelegate::paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                                        const QModelIndex &, QRect frame) const
{
    if (item.features & QStyleOptionViewItem::HasCheckIndicator) {
        paintCheckBox(painter, item);
        frame.setLeft(item.rect.left() + checkWidth);
    }
    return frame;
}

void LSMTextCellDelegate::paintContent(QPainter *painter, const QStyleOptionViewItem &item,
                                       const QModelIndex &, const QRect &frame) const
{
    paintLine(painter, frame, item.text);
}

void LSMTextCellDelegate::paintLine(QPainter *painter, const QRect &frame, const QString &text)
{
    const QString line = text.left(longestText).simplified();
    painter->drawText(frame, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(line, Qt::ElideRight, frame.width()));
}
