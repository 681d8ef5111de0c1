#include "platform/Workspace.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTranslator>

using platform::Bundle;
using platform::Workspace;

namespace {

class WorkspaceTest : public testing::Test
{
protected:
    void install(const QString &application, const QByteArray &info)
    {
        support::writeFile(home.path(application + "/Contents/Info.plist"), info);
    }
    static QByteArray info(const char *identifier)
    {
        return *platform::PropertyList::serialize(
            QVariantMap{{"CFBundleIdentifier", QString::fromLatin1(identifier)}},
            platform::PropertyList::Format::Binary);
    }

    support::TemporaryHome home;
    Workspace workspace;
};

} // namespace

TEST_F(WorkspaceTest, FindsApplicationsByIdentifier)
{
    EXPECT_TRUE(workspace.pathForApplication("a.b.c").isNull());
    install("Applications/Broken.app", "garbage");
    install("Applications/Old & Größe 9.app", info("a.b.c"));
    install("Applications/folder/Deep.app", info("deep"));
    install("Applications/NoSuffix", info("suffix"));
    install("Applications/Nameless.app", info(""));
    install("Second/Copy.app", info("a.b.c"));
    install("Second/Other.app", info("other"));
    qputenv("LAYOUTSMITH_APPLICATIONS",
            (home.path("Missing") + "::" + home.path("Applications") + ':' + home.path("Second"))
                .toUtf8());
    EXPECT_EQ(workspace.pathForApplication("a.b.c"), home.path("Applications/Old & Größe 9.app"));
    EXPECT_EQ(workspace.pathForApplication("other"), home.path("Second/Other.app"));
    for (const char *absent : {"deep", "suffix", "", "a.b"})
        EXPECT_TRUE(workspace.pathForApplication(QString::fromLatin1(absent)).isNull()) << absent;

    qunsetenv("LAYOUTSMITH_APPLICATIONS");
    EXPECT_EQ(workspace.pathForApplication("a.b.c"), home.path("Applications/Old & Größe 9.app"))
        << "~/Applications is the first of the usual folders";
}

TEST_F(WorkspaceTest, AnswersFalseAtOnceWithoutADesktop)
{
    QElapsedTimer timer;
    timer.start();
    support::writeFile(home.path("file.txt"), "x");
    EXPECT_FALSE(workspace.selectFile(home.path("file.txt"), {}));
    EXPECT_FALSE(workspace.selectFile(home.path("missing/file.txt"), home.path("missing")));
    EXPECT_FALSE(workspace.openUrl(QUrl("https://layoutsmith.example")));
    EXPECT_LT(timer.elapsed(), 3000);
}

TEST(Bundle, FindsResources)
{
    const Bundle &bundle = Bundle::mainBundle();
    EXPECT_EQ(bundle.bundleIdentifier(), "com.quillbyte.layoutsmith");
    EXPECT_EQ(bundle.bundleName(), "Layoutsmith");
    EXPECT_EQ(
        support::readFile(bundle.pathForResource("defaults", "plist")),
        support::readFile(QStringLiteral(LAYOUTSMITH_SOURCE_DIR "/resources/defaults.plist")));
    EXPECT_FALSE(bundle.pathForResource("defaults.plist", {}).isNull());
    EXPECT_TRUE(bundle.pathForResource("defaults", "txt").isNull());
    EXPECT_TRUE(Bundle(QStringLiteral("/nowhere")).infoDictionary().isEmpty());
}

TEST(Bundle, TranslatesFromTables)
{
    class German : public QTranslator
    {
    public:
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            const QMap<QByteArray, QString> texts = {{"Localizable/Delete “%@”…", "„%@“ löschen …"},
                                                     {"Menus/Open", "Öffnen"}};
            return texts.value(QByteArray(context) + '/' + text);
        }
        bool isEmpty() const override { return false; }
    } german;
    const Bundle &bundle = Bundle::mainBundle();
    EXPECT_EQ(platform::localized("Delete “%@”…"), "Delete “%@”…");
    QCoreApplication::installTranslator(&german);
    EXPECT_EQ(platform::localized("Delete “%@”…"), "„%@“ löschen …");
    EXPECT_EQ(bundle.localizedString("Open"), "Open");
    EXPECT_EQ(bundle.localizedString("Open", "Open it"), "Open it");
    EXPECT_EQ(bundle.localizedString("Open", "Open it", "Menus"), "Öffnen");
    QCoreApplication::removeTranslator(&german);
}
