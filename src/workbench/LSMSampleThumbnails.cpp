#include "workbench/LSMSampleThumbnails.h"

#include "platform/FileIO.h"
#include "platform/web/WebSnapshot.h"

#include <QDateTime>
#include <QFileInfo>

namespace {

constexpr QSize page(960, 720);
constexpr int cacheBytes = 64 * 1024 * 1024;
constexpr qint64 largestSample = 16 * 1024 * 1024;

QString keyFor(const QString &path)
{
    return path + u'\n' + QString::number(QFileInfo(path).lastModified().toMSecsSinceEpoch());
}

} // namespace

LSMSampleThumbnails::LSMSampleThumbnails(QObject *parent)
    : QObject(parent), m_thumbnails(cacheBytes)
{
}

LSMSampleThumbnails::~LSMSampleThumbnails() = default;

QImage LSMSampleThumbnails::thumbnail(const QString &path)
{
    if (const QImage *known = m_thumbnails.object(keyFor(path)))
        return *known;
    if (!m_requests.contains(path)) {
        m_requests.append(path);
        renderNext();
    }
    return {};
}

void LSMSampleThumbnails::cancelRequests()
{
    const bool isRendering = m_snapshot && m_snapshot->isTaking();
    m_requests.resize(std::min<qsizetype>(m_requests.size(), isRendering));
}

// The one being rendered stays the first until it is done.
void LSMSampleThumbnails::renderNext()
{
    if (!m_snapshot)
        m_snapshot = std::make_unique<platform::WebSnapshot>(page);
    while (!m_requests.isEmpty() && !m_snapshot->isTaking()) {
        const QString path = m_requests.first();
        const QString key = keyFor(path); // before it is read
        const bool isSmall = QFileInfo(path).size() <= largestSample;
        const auto sample = isSmall ? platform::readFile(path) : std::nullopt;
        if (!sample) {
            keep(key, {});
            continue;
        }
        m_snapshot->take(*sample, QStringLiteral("text/html"), QStringLiteral("utf-8"),
                         [this, path, key](const QImage &picture) {
                             keep(key, picture);
                             Q_EMIT thumbnailDidLoad(path);
                             renderNext();
                         });
    }
}

void LSMSampleThumbnails::keep(const QString &key, const QImage &picture)
{
    m_requests.removeFirst();
    const QImage small = picture.isNull() ? picture
                                          : picture.scaled(size, Qt::KeepAspectRatioByExpanding,
                                                           Qt::SmoothTransformation);
    m_thumbnails.insert(key, new QImage(small), qMax(1, int(small.sizeInBytes())));
}
