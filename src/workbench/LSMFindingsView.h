#pragma once

#include "library/checking/LSMFinding.h"
#include <memory>
#include <QWidget>

namespace Ui {
class LSMFindingsView;
}

/// The list of what was found in the HTML, below the code editor. A click on a finding, or Return,
/// chooses it; the button at its corner, or Escape, closes the list. Main thread.
class LSMFindingsView : public QWidget
{
    Q_OBJECT

public:
    explicit LSMFindingsView(QWidget *parent = nullptr);
    ~LSMFindingsView() override;

    void setFindings(const LSMFindings &findings); ///< The chosen row stays, if it is still there.
    void setCurrentFinding(const LSMFinding &finding); ///< Without choosing it.

Q_SIGNALS:
    void findingWasChosen(const LSMFinding &finding);
    void closeWasAskedFor();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(int row);

    std::unique_ptr<Ui::LSMFindingsView> m_ui;
    LSMFindings m_findings;
};
