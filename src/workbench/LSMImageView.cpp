#include "workbench/LSMImageView.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "platform/NotificationCenter.h"
#include "workbench/LSMNotifications.h"

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QImageReader>
#include <QMimeData>
#include <QMimeDatabase>
#include <QPainter>
#include <QPainterPath>

using platform::namedColor;

namespace {

bool isImageFile(const QString &path)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    return QImageReader::supportedMimeTypes().contains(type.name().toLatin1());
}

QString firstFile(const QMimeData *data)
{
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

} // namespace

LSMImageView::LSMImageView(QWidget *parent) : QWidget(parent)
{
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(platform::localized("Picture of the design"));
}

void LSMImageView::setImage(const QImage &image, const QString &note)
{
    m_image = image;
    m_note = note;
    update();
}

void LSMImageView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!isEnabled() || event->source() == this || !event->mimeData()->hasUrls())
        return;
    m_dragIsOver = true;
    update();
    event->acceptProposedAction();
}

void LSMImageView::dragLeaveEvent(QDragLeaveEvent *)
{
    m_dragIsOver = false;
    update();
}

void LSMImageView::dropEvent(QDropEvent *event)
{
    m_dragIsOver = false;
    update();
    if (takeFile(firstFile(event->mimeData())))
        event->acceptProposedAction();
}

bool LSMImageView::takeFile(const QString &path)
{
    if (path.isEmpty() || !isImageFile(path)) {
        QApplication::beep();
        return false;
    }
    notifyWithImageDropped(path);
    return true;
}

bool LSMImageView::canPaste() const
{
    const QMimeData *offer = QApplication::clipboard()->mimeData();
    return isEnabled() && offer && (!firstFile(offer).isEmpty() || offer->hasImage());
}

void LSMImageView::paste()
{
    if (!canPaste())
        return QApplication::beep();
    const QMimeData *offer = QApplication::clipboard()->mimeData();
    const QImage image = offer->imageData().value<QImage>();
    if (firstFile(offer).isEmpty() && !image.isNull())
        Q_EMIT imageWasPasted(image);
    else
        takeFile(firstFile(offer));
}

void LSMImageView::copy()
{
    if (canCopy())
        QApplication::clipboard()->setImage(m_image);
}

void LSMImageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        QApplication::beep();
    else
        QWidget::keyPressEvent(event);
}

void LSMImageView::notifyWithImageDropped(const QString &path)
{
    platform::NotificationCenter::defaultCenter().post(LSMImageViewImageDropped, this,
                                                       {{QStringLiteral("imagePath"), path}});
}

void LSMImageView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void LSMImageView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
    QPainterPath clip;
    clip.addRoundedRect(frame, 8, 8);
    painter.fillPath(clip, namedColor(QStringLiteral("controlBackground")));
    if (m_image.isNull()) {
        painter.setPen(namedColor(QStringLiteral("secondaryLabelColor")));
        zq::tintedIcon(QStringLiteral("Picture"))
            .paint(&painter, QRect(width() / 2 - 16, height() / 2 - 34, 32, 32), Qt::AlignCenter,
                   QIcon::Disabled);
        painter.drawText(rect().adjusted(12, height() / 2, -12, -8),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                         !m_note.isEmpty() ? m_note
                         : isEnabled()     ? platform::localized("Drop a picture here")
                                           : platform::localized("No picture"));
    } else {
        const QSizeF size = QSizeF(m_image.size()).scaled(frame.size(), Qt::KeepAspectRatio);
        QRectF target(QPointF(), size);
        target.moveCenter(frame.center());
        painter.setClipPath(clip);
        painter.drawImage(target, m_image);
        painter.setClipping(false);
    }
    const bool stands = m_dragIsOver || hasFocus();
    painter.setPen(
        QPen(namedColor(stands ? QStringLiteral("accentColor") : QStringLiteral("separatorColor")),
             m_dragIsOver ? 2.5 : 1, m_image.isNull() ? Qt::DashLine : Qt::SolidLine));
    painter.drawPath(clip);
}
