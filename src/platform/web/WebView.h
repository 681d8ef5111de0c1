#pragma once

#include "platform/web/WebViewEngine.h"

#include <memory>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace platform {

/// Shows one in-memory document; the picture of the former stands until the next is drawn, if that
/// keeps its place. The engine behind it is a module of its own, loaded once the view
/// has a document and its window has been painted: programs and tests that never show a page pay
/// nothing for it. Documents may be of any size; they load over the network what they name
/// (pictures, styles) but cannot read local files, leave no trace on disk, and links that the user
/// clicks go to the desktop's browser. Where the module is not installed the view says so in a
/// plain line. Main thread.
class WebView : public QWidget
{
    Q_OBJECT

public:
    explicit WebView(QWidget *parent = nullptr);
    ~WebView() override;

    /// To be called once, before the application object: the engine needs it.
    static void prepareApplication();

    /// Replaces the document. `mimeType` "text/html"; `encoding` is the name of the bytes'
    /// encoding. A hidden view remembers the latest document and loads it when it shows; it shows
    /// the top if any document since the last one shown was to.
    void loadData(const QByteArray &document, const QString &mimeType, const QString &encoding,
                  DocumentScroll scroll = DocumentScroll::Keep);

    bool isLoading() const { return m_loading || m_isPending; }

    QPixmap picture() const; ///< What is in sight of the document; null before the first.

    /// 1 is the document's own size; from 0.25 to 5, other values are brought into that range.
    /// Holds for this view and every document in it.
    double zoomFactor() const { return m_zoomFactor; }
    void setZoomFactor(double factor);

Q_SIGNALS:
    void loadFinished(bool succeeded);
    void renderProcessDidTerminate(); ///< The page is gone; `loadData` brings it back.

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void startEngine();
    void loadPending();
    void loadPendingWhenIdle();
    void showCurtain();

    std::unique_ptr<WebViewEngine> m_engine;
    QByteArray m_pendingData;
    QString m_pendingMimeType;
    QString m_pendingEncoding;
    DocumentScroll m_pendingScroll = DocumentScroll::Keep;
    double m_zoomFactor = 1;
    QLabel *m_curtain = nullptr; ///< A picture of the page before, over the one that loads.
    QTimer m_curtainTime;
    bool m_isPending = false;
    bool m_loading = false;
    bool m_hasPage = false;
    bool m_started = false;
};

} // namespace platform
