#pragma once

#include "platform/AppleScript.h"
#include "platform/PropertyList.h"
#include "support/SessionBus.h"
#include "workbench/LSMLayoutPreviewGenerator.h"
#include "workbench/WorkbenchFixture.h"

#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

/// The window, a stand-in for Lotbook as a process of its own, and a bus between them.
class LotbookTest : public WorkbenchTest
{
protected:
    using Generator = LSMLayoutPreviewGenerator;

    LotbookTest()
    {
        using namespace std::chrono_literals;
        Generator::setWaits({60ms, 20ms, 10});
    }
    ~LotbookTest() override
    {
        if (controller)
            quit();
        stopHost();
        Generator::setWaits({});
    }

    static QString program(const char *name) ///< One that is built beside this program's own.
    {
        return QFileInfo(qEnvironmentVariable("LAYOUTSMITH_BINARY")).dir().filePath(name);
    }
    void setPreferences(bool set)
    {
        QDir().mkpath(container("Library/Preferences"));
        platform::PropertyList::write(
            QVariantMap{{"writeDescriptionToLibrary", set},
                        {"disableDesignImageCache", set},
                        {"hidePreviewImageDropzoneMarker", set}},
            platform::PropertyList::Format::Xml,
            container("Library/Preferences/com.quillbyte.lotbook9.plist"));
    }
    QString container(const QString &below) const
    {
        return home.path("Library/Containers/com.quillbyte.lotbook9/Data/" + below);
    }
    QString description(const QString &title) const
    {
        return container("Library/Application Support/Lotbook/GeneratedDescriptions/" + title +
                         ".html");
    }
    void startHost(const QStringList &options = {})
    {
        setPreferences(true);
        host.start(program("lotbook-standin"), options);
        ASSERT_TRUE(support::waitUntil([this] {
            return host.readAllStandardOutput().contains("Lotbook is ready");
        })) << host.readAllStandardError().toStdString();
    }
    void stopHost()
    {
        host.kill();
        host.waitForFinished();
    }

    void generate() { QTest::mouseClick(child<QPushButton>("generateButton"), Qt::LeftButton); }
    bool isIdle() const { return child<QStackedWidget>("previewGenerateTab")->currentIndex() == 0; }
    bool waitForIdle()
    {
        return support::waitUntil([this] { return isIdle(); }, 30);
    }
    QString askHost(const QString &what)
    {
        return platform::AppleScript("tell application \"Lotbook\" to get " + what)
            .executeAndReturnError(nullptr)
            .value_or("no answer");
    }

    support::SessionBus bus;
    support::Process host;
};
