#include "kit/ui/AlertBox.h"

#include "platform/Bundle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace zq {

namespace {

constexpr int textWidth = 380;
constexpr QStyle::StandardPixmap icons[] = {
    QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxCritical};

QLabel *makeText(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

AlertBox::AlertBox(ZQCustomizableAlert &alert, const std::function<void(const QString &)> &help,
                   QWidget *parent)
    : QDialog(parent), m_alert(alert), m_accessoryView(alert.accessoryView),
      m_column(new QVBoxLayout), m_buttons(new QDialogButtonBox(this))
{
    setWindowTitle(QCoreApplication::applicationName());
    auto *icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(icons[int(alert.alertStyle)]).pixmap(QSize(48, 48)));
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(m_column, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(18);
    layout->addLayout(row);
    layout->addWidget(m_buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    addTexts();
    if (m_accessoryView)
        m_column->addWidget(m_accessoryView);
    if (alert.showsSuppressionButton)
        addSuppressionButton();
    addButtons();
    if (!alert.helpAnchor.isEmpty() && help)
        addHelpButton(help);
}

AlertBox::~AlertBox()
{
    if (m_accessoryView)
        m_accessoryView->setParent(nullptr);
}

void AlertBox::addTexts()
{
    m_column->setSpacing(8);
    QLabel *message = makeText(m_alert.messageText, this);
    QFont font = message->font();
    font.setBold(true);
    message->setFont(font);
    m_column->addWidget(message);
    setAccessibleName(m_alert.messageText);
    if (m_alert.informativeText.isEmpty())
        return;
    m_column->addWidget(makeText(m_alert.informativeText, this));
    setAccessibleDescription(m_alert.informativeText);
}

void AlertBox::addSuppressionButton()
{
    auto *box = new QCheckBox(platform::localized("Don’t show this message again"), this);
    connect(box, &QCheckBox::toggled, this,
            [this](bool on) { m_alert.suppressionButtonIsOn = on; });
    m_column->addWidget(box);
}

void AlertBox::addButtons()
{
    const QStringList titles = m_alert.buttonTitles.isEmpty()
                                   ? QStringList{platform::localized("OK")}
                                   : m_alert.buttonTitles;
    const qsizetype cancel = titles.indexOf(platform::localized("Cancel"));
    const qsizetype escape = cancel >= 0 ? cancel : titles.size() - 1;
    m_escapeResult = ZQAlertFirstButtonReturn + int(escape);
    for (qsizetype index = 0; index < titles.size(); ++index) {
        const auto role = index == 0        ? QDialogButtonBox::AcceptRole
                          : index == escape ? QDialogButtonBox::RejectRole
                                            : QDialogButtonBox::ActionRole;
        QPushButton *button = m_buttons->addButton(titles[index], role);
        connect(button, &QPushButton::clicked, this,
                [this, index] { done(ZQAlertFirstButtonReturn + int(index)); });
        if (index == 0) {
            button->setDefault(true);
            button->setFocus();
        }
    }
}

void AlertBox::addHelpButton(const std::function<void(const QString &)> &help)
{
    m_buttons->addButton(QDialogButtonBox::Help)->setAutoDefault(false);
    connect(m_buttons, &QDialogButtonBox::helpRequested, this,
            [help, anchor = m_alert.helpAnchor] { help(anchor); });
}

} // namespace zq
