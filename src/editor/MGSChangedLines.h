#pragma once

#include "platform/text/TemporaryAttributes.h"
#include "platform/text/TextStorage.h"
#include <QPointer>

/// Remembers which lines of a text were edited since it was last saved. The marks move with later
/// edits; each edit costs O(log marks). Follows the storage, which it borrows and may outlive. Main
/// thread.
class MGSChangedLines : public QObject
{
    Q_OBJECT

public:
    explicit MGSChangedLines(platform::TextStorage *text, QObject *parent = nullptr);

    bool isChanged(qsizetype line) const; ///< Zero-based, existing.
    void forget();                        ///< The text is saved now.

Q_SIGNALS:
    void didChange();

private:
    void textDidChange(platform::TextRange range, qsizetype changeInLength);

    QPointer<platform::TextStorage> m_text;
    platform::TemporaryAttributes m_marks;
    bool m_isLastLineChanged = false; ///< It may be empty, with no character to mark.
};
