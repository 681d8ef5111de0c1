#include "editor/MGSErrorMessagesView.h"

#include "editor/MGSErrorBadgeAttachmentCell.h"

#include <cmath>
#include <QFontDatabase>
#include <QRegularExpression>
#include <QScrollBar>

namespace {

constexpr qreal fontSize = 10; // points
constexpr qreal paragraphSpacing = 2;
constexpr QSize largest(480, 320);

/// In one paragraph, whatever line ends the message has.
QString paragraph(QString message)
{
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|[\r\n\u2029]"));
    return message.replace(lineEnd, QString(QChar::LineSeparator));
}

QFont messageFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(fontSize);
    return font;
}

} // namespace

MGSErrorMessagesView::MGSErrorMessagesView(const QList<SMLSyntaxError> &errors, QWidget *parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    viewport()->setCursor(Qt::ArrowCursor);
    document()->setDocumentMargin(0);
    document()->setDefaultFont(messageFont());

    const auto *badges = new MGSErrorBadgeAttachmentCell(document());
    QTextCursor cursor(document());
    QTextBlockFormat spaced;
    spaced.setBottomMargin(paragraphSpacing);
    if (errors.size() > 1) { // what goes on in another line stands below the message, not the badge
        const qreal indent = MGSErrorBadgeAttachmentCell::cellSize.width() +
                             QFontMetricsF(messageFont()).horizontalAdvance(u' ');
        spaced.setLeftMargin(indent);
        spaced.setTextIndent(-indent);
    }
    cursor.setBlockFormat(spaced);
    for (const SMLSyntaxError &error : errors) {
        if (!document()->isEmpty())
            cursor.insertBlock();
        if (errors.size() > 1) {
            badges->insert(cursor, error.warningImage());
            cursor.insertText(QStringLiteral(" "), {});
        }
        cursor.insertText(paragraph(error.errorDescription), {});
    }
    sizeToFit();
}

void MGSErrorMessagesView::sizeToFit()
{
    document()->setTextWidth(largest.width());
    const qreal width = qMin<qreal>(std::ceil(document()->idealWidth()) + 1, largest.width());
    document()->setTextWidth(width);
    const qreal height = std::ceil(document()->size().height());
    const int bar = height > largest.height() ? verticalScrollBar()->sizeHint().width() : 0;
    setFixedSize(int(width) + bar, qMin(int(height), largest.height()));
}
