#include "workbench/LSMStoreView.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplate.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"
#include "ui_LSMStoreView.h"

#include <QLocale>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QUrl>

using namespace LSMDesignKeys;
using platform::localized;
using platform::stringIn;

namespace {

constexpr const char *currencies[] = {"EUR", "USD", "GBP", "CHF", "CAD", "AUD",
                                      "DKK", "NOK", "SEK", "PLN", "CZK", "JPY"};
constexpr int textInset = 5; // pixels around the description

bool isPrice(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^\\d+(\\.\\d+)?$"));
    return number.match(text).hasMatch();
}

bool isSecureAddress(const QString &text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    return url.isValid() && url.scheme() == u"https" && !url.host().isEmpty();
}

QString dateText(const QVariant &value)
{
    if (value.metaType() != QMetaType::fromType<platform::PropertyListDate>())
        return QStringLiteral("–");
    const QDateTime date = value.value<platform::PropertyListDate>().toDateTime().toLocalTime();
    return QLocale().toString(date.date(), QLocale::LongFormat);
}

} // namespace

LSMStoreView::LSMStoreView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMStoreView>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    for (const char *currency : currencies)
        m_ui->currencyPopup->addItem(QString::fromLatin1(currency));
    m_ui->designStoreDescriptionTextView->document()->setDocumentMargin(textInset);
    m_fields = {{storeTitle, m_ui->storeTitleField},
                {storeCategory, m_ui->categoryField},
                {storePrice, m_ui->priceField},
                {storeCurrency, m_ui->currencyPopup->lineEdit()},
                {storeSupportUrl, m_ui->supportUrlField}};
    for (const auto &[key, view] : m_fields)
        connect(view, &QLineEdit::textChanged, this,
                [this, key = key](const QString &text) { setText(key, text); });
    connect(m_ui->designStoreDescriptionTextView, &QPlainTextEdit::textChanged, this,
            [this] { setText(storeDescription, description()); });
    connect(m_ui->paidSwitch, &QCheckBox::clicked, this, [this](bool paid) {
        m_design->setPaidTemplate(paid);
        setDesign(m_design);
        Q_EMIT designStoreDataDidChange();
    });
    setFocusProxy(m_ui->paidSwitch);
    setDesign(nullptr);
}

LSMStoreView::~LSMStoreView() = default;

// A text that is there already is left alone, so that caret and history of typing stay; but a
// history never reaches into another design.
void LSMStoreView::setDesign(LSMDesignTemplate *design)
{
    const QScopedValueRollback filling(m_isFilling, true);
    const bool isOther = design != m_design;
    m_design = design;
    m_ui->paidSwitch->setChecked(design && design->isPaidTemplate());
    m_ui->releaseDateText->setText(dateText(value(releaseDate)));
    for (const auto &[key, view] : m_fields) {
        const QVariant held = value(key);
        const QString text = stringIn(held);
        if (isOther || view->text() != text) {
            view->setText(text);
            view->setCursorPosition(0);
        }
        view->setPlaceholderText(held.isValid() && text.isNull()
                                     ? localized("Holds something that is no text")
                                     : QString());
    }
    const QString text = stringIn(value(storeDescription));
    if (isOther || description() != text)
        m_ui->designStoreDescriptionTextView->setPlainText(text);
    updateEnabling();
    updateHints();
}

void LSMStoreView::updateEnabling()
{
    const bool isEditable = m_design && m_design->isCustomDesignTemplate();
    m_ui->paidSwitch->setEnabled(isEditable);
    m_ui->storePage->setEnabled(m_design && m_design->isPaidTemplate());
    for (const auto &[key, view] : m_fields)
        view->setReadOnly(!isEditable);
    m_ui->currencyPopup->setEnabled(isEditable);
    m_ui->designStoreDescriptionTextView->setReadOnly(!isEditable);
}

void LSMStoreView::updateHints()
{
    const QString price = m_ui->priceField->text();
    const QString address = m_ui->supportUrlField->text();
    const bool isWanted = m_ui->paidSwitch->isChecked() || !price.isEmpty();
    m_ui->priceHint->setText(
        isWanted && !isPrice(price) ? localized("Not a price yet; such as 9.90") : QString());
    m_ui->supportUrlHint->setText(address.isEmpty() || isSecureAddress(address)
                                      ? QString()
                                      : localized("Such as https://www.example.com"));
}

QVariant LSMStoreView::value(QLatin1StringView key) const
{
    return m_design ? m_design->templateDictionary()->value(store).toMap().value(key) : QVariant();
}

void LSMStoreView::setText(QLatin1StringView key, const QString &text)
{
    if (m_isFilling || !m_design || (value(key).isValid() ? value(key) == text : text.isEmpty()))
        return;
    QVariantMap values = m_design->templateDictionary()->value(store).toMap();
    if (text.isEmpty())
        values.remove(key);
    else
        values.insert(key, text);
    m_design->templateDictionary()->setValue(store, values);
    updateHints();
    Q_EMIT designStoreDataDidChange();
}

QString LSMStoreView::description() const
{
    QString text = m_ui->designStoreDescriptionTextView->document()->toRawText();
    const bool hasReturns = stringIn(value(storeDescription)).contains(u"\r\n");
    return text.replace(QChar::ParagraphSeparator,
                        hasReturns ? QStringLiteral("\r\n") : QStringLiteral("\n"));
}
