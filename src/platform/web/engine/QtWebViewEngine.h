#pragma once

#include "platform/web/WebViewEngine.h"

#include <QDeadlineTimer>
#include <QPointF>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlSchemeHandler>
#include <QWebEngineView>

namespace platform {

/// Answers the current document's address, and no other of its scheme: a relative picture in the
/// document is missing, not the document once more.
class DocumentHandler : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    void setDocument(const QUrl &url, const QByteArray &data, const QByteArray &contentType);
    void requestStarted(QWebEngineUrlRequestJob *job) override;

private:
    QUrl m_url;
    QByteArray m_data;
    QByteArray m_contentType;
};

/// A page that stays where it is: links go out by `linkClicked`, scripts open nothing and ask
/// nothing. As an event filter it sees the user's clicks and keys, by which it tells a link that
/// they follow from one that a script clicks.
class DocumentPage : public QWebEnginePage
{
    Q_OBJECT

public:
    using QWebEnginePage::QWebEnginePage;

    /// Loads the document at `url`, whatever the one before it says to being left.
    void replaceDocument(const QUrl &url);
    void didReplaceDocument() { m_isLeaving = false; }
    /// Nothing unless the user asked for it and it is on the web or a mail address.
    void openLink(const QUrl &url);

    std::function<void(const QUrl &url)> linkClicked;

    bool eventFilter(QObject *object, QEvent *event) override;

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage *createWindow(WebWindowType) override { return nullptr; }
    QStringList chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) override
    {
        return {};
    }
    void javaScriptAlert(const QUrl &, const QString &) override {}
    bool javaScriptConfirm(const QUrl &, const QString &) override { return m_isLeaving; }
    bool javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *) override
    {
        return false;
    }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int,
                                  const QString &) override
    {
    }

private:
    QDeadlineTimer m_userAct;
    bool m_isLeaving = false; ///< A document asks by `javaScriptConfirm` whether it may be left.
};

/// The engine over QtWebEngine: an off-the-record profile, one view, one document.
class QtWebViewEngine : public WebViewEngine
{
public:
    explicit QtWebViewEngine(QWidget *parent);
    ~QtWebViewEngine() override;

    QWidget *widget() override { return m_view.get(); }
    void load(const QByteArray &data, const QString &mimeType, const QString &encoding,
              DocumentScroll scroll) override;
    void setZoomFactor(double factor) override { m_page->setZoomFactor(factor); }

private:
    void configureSettings();
    void connectPage();
    void scrollWhenReady();

    std::unique_ptr<QWebEngineProfile> m_profile; // outlives the page
    std::unique_ptr<QWebEngineView> m_view;
    DocumentHandler *m_handler; // the profile's
    DocumentPage *m_page;       // the view's: one that is visible without a page would crash
    QPointF m_scrollPosition;
    QUrl m_url;
    int m_revision = 0;
    bool m_isLoading = false;
};

class QtWebViewEngineFactory : public QObject, public WebViewEngineFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PlatformWebViewEngineFactory_iid)
    Q_INTERFACES(platform::WebViewEngineFactory)

public:
    QtWebViewEngineFactory();
    std::unique_ptr<WebViewEngine> makeEngine(QWidget *parent) override;
};

} // namespace platform
