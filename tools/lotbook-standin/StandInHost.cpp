#include "StandInHost.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignTemplateManager.h"
#include "library/LSMLotbookConfig.h"
#include "library/LSMPlaceholders.h"
#include "library/LSMPropertyValues.h"
#include "platform/FileIO.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "SampleListing.h"

#include <cstdio>
#include <cstdlib>
#include <QDBusConnection>
#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace {

constexpr qsizetype hugeSize = 50 * 1024 * 1024;

// What the design itself adds to the listing: its properties, and which layout is on.
void addValuesOfDesign(ListingValues &values, const LSMDesignTemplate &design,
                       const QString &layoutName)
{
    values.insert(LSMPropertyValues(design));
    const bool isKnown = design.layoutNames().contains(layoutName);
    values[isKnown ? LSMDesignLayouts::markerOfLayout(layoutName)
                   : QStringLiteral("LBLayoutNotDefined")] = QStringLiteral("1");
}

// Read anew each time: they change on disk.
std::shared_ptr<LSMDesignTemplate> designWithIdentifier(const QString &identifier)
{
    const QString application = platform::Workspace::sharedWorkspace().pathForApplication(
        LSMLotbookConfig::lotbookApplicationIdentifier());
    for (const QString &folder :
         {LSMLotbookConfig::lotbookDesignTemplatesPath(),
          application + QStringLiteral("/Contents/Resources/DesignTemplates")}) {
        for (auto &design : LSMDesignTemplateManager::loadDesignTemplatesFromDir(
                 folder, LSMDesignKeys::builtinType)) {
            if (design->templateIdentifier() == identifier)
                return design;
        }
    }
    return nullptr;
}

} // namespace

StandInHost::StandInHost(StandInOptions options)
    : m_options(std::move(options)), m_title(m_options.title)
{
}

bool StandInHost::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.registerObject(QStringLiteral("/com/quillbyte/Lotbook"), this,
                              QDBusConnection::ExportScriptableSlots) &&
           bus.registerService(QStringLiteral("com.quillbyte.Lotbook"));
}

QString StandInHost::Get(const QString &name, const QString &object)
{
    answerLateOrDie();
    if (const QString *value = property(name, object))
        return *value;
    refuse(QStringLiteral("There is no %1 of %2.").arg(name, object));
    return {};
}

void StandInHost::Set(const QString &name, const QString &object, const QString &value)
{
    answerLateOrDie();
    QString *place = property(name, object);
    if (!place)
        return refuse(QStringLiteral("There is no %1 of %2.").arg(name, object));
    if (name == m_options.failingProperty)
        return refuse(QStringLiteral("The %1 of the listing is locked.").arg(name));
    if (place == &m_designIdentifier && !designWithIdentifier(value))
        return refuse(QStringLiteral("There is no design with the identifier %1.").arg(value));
    *place = value;
    std::printf("%s = %s\n", qPrintable(name), qPrintable(value));
    render();
}

QString StandInHost::Perform(const QString &command, const QString &value)
{
    answerLateOrDie();
    if (command == u"activate") {
        std::printf("activate\n");
    } else if (command != u"select template") {
        refuse(QStringLiteral("%1 is no command.").arg(command));
    } else if (designWithIdentifier(value)) {
        m_selectedTemplate = value;
        std::printf("selected template = %s\n", qPrintable(value));
    } else {
        refuse(QStringLiteral("There is no template with the identifier %1.").arg(value));
    }
    return {};
}

QString *StandInHost::property(const QString &name, const QString &object)
{
    if (object == u"application" && name == u"selected template")
        return &m_selectedTemplate;
    if (object != u"selected listing")
        return nullptr;
    return name == u"title"               ? &m_title
           : name == u"design identifier" ? &m_designIdentifier
           : name == u"layout name"       ? &m_layoutName
                                          : nullptr;
}

void StandInHost::answerLateOrDie()
{
    QThread::msleep(ulong(m_options.delay * 1000));
    if (m_options.dieAfter && m_answers++ >= *m_options.dieAfter)
        std::_Exit(0);
}

void StandInHost::refuse(const QString &description)
{
    sendErrorReply(QStringLiteral("com.quillbyte.Scripting.Error"), description);
}

void StandInHost::render()
{
    const platform::UserDefaults preferences(
        LSMLotbookConfig::lotbookPreferencesPathForBundleIdentifier(
            LSMLotbookConfig::lotbookApplicationIdentifier()));
    const auto design = designWithIdentifier(m_designIdentifier);
    if (!design || !preferences.boolean(QStringLiteral("writeDescriptionToLibrary")) ||
        (m_options.renders && m_renderings++ >= *m_options.renders))
        return;
    ListingValues values = sampleListing(m_title);
    addValuesOfDesign(values, *design, m_layoutName);
    const auto valueOf = [&values](const QString &name) {
        return values.value(name, QStringLiteral(""));
    };
    QByteArray html = LSMPlaceholders::filled(design->htmlSourceCode(), valueOf).toUtf8();
    if (m_options.rendersHuge)
        html.append("<p>").append(QByteArray(hugeSize - html.size() - 3, '-'));
    write(QStringLiteral("Library/Application Support/Lotbook/GeneratedDescriptions/"), html);
    write(QStringLiteral("Documents/__Preview-"), html);
}

void StandInHost::write(const QString &below, const QByteArray &html) const
{
    const QString path = LSMLotbookConfig::lotbookContainerFolder() + u'/' + below +
                         QString(m_title).replace(u'/', u'-') + QStringLiteral(".html");
    QDir().mkpath(QFileInfo(path).path());
    platform::Error error;
    if (!platform::writeFileAtomically(path, html, &error))
        std::fprintf(stderr, "lotbook-standin: %s\n", qPrintable(error.description));
}
