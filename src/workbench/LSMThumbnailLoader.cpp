#include "workbench/LSMThumbnailLoader.h"

#include <QFileInfo>
#include <QImageReader>

namespace {

constexpr int cacheBytes = 16 * 1024 * 1024;
constexpr int mostRequests = 60; // more than rows on a screen; older wishes have scrolled away

QImage readThumbnail(const QString &path, const QSize &size)
{
    if (!QFileInfo(path).isFile())
        return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize full = reader.size();
    if (full.isValid() && (full.width() > 2 * size.width() || full.height() > 2 * size.height()))
        reader.setScaledSize(full.scaled(2 * size, Qt::KeepAspectRatioByExpanding));
    const QImage image = reader.read();
    return image.isNull()
               ? image
               : image.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
}

} // namespace

LSMThumbnailLoader::LSMThumbnailLoader(QObject *parent) : QObject(parent), m_thumbnails(cacheBytes)
{
    m_pool.setMaxThreadCount(1);
}

LSMThumbnailLoader::~LSMThumbnailLoader()
{
    m_pool.waitForDone();
}

QImage LSMThumbnailLoader::thumbnail(const QString &path, const QSize &size)
{
    if (path.isEmpty())
        return {};
    const QFileInfo file(path);
    const Request wanted{path, size, file.lastModified(), file.size()};
    const Thumbnail *known = m_thumbnails.object(path);
    if (known && known->source == wanted)
        return known->image;
    const QImage image = known ? known->image : QImage();
    m_requests.removeIf([&path](const Request &request) { return request.path == path; });
    m_requests.append(wanted);
    if (m_requests.size() > mostRequests)
        m_requests.removeFirst();
    loadNext();
    return image;
}

void LSMThumbnailLoader::loadNext()
{
    if (m_loading || m_requests.isEmpty())
        return;
    m_loading = true;
    m_pool.start([this, request = m_requests.takeLast()] {
        const QImage image = readThumbnail(request.path, request.size);
        QMetaObject::invokeMethod(
            this, [this, request, image] { didLoad(request, image); }, Qt::QueuedConnection);
    });
}

void LSMThumbnailLoader::didLoad(const Request &request, const QImage &image)
{
    m_loading = false;
    m_thumbnails.insert(request.path, new Thumbnail{image, request},
                        qMax(1, int(image.sizeInBytes())));
    if (!image.isNull())
        Q_EMIT thumbnailDidLoad(request.path);
    loadNext();
}
