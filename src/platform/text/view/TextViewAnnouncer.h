#pragma once

#include "platform/text/TextRange.h"
#include <QObject>
#include <QPointer>

class QAccessibleEvent;

namespace platform {

class TextStorage;
class TextView;

/// Tells QAccessible of a view's edits, with what they took out and put in, and of its caret and
/// selection, as long as somebody listens there. Owned by the view.
class TextViewAnnouncer : public QObject
{
    Q_OBJECT

public:
    explicit TextViewAnnouncer(TextView *view);

protected:
    // Tests listen in place of QAccessible.
    virtual bool isHeard() const;
    virtual void tell(QAccessibleEvent *event);

private:
    void observeTextStorage();
    void textWillChange(TextRange range);
    void textDidChange(TextRange range, qsizetype changeInLength);
    void selectionDidChange();

    TextView *m_view;
    QPointer<TextStorage> m_storage;
    QString m_removed; ///< By the edit that goes on.
    TextRange m_selected;
};

} // namespace platform
