#include "kit/ui/OpenPanel.h"

#include <QFileDialog>

namespace zq {

namespace {

std::function<QString()> presetAnswer;

}

QString runOpenPanel(QWidget *parent, const QString &title, const QString &filter)
{
    return presetAnswer ? presetAnswer() : QFileDialog::getOpenFileName(parent, title, {}, filter);
}

void setOpenPanelAnswer(const std::function<QString()> &answer)
{
    presetAnswer = answer;
}

} // namespace zq
