#pragma once

#include <functional>
#include <memory>
#include <QtPlugin>
#include <QUrl>
#include <QWidget>

namespace platform {

/// Where a document begins to show: as far down as the one before it, or at its top.
enum class DocumentScroll { Keep, Top };

/// What the module "layoutsmith_web" offers to WebView, and all that the two know of each other.
class WebViewEngine
{
public:
    virtual ~WebViewEngine() = default;

    virtual QWidget *widget() = 0; ///< The engine's; below the given parent.
    virtual void load(const QByteArray &data, const QString &mimeType, const QString &encoding,
                      DocumentScroll scroll) = 0;
    virtual void setZoomFactor(double factor) = 0;

    std::function<void(bool succeeded)> loadFinished;
    std::function<void()> renderProcessDidTerminate;
    std::function<void(const QUrl &url)> linkClicked; ///< By the user; the page stays.
};

class WebViewEngineFactory
{
public:
    virtual ~WebViewEngineFactory() = default;
    virtual std::unique_ptr<WebViewEngine> makeEngine(QWidget *parent) = 0;
};

} // namespace platform

#define PlatformWebViewEngineFactory_iid "layoutsmith.WebViewEngineFactory/2"
Q_DECLARE_INTERFACE(platform::WebViewEngineFactory, PlatformWebViewEngineFactory_iid)
