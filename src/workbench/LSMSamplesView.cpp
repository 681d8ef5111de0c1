#include "workbench/LSMSamplesView.h"

#include "kit/ui/ZQRunAlertPanel.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
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

// What Lotbook needs to have set.
const QString neededPreferences[] = {QStringLiteral("writeDescriptionToLibrary"),
                                     QStringLiteral("disableDesignImageCache"),
                                     QStringLiteral("hidePreviewImageDropzoneMarker")};

// In the order of the design's layouts; samples of what is no layout of it any more come last.
QList<LSMSample> samplesOf(const LSMDesignTemplate &design)
{
    QList<LSMSample> samples;
    if (design.templatePath().isNull())
        return samples;
    const QDir folder(design.templatePath() + u'/' + LSMDesignKeys::layoutSamplesFolder);
    QStringList files = folder.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    for (const QString &layout : design.layoutNames()) {
        const QString file = LSMDesignLayouts::sampleFileName(layout);
        if (files.removeOne(file))
            samples.append({layout, folder.filePath(file)});
    }
    for (const QString &file : std::as_const(files))
        samples.append(
            {QFileInfo(file).completeBaseName().replace(u'_', u' '), folder.filePath(file)});
    return samples;
}

} // namespace

LSMSamplesView::LSMSamplesView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMSamplesView>()),
      m_lotbook(LSMLotbookConfig::lotbookApplicationIdentifier()),
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
    const std::optional<QString> reason = reasonNotToGenerate(m_design);
    QString hint = reason.value_or(QString());
    m_ui->generateButton->setEnabled(!reason);
    if (!reason && m_design->templateShouldBeSaved())
        hint = localized("Lotbook renders the design as it was last saved.");
    const bool isToldAbove = m_design && m_design->isBuiltInDesignTemplate();
    m_ui->hintText->setText(hint);
    m_ui->hintText->setVisible(!hint.isEmpty() && !isToldAbove);
    m_ui->samplesDateText->setVisible(!m_ui->samplesDateText->text().isEmpty());
}

std::optional<QString> LSMSamplesView::reasonNotToGenerate(const LSMDesignTemplate *design) const
{
    if (!design)
        return QString();
    if (design->isBuiltInDesignTemplate())
        return localized("Built-in designs are read-only. Duplicate this one to change it.");
    if (design->templatePath().isNull() || design->isOldVersion())
        return localized("Save this design first: Lotbook renders what has been saved.");
    if (LSMLotbookConfig::lotbookApplicationIdentifier() != m_lotbook)
        return localized("Another version of Lotbook has been chosen. Start the Layoutsmith anew "
                         "to work with it.");
    return std::nullopt;
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
    return platform::UserDefaults(LSMLotbookConfig::lotbookPreferencesPathForBundleIdentifier(
                                      LSMLotbookConfig::lotbookApplicationIdentifier()))
        .boolean(key);
}

bool LSMSamplesView::confirmPreferences() const
{
    QString commands;
    for (const QString &key : neededPreferences) {
        if (!getBoolValueFromLBPreferencesKey(key))
            commands += platform::format(QStringLiteral("$ defaults write %@ %@ -bool YES\n\n"),
                                         LSMLotbookConfig::lotbookApplicationIdentifier(), key);
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
    if (const auto reason = reasonNotToGenerate(design)) {
        ZQRunAlertPanel3(localized("Attention"), *reason, localized("OK"));
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
