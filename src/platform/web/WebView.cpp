#include "platform/web/WebView.h"

#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/Workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPluginLoader>
#include <QTimer>
#include <QVBoxLayout>

using namespace std::chrono_literals;

namespace platform {

namespace {

constexpr auto longestCurtain = 500ms; // of a page that waits for the network
constexpr auto drawing = 60ms;         // from the end of loading to the page on screen

QString modulePath()
{
    const QString moved = qEnvironmentVariable("LAYOUTSMITH_MODULES");
    const QString folder = moved.isEmpty() ? QCoreApplication::applicationDirPath() +
                                                 QStringLiteral("/../lib/layoutsmith")
                                           : moved;
    return QDir(folder).filePath(QStringLiteral("layoutsmith_web.so"));
}

// The module stays loaded: an engine cannot be taken down and brought up again in one process.
WebViewEngineFactory *engineFactory()
{
    static QPluginLoader loader(modulePath());
    auto *factory = qobject_cast<WebViewEngineFactory *>(loader.instance());
    if (!factory)
        log("no web engine: %@", loader.errorString());
    return factory;
}

} // namespace

WebView::WebView(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_curtainTime.setSingleShot(true);
}

WebView::~WebView() = default;

void WebView::prepareApplication()
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

void WebView::loadData(const QByteArray &document, const QString &mimeType, const QString &encoding,
                       DocumentScroll scroll)
{
    m_pendingData = document;
    m_pendingMimeType = mimeType;
    m_pendingEncoding = encoding;
    if (scroll == DocumentScroll::Top)
        m_pendingScroll = scroll;
    m_isPending = true;
    if (isVisible() && m_started)
        loadPending();
    else
        update();
}

void WebView::loadPending()
{
    m_isPending = false;
    if (!m_started)
        startEngine();
    if (!m_engine)
        return;
    const auto scroll = std::exchange(m_pendingScroll, DocumentScroll::Keep);
    if (m_hasPage && scroll == DocumentScroll::Keep)
        showCurtain();
    m_loading = true;
    m_engine->load(std::exchange(m_pendingData, {}), m_pendingMimeType, m_pendingEncoding, scroll);
}

// An empty page flashes between two documents.
void WebView::showCurtain()
{
    m_curtain->setPixmap(picture());
    m_curtain->setGeometry(m_engine->widget()->geometry());
    m_curtain->raise();
    m_curtain->show();
    m_curtainTime.start(longestCurtain);
}

QPixmap WebView::picture() const
{
    return m_engine ? m_engine->widget()->grab() : QPixmap();
}

void WebView::loadPendingWhenIdle()
{
    QTimer::singleShot(0, this, [this] {
        if (m_isPending && isVisible())
            loadPending();
    });
}

void WebView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_started)
        loadPendingWhenIdle();
}

// The engine's start holds the main thread up for a moment that the eye would notice: the window
// stands before.
void WebView::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (m_isPending && !m_started)
        loadPendingWhenIdle();
}

void WebView::setZoomFactor(double factor)
{
    m_zoomFactor = std::clamp(factor, 0.25, 5.0);
    if (m_engine)
        m_engine->setZoomFactor(m_zoomFactor);
}

void WebView::startEngine()
{
    m_started = true;
    window()->move(window()->pos()); // a window that the engine makes anew stays where it is
    if (WebViewEngineFactory *factory = engineFactory())
        m_engine = factory->makeEngine(this);
    if (!m_engine) {
        auto *note =
            new QLabel(localized("The preview needs the module \"layoutsmith_web\", which is "
                                 "not installed."));
        note->setObjectName(QStringLiteral("note"));
        note->setWordWrap(true);
        note->setAlignment(Qt::AlignCenter);
        note->setMargin(24);
        layout()->addWidget(note);
        return;
    }
    layout()->addWidget(m_engine->widget());
    m_curtain = new QLabel(this);
    m_curtain->hide();
    connect(&m_curtainTime, &QTimer::timeout, m_curtain, &QWidget::hide);
    setFocusProxy(m_engine->widget());
    m_engine->setZoomFactor(m_zoomFactor);
    m_engine->loadFinished = [this](bool succeeded) {
        m_loading = false;
        m_hasPage = true;
        m_curtainTime.start(drawing);
        Q_EMIT loadFinished(succeeded);
    };
    m_engine->renderProcessDidTerminate = [this] {
        m_loading = false;
        m_hasPage = false;
        m_curtain->hide();
        Q_EMIT renderProcessDidTerminate();
    };
    m_engine->linkClicked = [](const QUrl &url) {
        Workspace::sharedWorkspace().openUrl(url);
    };
}

} // namespace platform
