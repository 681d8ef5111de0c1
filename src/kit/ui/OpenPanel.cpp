#include "kit/ui/OpenPanel.h"

#include <QFileDialog>
#include <QStandardPaths>

namespace zq {

namespace {

std::function<QString()> presetAnswer;

}

QString runOpenPanel(QWidget *parent, const QString &title, const QString &filter)
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return presetAnswer ? presetAnswer()
                        : QFileDialog::getOpenFileName(parent, title, pictures, filter);
}

void setOpenPanelAnswer(const std::function<QString()> &answer)
{
    presetAnswer = answer;
}

} // namespace zq
