#pragma once

#include "workbench/LSMSampleWindow.h"

#include <optional>
#include <QPointer>
#include <thread>

class LSMDesignTemplate;
class LSMSampleThumbnails;

namespace Ui {
class LSMSamplesView;
}
namespace platform {
struct Error;
}

/// The tab of a design's samples: a contact sheet of the layouts that Lotbook has rendered, each of
/// which opens large, and the way to have them rendered anew. One run at a time, for the design
/// that was selected when it began; its progress shows whatever is selected meanwhile. Owned by the
/// editor's view; main thread. A run that is on when the view goes is cancelled.
class LSMSamplesView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool generatingPreview READ isGeneratingPreview NOTIFY generatingPreviewDidChange)

public:
    explicit LSMSamplesView(QWidget *parent = nullptr);
    ~LSMSamplesView() override;

    void setDesignTemplate(LSMDesignTemplate *design); ///< Borrowed; may be null. Reads its folder.
    bool isGeneratingPreview() const { return m_run.joinable(); }

    /// Why samples of the design can't be generated, empty without a design; none when they can.
    std::optional<QString> reasonNotToGenerate(const LSMDesignTemplate *design) const;

    /// Asks the user to prepare Lotbook, then has all layouts rendered. What stands in the way, and
    /// what fails, is told to the user.
    void saveLayoutPreviewsOfDesignTemplate(LSMDesignTemplate *design);
    void cancelGeneration(); ///< No error; what is rendered by then stays.
    void cancelGenerationOfDesign(const LSMDesignTemplate *design); ///< If it is on for that one.

    /// Of Lotbook's own preferences, as they are on disk.
    static bool getBoolValueFromLBPreferencesKey(const QString &key);

Q_SIGNALS:
    void generatingPreviewDidChange();
    void samplesDidChange(); ///< A run has ended, by whatever end.

private:
    void reloadSamples();
    void updateHint();
    void openSample(const QModelIndex &index);
    bool confirmPreferences() const;
    void startGeneration(LSMDesignTemplate *design);
    void didEndGeneration(const platform::Error *reason);

    std::unique_ptr<Ui::LSMSamplesView> m_ui;
    QString m_lotbook; // whose designs are shown, whatever is chosen for the next start
    LSMSampleThumbnails *m_thumbnails;
    LSMSampleWindow *m_window = nullptr;
    QPointer<LSMDesignTemplate> m_design;
    QPointer<LSMDesignTemplate> m_designOfRun;
    QList<LSMSample> m_samples;
    std::jthread m_run;
};
