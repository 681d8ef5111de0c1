#include "workbench/LSMSamplesView.h"

#include "kit/ui/ZQRunAlertPanel.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplate.h"
#include "library/LSMLotbookConfig.h"
#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "ui_LSMSamplesView.h"
#include "workbench/LSMLayoutPreviewGenerator.h"
#include "workbench/LSMSampleDelegate.h"
#include "workbench/LSMSampleThumbnails.h"

#include <QDir>

using platform::localized;

namespace {

enum Page { GeneratePage, ProgressPage };

// What Lotbook needs to have set, and how the user sets it.
constexpr std::pair<const char *, const char *> neededPreferences[] = {
    {"writeDescriptionToLibrary", "$ defaults write %@ writeDescriptionToLibrary -bool YES\n\n"},
    {"disableDesignImageCache", "$ defaults write %@ disableDesignImageCache -bool YES\n\n"},
    {"hidePreviewImageDropzoneMarker",
     "$ defaults write %@ hidePreviewImageDropzoneMarker -bool YES\n\n"},
};

// In the order of the design's layouts; samples of layouts that it no longer has come last.
QList<LSMSample> samplesOf(const LSMDesignTemplate &design)
{
    QList<LSMSample> samples;
    if (design.templatePath().isNull())
        return samples;
    const QDir folder(design.templatePath() + u'/' + LSMDesignKeys::layoutSamplesFolder);
    for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.html")}, QDir::Files))
        samples.append({file.completeBaseName().replace(u'_', u' '), file.filePath()});
    const QStringList layouts = design.layoutNames();
    const auto place = [&layouts](const LSMSample &sample) {
        return std::size_t(layouts.indexOf(sample.name)); // the largest without one
    };
    std::ranges::stable_sort(samples, {}, place);
    return samples;
}

} // namespace

LSMSamplesView::LSMSamplesView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMSamplesView>()),
      m_thumbnails(new LSMSampleThumbnails(this))
{
    m_ui->setupUi(this);
    QListWidget *list = m_ui->samplesList;
    list->setItemDelegate(new LSMSampleDelegate(m_thumbnails, list));
    list->viewport()->setAutoFillBackground(false);
    connect(m_thumbnails, &LSMSampleThumbnails::thumbnailDidLoad, list->viewport(),
            qOverload<>(&QWidget::update));
    connect(list, &QListWidget::activated, this, &LSMSamplesView::openSample);
    connect(m_ui->generateButton, &QPushButton::clicked, this, [this] {
        if (m_design)
            saveLayoutPreviewsOfDesignTemplate(m_design);
    });
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &LSMSamplesView::cancelGeneration);
    setDesignTemplate(nullptr);
}

LSMSamplesView::~LSMSamplesView() = default;

void LSMSamplesView::setDesignTemplate(LSMDesignTemplate *design)
{
    if (design != m_design) {
        if (m_design)
            m_design->disconnect(this);
        if (m_window)
            m_window->close();
        if (design)
            connect(design, &LSMDesignTemplate::templateShouldBeSavedDidChange, this,
                    &LSMSamplesView::updateHint);
        m_design = design;
    }
    reloadSamples();
    updateHint();
}

void LSMSamplesView::reloadSamples()
{
    QListWidget *list = m_ui->samplesList;
    const QListWidgetItem *current = list->currentItem();
    const QString selected = current ? current->text() : QString();
    m_thumbnails->cancelRequests();
    m_samples = m_design ? samplesOf(*m_design) : QList<LSMSample>();
    list->clear();
    for (const LSMSample &sample : std::as_const(m_samples)) {
        auto *item = new QListWidgetItem(sample.name, list);
        item->setData(Qt::UserRole, sample.path);
        item->setToolTip(sample.path);
        if (list->count() == 1 || sample.name == selected)
            list->setCurrentItem(item);
    }
    setFocusProxy(m_samples.isEmpty() ? static_cast<QWidget *>(m_ui->generateButton) : list);
    list->setVisible(!m_samples.isEmpty());
    m_ui->noSamplesText->setVisible(m_samples.isEmpty());
    m_ui->samplesDateText->setText(m_design ? m_design->layoutPreviewGenerationDateString()
                                            : QString());
}

void LSMSamplesView::updateHint()
{
    QString hint = reasonNotToGenerate(m_design);
    m_ui->generateButton->setEnabled(hint.isNull());
    if (hint.isNull() && m_design->templateShouldBeSaved())
        hint = localized("Lotbook renders the design as it was last saved.");
    const bool isToldAbove = m_design && m_design->isBuiltInDesignTemplate();
    m_ui->hintText->setText(hint);
    m_ui->hintText->setVisible(!hint.isEmpty() && !isToldAbove);
    m_ui->samplesDateText->setVisible(!m_ui->samplesDateText->text().isEmpty());
}

QString LSMSamplesView::reasonNotToGenerate(const LSMDesignTemplate *design)
{
    if (!design)
        return QStringLiteral(""); // nothing to say
    if (design->isBuiltInDesignTemplate())
        return localized("Built-in designs are read-only. Duplicate this one to change it.");
    if (design->templatePath().isNull() || design->isOldVersion())
        return localized("Save this design first: Lotbook renders what has been saved.");
    return {};
}

void LSMSamplesView::openSample(const QModelIndex &index)
{
    if (!m_design)
        return;
    if (!m_window)
        m_window = new LSMSampleWindow(this);
    m_window->showSamples(m_samples, index.row(), m_design->templateName());
}

bool LSMSamplesView::getBoolValueFromLBPreferencesKey(const QString &key)
{
    const QString path =
        LSMLotbookConfig::lotbookContainerFolder() + QStringLiteral("/Library/Preferences/") +
        LSMLotbookConfig::lotbookApplicationIdentifier() + QStringLiteral(".plist");
    return platform::UserDefaults(path).boolean(key);
}

bool LSMSamplesView::confirmPreferences() const
{
    QString commands;
    for (const auto &[key, command] : neededPreferences) {
        if (!getBoolValueFromLBPreferencesKey(QLatin1StringView(key)))
            commands += platform::format(QString::fromLatin1(command),
                                         LSMLotbookConfig::lotbookApplicationIdentifier());
    }
    return commands.isEmpty() ||
           ZQRunAlertPanel(localized("Attention"),
                           localized("Please issue the follwing command(s) on the command line "
                                     "before starting Lotbook:\n\n%@"),
                           localized("Done"), localized("Cancel"), {},
                           commands) == ZQAlertFirstButtonReturn;
}

void LSMSamplesView::saveLayoutPreviewsOfDesignTemplate(LSMDesignTemplate *design)
{
    if (!design || isGeneratingPreview())
        return;
    const QString reason = reasonNotToGenerate(design);
    if (!reason.isNull()) {
        ZQRunAlertPanel3(localized("Attention"), reason, localized("OK"));
        return;
    }
    const QPointer<LSMDesignTemplate> guarded(design);
    const QPointer<LSMSamplesView> self(this);
    if (!confirmPreferences() ||
        ZQRunAlertPanel(localized("Attention"),
                        localized("Please start Lotbook, selected a single listing, and then click "
                                  "on 'Continue'."),
                        localized("Continue"), localized("Cancel")) != ZQAlertFirstButtonReturn)
        return;
    if (self && guarded)
        startGeneration(design);
}

void LSMSamplesView::startGeneration(LSMDesignTemplate *design)
{
    const QPointer<LSMSamplesView> self(this);
    m_designOfRun = design;
    m_ui->progressText->setText(platform::format(
        localized("Lotbook renders the layouts of \"%@\" …"), design->templateName()));
    m_ui->cancelButton->setEnabled(true);
    m_ui->previewGenerateProgress->setRange(
        0, LSMLayoutPreviewGenerator::completeStepsForPreviewGenerationForDesignTemplate(design));
    m_ui->previewGenerateProgress->setValue(0);
    m_ui->previewGenerateTab->setCurrentIndex(ProgressPage);
    m_run = LSMLayoutPreviewGenerator::saveLayoutPreviewsOfDesignTemplate(
        design,
        [self](double fraction) {
            if (self)
                self->m_ui->previewGenerateProgress->setValue(
                    qRound(fraction * self->m_ui->previewGenerateProgress->maximum()));
        },
        [self](const platform::Error *reason) {
            if (self)
                self->didEndGeneration(reason);
        });
    Q_EMIT generatingPreviewDidChange();
}

void LSMSamplesView::didEndGeneration(const platform::Error *reason)
{
    const QPointer<LSMSamplesView> self(this);
    if (reason)
        platform::Application::presentError(*reason);
    if (!self)
        return;
    m_run = {};
    m_ui->previewGenerateTab->setCurrentIndex(GeneratePage);
    Q_EMIT generatingPreviewDidChange();
    Q_EMIT samplesDidChange();
}

void LSMSamplesView::cancelGeneration()
{
    m_run.request_stop();
    m_ui->cancelButton->setEnabled(false);
    m_ui->progressText->setText(localized("Cancelling …"));
}

void LSMSamplesView::cancelGenerationOfDesign(const LSMDesignTemplate *design)
{
    if (isGeneratingPreview() && design == m_designOfRun)
        cancelGeneration();
}
