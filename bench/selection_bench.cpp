// Measures what selecting another design costs, on the designs of the home it runs in, and prints
// one JSON line:
//
//     bench/make_designs.py DIR 40 1000
//     HOME=DIR XDG_CONFIG_HOME=DIR/.config XDG_CACHE_HOME=DIR/.cache selection_bench
//
// It goes down the list with the HTML tab and the preview in sight, twice: `new` are designs that
// are shown for the first time, `seen` the same once more. `painted` is the time until
// the code view has painted itself (into an image), `flush` that of bringing it to the screen,
// which in a window with a web view is the graphics system's; `longest_turn` that of the longest
// turn of the event loop until the preview has its page too; milliseconds.

#include "Measuring.h"

#include "app/AppController.h"
#include "app/LSMApplication.h"
#include "editor/MGSFragariaView.h"
#include "editor/SMLTextView.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplate.h"
#include "platform/web/WebView.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMMainWindowController.h"
#include "workbench/LSMOutlineViewController.h"

#include <cstdio>
#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QMainWindow>

namespace {

constexpr int longestWait = 20'000; // milliseconds, for a page

double turnUntilLoaded(const platform::WebView &page)
{
    double longest = 0;
    const QDeadlineTimer patience(longestWait);
    const QDeadlineTimer begun(600); // the preview follows half a second later
    while ((page.isLoading() || !begun.hasExpired()) && !patience.hasExpired())
        longest = std::max(
            longest, milliseconds([] { QCoreApplication::processEvents(QEventLoop::AllEvents); }));
    return longest;
}

void visitAll(AppController &controller, const QString &name, QJsonObject &result)
{
    LSMMainWindowController *window = controller.mainWindowController();
    auto *code = window->window()->findChild<MGSFragariaView *>()->textView()->viewport();
    const auto *page = window->window()->findChild<platform::WebView *>();
    QImage frame(code->size(), QImage::Format_RGB32);
    Samples painted;
    Samples flushed;
    Samples turns;
    const auto &designs = controller.designTemplateManager()
                              ->designTemplateGroupForType(LSMDesignKeys::customType)
                              ->designTemplates();
    for (const auto &design : designs) {
        painted.add(milliseconds([&] {
            window->outlineViewController()->selectDesign(design.get());
            code->render(&frame);
        }));
        flushed.add(milliseconds([code] { code->repaint(); }));
        turns.add(turnUntilLoaded(*page));
    }
    painted.write(result, QStringLiteral("painted_%1_ms").arg(name));
    flushed.write(result, QStringLiteral("flush_%1_ms").arg(name));
    turns.write(result, QStringLiteral("longest_turn_%1_ms").arg(name));
}

} // namespace

int main(int argc, char **argv)
{
    platform::WebView::prepareApplication();
    LSMApplication application(argc, argv);
    AppController::initialize();
    AppController controller;
    controller.applicationDidFinishLaunching();
    controller.mainWindowController()->editorViewController()->setSelectedTab(
        LSMDesignEditorViewController::HtmlTab);
    turnUntilLoaded(*controller.mainWindowController()->window()->findChild<platform::WebView *>());
    QJsonObject result;
    visitAll(controller, QStringLiteral("new"), result);
    visitAll(controller, QStringLiteral("seen"), result);
    std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
    return 0;
}
