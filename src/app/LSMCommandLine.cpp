#include "app/LSMCommandLine.h"

#include "app/AppController.h"
#include "app/LSMCheckCommand.h"
#include "app/LSMColourCommand.h"
#include "app/LSMCommandOutput.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignTemplateManager.h"
#include "platform/Bundle.h"
#include "platform/Concurrent.h"
#include "platform/Format.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using platform::localized;
using namespace LSMCommandOutput;

namespace {

// Never freed: the process ends with the command, and taking thousands of designs apart takes time.
const LSMDesignTemplateManager &library()
{
    static const auto *const manager =
        new LSMDesignTemplateManager(LSMDesignTemplateManager::Watching::Off);
    return *manager;
}

QJsonObject description(const LSMDesignTemplate &design)
{
    return {
        {QStringLiteral("name"), design.templateName()},
        {QStringLiteral("identifier"), design.templateIdentifier()},
        {QStringLiteral("type"), design.type()},
        {QStringLiteral("path"), design.templatePath()},
        {QStringLiteral("oldVersion"), design.isOldVersion()},
        {QStringLiteral("paid"), design.isPaidTemplate()},
        {QStringLiteral("keywords"), QJsonArray::fromStringList(design.keywords())},
    };
}

QByteArray jsonLine(const LSMDesignTemplate &design)
{
    return QJsonDocument(description(design)).toJson(QJsonDocument::Compact);
}

QByteArray textLine(const LSMDesignTemplate &design)
{
    return platform::format(QStringLiteral("%-8@ %-32@ %@\n"), design.type(), design.templateName(),
                            QStringLiteral("") + design.templateIdentifier())
        .toUtf8();
}

int list(const QStringList &arguments)
{
    const bool json = arguments == QStringList{QStringLiteral("--json")};
    if (!json && !arguments.isEmpty())
        return complain(localized("usage: layoutsmith list [--json]"), 2);
    std::vector<const LSMDesignTemplate *> designs;
    library().enumerateDesignsUsingBlock(
        [&](const LSMDesignTemplate *design, bool &) { designs.push_back(design); });
    QByteArrayList lines(qsizetype(designs.size()));
    QByteArray *const line = lines.data(); // not shared: each of the threads writes its own lines
    platform::concurrentPerform(designs.size(), [&](std::size_t index) {
        line[index] = json ? jsonLine(*designs[index]) : textLine(*designs[index]);
    });
    print(json ? "[\n" + lines.join(",\n") + "\n]\n" : lines.join());
    return 0;
}

bool answersTo(const LSMDesignTemplate &design, const QString &name)
{
    return design.templateName() == name || design.templateIdentifier() == name ||
           design.templatePath() == name;
}

int show(const QStringList &arguments)
{
    if (arguments.size() != 1 || arguments.first().isEmpty())
        return complain(localized("usage: layoutsmith show NAME"), 2);
    int shown = 0;
    library().enumerateDesignsUsingBlock([&](LSMDesignTemplate *design, bool &) {
        if (!answersTo(*design, arguments.first()))
            return;
        ++shown;
        QJsonObject object = description(*design);
        const QString html = design->htmlSourceCode();
        object.insert(QStringLiteral("characters"), html.size());
        object.insert(QStringLiteral("layouts"),
                      QJsonArray::fromStringList(LSMDesignLayouts::layoutNames(html)));
        object.insert(QStringLiteral("defaultLayout"), LSMDesignLayouts::defaultLayoutName(html));
        object.insert(
            QStringLiteral("images"),
            QJsonArray::fromStringList(LSMDesignTemplateManager::extractImageUrlsFromString(html)));
        print(QJsonDocument(object).toJson());
    });
    return shown > 0 ? 0
                     : complain(platform::format(localized("there is no design \"%@\""),
                                                 arguments.first()),
                                1);
}

QStringList libraryPaths()
{
    QStringList paths = {library().pathForCustomTemplates(), library().pathForBuiltinTemplates()};
    paths.removeIf([](const QString &path) { return !QFileInfo::exists(path); });
    return paths;
}

int check(const QStringList &arguments)
{
    return LSMRunCheckCommand(arguments, libraryPaths);
}

struct Command
{
    const char *name;
    int (*run)(const QStringList &arguments);
};

constexpr Command commands[] = {
    {"list", list}, {"show", show}, {"check", check}, {"colour", LSMRunColourCommand}};

} // namespace

std::optional<int> LSMCommandLine::run(const QStringList &arguments)
{
    for (const Command &command : commands) {
        if (!arguments.isEmpty() && arguments.first() == QLatin1StringView(command.name)) {
            AppController::initialize();
            return command.run(arguments.mid(1));
        }
    }
    return std::nullopt;
}
