#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using platform::TextAttribute;
using platform::TextRange;

// A folder of tests/data/colouring holds input.*, expected.json, and perhaps definition.plist (else
// the extension tells the language) and options.json (properties of the engine). With
// LAYOUTSMITH_WRITE_EXPECTED set in the environment the test writes expected.json: read it before
// you believe it.

namespace {

QVariantMap definitionIn(const QDir &folder, const QString &extension)
{
    const QString path = folder.filePath(u"definition.plist"_s);
    if (const auto document = platform::PropertyList::parse(support::readFile(path)))
        return document->root.toMap();
    const MGSSyntaxController &controller = MGSSyntaxController::sharedInstance();
    const QString name = controller.syntaxDefinitionNameWithExtension(extension);
    EXPECT_FALSE(name.isNull()) << extension.toStdString();
    return controller.syntaxDictionaryWithName(name).value_or(QVariantMap());
}

/// One run a line, with its text, which is there for the reader.
QByteArray runsOf(const platform::LayoutManager &layout)
{
    QByteArrayList lines;
    const TextRange all{0, layout.textStorage()->length()};
    TextRange run;
    for (qsizetype at = 0; at < all.end(); at = run.end()) {
        const QVariant group =
            layout.temporaryAttributes().value(TextAttribute::Group, at, all, &run);
        if (!group.isValid())
            continue;
        const QJsonObject object{{u"group"_s, group.toString()},
                                 {u"length"_s, run.length},
                                 {u"location"_s, run.location},
                                 {u"text"_s, layout.textStorage()->substring(run)}};
        lines += QJsonDocument(object).toJson(QJsonDocument::Compact);
    }
    return "[\n" + lines.join(",\n") + "\n]\n";
}

} // namespace

TEST(GoldenColouring, EveryFolderHasTheRunsItExpects)
{
    const QDir data(QStringLiteral(LAYOUTSMITH_SOURCE_DIR "/tests/data/colouring"));
    const QStringList cases = data.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_GT(cases.size(), 20);
    for (const QString &name : cases) {
        SCOPED_TRACE(name.toStdString());
        const support::LogCapture log; // of patterns that are broken on purpose
        const QDir folder(data.filePath(name));
        const QFileInfo input = folder.entryInfoList({u"input.*"_s}).value(0);
        platform::LayoutManager layout;
        SMLSyntaxColouring colouring(&layout);
        colouring.setSyntaxDefinition(
            std::make_shared<MGSSyntaxDefinition>(definitionIn(folder, input.suffix()), name));
        const auto options =
            QJsonDocument::fromJson(support::readFile(folder.filePath(u"options.json"_s))).object();
        for (auto option = options.begin(); option != options.end(); ++option)
            EXPECT_TRUE(
                colouring.setProperty(option.key().toLatin1().constData(), option->toVariant()));
        ASSERT_TRUE(layout.textStorage()->setUtf8(support::readFile(input.filePath())));
        colouring.recolourRange({0, layout.textStorage()->length()});
        const QString expected = folder.filePath(u"expected.json"_s);
        if (qEnvironmentVariableIsSet("LAYOUTSMITH_WRITE_EXPECTED"))
            support::writeFile(expected, runsOf(layout));
        EXPECT_EQ(QString::fromUtf8(runsOf(layout)),
                  QString::fromUtf8(support::readFile(expected)));
    }
}
