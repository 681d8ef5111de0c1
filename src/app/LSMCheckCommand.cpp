#include "app/LSMCheckCommand.h"

#include "app/LSMCommandOutput.h"
#include "library/checking/LSMBundleCheck.h"
#include "platform/Bundle.h"
#include "platform/Format.h"

#include <QJsonDocument>
#include <QJsonObject>

using platform::localized;
using namespace LSMCommandOutput;

namespace {

/// Of the command's words and of JSON, the same in each language.
constexpr const char *levels[] = {"note", "warning", "error"};

struct Request
{
    QStringList paths;
    bool json = false;
    LSMFinding::Level failLevel = LSMFinding::Level::Warning;
};

std::optional<LSMFinding::Level> levelNamed(const QString &name)
{
    for (int i = 0; i < int(std::size(levels)); ++i) {
        if (name == QLatin1StringView(levels[i]))
            return LSMFinding::Level(i);
    }
    return std::nullopt;
}

std::optional<Request> requestFrom(const QStringList &arguments)
{
    Request request;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == u"--json") {
            request.json = true;
        } else if (arguments[i] == u"--fail-level") {
            const auto level = levelNamed(arguments.value(++i));
            if (!level)
                return std::nullopt;
            request.failLevel = *level;
        } else if (arguments[i].startsWith(u"--")) {
            return std::nullopt;
        } else {
            request.paths << arguments[i];
        }
    }
    return request;
}

QByteArray jsonObject(const LSMFinding &finding)
{
    QJsonObject object{
        {QStringLiteral("path"), finding.path},
        {QStringLiteral("level"), QLatin1StringView(levels[int(finding.level)])},
        {QStringLiteral("text"), finding.text},
    };
    if (finding.line > 0) {
        object.insert(QStringLiteral("line"), finding.line);
        object.insert(QStringLiteral("character"), finding.character);
        object.insert(QStringLiteral("length"), finding.length);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray textLine(const LSMFinding &finding)
{
    const QString place = finding.line > 0
                              ? platform::format(QStringLiteral("%@:%ld:%ld"), finding.path,
                                                 finding.line, finding.character)
                              : finding.path;
    return platform::format(QStringLiteral("%@: %@: %@\n"), place,
                            LSMFindingLevelName(finding.level), finding.text)
        .toUtf8();
}

} // namespace

int LSMRunCheckCommand(const QStringList &arguments,
                       const std::function<QStringList()> &libraryPaths)
{
    const auto request = requestFrom(arguments);
    if (!request)
        return complain(localized("usage: layoutsmith check [PATH...] [--json] [--fail-level "
                                  "note|warning|error]"),
                        2);
    LSMBundleCheck check;
    for (const QString &path : request->paths.isEmpty() ? libraryPaths() : request->paths)
        check.addPath(path);
    QByteArrayList lines;
    bool fails = false;
    for (const LSMFinding &finding : check.findings()) {
        fails = fails || finding.level >= request->failLevel;
        lines << (request->json ? jsonObject(finding) : textLine(finding));
    }
    print(request->json ? "[\n" + lines.join(",\n") + "\n]\n" : lines.join());
    return fails ? 1 : 0;
}
