#pragma once

#include <functional>
#include <QString>
#include <QWidget>

namespace zq {

/// Lets the user pick one existing file; null if none was picked. `filter` as in "Pictures (*.png
/// *.jpg)". Main thread.
QString runOpenPanel(QWidget *parent, const QString &title, const QString &filter);

/// Answers in place of the user, for tests; an empty function brings the dialog back.
void setOpenPanelAnswer(const std::function<QString()> &answer);

} // namespace zq
