#pragma once

#include <memory>
#include <QWidget>

namespace Ui {
class LSMSampleWindow;
}

/// A layout's sample, by the name that it is shown under.
struct LSMSample
{
    QString name;
    QString path;
};

/// Shows the samples of a design large, one at a time: Left and Right go to the next one, Escape
/// closes. A window of its own; what it shows is read from disk each time. Owned by the samples
/// view; main thread.
class LSMSampleWindow : public QWidget
{
    Q_OBJECT

public:
    explicit LSMSampleWindow(QWidget *parent);
    ~LSMSampleWindow() override;

    /// Opens the window, or brings it to the front, with the sample at `index`.
    void showSamples(const QList<LSMSample> &samples, qsizetype index, const QString &designName);

private:
    void addShortcut(int key, void (LSMSampleWindow::*action)());
    void showPrevious() { showSample(m_index - 1); }
    void showNext() { showSample(m_index + 1); }
    void showSample(qsizetype index); ///< One that is not there is passed by.
    void closeWindow() { close(); }
    void openInBrowser();

    std::unique_ptr<Ui::LSMSampleWindow> m_ui;
    QList<LSMSample> m_samples;
    QString m_designName;
    qsizetype m_index = 0;
};
