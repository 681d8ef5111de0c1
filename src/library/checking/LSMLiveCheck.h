#pragma once

#include "library/checking/LSMHtmlCheck.h"
#include <memory>
#include <QObject>

/// Checks texts on a thread of its own, the newest only: a text that is handed in ends the check of
/// the one before, whose findings never come. Nobody waits for it but the destructor, which ends it
/// first. Main thread.
class LSMLiveCheck : public QObject
{
    Q_OBJECT

public:
    explicit LSMLiveCheck(QObject *parent = nullptr);
    ~LSMLiveCheck() override;

    void check(const QString &html, const LSMHtmlCheck::Context &context);
    void cancel(); ///< What is being checked is of no interest any more.

Q_SIGNALS:
    void didCheck(const LSMFindings &findings);

private:
    struct Worker;
    void finish(quint64 number, const LSMFindings &findings);

    std::unique_ptr<Worker> m_worker;
    std::shared_ptr<LSMLiveCheck *> m_self; ///< For what comes when this has gone.
    quint64 m_number = 0;                   ///< Of the newest request.
};
