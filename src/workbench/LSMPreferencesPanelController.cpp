#include "workbench/LSMPreferencesPanelController.h"

#include "editor/MGSPrefsColourPropertiesViewController.h"
#include "editor/MGSPrefsEditorPropertiesViewController.h"
#include "editor/MGSUserDefaultsController.h"
#include "kit/ui/TintedIcon.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "library/LSMLotbookConfig.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "ui_LSMPreferencesPanelController.h"

#include <QCoreApplication>
#include <QPainter>
#include <QScreen>
#include <QShortcut>

using platform::localizable;
using platform::localized;
using platform::UserDefaults;

namespace {

const QString versionKey = QStringLiteral("lotbookApplicationIdentifier");
const QString labelKey = QStringLiteral("finderLabelInt");
constexpr int swatchSize = 12;
constexpr QSize frameOfWindow(16, 48); // about as much as it takes at most

struct FinderLabel
{
    int color; // as it is stored
    const char *title;
    QRgb swatch; // none where it is 0
};

constexpr FinderLabel finderLabels[] = {
    {0, localizable("None"), 0},           {1, localizable("Grey"), 0xFF8E8E93},
    {2, localizable("Green"), 0xFF4CB851}, {3, localizable("Purple"), 0xFFA55BD5},
    {4, localizable("Blue"), 0xFF2F7DF2},  {5, localizable("Yellow"), 0xFFF0C419},
    {6, localizable("Red"), 0xFFE8473F},   {7, localizable("Orange"), 0xFFF28C28},
};

QIcon swatch(QRgb color, qreal ratio)
{
    QPixmap pixmap(QSize(swatchSize, swatchSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(platform::namedColor(QStringLiteral("secondaryLabelColor")), 1));
    painter.setBrush(color ? QBrush(QColor(color)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(0.5, 0.5, swatchSize - 1, swatchSize - 1));
    return pixmap;
}

} // namespace

LSMPreferencesPanelController::LSMPreferencesPanelController()
    : m_ui(std::make_unique<Ui::LSMPreferencesPanelController>())
{
}

LSMPreferencesPanelController::~LSMPreferencesPanelController() = default;

LSMPreferencesPanelController &LSMPreferencesPanelController::sharedLSMPreferencesPanelController()
{
    static LSMPreferencesPanelController controller;
    return controller;
}

void LSMPreferencesPanelController::showWindow(QWidget *parent)
{
    if (!m_window) {
        m_window = new QDialog(parent);
        m_ui->setupUi(m_window);
        windowDidLoad();
        m_window->resize(
            m_window->size().boundedTo(m_window->screen()->availableSize() - frameOfWindow));
        connect(m_window, &QDialog::finished, this,
                [this] { m_geometry = m_window->saveGeometry(); });
    }
    if (!m_window->isVisible())
        m_window->restoreGeometry(m_geometry);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void LSMPreferencesPanelController::windowDidLoad()
{
    populateLotbookVersionPopup();
    populateFinderLabelPopup();
    addEditorPages();
    UserDefaults &defaults = UserDefaults::standardUserDefaults();
    connect(m_ui->lotbookVersionPopup, &QComboBox::activated, this,
            &LSMPreferencesPanelController::lotbookVersionPopupChanged);
    connect(m_ui->finderColorPopup, &QComboBox::activated, this, [this, &defaults] {
        defaults.setObject(labelKey, m_ui->finderColorPopup->currentData());
    });
    connect(&defaults, &UserDefaults::didChange, m_window,
            [this](const QString &key) { settingDidChange(key); });
    connect(&platform::Appearance::shared(), &platform::Appearance::colorSchemeDidChange, m_window,
            [this] { populateFinderLabelPopup(); });
    connect(new QShortcut(QKeySequence::Close, m_window), &QShortcut::activated, m_window,
            &QDialog::close);
}

void LSMPreferencesPanelController::addEditorPages()
{
    QTabWidget *pages = m_ui->pages;
    pages->setTabIcon(0, zq::tintedIcon(QStringLiteral("PrefsGeneral")));
    const std::initializer_list<MGSPrefsViewController *> editorPages = {
        new MGSPrefsEditorPropertiesViewController, new MGSPrefsColourPropertiesViewController};
    for (MGSPrefsViewController *page : editorPages) {
        page->setUserDefaultsController(MGSUserDefaultsController::sharedController());
        pages->addTab(page, page->toolbarItemImage(), u'&' + page->toolbarItemLabel());
    }
}

void LSMPreferencesPanelController::settingDidChange(const QString &key)
{
    if (key == versionKey)
        populateLotbookVersionPopup();
    if (key == labelKey)
        populateFinderLabelPopup();
}

void LSMPreferencesPanelController::populateLotbookVersionPopup()
{
    QComboBox *popup = m_ui->lotbookVersionPopup;
    popup->clear();
    for (const LSMLotbookConfig::Version &version : LSMLotbookConfig::lotbookVersions())
        popup->addItem(version.title, version.bundle);
    popup->setCurrentIndex(popup->findData(LSMLotbookConfig::lotbookApplicationIdentifier()));
}

void LSMPreferencesPanelController::populateFinderLabelPopup()
{
    QComboBox *popup = m_ui->finderColorPopup;
    popup->clear();
    for (const FinderLabel &label : finderLabels)
        popup->addItem(swatch(label.swatch, m_window->devicePixelRatioF()), localized(label.title),
                       label.color);
    popup->setIconSize({swatchSize, swatchSize});
    popup->setCurrentIndex(
        popup->findData(int(UserDefaults::standardUserDefaults().integer(labelKey))));
}

void LSMPreferencesPanelController::lotbookVersionPopupChanged()
{
    const QString chosen = m_ui->lotbookVersionPopup->currentData().toString();
    if (chosen == LSMLotbookConfig::lotbookApplicationIdentifier())
        return;
    const int answer = ZQRunAlertPanel(
        localized("Restart Needed"),
        localized("The Layoutsmith needs to be restarted to change the Lotbook version. Do you "
                  "want to quit now?"),
        localized("Quit"), localized("Cancel"));
    if (answer != ZQAlertFirstButtonReturn)
        return populateLotbookVersionPopup();
    UserDefaults::standardUserDefaults().setObject(versionKey, chosen);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}
