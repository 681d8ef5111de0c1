// A web module for tests of windows: it shows nothing and keeps the documents that it was given, as
// the property "documents" of its widget; "fromTop" tells of each whether it was to show its top,
// and "zoomFactor" how large. Setting its property "dies" ends the page as a crash would.
#include "platform/web/WebViewEngine.h"

#include <QEvent>
#include <QPointer>
#include <QVariant>

namespace {

class RecordingEngine : public QObject, public platform::WebViewEngine
{
public:
    explicit RecordingEngine(QWidget *parent) : m_widget(new QWidget(parent))
    {
        m_widget->setObjectName(QStringLiteral("recordingWebWidget"));
        m_widget->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange && m_widget->property("dies").toBool()) {
            m_widget->setProperty("dies", {});
            renderProcessDidTerminate();
        }
        return false;
    }

    QWidget *widget() override { return m_widget; }
    void setZoomFactor(double factor) override { m_widget->setProperty("zoomFactor", factor); }
    void load(const QByteArray &data, const QString &, const QString &,
              platform::DocumentScroll scroll) override
    {
        m_widget->setProperty("fromTop", m_widget->property("fromTop").toList()
                                             << (scroll == platform::DocumentScroll::Top));
        m_widget->setProperty("documents", m_widget->property("documents").toStringList()
                                               << QString::fromUtf8(data));
        loadFinished(true);
    }

private:
    QPointer<QWidget> m_widget;
};

class RecordingEngineFactory : public QObject, public platform::WebViewEngineFactory
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PlatformWebViewEngineFactory_iid)
    Q_INTERFACES(platform::WebViewEngineFactory)

public:
    std::unique_ptr<platform::WebViewEngine> makeEngine(QWidget *parent) override
    {
        return std::make_unique<RecordingEngine>(parent);
    }
};

} // namespace

#include "RecordingWebModule.moc"
