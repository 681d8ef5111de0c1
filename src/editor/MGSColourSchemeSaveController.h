#pragma once

#include <functional>
#include <QObject>
#include <QPointer>

class QDialog;

/// Asks for the name of a colour scheme that is to be saved, and whether one is to be deleted.
/// Owned by the scheme controller; main thread.
class MGSColourSchemeSaveController : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(bool confirmed)>; ///< Called once; not if `this` goes.

    QString schemeName() const { return m_schemeName; }
    void setSchemeName(const QString &name) { m_schemeName = name; }
    QString fileName() const; ///< The name without what no file name should have.
    bool isSaveButtonEnabled() const { return !m_schemeName.isEmpty(); }

    /// A sheet on the window of `parent` (without one, a window), with `schemeName` filled in;
    /// returns at once. Asked while it is open, it comes to the front.
    void showSchemeNameGetter(QWidget *parent, const Completion &completion);
    void showDeleteConfirmation(QWidget *parent, const Completion &completion); ///< Waits.
    void closeSheet(bool confirmed);

private:
    QString m_schemeName;
    QPointer<QDialog> m_sheet;
};
