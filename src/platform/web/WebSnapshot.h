#pragma once

#include <functional>
#include <QImage>
#include <QObject>
#include <QTimer>

namespace platform {

class WebView;

/// Takes pictures of documents as a browser shows them, out of sight, one at a time, for
/// thumbnails. The page stands for what it was loaded with until its pictures are there, or for two
/// seconds. Main thread; the engine is loaded with the first picture.
class WebSnapshot : public QObject
{
    Q_OBJECT

public:
    /// Null for a document that could not be loaded within fifteen seconds.
    using Handler = std::function<void(const QImage &picture)>;

    /// `page` is how large the window would be that shows the document from its top, in pixels.
    explicit WebSnapshot(const QSize &page, QObject *parent = nullptr);
    ~WebSnapshot() override;

    /// Never calls before it returned. Not while one is being taken.
    void take(const QByteArray &document, const QString &mimeType, const QString &encoding,
              Handler handler);
    bool isTaking() const { return m_handler != nullptr; }

private:
    void look();
    void finish(const QImage &picture);

    QSize m_page;
    std::unique_ptr<WebView> m_view;
    QTimer m_timer;
    Handler m_handler;
    QImage m_picture; // when it was last looked at
    int m_looks = 0;  // since the document was loaded, or since it was asked for
    bool m_isLoaded = false;
};

} // namespace platform
