#include "workbench/LSMFindingsView.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "ui_LSMFindingsView.h"
#include "workbench/LSMFindingTexts.h"

#include <QKeyEvent>

using platform::localized;

LSMFindingsView::LSMFindingsView(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMFindingsView>())
{
    m_ui->setupUi(this);
    m_ui->closeButton->setIcon(zq::tintedIcon(QStringLiteral("CloseSmall")));
    setFocusProxy(m_ui->list);
    connect(m_ui->closeButton, &QToolButton::clicked, this, &LSMFindingsView::closeWasAskedFor);
    connect(m_ui->list, &QListWidget::clicked, this,
            [this](const QModelIndex &index) { choose(index.row()); });
    connect(m_ui->list, &QListWidget::activated, this,
            [this](const QModelIndex &index) { choose(index.row()); });
}

LSMFindingsView::~LSMFindingsView() = default;

void LSMFindingsView::setFindings(const LSMFindings &findings)
{
    const int current = m_ui->list->currentRow();
    m_findings = findings;
    m_ui->list->clear();
    for (const LSMFinding &finding : findings) {
        const QString text = finding.line > 0 ? platform::format(localized("Line %ld: %@"),
                                                                 finding.line, finding.text)
                                              : finding.text;
        new QListWidgetItem(LSMIconOfLevel(finding.level), text, m_ui->list);
    }
    m_ui->list->setCurrentRow(qMin(qMax(0, current), m_ui->list->count() - 1));
    m_ui->countText->setText(findings.empty() ? localized("No findings")
                                              : LSMCountOfFindings(findings));
}

void LSMFindingsView::setCurrentFinding(const LSMFinding &finding)
{
    const auto found = std::ranges::find(m_findings, finding);
    if (found != m_findings.end())
        m_ui->list->setCurrentRow(int(found - m_findings.begin()));
}

void LSMFindingsView::choose(int row)
{
    if (row >= 0 && row < int(m_findings.size()))
        Q_EMIT findingWasChosen(LSMFinding(m_findings[size_t(row)]));
}

void LSMFindingsView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeWasAskedFor();
    else
        QWidget::keyPressEvent(event);
}
