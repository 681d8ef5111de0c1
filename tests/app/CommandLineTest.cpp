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

TEST_F(CommandLineTest, WordsThatMakeNoSenseGetTheUsage)
{
    for (const QStringList &words :
         {QStringList{QStringLiteral("frobnicate")},
          QStringList{QStringLiteral("list"), QStringLiteral("--xml")},
          QStringList{QStringLiteral("show")}, QStringList{QStringLiteral("--tour")}}) {
        const Result result = run(words);
        EXPECT_EQ(result.status, 2) << words.join(u' ').toStdString();
        EXPECT_TRUE(result.complaints.contains("usage: ")) << words.join(u' ').toStdString();
    }
    EXPECT_TRUE(run({QStringLiteral("--version")}).output.startsWith("layoutsmith 1.0"));
    EXPECT_EQ(run({QStringLiteral("--help")}).status, 0);
}

TEST_F(CommandLineTest, TheTourPaintsEveryTab)
{
    writeDesign(QStringLiteral("Alpha"));
    writeDesign(QStringLiteral("Built"), Group::BuiltIn);
    const QDir pictures(home.path(QStringLiteral("tour")));
    const Result result = run({QStringLiteral("--tour"), pictures.path()});
    EXPECT_EQ(result.status, 0) << result.complaints.toStdString();
    EXPECT_EQ(pictures.entryList({QStringLiteral("*.png")}).size(), 20);
    for (const QString &name : pictures.entryList({QStringLiteral("*.png")})) {
        const QImage image(pictures.filePath(name));
        QSet<QRgb> colours;
        for (int x = 0; x < image.width(); x += 3) {
            for (int y = 0; y < image.height(); y += 3)
                colours.insert(image.pixel(x, y));
        }
        EXPECT_GT(colours.size(), 10) << name.toStdString();
    }
}
