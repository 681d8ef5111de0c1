#include "workbench/LSMSampleWindow.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "platform/FileIO.h"
#include "platform/Format.h"
#include "platform/Workspace.h"
#include "ui_LSMSampleWindow.h"

#include <QShortcut>
#include <QUrl>

using platform::localized;

LSMSampleWindow::LSMSampleWindow(QWidget *parent)
    : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::LSMSampleWindow>())
{
    m_ui->setupUi(this);
    move(parent->window()->geometry().center() - rect().center());
    m_ui->previousButton->setIcon(zq::tintedIcon(QStringLiteral("Previous")));
    m_ui->nextButton->setIcon(zq::tintedIcon(QStringLiteral("Next")));
    connect(m_ui->previousButton, &QToolButton::clicked, this, &LSMSampleWindow::showPrevious);
    connect(m_ui->nextButton, &QToolButton::clicked, this, &LSMSampleWindow::showNext);
    connect(m_ui->openInBrowserButton, &QPushButton::clicked, this,
            &LSMSampleWindow::openInBrowser);
    addShortcut(Qt::Key_Left, &LSMSampleWindow::showPrevious);
    addShortcut(Qt::Key_Right, &LSMSampleWindow::showNext);
    addShortcut(Qt::Key_Escape, &LSMSampleWindow::closeWindow);
}

LSMSampleWindow::~LSMSampleWindow() = default;

void LSMSampleWindow::addShortcut(int key, void (LSMSampleWindow::*action)())
{
    connect(new QShortcut(key, this), &QShortcut::activated, this, action);
}

void LSMSampleWindow::showSamples(const QList<LSMSample> &samples, qsizetype index,
                                  const QString &designName)
{
    m_samples = samples;
    m_designName = designName;
    showSample(index);
    show();
    raise();
    activateWindow();
    m_ui->sampleView->setFocus();
}

void LSMSampleWindow::showSample(qsizetype index)
{
    if (index < 0 || index >= m_samples.size())
        return;
    m_index = index;
    const LSMSample &sample = m_samples[index];
    setWindowTitle(sample.name + QStringLiteral(" – ") + m_designName);
    m_ui->nameText->setText(sample.name);
    m_ui->positionText->setText(platform::format(localized("%@ of %@"),
                                                 QLocale().toString(index + 1),
                                                 QLocale().toString(m_samples.size())));
    m_ui->previousButton->setEnabled(index > 0);
    m_ui->nextButton->setEnabled(index + 1 < m_samples.size());

    platform::Error error;
    const auto page = platform::readFile(sample.path, &error);
    m_ui->problemText->setText(error.description);
    m_ui->problemText->setVisible(!page);
    m_ui->sampleView->setVisible(page.has_value());
    m_ui->openInBrowserButton->setEnabled(page.has_value());
    if (page)
        m_ui->sampleView->loadData(*page, QStringLiteral("text/html"), QStringLiteral("utf-8"),
                                   platform::DocumentScroll::Top);
}

void LSMSampleWindow::openInBrowser()
{
    platform::Workspace::sharedWorkspace().openUrl(QUrl::fromLocalFile(m_samples[m_index].path));
}
