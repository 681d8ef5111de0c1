#include "app/LSMColourCommand.h"

#include "app/LSMCommandOutput.h"
#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "platform/Bundle.h"
#include "platform/FileIO.h"
#include "platform/Format.h"
#include "platform/TextEncoding.h"

#include <QFileInfo>

using platform::localized;
using platform::TextAttribute;
using platform::TextRange;
using namespace LSMCommandOutput;

namespace {

struct Request
{
    QString path;
    QString language;
    bool html = false;
};

std::optional<Request> requestFrom(const QStringList &arguments)
{
    Request request;
    QStringList formats;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &word = arguments[i];
        if (word == u"--language" && i + 1 < arguments.size() && request.language.isNull())
            request.language = arguments[++i];
        else if (word == u"--json" || word == u"--html")
            formats += word;
        else if (!word.startsWith(u'-') && !word.isEmpty() && request.path.isNull())
            request.path = word;
        else
            return std::nullopt;
    }
    if (request.path.isNull() || formats.size() > 1)
        return std::nullopt;
    request.html = formats.contains(QStringLiteral("--html"));
    return request;
}

// By the file's extension, else by what its first line tells, else the standard one.
QString languageOf(const QString &path, const QString &text)
{
    const MGSSyntaxController &controller = MGSSyntaxController::sharedInstance();
    QString name = controller.syntaxDefinitionNameWithExtension(QFileInfo(path).suffix());
    if (name.isNull()) {
        const QString line = text.left(text.indexOf(u'\n'));
        name = controller.syntaxDefinitionNameWithExtension(
            MGSSyntaxController::guessSyntaxDefinitionExtensionFromFirstLine(line));
    }
    return name.isNull() ? MGSSyntaxController::standardSyntaxDefinitionName() : name;
}

/// Calls `function(range, attributes)` for each run of one group.
template <class Function>
void forEachGroup(const platform::TemporaryAttributes &attributes, Function function)
{
    const TextRange all{0, attributes.length()};
    TextRange run;
    for (qsizetype at = 0; at < all.end(); at = run.end()) {
        if (attributes.value(TextAttribute::Group, at, all, &run).isValid())
            function(run, attributes.attributes(at));
    }
}

void printJson(const platform::LayoutManager &layout)
{
    QByteArray json;
    forEachGroup(layout.temporaryAttributes(), [&json](TextRange run, const auto &attributes) {
        json += json.isEmpty() ? "[\n" : ",\n";
        json += "{\"location\":" + QByteArray::number(run.location) +
                ",\"length\":" + QByteArray::number(run.length) + ",\"group\":\"" +
                attributes.value(TextAttribute::Group).toString().toUtf8() + "\"}";
    });
    print(json.isEmpty() ? "[]\n" : json + "\n]\n");
}

QByteArray htmlOf(const QString &text)
{
    return text.toHtmlEscaped().replace(u'\r', QStringLiteral("&#13;")).toUtf8();
}

void printHtml(const platform::LayoutManager &layout, const QString &title)
{
    QMap<QString, QString> styles;
    QByteArray body;
    qsizetype written = 0;
    const auto write = [&](qsizetype end) {
        body += htmlOf(layout.textStorage()->substring(TextRange::between(written, end)));
        written = end;
    };
    forEachGroup(layout.temporaryAttributes(), [&](TextRange run, const auto &attributes) {
        const QString group = attributes.value(TextAttribute::Group).toString();
        const auto colour =
            attributes.value(TextAttribute::ForegroundColor).template value<QColor>();
        styles.insert(group, colour.name());
        write(run.location);
        body += "<span class=\"" + group.toUtf8() + "\">";
        write(run.end());
        body += "</span>";
    });
    write(layout.textStorage()->length());
    QByteArray sheet;
    for (auto style = styles.cbegin(); style != styles.cend(); ++style)
        sheet += '.' + style.key().toUtf8() + " { color: " + style.value().toUtf8() + "; }\n";
    print("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" + htmlOf(title) +
          "</title>\n<style>\nbody { background: #ffffff; color: #000000; }\n" + sheet +
          "</style>\n</head>\n<body>\n<pre>\n" + body + "</pre>\n</body>\n</html>\n");
}

int colour(const Request &request, const QByteArray &bytes)
{
    const QString text = platform::decodeText(bytes).text;
    platform::LayoutManager layout;
    layout.textStorage()->setString(text);
    SMLSyntaxColouring colouring(&layout);
    colouring.setSyntaxDefinitionName(request.language.isNull() ? languageOf(request.path, text)
                                                                : request.language);
    colouring.recolourRange({0, layout.textStorage()->length()});
    if (request.html)
        printHtml(layout, QFileInfo(request.path).fileName());
    else
        printJson(layout);
    return 0;
}

} // namespace

int LSMRunColourCommand(const QStringList &arguments)
{
    const auto request = requestFrom(arguments);
    if (!request)
        return complain(
            localized("usage: layoutsmith colour FILE [--language NAME] [--json|--html]"), 2);
    if (!request->language.isNull() &&
        !MGSSyntaxController::sharedInstance().syntaxDefinitions().contains(
            request->language.toLower()))
        return complain(
            platform::format(localized("there is no language \"%@\""), request->language), 2);
    platform::Error error;
    const auto bytes = platform::readFile(request->path, &error);
    if (!bytes)
        return complain(error.description, 1);
    try {
        return colour(*request, *bytes);
    } catch (const std::exception &exception) {
        return complain(platform::format(localized("%@ cannot be coloured: %@"), request->path,
                                         exception.what()),
                        1);
    }
}
