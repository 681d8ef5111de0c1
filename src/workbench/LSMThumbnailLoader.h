#pragma once

#include <QCache>
#include <QDateTime>
#include <QImage>
#include <QObject>
#include <QThreadPool>

/// Small pictures for the outline's rows, read in the background when they are first asked for, the
/// latest wish first, so that scrolling through thousands of designs never waits. Owned by the
/// outline; main thread outside, one thread of its own inside.
class LSMThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    explicit LSMThumbnailLoader(QObject *parent = nullptr);
    ~LSMThumbnailLoader() override;

    /// The picture of the file, to fill `size` device pixels, or null when it is not there yet
    /// (then `thumbnailDidLoad` follows) or cannot be read (then not). When it is known in another
    /// size, or as it was before the file changed, that one until the right one has come.
    QImage thumbnail(const QString &path, const QSize &size);

Q_SIGNALS:
    void thumbnailDidLoad(const QString &path);

private:
    struct Request
    {
        QString path;
        QSize size;
        QDateTime changed; // the file
        qint64 bytes = 0;

        bool operator==(const Request &) const = default;
    };
    struct Thumbnail
    {
        QImage image;
        Request source;
    };

    void loadNext();
    void didLoad(const Request &request, const QImage &image);

    QCache<QString, Thumbnail> m_thumbnails; // by path; cost is bytes
    QList<Request> m_requests;               // the latest last
    bool m_loading = false;
    QThreadPool m_pool;
};
