#include "app/LSMTour.h"

#include "app/AppController.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplate.h"
#include "library/LSMDesignTemplateManager.h"
#include "platform/Appearance.h"
#include "platform/web/WebView.h"
#include "workbench/LSMDesignEditorViewController.h"
#include "workbench/LSMMainWindowController.h"
#include "workbench/LSMOutlineViewController.h"

#include <algorithm>
#include <cstdio>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QMainWindow>

namespace {

constexpr const char *tabNames[] = {"design", "html", "samples", "properties", "store"};
constexpr int longestWait = 20000; // milliseconds, for a page to load

void turnEventLoop(int milliseconds)
{
    const QDeadlineTimer end(milliseconds);
    while (!end.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
}

class Tour
{
public:
    Tour(AppController &application, const QString &folder)
        : m_controller(*application.mainWindowController()),
          m_manager(*application.designTemplateManager()), m_folder(folder)
    {
    }

    bool visit(const QString &type, const QString &look)
    {
        const LSMDesignTemplate *design = designToShow(type);
        if (!design) {
            std::fprintf(stderr, "layoutsmith: there is no %s design to show\n", qPrintable(type));
            return false;
        }
        m_controller.outlineViewController()->selectDesign(design);
        bool written = true;
        LSMDesignEditorViewController *editor = m_controller.editorViewController();
        for (int tab = 0; tab < int(std::size(tabNames)); ++tab) {
            editor->setSelectedTab(tab);
            if (editor->selectedTab() != tab)
                continue;
            waitForPage();
            const QString name = QStringLiteral("%1-%2-%3-%4.png")
                                     .arg(type, look)
                                     .arg(tab + 1)
                                     .arg(QLatin1StringView(tabNames[tab]));
            written = takePicture(name) && written;
        }
        return written;
    }

private:
    // The one with the most to see.
    const LSMDesignTemplate *designToShow(const QString &type) const
    {
        const auto &designs = m_manager.designTemplateGroupForType(type)->designTemplates();
        const auto richest = std::ranges::max_element(designs, {}, [](const auto &design) {
            const bool hasSamples = !design->layoutPreviewGenerationDateString().isEmpty();
            return std::pair(hasSamples, design->layoutNames().size());
        });
        return richest == designs.end() ? nullptr : richest->get();
    }

    void waitForPage()
    {
        auto *page = m_controller.window()->findChild<platform::WebView *>();
        turnEventLoop(150);
        const QDeadlineTimer patience(longestWait);
        while (page->isVisible() && page->isLoading() && !patience.hasExpired())
            turnEventLoop(20);
        turnEventLoop(page->isVisible() ? 400 : 100);
    }

    bool takePicture(const QString &name)
    {
        const QString path = QDir(m_folder).absoluteFilePath(name);
        const bool written = m_controller.window()->grab().save(path);
        std::fprintf(written ? stdout : stderr, "%s%s\n", written ? "" : "cannot write ",
                     qPrintable(path));
        return written;
    }

    LSMMainWindowController &m_controller;
    LSMDesignTemplateManager &m_manager;
    QString m_folder;
};

} // namespace

int LSMRunTour(AppController &application, const QString &folder)
{
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "layoutsmith: cannot make the folder %s\n", qPrintable(folder));
        return 1;
    }
    auto &appearance = platform::Appearance::shared();
    const QString choice = appearance.choice();
    Tour tour(application, folder);
    bool complete = true;
    for (const QString &look : {QStringLiteral("light"), QStringLiteral("dark")}) {
        appearance.setChoice(look);
        for (const QString &type :
             {QString(LSMDesignKeys::customType), QString(LSMDesignKeys::builtinType)})
            complete = tour.visit(type, look) && complete;
    }
    appearance.setChoice(choice);
    return complete ? 0 : 1;
}
