#pragma once

#include "kit/ui/ZQAlertPresenter.h"
#include <QList>

namespace support {

/// Answers every alert while it lives, without showing it, and keeps what would have been shown.
/// The answers are results (1000 ...), given in turn; the last one goes on.
class AlertAnswers : public ZQAlertPresenter
{
public:
    explicit AlertAnswers(QList<int> answers = {ZQAlertFirstButtonReturn})
        : m_answers(std::move(answers))
    {
        setCurrent(this);
    }
    ~AlertAnswers() override { setCurrent(&m_former); }
    Q_DISABLE_COPY_MOVE(AlertAnswers)

    int runModal(ZQCustomizableAlert &alert) override
    {
        if (whileShown)
            whileShown();
        alert.suppressionButtonIsOn = alert.showsSuppressionButton && ticksSuppression;
        shown << alert;
        return m_answers.size() > 1 ? m_answers.takeFirst() : m_answers.first();
    }

    QList<ZQCustomizableAlert> shown;
    bool ticksSuppression = false;
    std::function<void()> whileShown; ///< What happens before the answer.

private:
    ZQAlertPresenter &m_former = current();
    QList<int> m_answers;
};

} // namespace support
