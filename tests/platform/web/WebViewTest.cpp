#include "platform/web/WebView.h"
#include "platform/web/LoopbackServer.h"
#include "platform/Workspace.h"
#include "support/TestSupport.h"

#include <csignal>
#include <gtest/gtest.h>
#include <QBuffer>
#include <QFontDatabase>
#include <QLabel>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

using platform::WebView;
using support::waitUntil;

namespace {

class RecordingWorkspace : public platform::Workspace
{
public:
    bool openUrl(const QUrl &url) override
    {
        opened << url.toString();
        return true;
    }
    QStringList opened;
};

QByteArray picture(Qt::GlobalColor colour)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

// The page tells its state in its title; its object is known by what it offers.
class WebViewTest : public testing::Test
{
protected:
    WebViewTest()
    {
        platform::Workspace::setSharedWorkspace(&workspace);
        view.resize(300, 200);
    }
    ~WebViewTest() override { platform::Workspace::setSharedWorkspace(nullptr); }

    static QObject *page(const WebView &view)
    {
        for (QObject *object : view.findChildren<QObject *>())
            if (object->property("renderProcessPid").isValid())
                return object;
        return nullptr;
    }
    static QString title(const WebView &view)
    {
        return page(view) ? page(view)->property("title").toString() : QString();
    }
    QVariant property(const char *name) { return page(view)->property(name); }

    static bool load(WebView &view, const QByteArray &document, const QString &encoding = "utf-8")
    {
        QSignalSpy finished(&view, &WebView::loadFinished);
        view.loadData(document, "text/html", encoding);
        return waitUntil([&] { return !finished.isEmpty(); }, 30) && finished[0][0].toBool();
    }
    bool show(const QByteArray &document, const QString &encoding = "utf-8")
    {
        view.show();
        return load(view, document, encoding);
    }
    bool waitForTitle(const QString &text)
    {
        return waitUntil([&] { return title(view) == text; });
    }
    QByteArray reports(const QByteArray &events)
    {
        return "onload=\"document.title += '" + events + "+;'\" onerror=\"document.title += '" +
               events + "-;'\"";
    }
    void click()
    {
        QWidget *target = &view;
        while (target->focusProxy())
            target = target->focusProxy();
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(100, 100));
    }
    bool waitForColour(const QColor &colour)
    {
        return waitUntil([&] { return view.grab().toImage().pixelColor(100, 100) == colour; });
    }

    RecordingWorkspace workspace;
    support::TemporaryHome home;
    LoopbackServer server;
    WebView view;
};

// Something to click at every point.
QByteArray linkTo(const QByteArray &address, const QByteArray &attributes = {})
{
    return "<a style='position:fixed;inset:0' " + attributes + " href='" + address + "'>link</a>";
}

} // namespace

TEST_F(WebViewTest, ShowsDocumentsOfAnySizeAndEncoding)
{
    const QByteArray filler(3 << 20, 'x');
    ASSERT_TRUE(show("<body style='background:#00ff00'><p>Größe</p><!--" + filler +
                     "--><script>document.title = document.querySelector('p').innerText + "
                     "document.body.innerHTML.length</script>"));
    EXPECT_TRUE(title(view).startsWith("Größe31458")) << qPrintable(title(view));
    EXPECT_TRUE(waitForColour(QColor(0, 255, 0)));
    ASSERT_TRUE(show("<title>Gr\xf6\xdf"
                     "e</title>",
                     "iso-8859-1"));
    EXPECT_EQ(title(view), "Größe");
    ASSERT_TRUE(show(""));
    EXPECT_FALSE(view.isLoading());
}

TEST_F(WebViewTest, NothingFlashesBetweenTwoDocuments)
{
    const QColor before(0, 0, 255);
    const QColor after(0, 128, 0);
    ASSERT_TRUE(show("<body style='background:#0000ff'>"));
    ASSERT_TRUE(waitForColour(before));
    view.loadData("<body style='background:#008000'>", "text/html", "utf-8");
    EXPECT_TRUE(waitUntil([&] {
        const QColor shown = view.grab().toImage().pixelColor(100, 100);
        EXPECT_TRUE(shown == before || shown == after) << qPrintable(shown.name());
        return shown == after;
    }));
    EXPECT_EQ(view.picture().toImage().pixelColor(100, 100), after);
}

TEST_F(WebViewTest, LoadsFromTheNetworkButNotFromTheDisk)
{
    const QString local = home.path("picture.png");
    support::writeFile(local, picture(Qt::red));
    support::writeFile(home.path("page.html"), "<body style='background:red'>");
    server.answer("/picture.png", "Content-Type: image/png", picture(Qt::blue));
    server.answer("/font", "Access-Control-Allow-Origin: *",
                  "what any page may read, as fonts are");
    server.answer("/style.css", "Content-Type: text/css", "body { background: #0000ff }");
    ASSERT_TRUE(show("<title>,</title><link rel=stylesheet href='" + server.url("/style.css") +
                     "' " + reports("style") + "><img src='" + server.url("/picture.png") + "' " +
                     reports("web") + "><img src='file://" + local.toUtf8() + "' " +
                     reports("file") + "><img src='relative.png' " + reports("relative") +
                     "><iframe style='position:fixed;left:50px;top:50px' src='file://" +
                     home.path("page.html").toUtf8() +
                     "'></iframe>"
                     "<script>fetch('" +
                     server.url("/font") + "').then(() => document.title += 'font+;')</script>"));
    EXPECT_TRUE(waitUntil([&] { return title(view).count(';') == 5; })) << qPrintable(title(view));
    for (const char *part : {"style+", "web+", "file-", "relative-", "font+"})
        EXPECT_TRUE(title(view).contains(part)) << part << " in " << qPrintable(title(view));
    EXPECT_TRUE(waitForColour(QColor(0, 0, 255))) << "the style, and nothing in the frame";
}

TEST_F(WebViewTest, StaysWithItsDocument)
{
    const QByteArray away = server.url("/away");
    const QByteArray scripts[] = {
        "location = '" + away + "'",
        "location.replace('" + away + "')",
        "window.open('" + away + "')",
        "location.reload()",
        "history.back()",
        "document.querySelector('form').submit()",
        "document.querySelector('a').click()",
        "top.location = 'data:text/html,away'",
        "location = 'file:///etc/passwd'",
        "location = 'mailto:a@b.c'",
    };
    for (const QByteArray &script : scripts) {
        ASSERT_TRUE(show("<title>here</title><a href='" + away +
                         "'>x</a><form method=post action='" + away +
                         "'></form><script>onload = () => setTimeout(() => {" + script +
                         "; setTimeout(() => document.title = 'still here', 200)})</script>"));
        const QVariant address = property("url");
        EXPECT_TRUE(waitForTitle("still here")) << script.constData();
        EXPECT_EQ(property("url"), address) << script.constData();
    }
    ASSERT_TRUE(show("<meta http-equiv=refresh content='0; url=" + away +
                     "'><script>setTimeout(() => document.title = 'still here', 300)</script>"));
    EXPECT_TRUE(waitForTitle("still here"));
    EXPECT_EQ(server.requests("/away"), 0);
    EXPECT_TRUE(workspace.opened.isEmpty()) << qPrintable(workspace.opened.join(' '));
}

TEST_F(WebViewTest, OpensClickedLinksInTheBrowser)
{
    const struct
    {
        const char *address, *attributes;
        bool opens;
    } cases[] = {
        {"http://127.0.0.1/link?a=1", "", true},
        {"https://127.0.0.1/new", "target=_blank", true},
        {"http://127.0.0.1/top", "target=_top", true},
        {"mailto:seller@layoutsmith.example", "", true},
        {"file:///etc/passwd", "", false},
        {"javascript:void(document.title = `clicked`)", "", false},
        {"other.html#part", "", false},
        {"#part", "", false},
    };
    for (const auto &each : cases) {
        workspace.opened.clear();
        ASSERT_TRUE(show(linkTo(each.address, each.attributes) +
                         "<script>onclick = () => setTimeout(() => document.title = 'clicked', "
                         "100)</script>"));
        const QString address = property("url").toUrl().path();
        click();
        EXPECT_TRUE(waitForTitle("clicked")) << each.address;
        if (each.opens) {
            EXPECT_TRUE(waitUntil([&] { return !workspace.opened.isEmpty(); })) << each.address;
        }
        EXPECT_EQ(workspace.opened.join(' '), each.opens ? each.address : "");
        EXPECT_EQ(property("url").toUrl().path(), address) << each.address;
    }
}

TEST_F(WebViewTest, IsNotHeldUpByWhatADocumentAsks)
{
    ASSERT_TRUE(show("<script>alert(1); document.title = [confirm(2), prompt(3)]</script>"));
    EXPECT_EQ(title(view), "false,");

    ASSERT_TRUE(show("<script>navigator.geolocation.getCurrentPosition(() => {}, () => "
                     "Notification.requestPermission().then(p => document.title = p))</script>"));
    EXPECT_TRUE(waitForTitle("denied"));

    ASSERT_TRUE(show(linkTo("javascript:void(document.title = `clicked`)") +
                     "<script>onbeforeunload = e => { e.preventDefault(); return e.returnValue = "
                     "'stay' }</script>"));
    click();
    ASSERT_TRUE(waitForTitle("clicked"));
    EXPECT_TRUE(show("<title>next</title>"));
    EXPECT_EQ(title(view), "next") << "a document cannot refuse to be left";
}

TEST_F(WebViewTest, RefusesDownloads)
{
    server.answer("/file.bin",
                  "Content-Type: application/octet-stream\r\n"
                  "Content-Disposition: attachment; filename=file.bin",
                  "data");
    ASSERT_TRUE(show("<iframe src='" + server.url("/file.bin") + "'></iframe>"));
    ASSERT_TRUE(waitUntil([&] { return server.requests("/file.bin") == 1; }));
    ASSERT_TRUE(show("<title>next</title>"));
    QStringList found;
    for (QDirIterator files(home.path(), QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        found << files.next();
    EXPECT_TRUE(found.filter("file").isEmpty()) << qPrintable(found.join(' '));
}

TEST_F(WebViewTest, ComesBackAfterItsProcessDied)
{
    ASSERT_TRUE(show("<title>first</title>"));
    QSignalSpy died(&view, &WebView::renderProcessDidTerminate);
    const auto process = property("renderProcessPid").toLongLong();
    ASSERT_GT(process, 1);
    ASSERT_EQ(::kill(pid_t(process), SIGKILL), 0);
    ASSERT_TRUE(waitUntil([&] { return died.size() == 1; }));
    EXPECT_FALSE(view.isLoading());
    ASSERT_TRUE(show("<title>second</title><body style='background:#ff00ff'>"));
    EXPECT_EQ(title(view), "second");
    EXPECT_TRUE(waitForColour(QColor(255, 0, 255)));
}

TEST_F(WebViewTest, KeepsScrollPositionAndZoomOverTheNextDocument)
{
    const QByteArray tall = "<body style='height:5000px'>";
    const QByteArray scroll = "<script>onload = () => scrollTo(0, 700)</script>";
    const QByteArray tell =
        "<script>onload = () => setTimeout(() => document.title = scrollY + ' ' "
        "+ innerWidth, 50)</script>";
    ASSERT_TRUE(show(tall + scroll));
    ASSERT_TRUE(waitUntil([&] { return property("scrollPosition").toPointF().y() == 700; }));
    view.loadData(tall, "text/html", "utf-8"); // cut short by the next
    ASSERT_TRUE(show(tall + tell));
    EXPECT_TRUE(waitForTitle("700 300")) << qPrintable(title(view));

    view.setZoomFactor(2);
    ASSERT_TRUE(waitUntil([&] { return property("scrollPosition").toPointF().y() == 1400; }));
    ASSERT_TRUE(show(tall + tell));
    EXPECT_TRUE(waitForTitle("700 150")) << qPrintable(title(view));
    ASSERT_TRUE(show(tall + tell));
    EXPECT_TRUE(waitForTitle("700 150")) << qPrintable(title(view));
    view.loadData(tall, "text/html", "utf-8", platform::DocumentScroll::Top);
    ASSERT_TRUE(show(tall + tell)) << "cut short the one that goes to the top";
    EXPECT_TRUE(waitForTitle("0 150")) << qPrintable(title(view));
    view.setZoomFactor(100);
    EXPECT_EQ(view.zoomFactor(), 5);
}

TEST_F(WebViewTest, HiddenViewLoadsItsLatestDocumentWhenShown)
{
    QSignalSpy finished(&view, &WebView::loadFinished);
    view.loadData("<title>first</title>", "text/html", "utf-8");
    view.loadData("<title>second</title>", "text/html", "utf-8");
    support::settle();
    EXPECT_TRUE(view.isLoading());
    EXPECT_EQ(page(view), nullptr) << "nothing starts for a view that nobody sees";
    view.show();
    ASSERT_TRUE(waitUntil([&] { return finished.size() == 1; }));
    EXPECT_EQ(title(view), "second");
    view.hide();
    view.loadData("<title>third</title>", "text/html", "utf-8");
    support::settle();
    EXPECT_EQ(title(view), "second");
    view.show();
    EXPECT_TRUE(waitForTitle("third"));
    EXPECT_TRUE(waitUntil([&] { return finished.size() == 2; }));
}

TEST_F(WebViewTest, SeveralViewsLiveSideBySideAndDieAtAnyTime)
{
    WebView other;
    other.resize(300, 200);
    other.show();
    ASSERT_TRUE(show("<title>one</title>"));
    ASSERT_TRUE(load(other, "<title>two</title>"));
    EXPECT_EQ(title(view), "one");
    EXPECT_EQ(title(other), "two");
    for (int round = 0; round < 3; ++round) {
        const support::LogCapture log;
        auto doomed = std::make_unique<WebView>();
        doomed->resize(300, 200);
        doomed->show();
        QSignalSpy finished(doomed.get(), &WebView::loadFinished);
        doomed->loadData("<title>three</title><img src='" + server.url("/slow") + "'>", "text/html",
                         "utf-8");
        if (round > 0) {
            ASSERT_TRUE(waitUntil([&] { return page(*doomed) != nullptr; }));
        }
        if (round > 1) {
            ASSERT_TRUE(waitUntil([&] { return title(*doomed) == "three"; }));
        }
        doomed.reset();
        support::settle();
        EXPECT_FALSE(log.contains("Release of profile")) << round;
    }
    ASSERT_TRUE(show("<title>still</title>"));
    EXPECT_EQ(title(view), "still");
}

// These two run in a process of their own: an engine once loaded stays, and so do its warnings.
TEST(WebViewProcess, DISABLED_ShowsAPage)
{
    WebView view;
    QSignalSpy finished(&view, &WebView::loadFinished);
    view.resize(300, 200);
    view.loadData("<p>page</p>", "text/html", "utf-8");
    view.show();
    ASSERT_TRUE(waitUntil([&] { return !finished.isEmpty() || view.findChild<QLabel *>("note"); }));
    if (auto *note = view.findChild<QLabel *>("note"))
        std::printf("note: %s\n", qPrintable(note->text()));
}

namespace {

QString outputOfAProcess(const QString &modules)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!modules.isNull())
        environment.insert("LAYOUTSMITH_MODULES", modules);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {"--gtest_also_run_disabled_tests", "--gtest_brief=1",
                   "--gtest_filter=WebViewProcess.DISABLED_ShowsAPage"});
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return QString::fromUtf8(process.readAll());
}

} // namespace

TEST(WebViewProcess, SaysThatTheModuleIsMissing)
{
    const QTemporaryDir empty;
    EXPECT_TRUE(outputOfAProcess(empty.path()).contains("note: The preview needs the module"));
}

TEST(WebViewProcess, StartsAndEndsQuietly)
{
    for (const QString &line : outputOfAProcess({}).split('\n', Qt::SkipEmptyParts))
        EXPECT_TRUE(line.contains("1 test") || line.contains("propagateSizeHints") ||
                    line.contains("XDG_RUNTIME_DIR") || line.startsWith("Note: ") ||
                    line.contains("No suitable graphics backend")) // on a machine without one
            << qPrintable(line);
}
