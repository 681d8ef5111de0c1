#include "app/AppController.h"
#include "app/LSMApplication.h"
#include "app/LSMCommandLine.h"
#include "app/LSMTour.h"
#include "kit/ZQBundleExtensions.h"
#include "platform/web/WebView.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr const char *usage = R"(usage: layoutsmith                      opens the workbench
       layoutsmith list [--json]        lists all designs
       layoutsmith show NAME            tells about a design, by title, identifier or path
       layoutsmith check [PATH...] [--json] [--fail-level note|warning|error]
                                        checks designs or folders of them, or all; exit status 1
                                        on findings of that level, a warning at first, or above
       layoutsmith colour FILE [--language NAME] [--json|--html]
                                        colours a file as the editor does; tells the runs or
                                        prints a page
       layoutsmith --tour DIR           walks through the window and writes pictures into DIR
       layoutsmith --version | --help
)";

int printUsage(FILE *stream, int status)
{
    std::fputs(usage, stream);
    return status;
}

int runCommand(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    LSMInstallTranslations();
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const auto status = LSMCommandLine::run(arguments))
        return *status;
    if (arguments.first() == u"--version") {
        std::printf("layoutsmith %s\n",
                    qPrintable(zq::versionInfo(platform::Bundle::mainBundle())));
        return 0;
    }
    return arguments.first() == u"--help" ? printUsage(stdout, 0) : printUsage(stderr, 2);
}

int runWindow(int argc, char **argv)
{
    platform::WebView::prepareApplication();
    LSMApplication application(argc, argv);
    LSMInstallTranslations();
    const QStringList arguments = LSMApplication::arguments().mid(1);
    const bool tour = arguments.size() == 2 && arguments.first() == u"--tour";
    if (!tour && !arguments.isEmpty())
        return printUsage(stderr, 2);
    AppController::initialize();
    AppController controller;
    controller.applicationDidFinishLaunching();
    return tour ? LSMRunTour(controller, arguments.last()) : LSMApplication::exec();
}

// Options other than these two are the window's, or Qt's own (-platform, -style ...).
bool isWindowCall(int argc, char **argv)
{
    return argc == 1 || (argv[1][0] == '-' && std::strcmp(argv[1], "--help") != 0 &&
                         std::strcmp(argv[1], "--version") != 0);
}

} // namespace

int main(int argc, char **argv)
{
    return isWindowCall(argc, argv) ? runWindow(argc, argv) : runCommand(argc, argv);
}
