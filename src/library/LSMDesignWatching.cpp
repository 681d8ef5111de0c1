// The manager's watch over the HTML of custom designs.
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplateManager.h"
#include "library/LSMDesignTemplateManagerDelegate.h"
#include "platform/Application.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/FileIO.h"
#include "platform/Log.h"
#include "platform/TextEncoding.h"
#include "watching/CDEvents.h"

#include <QFileInfo>
#include <QPointer>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

constexpr auto settlingTime = 500ms; // until a file that is being replaced stands there again

} // namespace

void LSMDesignTemplateManager::startWatchingFileAtPath(const QString &path)
{
    startWatchingFileAtPath(path, [this](const QString &folder) {
        if (m_delegate)
            reloadBodyHtmlForDesignAtPath(folder);
    });
}

void LSMDesignTemplateManager::startWatchingFileAtPath(const QString &path,
                                                       const ChangeBlock &changeBlock)
{
    if (m_watching == Watching::Off || m_eventWatchers.contains(path) || !QFileInfo::exists(path))
        return;
    const QPointer<LSMDesignTemplateManager> manager(this);
    const auto block = [manager, changeBlock](CDEvents *, const CDEvent &event) {
        if (manager)
            manager->eventOccurred(event, changeBlock);
    };
    try {
        m_eventWatchers[path] = std::make_unique<CDEvents>(QList{QUrl::fromLocalFile(path)}, block);
    } catch (const platform::Exception &exception) {
        m_eventWatchers.erase(path);
        platform::log("%@ is not watched: %@", path, exception.reason());
    }
}

void LSMDesignTemplateManager::stopWatchingFileAtPath(const QString &path)
{
    PLATFORM_ASSERT(!path.isNull(), "Invalid parameter not satisfying: %@", "path");
    m_eventWatchers.erase(path);
}

void LSMDesignTemplateManager::eventOccurred(const CDEvent &event, const ChangeBlock &changeBlock)
{
    const QString path = event.url().toLocalFile();
    if (event.isRemoved()) {
        stopWatchingFileAtPath(path);
        QTimer::singleShot(settlingTime, Qt::PreciseTimer, this,
                           [this, path] { startWatchingFileAtPath(path); });
    }
    QTimer::singleShot(settlingTime, Qt::PreciseTimer, this,
                       [changeBlock, folder = QFileInfo(path).path()] { changeBlock(folder); });
}

void LSMDesignTemplateManager::reloadBodyHtmlForDesignAtPath(const QString &folder)
{
    const QString path = folder + u'/' + LSMDesignKeys::bodyFile;
    LSMDesignTemplate *design = QFileInfo::exists(path) ? templateWithPath(folder) : nullptr;
    if (!design)
        return;
    PLATFORM_ASSERT(m_delegate, "Need delegate");
    if (m_askedFor.contains(design))
        return;                                      // what is read after the answer is the latest
    const QPointer<LSMDesignTemplate> alive(design); // the answer may take its time
    m_askedFor.insert(design);
    const bool isToBeReloaded = m_delegate->shouldReloadChangedDesignFromFile(design);
    if (alive)
        takeBodyFromDisk(design, isToBeReloaded);
    m_askedFor.remove(design);
    if (alive && isToBeReloaded)
        m_delegate->didReloadChangedDesignFromFile(design);
    if (alive && design->bodyDiffersOnDisk()) // written while an error was shown
        reloadBodyHtmlForDesignAtPath(folder);
}

void LSMDesignTemplateManager::takeBodyFromDisk(LSMDesignTemplate *design, bool isToBeReloaded)
{
    platform::Error error;
    const QString path = design->bodyPath();
    const auto bytes = platform::readFile(path, &error);
    design->noteBodyOnDisk(bytes.value_or(QByteArray()));
    if (!isToBeReloaded)
        return;
    if (bytes)
        return design->setHtmlSourceCode(platform::decodeText(*bytes).text);
    platform::log("error reading file: %@\n%@", path, error.description);
    error.recoverySuggestion = error.description;
    error.description = platform::format(
        platform::localized("The HTML of \"%@\" could not be read again. It stays as it is in the "
                            "editor."),
        design->templateName());
    platform::Application::presentError(error);
}
