#include "platform/PropertyList.h"
#include "support/TestSupport.h"
#include "workbench/WorkbenchFixture.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

/// The installed program as a script sees it: a process, its output and its exit status.
class CommandLineTest : public WorkbenchTest
{
protected:
    struct Result
    {
        int status = -1;
        QByteArray output;
        QByteArray complaints;
    };

    Result run(const QStringList &arguments)
    {
        QProcess process;
        process.start(qEnvironmentVariable("LAYOUTSMITH_BINARY"), arguments);
        EXPECT_TRUE(process.waitForFinished(120000)) << process.errorString().toStdString();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }
};

TEST_F(CommandLineTest, ListAndShowTellAboutTheDesigns)
{
    writeDesign(QStringLiteral("Größe"), Group::Custom,
                "[[if LBLayoutEnabled_Two_Columns or LBLayoutNotDefined]] https://a.de/b.png",
                {{QStringLiteral("LBKeywords"), QVariantList{QStringLiteral("retro")}}});
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    const Result json = run({QStringLiteral("list"), QStringLiteral("--json")});
    EXPECT_EQ(json.status, 0);
    const QJsonArray designs = QJsonDocument::fromJson(json.output).array();
    ASSERT_EQ(designs.size(), 2);
    EXPECT_EQ(designs[0][u"name"].toString(), QStringLiteral("Größe"));
    EXPECT_EQ(designs[0][u"type"].toString(), QStringLiteral("custom"));
    EXPECT_EQ(designs[1][u"type"].toString(), QStringLiteral("builtin"));
    EXPECT_TRUE(run({QStringLiteral("list")}).output.contains("com.myserver.größe"));

    const Result shown = run({QStringLiteral("show"), QStringLiteral("Größe")});
    const QJsonObject object = QJsonDocument::fromJson(shown.output).object();
    EXPECT_EQ(object[u"defaultLayout"].toString(), QStringLiteral("Two Columns"));
    EXPECT_EQ(object[u"images"].toArray(), QJsonArray{QStringLiteral("https://a.de/b.png")});
    EXPECT_EQ(run({QStringLiteral("show"), QStringLiteral("Nobody")}).status, 1);
}

TEST_F(CommandLineTest, CheckFailsOnFindings)
{
    const QString good = writeDesign(QStringLiteral("Good"));
    EXPECT_EQ(run({QStringLiteral("check")}).status, 0);
    const QString bad = customFolder() + QStringLiteral("/Bad.designTemplate");
    support::writeFile(bad + QStringLiteral("/Info.plist"), "<plist><dict><key>");
    const Result result = run({QStringLiteral("check")});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.output.contains(bad.toUtf8() + "/Info.plist: error: "));
    EXPECT_EQ(run({QStringLiteral("check"), good}).status, 0);
    EXPECT_EQ(run({QStringLiteral("check"), home.path(QStringLiteral("nowhere"))}).status, 1);
}

TEST_F(CommandLineTest, CheckTellsWhereInTheHtml)
{
    const QString note = writeDesign(QStringLiteral("Note"), Group::Custom,
                                     "<p>a</p>\r\n <img src='https://a.de/b.png'>");
    const QString fault = writeDesign(QStringLiteral("Fault"), Group::Custom, "<foo>");
    const auto check = [this](const QStringList &words) {
        return run(QStringList{QStringLiteral("check")} + words);
    };
    const Result text = check({note});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.output, note.toUtf8() +
                               "/body.html:2:2: note: The picture has no text (alt) for "
                               "those who cannot see it.\n");
    const QJsonArray findings =
        QJsonDocument::fromJson(check({fault, QStringLiteral("--json")}).output).array();
    ASSERT_FALSE(findings.isEmpty());
    EXPECT_EQ(findings[0][u"path"].toString(), fault + QStringLiteral("/body.html"));
    EXPECT_EQ(findings[0][u"level"].toString(), QStringLiteral("error"));
    EXPECT_EQ(findings[0][u"line"].toInt(), 1);
    EXPECT_EQ(findings[0][u"length"].toInt(), 5);

    const auto failsAt = [&](const QString &path, const char *level) {
        return check({path, QStringLiteral("--fail-level"), QString::fromLatin1(level)}).status;
    };
    EXPECT_EQ(failsAt(note, "note"), 1);
    EXPECT_EQ(failsAt(note, "error"), 0);
    EXPECT_EQ(failsAt(fault, "error"), 1);
    EXPECT_EQ(failsAt(fault, "fatal"), 2);
    EXPECT_EQ(check({QStringLiteral("--xml")}).status, 2);
    EXPECT_EQ(check({QStringLiteral("--fail-level")}).status, 2);
}

TEST_F(CommandLineTest, ColourTellsTheRunsOfAFile)
{
    const auto write = [this](const QString &name, const QByteArray &bytes) {
        support::writeFile(home.path(name), bytes);
        return home.path(name);
    };
    const auto colour = [this](const QStringList &words) {
        return run(QStringList{QStringLiteral("colour")} + words);
    };
    const QString page = write(QStringLiteral("page.html"), "<b>\xC3\xA9\xF0\x9F\x98\x80 \"</b>");
    EXPECT_EQ(colour({page}).output, "[\n{\"location\":0,\"length\":3,\"group\":\"command\"},\n"
                                     "{\"location\":8,\"length\":4,\"group\":\"command\"}\n]\n");
    EXPECT_EQ(colour({page, QStringLiteral("--language"), QStringLiteral("none")}).output, "[]\n");
    // UTF-16; and by the first line, where the extension tells nothing
    const QString wide = write(QStringLiteral("wide.htm"), QByteArray("\xFF\xFE<\0b\0>\0", 8));
    EXPECT_TRUE(colour({wide}).output.contains("\"length\":3,\"group\":\"command\""));
    const QString script = write(QStringLiteral("script"), "#!/usr/bin/python\ndef f(): None\n");
    EXPECT_TRUE(colour({script}).output.contains("\"keyword\""));

    const QByteArray html = colour({page, QStringLiteral("--html")}).output;
    EXPECT_TRUE(html.contains("<span class=\"command\">&lt;b&gt;</span>\xC3\xA9"));
    EXPECT_TRUE(html.contains(".command { color: #0800da; }"));

    const Result unknown = colour({page, QStringLiteral("--language"), QStringLiteral("Klingon")});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_TRUE(unknown.complaints.contains("Klingon"));
    const Result missing = colour({home.path(QStringLiteral("nowhere.c"))});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.complaints.contains("nowhere.c"));
}

TEST_F(CommandLineTest, WordsThatMakeNoSenseGetTheUsage)
{
    for (const QStringList &words :
         {QStringList{QStringLiteral("frobnicate")},
          QStringList{QStringLiteral("list"), QStringLiteral("--xml")},
          QStringList{QStringLiteral("show")}, QStringList{QStringLiteral("colour")},
          QStringList{QStringLiteral("colour"), QStringLiteral("a"), QStringLiteral("--json"),
                      QStringLiteral("--html")},
          QStringList{QStringLiteral("--tour")}}) {
        const Result result = run(words);
        EXPECT_EQ(result.status, 2) << words.join(u' ').toStdString();
        EXPECT_TRUE(result.complaints.contains("usage: ")) << words.join(u' ').toStdString();
    }
    EXPECT_TRUE(run({QStringLiteral("--version")}).output.startsWith("layoutsmith 1.0"));
    EXPECT_EQ(run({QStringLiteral("--help")}).status, 0);
}
