#include "workbench/LSMPreviewView.h"

#include "kit/ui/TintedIcon.h"
#include "library/LSMDesignTemplate.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/UserDefaults.h"
#include "platform/web/WebView.h"
#include "ui_LSMPreviewView.h"

#include <algorithm>
#include <QActionGroup>
#include <QEvent>
#include <QMenu>

using platform::DocumentScroll;
using platform::localizable;
using platform::localized;
using platform::UserDefaults;

namespace {

QByteArray documentOf(const QString &html)
{
    return platform::format(QStringLiteral("<html>\n<head></head>\n<body>\n%@\n</body>\n</html>"),
                            html)
        .toUtf8();
}

} // namespace

LSMPreviewView::LSMPreviewView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMPreviewView>())
{
    static constexpr Choice widths[] = {{localizable("Fit"), 0},
                                        {localizable("Phone"), 390},
                                        {localizable("Tablet"), 820},
                                        {localizable("Desktop"), 1280}};
    static constexpr Choice sizes[] = {{"50 %", 50},   {"75 %", 75},   {"100 %", 100},
                                       {"125 %", 125}, {"150 %", 150}, {"200 %", 200}};
    static constexpr Choice listings[] = {
        {localizable("As Written"), int(LSMPreviewListing::None)},
        {localizable("Usual Listing"), int(LSMPreviewListing::Usual)},
        {localizable("Empty Fields"), int(LSMPreviewListing::Empty)},
        {localizable("Very Long Texts"), int(LSMPreviewListing::Long)},
        {localizable("Right to Left"), int(LSMPreviewListing::RightToLeft)},
        {localizable("Missing Pictures"), int(LSMPreviewListing::WithoutPictures)},
    };
    m_ui->setupUi(this);
    makeMenu(m_ui->widthPopup, localizable("Preview Width"), "previewWidth", widths, m_pageWidth);
    makeMenu(m_ui->sizePopup, localizable("Preview Size"), "previewSize", sizes, m_percent);
    makeMenu(m_ui->listingPopup, localizable("Preview Listing"), "previewListing", listings,
             m_listing);
    m_ui->takePictureButton->setIcon(zq::tintedIcon(QStringLiteral("Camera")));
    m_ui->previewBannerIcon->setPixmap(zq::tintedIcon(QStringLiteral("Warning")).pixmap(16));
    m_ui->previewBanner->hide();
    m_ui->stage->installEventFilter(this);
    connect(m_ui->takePictureButton, &QPushButton::clicked, this,
            &LSMPreviewView::pictureWasAskedFor);
    connect(m_ui->previewWebView, &platform::WebView::renderProcessDidTerminate,
            m_ui->previewBanner, &QWidget::show);
    connect(m_ui->reloadButton, &QPushButton::clicked, this,
            [this] { load(DocumentScroll::Keep); });
}

LSMPreviewView::~LSMPreviewView() = default;

// The button reads as what is chosen, which is kept under the key.
void LSMPreviewView::makeMenu(QPushButton *button, const char *title, const char *key,
                              std::span<const Choice> choices, int &chosen)
{
    const QString name = QString::fromLatin1(key);
    const auto kept = int(UserDefaults::standardUserDefaults().integer(name));
    if (UserDefaults::standardUserDefaults().isStored(name) &&
        std::ranges::find(choices, kept, &Choice::value) != choices.end())
        chosen = kept;
    auto *menu = new QMenu(localized(title), button);
    auto *group = new QActionGroup(menu);
    for (const Choice &choice : choices) {
        QAction *action = menu->addAction(localized(choice.title));
        group->addAction(action)->setCheckable(true);
        connect(action, &QAction::toggled, button, [action, button](bool isChosen) {
            if (isChosen)
                button->setText(action->text());
        });
        connect(action, &QAction::triggered, this, [this, name, &chosen, value = choice.value] {
            chosen = value;
            UserDefaults::standardUserDefaults().setObject(name, value);
            choicesDidChange();
        });
        action->setChecked(choice.value == chosen);
    }
    button->setMenu(menu);
    button->setToolTip(menu->title());
    button->setAccessibleName(menu->title());
}

QList<QMenu *> LSMPreviewView::menus() const
{
    return {m_ui->widthPopup->menu(), m_ui->sizePopup->menu(), m_ui->listingPopup->menu()};
}

void LSMPreviewView::choicesDidChange()
{
    layoutPage();
    load(DocumentScroll::Keep);
}

// A page that is wider than there is room is shown smaller.
void LSMPreviewView::layoutPage()
{
    const QSize room = m_ui->stage->size();
    const double zoom = m_percent / 100.0;
    const int width =
        m_pageWidth == 0 ? room.width() : qMin(qRound(m_pageWidth * zoom), room.width());
    m_ui->previewWebView->setGeometry((room.width() - width) / 2, 0, width, room.height());
    const double shown = m_pageWidth == 0 ? zoom : double(width) / m_pageWidth;
    m_ui->previewWebView->setZoomFactor(shown);
    m_ui->sizePopup->setText(QStringLiteral("%1 %").arg(qRound(shown * 100)));
}

bool LSMPreviewView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->stage && event->type() == QEvent::Resize)
        layoutPage();
    return QWidget::eventFilter(watched, event);
}

// What finds no room in the bar is in the menu bar still.
void LSMPreviewView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    QPushButton *const dispensable[] = {m_ui->sizePopup, m_ui->widthPopup};
    for (QPushButton *button : dispensable)
        button->show();
    for (QPushButton *button : dispensable)
        button->setVisible(m_ui->previewBar->sizeHint().width() <= width());
}

void LSMPreviewView::showSource(const QString &html, const LSMDesignTemplate *design,
                                DocumentScroll scroll)
{
    m_html = html;
    m_design = design;
    m_ui->takePictureButton->setEnabled(design && design->isCustomDesignTemplate());
    load(scroll);
}

void LSMPreviewView::load(DocumentScroll scroll)
{
    m_ui->previewBanner->hide();
    const auto listing = LSMPreviewListing(m_listing);
    const bool isFilled = m_design && listing != LSMPreviewListing::None;
    const QString html =
        isFilled ? LSMPlaceholders::filled(m_html, LSMValuesOfListing(listing, *m_design)) : m_html;
    m_ui->previewWebView->loadData(documentOf(html), QStringLiteral("text/html"),
                                   QStringLiteral("utf-8"), scroll);
}

QImage LSMPreviewView::picture() const
{
    if (m_ui->previewWebView->isLoading() || m_ui->previewBanner->isVisible())
        return {};
    return m_ui->previewWebView->picture().toImage();
}
