#pragma once

#include "platform/Error.h"

#include <chrono>
#include <functional>
#include <QDateTime>
#include <QPointer>
#include <QStringList>
#include <thread>

class LSMDesignTemplate;

/// Has a running Lotbook render a sample of each layout of a design: points the listing that is
/// selected there at the design, switches it through the layouts, waits for each description that
/// Lotbook writes, and puts it into `Layout_Samples` of the design's bundle.
///
/// A run has a thread of its own, which scripts, waits and writes files; the design is read when
/// the run begins and changed at its end, both on the main thread. The listing stays on the design
/// and its last layout. On failure the samples written so far stay and the design is as it was.
class LSMLayoutPreviewGenerator
{
public:
    using ProgressHandler = std::function<void(double fraction)>;                 ///< 0 to 1
    using CompletionHandler = std::function<void(const platform::Error *reason)>; ///< Null: none.

    struct Waits
    {
        std::chrono::milliseconds rendering = std::chrono::seconds(3); ///< After the identifier.
        std::chrono::milliseconds poll = std::chrono::seconds(1);      ///< Between two looks.
        int polls = 10;                                                ///< At the most, a layout.
    };
    static void setWaits(const Waits &waits) { s_waits = waits; } ///< For tests; between runs.

    /// Starts a run and returns at once. Both handlers are called on the main thread; the last call
    /// is that of the completion handler, which hears of no error when the run was cancelled. It is
    /// cancelled by `request_stop`, and by destroying what is returned, which waits for it: while
    /// Lotbook is being asked, which gives up after five seconds, and gives it back its title. Main
    /// thread.
    [[nodiscard]] static std::jthread
    saveLayoutPreviewsOfDesignTemplate(LSMDesignTemplate *design, ProgressHandler progressHandler,
                                       CompletionHandler completionHandler);

    /// The same on the main thread, which it holds up for all the time.
    static bool saveLayoutPreviewsOfDesignTemplate(LSMDesignTemplate *design,
                                                   ProgressHandler progressHandler,
                                                   platform::Error *error);

    /// How often progress is told of, of which the last time is 1.
    static int completeStepsForPreviewGenerationForDesignTemplate(const LSMDesignTemplate *design);

    /// Sets a property ("title", "design identifier", "layout name") of the selected listing and
    /// gives the former value, if asked for. Any thread; blocks for five seconds at the most.
    static bool changeSelectedLBTemplateProperty(const QString &name, const QString &value,
                                                 QString *outOldValue,
                                                 platform::Error *error = nullptr);

private:
    LSMLayoutPreviewGenerator(LSMDesignTemplate *design, ProgressHandler progressHandler);

    bool run(const std::stop_token &stop, platform::Error *error);
    bool getTitle(QString *outTitle, QString *andPreviewPath, platform::Error *error);
    static void giveTitleBack(const QString &title);
    QString createLayoutSamplesDirectory(platform::Error *error) const;
    bool createPreviewForLayoutName(const QString &name, const QString &previewPath,
                                    QDateTime *lastModificationDate, const QString &destinationDir,
                                    platform::Error *error);
    void cleanupTemporaryPreviewFilesForListingTitle(const QString &title) const;
    QString subfolderInLotbookContainerWithPathComponents(const QStringList &components) const;
    QString generatedDescription(const QString &title) const;
    void report(int step) const;
    bool wait(std::chrono::milliseconds duration) const;

    static Waits s_waits;

    QPointer<LSMDesignTemplate> m_design; // for the main thread
    QString m_identifier;
    QString m_bundle;
    QStringList m_layoutNames;
    QString m_defaultLayoutName;
    QString m_container;
    ProgressHandler m_progressHandler;
    std::stop_token m_stop;
};
