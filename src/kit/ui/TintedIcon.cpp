#include "kit/ui/TintedIcon.h"

#include "platform/Assert.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace zq {

namespace {

QColor tint(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected)
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    return palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                         QPalette::ButtonText);
}

enum class Colours { Own, Tint };

class DrawingEngine : public QIconEngine
{
public:
    DrawingEngine(const QString &path, Colours colours) : m_path(path), m_colours(colours) {}

    QIconEngine *clone() const override { return new DrawingEngine(m_path, m_colours); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, drawn((QSizeF(rect.size()) * scale).toSize(), mode));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return drawn(size, mode);
    }

private:
    QPixmap drawn(const QSize &pixels, QIcon::Mode mode) const
    {
        const QColor color = m_colours == Colours::Tint ? tint(mode) : QColor(Qt::transparent);
        const QString key = QStringLiteral("%1 %2x%3 %4")
                                .arg(m_path)
                                .arg(pixels.width())
                                .arg(pixels.height())
                                .arg(color.rgba(), 0, 16);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(pixels);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        QSvgRenderer drawing(m_path);
        drawing.setAspectRatioMode(Qt::KeepAspectRatio);
        drawing.render(&painter);
        if (m_colours == Colours::Tint)
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QString m_path;
    Colours m_colours;
};

QIcon icon(const QString &path, Colours colours)
{
    PLATFORM_ASSERT(QFile::exists(path), "missing image %@", path);
    return QIcon(new DrawingEngine(path, colours));
}

} // namespace

QIcon tintedIcon(const QString &name)
{
    return icon(QStringLiteral(":/layoutsmith/images/%1.svg").arg(name), Colours::Tint);
}

QIcon drawnIcon(const QString &path)
{
    return icon(path, Colours::Own);
}

} // namespace zq
