#include "workbench/LSMDesignEditorViewController.h"

#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "kit/ui/TargetAction.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ZQViewExtensions.h"
#include "library/LSMDesignKeys.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "ui_LSMDesignEditorViewController.h"
#include "workbench/LSMDesignChecking.h"
#include "workbench/LSMDesignTexts.h"
#include "workbench/LSMNotifications.h"

using namespace std::chrono_literals;
using platform::localizable;
using platform::localized;
using platform::NotificationCenter;

namespace {

constexpr auto previewDelay = 500ms;
constexpr int narrowPage = 620; // below, picture and fields do not fit side by side
constexpr const char *segmentLabels[] = {localizable("Design"), localizable("HTML"),
                                         localizable("Samples"), localizable("Properties"),
                                         localizable("Store")};

QString listed(const QStringList &names)
{
    return names.isEmpty() ? localized("None") : names.join(QStringLiteral(" · "));
}

// A text that is too long shows its start, and all of it in the tool tip.
void show(QLineEdit *field, const QString &text)
{
    field->setText(text);
    field->setCursorPosition(0);
}

} // namespace

LSMDesignEditorViewController::LSMDesignEditorViewController(QObject *parent)
    : QObject(parent), m_ui(std::make_unique<Ui::LSMDesignEditorViewController>())
{
    m_previewDelay.setSingleShot(true);
    m_previewDelay.setTimerType(Qt::PreciseTimer);
    m_previewDelay.setInterval(previewDelay);
    connect(&m_previewDelay, &QTimer::timeout, this,
            &LSMDesignEditorViewController::reloadPreviewFromSourceCodeTextView);
}

LSMDesignEditorViewController::~LSMDesignEditorViewController()
{
    if (m_manager)
        m_manager->setDelegate(nullptr);
    if (m_view && !m_view->parent())
        delete m_view;
}

QWidget *LSMDesignEditorViewController::view()
{
    if (!m_view) {
        m_view = new QWidget;
        m_ui->setupUi(m_view);
        viewDidLoad();
    }
    return m_view;
}

void LSMDesignEditorViewController::viewDidLoad()
{
    PLATFORM_ASSERT(m_manager, "Need designTemplateManager");
    m_manager->setDelegate(this);
    for (const char *label : segmentLabels) {
        const int segment = m_ui->segmentedControl->segmentCount();
        m_ui->segmentedControl->setSegmentCount(segment + 1);
        m_ui->segmentedControl->setLabel(segment, localized(label));
    }
    configureSplitter();
    configureFragariaView();
    m_checking = new LSMDesignChecking(m_ui->fragariaView, m_ui->findingsView, m_manager, this);
    connect(m_checking, &LSMDesignChecking::sightWasAskedFor, this,
            [this] { setSelectedTab(HtmlTab); });
    populatePlaceholderMenu();
    configureFields();
    configureHostFields();
    connect(m_ui->storeView, &LSMStoreView::designStoreDataDidChange, this,
            &LSMDesignEditorViewController::designStoreDataDidChange);
    subscribe();
    if (!platform::UserDefaults::standardUserDefaults().boolean(QStringLiteral("showStoreSegment")))
        m_ui->segmentedControl->setSegmentCount(StoreTab); // which is the last
    connect(m_ui->segmentedControl, &zq::SegmentedControl::selectedSegmentDidChange, this,
            &LSMDesignEditorViewController::setSelectedTab);
    m_ui->segmentedControl->setSelectedSegment(m_selectedTab);
    m_ui->tabView->setCurrentIndex(m_selectedTab);
    reloadData();
}

void LSMDesignEditorViewController::configureFields()
{
    const auto bindText = [this](QLineEdit *field, QLatin1StringView key) {
        connect(field, &QLineEdit::textChanged, this,
                [field](const QString &text) { field->setToolTip(zq::plainToolTip(text)); });
        connect(field, &QLineEdit::textEdited, this, [this, key](const QString &text) {
            if (!m_design)
                return;
            m_design->templateDictionary()->setValue(key, text);
            markDirty();
        });
    };
    m_ui->designTab->installEventFilter(this);
    m_ui->keywordField->setKnownKeywords(m_manager->keywords());
    connect(m_ui->keywordField, &LSMKeywordField::keywordsWereChosen, this,
            &LSMDesignEditorViewController::markDirty);
    bindText(m_ui->templateNameTextField, LSMDesignKeys::name);
    bindText(m_ui->templateIdentifierTextField, LSMDesignKeys::identifier);
    connect(m_ui->choosePictureButton, &QPushButton::clicked, this,
            &LSMDesignEditorViewController::choosePicture);
    connect(m_ui->designIconImageView, &LSMImageView::imageWasPasted, this,
            [this](const QImage &image) { takePicture(image, {}); });
    connect(m_ui->bannerButton, &QPushButton::clicked, this,
            &LSMDesignEditorViewController::duplicateWasAskedFor);
    connect(m_ui->emptyButton, &QPushButton::clicked, this,
            &LSMDesignEditorViewController::newDesignWasAskedFor);
    connect(m_ui->samplesTab, &LSMSamplesView::generatingPreviewDidChange, this,
            &LSMDesignEditorViewController::generatingPreviewDidChange);
    connect(m_ui->samplesTab, &LSMSamplesView::samplesDidChange, this,
            &LSMDesignEditorViewController::updateFacts);
}

// A narrow page has the picture below the fields.
bool LSMDesignEditorViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->designTab && event->type() == QEvent::Resize)
        m_ui->designLayout->setDirection(m_ui->designTab->width() < narrowPage
                                             ? QBoxLayout::BottomToTop
                                             : QBoxLayout::LeftToRight);
    return false;
}

void LSMDesignEditorViewController::configureSplitter()
{
    connect(m_ui->previewView, &LSMPreviewView::pictureWasAskedFor, this,
            &LSMDesignEditorViewController::takePictureOfPreview);
    for (int side = 0; side < 2; ++side)
        m_ui->htmlSplitter->setStretchFactor(side, 1);
    m_ui->htmlSplitter->setSizes({1000, 1000});
}

void LSMDesignEditorViewController::subscribe()
{
    auto &center = NotificationCenter::defaultCenter();
    center.addObserver(this, LSMSelectedDesignDidChange, nullptr, [this](const auto &notification) {
        selectedDesignDidChange(notification.userInfo.value(QStringLiteral("design"))
                                    .template value<LSMDesignTemplate *>());
    });
    center.addObserver(this, LSMImageViewImageDropped, m_ui->designIconImageView,
                       [this](const auto &notification) {
                           handleDroppedImage(
                               notification.userInfo.value(QStringLiteral("imagePath")).toString());
                       });
    center.addObserver(this, LSMDesignPropertyDidChange, nullptr, [this](const auto &notification) {
        markCurrentDesignTemplateDirty(notification.object);
    });
}

void LSMDesignEditorViewController::selectedDesignDidChange(LSMDesignTemplate *design)
{
    m_design = design;
    reloadData();
}

void LSMDesignEditorViewController::reloadData()
{
    show(m_ui->templateNameTextField, m_design ? m_design->templateName() : QString());
    show(m_ui->templateIdentifierTextField, m_design ? m_design->templateIdentifier() : QString());
    updateLayoutPopupForTemplate(m_design);
    m_texts->show(m_design);
    m_checking->setDesignTemplate(m_design);
    m_ui->designIconImageView->setImage(m_design ? m_design->templateImage() : QImage(),
                                        m_design && !m_design->templateImagePath().isNull()
                                            ? localized("The picture cannot be read")
                                            : QString());
    updateEnabling();
    updateFacts();
    reloadPreviewFromSourceCodeTextView();
}

void LSMDesignEditorViewController::updateEnabling()
{
    const bool editable = m_design && m_design->isCustomDesignTemplate();
    updateEmptyView();
    m_ui->templateNameTextField->setReadOnly(!editable);
    m_ui->templateIdentifierTextField->setReadOnly(!editable);
    m_ui->fragariaView->textView()->setEditable(editable);
    for (QAction *command : textCommands())
        command->setEnabled(m_design);
    m_ui->keywordField->setEnabled(editable);
    m_ui->designIconImageView->setEnabled(editable);
    m_ui->choosePictureButton->setEnabled(editable);
    m_ui->minimumVersionField->setReadOnly(!editable);
    m_ui->imageInclusionPopup->setEnabled(editable);
    updateBanner();
}

// Stands in for all tabs while there is nothing to show in them.
void LSMDesignEditorViewController::updateEmptyView()
{
    const bool any = m_manager->firstDesign([](const auto &) { return true; });
    m_ui->emptyIcon->setPixmap(zq::tintedIcon(QStringLiteral("CustomDesigns")).pixmap(48));
    m_ui->emptyText->setText(any ? localized("No design is selected.")
                                 : localized("There are no designs yet. Make the first one, or "
                                             "install Lotbook to find its built-in designs here."));
    m_ui->emptyButton->setVisible(!any);
    m_ui->emptyView->setVisible(!m_design);
    m_ui->segmentedControl->setVisible(m_design);
    m_ui->tabView->setVisible(m_design);
}

void LSMDesignEditorViewController::updateFacts()
{
    m_ui->keywordField->setDesignTemplate(m_design);
    m_ui->layoutsText->setText(m_design ? listed(m_design->layoutNames()) : QString());
    QString location = m_design ? m_design->templatePath() : QString();
    if (m_design && location.isNull())
        location = localized("Not saved yet");
    m_ui->locationText->setText(location);
    m_ui->samplesTab->setDesignTemplate(m_design);
    m_ui->propertiesTab->setDesignTemplate(m_design);
    updateHostFields();
    m_ui->storeView->setDesign(m_design);
}

void LSMDesignEditorViewController::updateBanner()
{
    m_ui->banner->setVisible(m_design && m_design->isBuiltInDesignTemplate());
    m_ui->bannerIcon->setPixmap(zq::tintedIcon(QStringLiteral("Lock")).pixmap(16));
    m_ui->bannerText->setText(
        localized("Built-in designs are read-only. Duplicate this one to change it."));
}

void LSMDesignEditorViewController::reloadPreviewFromSourceCodeTextView()
{
    m_previewDelay.stop();
    const bool isSameDesign = m_design == m_previewedDesign;
    m_previewedDesign = m_design;
    m_ui->previewView->showSource(m_ui->fragariaView->string(), m_design,
                                  isSameDesign ? platform::DocumentScroll::Keep
                                               : platform::DocumentScroll::Top);
}

void LSMDesignEditorViewController::designStoreDataDidChange()
{
    markDirty();
    NotificationCenter::defaultCenter().post(LSMDesignTitleDidChange, m_design);
}

void LSMDesignEditorViewController::markDirty()
{
    m_design->setTemplateShouldBeSaved(true);
}

void LSMDesignEditorViewController::markCurrentDesignTemplateDirty(const QObject *design)
{
    if (!m_design || design != m_design)
        return;
    m_previewDelay.start(); // a listing shows them
    if (m_design->templateShouldBeSaved())
        return;
    markDirty();
    Q_EMIT documentWasEdited();
}

void LSMDesignEditorViewController::setSelectedTab(int tab)
{
    if (tab < 0 || tab >= m_ui->segmentedControl->segmentCount() || tab == m_selectedTab)
        return;
    m_selectedTab = tab;
    m_ui->tabView->setCurrentIndex(tab);
    m_ui->segmentedControl->setSelectedSegment(tab);
    Q_EMIT selectedTabDidChange();
}

void LSMDesignEditorViewController::editName()
{
    setSelectedTab(DesignTab);
    m_ui->templateNameTextField->setFocus(Qt::ShortcutFocusReason);
    m_ui->templateNameTextField->selectAll();
}

void LSMDesignEditorViewController::focusSelectedTab()
{
    const std::map<int, QWidget *> first = {{DesignTab, m_ui->templateNameTextField},
                                            {HtmlTab, m_ui->fragariaView->textView()},
                                            {SamplesTab, m_ui->samplesTab},
                                            {PropertiesTab, m_ui->propertiesTab},
                                            {StoreTab, m_ui->storeView}};
    first.at(m_selectedTab)->setFocus(Qt::OtherFocusReason);
}

void LSMDesignEditorViewController::saveLayoutPreviews(QObject *)
{
    setSelectedTab(SamplesTab);
    m_ui->samplesTab->saveLayoutPreviewsOfDesignTemplate(m_design);
}

bool LSMDesignEditorViewController::canSaveLayoutPreviews() const
{
    return !m_ui->samplesTab->isGeneratingPreview() &&
           !m_ui->samplesTab->reasonNotToGenerate(m_design);
}

void LSMDesignEditorViewController::cancelLayoutPreviewsOfDesign(const LSMDesignTemplate *design)
{
    m_ui->samplesTab->cancelGenerationOfDesign(design);
}

void LSMDesignEditorViewController::switchToViewWithSenderTag(QObject *sender)
{
    setSelectedTab(zq::tag(sender));
    focusSelectedTab();
}

QList<QMenu *> LSMDesignEditorViewController::previewMenus() const
{
    return m_ui->previewView->menus();
}

bool LSMDesignEditorViewController::isPreviewShown() const
{
    return !m_ui->previewView->isHidden();
}

void LSMDesignEditorViewController::setPreviewShown(bool shown)
{
    m_ui->previewView->setVisible(shown);
}

bool LSMDesignEditorViewController::isPreviewBelow() const
{
    return m_ui->htmlSplitter->orientation() == Qt::Vertical;
}

void LSMDesignEditorViewController::setPreviewBelow(bool below)
{
    m_ui->htmlSplitter->setOrientation(below ? Qt::Vertical : Qt::Horizontal);
}
