#pragma once

#include "editor/SMLSyntaxError.h"
#include <QTextEdit>

/// The messages of some errors, one paragraph each, behind their badges when there are several; to
/// be read only. Has the size that they need, up to one from which on it scrolls. Main thread.
class MGSErrorMessagesView : public QTextEdit
{
    Q_OBJECT

public:
    explicit MGSErrorMessagesView(const QList<SMLSyntaxError> &errors, QWidget *parent = nullptr);

private:
    void sizeToFit();
};
