#pragma once

#include <QIcon>
#include <QTextObjectInterface>

class QTextCursor;

/// Draws the badges that stand in a text, lower than the line of the text so that they look
/// centred beside it. One for each document, which owns it; main thread.
class MGSErrorBadgeAttachmentCell : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit MGSErrorBadgeAttachmentCell(QTextDocument *document);

    static constexpr QPointF cellBaselineOffset{0, -2}; ///< Pixels; above the line counts positive.
    static constexpr QSizeF cellSize{11, 11};           ///< Pixels.

    void insert(QTextCursor &cursor, const QIcon &badge) const;

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
                    const QTextFormat &format) override;
};
