#pragma once

#include <memory>
#include <QCache>
#include <QImage>
#include <QObject>
#include <QStringList>

namespace platform {
class WebSnapshot;
}

/// Small pictures of sample pages, rendered one after the other, out of sight, when they are first
/// asked for, and kept until the file changes. Owned by the samples view; main thread.
class LSMSampleThumbnails : public QObject
{
    Q_OBJECT

public:
    static constexpr QSize size{480, 360}; ///< Device pixels, for 240 by 180 on a sharp screen.

    explicit LSMSampleThumbnails(QObject *parent = nullptr);
    ~LSMSampleThumbnails() override;

    /// The top of the page in `path`; null when it is not there yet (then `thumbnailDidLoad`
    /// follows) or when it can't be shown: a file that cannot be read, or above 16 MB.
    QImage thumbnail(const QString &path);

    void cancelRequests(); ///< All but the one being rendered.

Q_SIGNALS:
    void thumbnailDidLoad(const QString &path);

private:
    void renderNext();
    void keep(const QString &key, const QImage &picture);

    QCache<QString, QImage> m_thumbnails; // by path and date; cost is bytes
    QStringList m_requests;
    std::unique_ptr<platform::WebSnapshot> m_snapshot;
};
