#include "platform/web/WebSnapshot.h"

#include "platform/web/WebView.h"

#include <QPixmap>

using namespace std::chrono_literals;

namespace platform {

namespace {

constexpr auto interval = 100ms;
constexpr int fewestLooks = 3; // what was loaded is painted a moment later
constexpr int mostLooks = 20;  // a page that keeps moving is taken as it is
constexpr int longestLoad = 150;
constexpr QSize scrollBars(16, 16); // to the right and below, and not in the picture

} // namespace

WebSnapshot::WebSnapshot(const QSize &page, QObject *parent)
    : QObject(parent), m_page(page), m_view(std::make_unique<WebView>())
{
    m_view->setAttribute(Qt::WA_DontShowOnScreen);
    m_view->setAttribute(Qt::WA_QuitOnClose, false);
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->resize(page + scrollBars);
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &WebSnapshot::look);
    connect(m_view.get(), &WebView::loadFinished, this, [this] {
        m_isLoaded = true;
        m_looks = 0;
    });
    connect(m_view.get(), &WebView::renderProcessDidTerminate, this, [this] {
        if (isTaking())
            finish({});
    });
}

WebSnapshot::~WebSnapshot() = default;

void WebSnapshot::take(const QByteArray &document, const QString &mimeType, const QString &encoding,
                       Handler handler)
{
    m_handler = std::move(handler);
    m_picture = {};
    m_isLoaded = false;
    m_looks = 0;
    m_view->show();
    m_view->loadData(document, mimeType, encoding, DocumentScroll::Top);
    m_view->grab(); // the first painting starts the engine
    m_timer.start();
}

void WebSnapshot::look()
{
    ++m_looks;
    if (!m_isLoaded) {
        if (m_looks >= longestLoad || !m_view->isLoading())
            finish({});
        return;
    }
    const QImage picture = m_view->grab(QRect({}, m_page)).toImage();
    if (m_looks >= mostLooks || (m_looks >= fewestLooks && picture == m_picture))
        finish(picture);
    else
        m_picture = picture;
}

void WebSnapshot::finish(const QImage &picture)
{
    m_timer.stop();
    m_view->hide();
    m_picture = {};
    std::exchange(m_handler, nullptr)(picture);
}

} // namespace platform
