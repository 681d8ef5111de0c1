#include "kit/ui/ActionNotice.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace std::chrono_literals;

namespace zq {

namespace {

constexpr auto patience = 2min;

}

ActionNotice::ActionNotice(const QString &buttonTitle, QWidget *parent)
    : QFrame(parent), m_text(new QLabel), m_button(new QPushButton(buttonTitle))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_text);
    layout->addWidget(m_button);
    m_text->setTextFormat(Qt::PlainText);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &QWidget::hide);
    connect(m_button, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT buttonWasPressed();
    });
    hide();
}

void ActionNotice::showNotice(const QString &text)
{
    m_text->setText(text);
    setAccessibleName(text);
    show();
    m_patience.start();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace zq
