#include "StandInHost.h"

#include "library/LSMLotbookConfig.h"

#include <cstdio>
#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

constexpr const char *properties[] = {"title", "design identifier", "layout name"};

bool readOptions(StandInOptions &options)
{
    QCommandLineParser parser;
    const auto add = [&parser](const char *name, const char *text, const char *value = "") {
        parser.addOption(
            {QString::fromLatin1(name), QString::fromLatin1(text), QString::fromLatin1(value)});
    };
    parser.setApplicationDescription(QStringLiteral(
        "Plays Lotbook on the session bus: one listing, which scripts can change.\nIt reads the "
        "designs of the home that HOME names, and renders the listing there."));
    parser.addHelpOption();
    add("title", "The listing's title.", "text");
    add("delay", "Waits before each answer.", "seconds");
    add("fail", "Answers with an error when it is to set \"title\", \"design\" or \"layout\".",
        "step");
    add("die-after", "Quits at the next call after so many answers.", "number");
    add("render-nothing", "Takes every change and writes no description.");
    add("renders", "Writes no more than so many descriptions.", "number");
    add("huge", "Renders 50 MB.");
    parser.process(*QCoreApplication::instance());

    if (parser.isSet(QStringLiteral("title")))
        options.title = parser.value(QStringLiteral("title"));
    bool isRight = true;
    if (parser.isSet(QStringLiteral("delay")))
        options.delay = parser.value(QStringLiteral("delay")).toDouble(&isRight);
    if (isRight && parser.isSet(QStringLiteral("die-after")))
        options.dieAfter = parser.value(QStringLiteral("die-after")).toInt(&isRight);
    if (isRight && parser.isSet(QStringLiteral("fail"))) {
        const QString step = parser.value(QStringLiteral("fail"));
        for (const char *property : properties) {
            if (QLatin1StringView(property).startsWith(step))
                options.failingProperty = QLatin1StringView(property);
        }
        isRight = !step.isEmpty() && !options.failingProperty.isEmpty();
    }
    if (isRight && parser.isSet(QStringLiteral("renders")))
        options.renders = parser.value(QStringLiteral("renders")).toInt(&isRight);
    if (parser.isSet(QStringLiteral("render-nothing")))
        options.renders = 0;
    options.rendersHuge = parser.isSet(QStringLiteral("huge"));
    return isRight && parser.positionalArguments().isEmpty() && options.delay >= 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    StandInOptions options;
    if (!readOptions(options)) {
        std::fprintf(stderr, "lotbook-standin: not understood; --help lists the options\n");
        return 2;
    }
    LSMLotbookConfig::registerDefaults();
    StandInHost host(options);
    if (!host.start()) {
        std::fprintf(stderr, "lotbook-standin: there is no session bus, or Lotbook runs already\n");
        return 1;
    }
    std::printf("Lotbook is ready: %s\n", qPrintable(options.title));
    return QCoreApplication::exec();
}
