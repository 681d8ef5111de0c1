#include "kit/ui/ZQAlertPresenter.h"

#include "kit/ui/AlertBox.h"

#include <QApplication>

namespace {

class BoxPresenter : public ZQAlertPresenter
{
public:
    // The box may go with its window while it is shown; so it is not on the stack.
    int runModal(ZQCustomizableAlert &alert) override
    {
        QWidget *window = QApplication::activeWindow();
        const QPointer<zq::AlertBox> box = new zq::AlertBox(alert, help, window);
        box->setWindowModality(window ? Qt::WindowModal : Qt::ApplicationModal);
        const int result = box->exec();
        delete box;
        return result;
    }

    std::function<void(const QString &)> help;
};

BoxPresenter boxPresenter;
ZQAlertPresenter *currentPresenter = &boxPresenter;

} // namespace

ZQAlertPresenter &ZQAlertPresenter::current()
{
    return *currentPresenter;
}

void ZQAlertPresenter::setCurrent(ZQAlertPresenter *presenter)
{
    currentPresenter = presenter ? presenter : &boxPresenter;
}

void ZQAlertPresenter::setHelpHandler(const std::function<void(const QString &)> &handler)
{
    boxPresenter.help = handler;
}
