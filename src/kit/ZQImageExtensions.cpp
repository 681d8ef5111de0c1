#include "kit/ZQImageExtensions.h"

#include "platform/FileIO.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

namespace zq {

namespace {

constexpr int jpegQuality = 80;

bool writeImage(const QImage &image, const QByteArray &format, int quality, const QString &path,
                platform::Error *error)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(image))
        return platform::fail(error, QStringLiteral("com.quillbyte.error.zqkit"), writer.error(),
                              QStringLiteral("%1: %2").arg(path, writer.errorString()));
    return platform::writeFileAtomically(path, buffer.data(), error);
}

QImage onWhite(const QImage &image)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

} // namespace

QImage imageAtPath(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return reader.read();
}

QImage reducedAndResampledImageOfMaximumSize(const QImage &image, const QSize &maximum)
{
    if (image.isNull() || (image.width() <= maximum.width() && image.height() <= maximum.height()))
        return image;
    const QSize fitting = image.size().scaled(maximum, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return image.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool writeAsPNGToPath(const QImage &image, const QString &path, platform::Error *error)
{
    return writeImage(image, "png", -1, path, error);
}

bool writeAsJPEGToPath(const QImage &image, const QString &path, platform::Error *error)
{
    return writeImage(onWhite(image), "jpeg", jpegQuality, path, error);
}

} // namespace zq
