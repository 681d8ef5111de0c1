#include "editor/MGSErrorBadgeAttachmentCell.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextCursor>

namespace {

constexpr int badgeObject = QTextFormat::UserObject + 1;
constexpr int badgeProperty = QTextFormat::UserProperty + 1;

} // namespace

MGSErrorBadgeAttachmentCell::MGSErrorBadgeAttachmentCell(QTextDocument *document)
    : QObject(document)
{
    document->documentLayout()->registerHandler(badgeObject, this);
}

void MGSErrorBadgeAttachmentCell::insert(QTextCursor &cursor, const QIcon &badge) const
{
    QTextCharFormat format;
    format.setObjectType(badgeObject);
    format.setProperty(badgeProperty, badge);
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

QSizeF MGSErrorBadgeAttachmentCell::intrinsicSize(QTextDocument *, int, const QTextFormat &)
{
    return cellSize;
}

void MGSErrorBadgeAttachmentCell::drawObject(QPainter *painter, const QRectF &rect, QTextDocument *,
                                             int, const QTextFormat &format)
{
    const QRectF place = rect.translated(cellBaselineOffset.x(), -cellBaselineOffset.y());
    format.property(badgeProperty).value<QIcon>().paint(painter, place.toRect());
}
