#include "platform/web/engine/QtWebViewEngine.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QWebEngineDownloadRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <unistd.h>

namespace platform {

namespace {

constexpr const char *schemeName = "layoutsmith-document";

// What the engine reads from the environment when it starts; what the user has set stands.
void prepareEnvironment()
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QByteArray flags = "--disable-background-networking --disable-component-update --disable-sync "
                       "--no-first-run --log-level=3";
    if (QGuiApplication::platformName() == u"offscreen")
        flags += " --disable-gpu";
    if (!qEnvironmentVariableIsSet("QTWEBENGINE_CHROMIUM_FLAGS"))
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", flags);
}

QtMessageHandler messageHandler = nullptr;

// Two of the lines below are in no category of their own, so that no rule can filter them.
void passUnlessExpected(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool isExpected = qstrcmp(context.category, "qt.webenginecontext") == 0 ||
                            text.startsWith(u"Sandboxing disabled by user") ||
                            text.startsWith(u"No suitable graphics backend found");
    if (!isExpected || type == QtCriticalMsg || type == QtFatalMsg)
        messageHandler(type, context, text);
}

// The first profile starts the engine, which tells of its set-up: of interest only to those who
// have set logging rules.
std::unique_ptr<QWebEngineProfile> makeProfile()
{
    if (qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
        return std::make_unique<QWebEngineProfile>();
    messageHandler = qInstallMessageHandler(passUnlessExpected);
    auto profile = std::make_unique<QWebEngineProfile>();
    qInstallMessageHandler(messageHandler);
    return profile;
}

} // namespace

void DocumentHandler::setDocument(const QUrl &url, const QByteArray &data,
                                  const QByteArray &contentType)
{
    m_url = url;
    m_data = data;
    m_contentType = contentType;
}

void DocumentHandler::requestStarted(QWebEngineUrlRequestJob *job)
{
    if (job->requestUrl() != m_url) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto *buffer = new QBuffer(job);
    buffer->setData(m_data);
    buffer->open(QIODevice::ReadOnly);
    job->reply(m_contentType, buffer);
}

void DocumentPage::replaceDocument(const QUrl &url)
{
    m_isLeaving = true;
    load(url);
}

// One act of the user's opens one page at the most, and soon.
bool DocumentPage::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::KeyPress)
        m_userAct.setRemainingTime(std::chrono::seconds(1));
    return QWebEnginePage::eventFilter(object, event);
}

void DocumentPage::openLink(const QUrl &url)
{
    const bool isWeb =
        url.scheme() == u"http" || url.scheme() == u"https" || url.scheme() == u"mailto";
    const bool isByUser = !std::exchange(m_userAct, QDeadlineTimer()).hasExpired();
    if (isWeb && isByUser && linkClicked)
        linkClicked(url);
}

bool DocumentPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame)
{
    if (!isMainFrame)
        return true;
    if (type == NavigationTypeLinkClicked)
        openLink(url);
    return type == NavigationTypeTyped && url.scheme() == QLatin1StringView(schemeName);
}

QtWebViewEngine::QtWebViewEngine(QWidget *parent)
    : m_profile(makeProfile()), m_view(std::make_unique<QWebEngineView>(parent)),
      m_handler(new DocumentHandler(m_profile.get())),
      m_page(new DocumentPage(m_profile.get(), m_view.get()))
{
    m_profile->installUrlSchemeHandler(schemeName, m_handler);
    QObject::connect(m_profile.get(), &QWebEngineProfile::downloadRequested, m_handler,
                     [](QWebEngineDownloadRequest *) {}); // not accepted: it ends
    m_view->setPage(m_page);
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    configureSettings();
    connectPage();
}

QtWebViewEngine::~QtWebViewEngine()
{
    m_page->disconnect(); // it says nothing on its way
}

void QtWebViewEngine::configureSettings()
{
    QWebEngineSettings *settings = m_page->settings();
    using enum QWebEngineSettings::WebAttribute;
    for (const auto attribute :
         {LocalContentCanAccessFileUrls, LocalContentCanAccessRemoteUrls, PluginsEnabled,
          JavascriptCanOpenWindows, JavascriptCanAccessClipboard, FullScreenSupportEnabled,
          LocalStorageEnabled, ErrorPageEnabled, PdfViewerEnabled, FocusOnNavigationEnabled,
          NavigateOnDropEnabled})
        settings->setAttribute(attribute, false);
}

void QtWebViewEngine::connectPage()
{
    m_page->linkClicked = [this](const QUrl &url) {
        if (linkClicked)
            linkClicked(url);
    };
    // Only the current document's own load counts: refused navigations and loads that a newer
    // document cut short report too.
    QObject::connect(
        m_page, &QWebEnginePage::loadingChanged, m_page, [this](const QWebEngineLoadingInfo &info) {
            if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus || info.url() != m_url ||
                !std::exchange(m_isLoading, false))
                return;
            if (loadFinished)
                loadFinished(info.status() == QWebEngineLoadingInfo::LoadSucceededStatus);
        });
    QObject::connect(m_page, &QWebEnginePage::newWindowRequested, m_page,
                     [this](const QWebEngineNewWindowRequest &request) {
                         m_page->openLink(request.requestedUrl());
                     });
    QObject::connect(m_page, &QWebEnginePage::urlChanged, m_page, [this] {
        m_page->didReplaceDocument();
        m_view->focusProxy()->installEventFilter(m_page);
    });
    QObject::connect(m_page, &QWebEnginePage::renderProcessTerminated, m_page, [this] {
        m_isLoading = false;
        if (renderProcessDidTerminate)
            renderProcessDidTerminate();
    });
    QObject::connect(m_page, &QWebEnginePage::featurePermissionRequested, m_page,
                     [this](const QUrl &origin, QWebEnginePage::Feature feature) {
                         m_page->setFeaturePermission(origin, feature,
                                                      QWebEnginePage::PermissionDeniedByUser);
                     });
}

// Set as soon as the document stands, and once more when its pictures have made it longer, unless
// the user has scrolled meanwhile.
void QtWebViewEngine::scrollWhenReady()
{
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setSourceCode(QStringLiteral(R"((() => {
        const scroll = () => scrollTo({left: %1, top: %2, behavior: 'instant'});
        scroll();
        const reached = scrollY;
        addEventListener('load', () => { if (scrollY === reached) scroll(); });
    })())")
                             .arg(m_scrollPosition.x())
                             .arg(m_scrollPosition.y()));
    m_page->scripts().clear();
    m_page->scripts().insert(script);
}

void QtWebViewEngine::load(const QByteArray &data, const QString &mimeType, const QString &encoding,
                           DocumentScroll scroll)
{
    if (scroll == DocumentScroll::Top)
        m_scrollPosition = {};
    else if (!m_isLoading)
        m_scrollPosition = m_page->scrollPosition() / m_page->zoomFactor();
    scrollWhenReady();
    // Each document has an address of its own, so that none is taken for the one before.
    m_url = QUrl(QStringLiteral("%1:/%2").arg(QLatin1StringView(schemeName)).arg(++m_revision));
    m_handler->setDocument(m_url, data,
                           (mimeType + QStringLiteral("; charset=") + encoding).toLatin1());
    m_isLoading = true;
    m_page->replaceDocument(m_url);
}

QtWebViewEngineFactory::QtWebViewEngineFactory()
{
    prepareEnvironment();
    QWebEngineUrlScheme scheme(schemeName);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    QWebEngineUrlScheme::registerScheme(scheme);
}

std::unique_ptr<WebViewEngine> QtWebViewEngineFactory::makeEngine(QWidget *parent)
{
    return std::make_unique<QtWebViewEngine>(parent);
}

} // namespace platform
