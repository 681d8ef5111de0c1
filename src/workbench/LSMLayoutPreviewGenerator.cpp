#include "workbench/LSMLayoutPreviewGenerator.h"

#include "kit/ZQErrorExtensions.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignTemplate.h"
#include "library/LSMLotbookConfig.h"
#include "platform/AppleScript.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/DispatchQueue.h"
#include "platform/FileIO.h"
#include "platform/Log.h"
#include "platform/TextEncoding.h"

#include <condition_variable>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using platform::AppleScript;
using platform::DispatchQueue;
using platform::Error;
using platform::localized;

LSMLayoutPreviewGenerator::Waits LSMLayoutPreviewGenerator::s_waits;

namespace {

const QString temporaryTitle = QStringLiteral("LSM_preview");

const QString &previewWrapper()
{
    static const QString text = platform::Bundle::mainBundle().stringForResource(
        QStringLiteral("previewWrapper"), QStringLiteral("html"));
    return text;
}

const QString &changeTemplateSource()
{
    static const QString text = platform::Bundle::mainBundle().stringForResource(
        QStringLiteral("change_template"), QStringLiteral("applescript"));
    return text;
}

// Always false; what was wrong in detail goes on to the user as what to look at.
bool failWith(Error *error, const QString &description, const Error &cause = {})
{
    *error = zq_errorWithLocalizedDescription(description);
    error->recoverySuggestion = cause.description;
    return false;
}

// Lotbook writes one file of that name, whatever the listing is called.
QString fileName(const QString &title)
{
    return QString(title).replace(u'/', u'-').replace(QChar(0), u'-') + QStringLiteral(".html");
}

QDateTime modificationDate(const QString &path)
{
    return QFileInfo(path).lastModified();
}

// The preview within the page that shows it, as a file.
bool writeSample(const QString &previewPath, const QString &destination, Error *error)
{
    const auto bytes = platform::readFile(previewPath, error);
    if (!bytes)
        return false;
    const auto preview = platform::decodeUtf8(*bytes);
    if (!preview)
        return failWith(error,
                        platform::format(localized("The file %@ is not UTF-8."), previewPath));
    return platform::writeFileAtomically(
        destination, platform::format(previewWrapper(), *preview).toUtf8(), error);
}

void noteLayouts(LSMDesignTemplate &design, const QStringList &layoutNames,
                 const QString &defaultLayoutName)
{
    const auto dictionary = design.templateDictionary();
    const QVariantMap former = dictionary->value(LSMDesignKeys::store).toMap();
    QVariantMap noted = former;
    noted[LSMDesignKeys::layoutNames] = QVariantList(layoutNames.begin(), layoutNames.end());
    if (defaultLayoutName.isNull())
        noted.remove(LSMDesignKeys::defaultLayoutName);
    else
        noted[LSMDesignKeys::defaultLayoutName] = defaultLayoutName;
    if (noted != former) {
        if (dictionary->value(LSMDesignKeys::store).typeId() == QMetaType::QVariantMap)
            dictionary->setValue(LSMDesignKeys::store, noted);
        design.setTemplateShouldBeSaved(true);
    }
    design.setLayoutPreviewGenerationDateString({});
}

} // namespace

LSMLayoutPreviewGenerator::LSMLayoutPreviewGenerator(LSMDesignTemplate *design,
                                                     ProgressHandler progressHandler)
    : m_progressHandler(std::move(progressHandler))
{
    PLATFORM_ASSERT(design, "Invalid parameter not satisfying: %@", "inDesignTemplate");
    PLATFORM_ASSERT(m_progressHandler, "Invalid parameter not satisfying: %@", "progressHandler");
    m_design = design;
    m_identifier = design->templateIdentifier();
    m_bundle = design->templatePath();
    m_layoutNames = design->layoutNames();
    m_defaultLayoutName = design->defaultLayoutName();
    m_container = LSMLotbookConfig::lotbookContainerFolder();
}

std::jthread LSMLayoutPreviewGenerator::saveLayoutPreviewsOfDesignTemplate(
    LSMDesignTemplate *design, ProgressHandler progressHandler, CompletionHandler completionHandler)
{
    LSMLayoutPreviewGenerator generator(design, std::move(progressHandler));
    PLATFORM_ASSERT(completionHandler, "Invalid parameter not satisfying: %@", "completionHandler");
    std::jthread thread(
        [generator = std::move(generator),
         completionHandler = std::move(completionHandler)](const std::stop_token &stop) mutable {
            Error error;
            const bool hasFailed = !generator.run(stop, &error) && !stop.stop_requested();
            DispatchQueue::mainQueue().async([completionHandler, hasFailed, error] {
                completionHandler(hasFailed ? &error : nullptr);
            });
        });
    QObject::connect(design, &QObject::destroyed,
                     [source = thread.get_stop_source()]() mutable { source.request_stop(); });
    return thread;
}

bool LSMLayoutPreviewGenerator::saveLayoutPreviewsOfDesignTemplate(LSMDesignTemplate *design,
                                                                   ProgressHandler progressHandler,
                                                                   Error *error)
{
    Error reason;
    if (LSMLayoutPreviewGenerator(design, std::move(progressHandler)).run({}, &reason))
        return true;
    if (error)
        *error = reason;
    return false;
}

int LSMLayoutPreviewGenerator::completeStepsForPreviewGenerationForDesignTemplate(
    const LSMDesignTemplate *design)
{
    return int(design->layoutNames().size()) + 2;
}

// A step that fails without an error was cancelled.
bool LSMLayoutPreviewGenerator::run(const std::stop_token &stop, Error *error)
{
    m_stop = stop;
    QString title;
    QString previewPath;
    if (!getTitle(&title, &previewPath, error))
        return false;
    int step = 1;
    report(step);
    QDateTime date = modificationDate(previewPath);
    if (!date.isValid())
        return failWith(
            error, platform::format(localized("Couldn't find preview file at %@."), previewPath));
    const QString samples = createLayoutSamplesDirectory(error);
    if (samples.isNull()) {
        platform::log("couldn't create destination for layout previews: %@", error->description);
        return false;
    }
    for (const QString &name : m_layoutNames) {
        if (m_stop.stop_requested() ||
            !createPreviewForLayoutName(name, previewPath, &date, samples, error))
            return false;
        report(++step);
    }
    const auto note = [design = m_design, names = m_layoutNames, first = m_defaultLayoutName] {
        if (design)
            noteLayouts(*design, names, first);
    };
    if (!DispatchQueue::mainQueue().sync(note, m_stop))
        return false;
    cleanupTemporaryPreviewFilesForListingTitle(title);
    report(++step);
    return true;
}

// The listing has its own title back when this returns. A host that takes too long does yet, in
// turn, what it was told; so it is told once more.
bool LSMLayoutPreviewGenerator::getTitle(QString *outTitle, QString *andPreviewPath, Error *error)
{
    Error cause;
    const auto title = AppleScript(QStringLiteral("tell application \"Lotbook\" to get title of "
                                                  "selected listing"))
                           .executeAndReturnError(&cause);
    *outTitle = title.value_or(QString());
    const auto setTitle = [&cause](const QString &to) {
        return changeSelectedLBTemplateProperty(QStringLiteral("title"), to, nullptr, &cause);
    };
    if (!title || !setTitle(temporaryTitle) || !setTitle(*title)) {
        if (title)
            giveTitleBack(*title);
        return failWith(error, localized("Couldn't get title of selected listing from Lotbook"),
                        cause);
    }
    *andPreviewPath = generatedDescription(*outTitle);
    QFile::remove(*andPreviewPath);
    if (m_stop.stop_requested())
        return false;
    if (!changeSelectedLBTemplateProperty(QStringLiteral("design identifier"), m_identifier,
                                          nullptr, &cause))
        return failWith(
            error, localized("Couldn't change design identifier of selected listing in Lotbook."),
            cause);
    return wait(s_waits.rendering);
}

void LSMLayoutPreviewGenerator::giveTitleBack(const QString &title)
{
    Error reason;
    if (!AppleScript(platform::format(QStringLiteral("tell application \"Lotbook\" to set title of "
                                                     "selected listing to \"%@\""),
                                      AppleScript::escaped(title)))
             .executeAndReturnError(&reason))
        platform::log("the title \"%@\" may not be back: %@", title, reason.description);
}

bool LSMLayoutPreviewGenerator::changeSelectedLBTemplateProperty(const QString &name,
                                                                 const QString &value,
                                                                 QString *outOldValue, Error *error)
{
    const AppleScript script(
        platform::format(changeTemplateSource(), name, name, AppleScript::escaped(value)));
    Error reason;
    const auto formerValue = script.executeAndReturnError(&reason);
    if (!formerValue) {
        platform::log("error while trying to change template property: %@\nerror:\n%@", name,
                      reason.description);
        if (error)
            *error = reason;
        return false;
    }
    if (outOldValue)
        *outOldValue = *formerValue;
    return true;
}

// The bundle itself is not made: a design that was deleted stays so.
QString LSMLayoutPreviewGenerator::createLayoutSamplesDirectory(Error *error) const
{
    const QString folder = m_bundle + u'/' + LSMDesignKeys::layoutSamplesFolder;
    if (QFileInfo(folder).isDir() || (QFileInfo(m_bundle).isDir() && QDir().mkdir(folder)))
        return folder;
    platform::failWithErrno(error, folder);
    return {};
}

bool LSMLayoutPreviewGenerator::createPreviewForLayoutName(const QString &name,
                                                           const QString &previewPath,
                                                           QDateTime *lastModificationDate,
                                                           const QString &destinationDir,
                                                           Error *error)
{
    Error cause;
    if (!changeSelectedLBTemplateProperty(QStringLiteral("layout name"), name, nullptr, &cause))
        return failWith(
            error, localized("Couldn't change layout name of selected listing in Lotbook."), cause);
    for (int poll = 0; poll < s_waits.polls; ++poll) {
        if (!wait(s_waits.poll))
            return false;
        const QDateTime date = modificationDate(previewPath);
        if (!date.isValid() || date == *lastModificationDate)
            continue;
        *lastModificationDate = date;
        const QString sample = destinationDir + u'/' + LSMDesignLayouts::sampleFileName(name);
        if (writeSample(previewPath, sample, error))
            return true;
        platform::log("problem while trying to copy \"%@\" to \"%@\"", previewPath, sample);
        return false;
    }
    platform::log("waiting for preview timed out");
    return failWith(error, localized("Generating the preview in Lotbook timed out."));
}

void LSMLayoutPreviewGenerator::cleanupTemporaryPreviewFilesForListingTitle(
    const QString &title) const
{
    const QString documents =
        subfolderInLotbookContainerWithPathComponents({QStringLiteral("Documents")});
    for (const QString &each : {title, temporaryTitle})
        QFile::remove(generatedDescription(each));
    for (const QString &each : {title, temporaryTitle})
        QFile::remove(documents + u'/' + QStringLiteral("__Preview-") + fileName(each));
}

QString LSMLayoutPreviewGenerator::subfolderInLotbookContainerWithPathComponents(
    const QStringList &components) const
{
    return m_container + u'/' + components.join(u'/');
}

QString LSMLayoutPreviewGenerator::generatedDescription(const QString &title) const
{
    return subfolderInLotbookContainerWithPathComponents(
        {QStringLiteral("Library"), QStringLiteral("Application Support"),
         QStringLiteral("Lotbook"), QStringLiteral("GeneratedDescriptions"), fileName(title)});
}

void LSMLayoutPreviewGenerator::report(int step) const
{
    const double steps = double(m_layoutNames.size()) + 2;
    DispatchQueue::mainQueue().async(
        [handler = m_progressHandler, fraction = step / steps] { handler(fraction); });
}

bool LSMLayoutPreviewGenerator::wait(std::chrono::milliseconds duration) const
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, m_stop, duration, [] { return false; });
    return !m_stop.stop_requested();
}
