// A web module for tests of windows: it shows nothing and keeps the documents that it was given, as
// the property "documents" of its widget; "fromTop" tells of each whether it was to show its top.
#include "platform/web/WebViewEngine.h"

#include <QPointer>
#include <QVariant>

namespace {

class RecordingEngine : public platform::WebViewEngine
{
public:
    explicit RecordingEngine(QWidget *parent) : m_widget(new QWidget(parent))
    {
        m_widget->setObjectName(QStringLiteral("recordingWebWidget"));
    }

    QWidget *widget() override { return m_widget; }
    void setZoomFactor(double) override {}
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
