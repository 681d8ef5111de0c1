#include "library/LibraryTestSupport.h"

#include "library/checking/LSMBundleCheck.h"
#include "library/LSMDeletedDesigns.h"
#include "library/LSMDesignKeys.h"
#include "platform/UserDefaults.h"
#include "support/IoFaults.h"

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;
using support::IoFaults;

namespace {

enum class Start { New, Bundle, OldFile, RenamedOldFile };

constexpr Start starts[] = {Start::New, Start::Bundle, Start::OldFile, Start::RenamedOldFile};

class SaveFaults : public LibraryTest
{
protected:
    const QString title = u"Näme"_s;
    const QString before = u"old http://x/y.png"_s;
    const QString after = u"new "_s.repeated(3000);

    // Makes a custom folder with that start in it, beside a bundle that no save touches, and has it
    // used. The kinds of start and the number of the fault keep the folders apart.
    QString makeFolder(Start start, int nth)
    {
        const QString folder = home(u"designs-%1-%2"_s.arg(int(start)).arg(nth));
        QDir(folder).removeRecursively();
        writeBundle(folder, u"bystander"_s, titled(u"Bystander"_s), "untouched");
        if (start == Start::Bundle)
            writePicture(writeBundle(folder, title, titled(title), before.toUtf8()) + u'/' +
                             pngThumbnail,
                         Qt::red);
        if (start == Start::OldFile || start == Start::RenamedOldFile)
            support::writeFile(folder + u'/' + title + u".html"_s, before.toUtf8());
        platform::UserDefaults::standardUserDefaults().setObject(u"customTemplatesPath"_s, folder);
        return folder;
    }

    // The design with its picture and an edit, as the user is about to save it.
    LSMDesignTemplate *editedDesign(LSMDesignTemplateManager &manager, Start start) const
    {
        if (start == Start::New)
            newDesign(manager, title, {});
        LSMDesignTemplate *design = designNamed(manager, title);
        design->setHtmlSourceCode(after);
        design->setTemplateShouldBeSaved(true);
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        design->setTemplateImage(picture);
        if (start == Start::RenamedOldFile)
            design->templateDictionary()->setValue(name, u"Renamed"_s);
        return design;
    }

    void expectWholeFiles(const QString &folder, const std::string &where) const
    {
        const auto files = snapshot(folder);
        for (auto file = files.begin(); file != files.end(); ++file) {
            if (file.key().startsWith(u"bystander") || file.key().startsWith(u".deleted-"))
                continue;
            const bool isText = file.key().endsWith(u".html") || file.key().endsWith(u".old");
            const bool isPicture =
                file.key().endsWith(pngThumbnail) || file.key().endsWith(jpegThumbnail);
            EXPECT_TRUE(!isText || *file == before.toUtf8() || *file == after.toUtf8()) << where;
            EXPECT_TRUE(!isPicture || !QImage::fromData(*file).isNull()) << where;
            EXPECT_TRUE(!file.key().endsWith(infoFile) || PropertyList::parse(*file)) << where;
        }
        EXPECT_EQ(files.value(u"bystander.designTemplate/body.html"_s), "untouched") << where;
    }
};

std::string named(Start start, int nth)
{
    return "start " + std::to_string(int(start)) + ", operation " + std::to_string(nth);
}

} // namespace

TEST_F(SaveFaults, AFailureAnywhereLeavesEverythingUsable)
{
    for (const Start start : starts) {
        for (const auto reach : {IoFaults::Reach::One, IoFaults::Reach::Onward}) {
            bool struck = true;
            for (int nth = 1; struck; ++nth) {
                const std::string where = named(start, nth);
                const QString folder = makeFolder(start, nth);
                LSMDesignTemplateManager manager;
                LSMDesignTemplate *design = editedDesign(manager, start);
                platform::Error error;
                bool saved = false;
                {
                    IoFaults faults(folder);
                    faults.failAt(nth, ENOSPC, reach);
                    saved = manager.saveDesignTemplate(design, &error);
                    struck = faults.count() >= nth;
                }
                EXPECT_NE(saved, !error.description.isEmpty()) << where;
                const qsizetype bundles = QDir(folder).entryList({u"*.designTemplate"_s}).size();
                EXPECT_TRUE(!design->isOldVersion() || reach == IoFaults::Reach::Onward ||
                            bundles == 1)
                    << where << ": an unfinished bundle was left behind";
                expectWholeFiles(folder, where);
                EXPECT_TRUE(design->templateShouldBeSaved()) << where;
                EXPECT_EQ(design->htmlSourceCode(), after) << where;

                // Without the user's edit, what was on disk must still be found.
                const LSMDesignTemplateManager restarted;
                EXPECT_TRUE(start == Start::New || saved || titles(restarted).size() >= 2)
                    << where << " " << titles(restarted).join(u", "_s).toStdString();

                EXPECT_TRUE(manager.saveDesignTemplate(design, &error))
                    << where << " " << error.description.toStdString();
                EXPECT_EQ(bodyOf(design->templatePath()), after.toUtf8()) << where;
                EXPECT_EQ(infoOf(design->templatePath()).value(name), design->templateName());
                EXPECT_FALSE(design->isOldVersion()) << where;
            }
        }
    }
}

TEST_F(SaveFaults, FilesOfADesignThatWasBroughtBackComeWithALaterSave)
{
    bool struck = true;
    int nth = 0;
    while (struck) {
        ++nth;
        const QString folder = makeFolder(Start::Bundle, nth);
        const QString extra = folder + u'/' + title + u".designTemplate/notes/mine.txt"_s;
        support::writeFile(extra, "mine");
        LSMDesignTemplateManager manager;
        LSMDeletedDesigns deleted;
        const auto &designs = manager.designTemplateGroupForType(customType)->designTemplates();
        ASSERT_TRUE(deleted.keep(designs.back()));
        manager.deleteDesignTemplate(designs.back().get());
        ASSERT_FALSE(QFileInfo::exists(extra));
        const DesignPointer design = deleted.takeLast();
        manager.addCustomDesign(design);
        {
            IoFaults faults(folder);
            faults.failAt(nth, ENOSPC, IoFaults::Reach::Onward);
            (void)manager.saveDesignTemplate(design.get());
            struck = faults.count() >= nth;
        }
        expectWholeFiles(folder, named(Start::Bundle, nth));
        EXPECT_TRUE(manager.saveDesignTemplate(design.get()));
        EXPECT_EQ(support::readFile(design->templatePath() + u"/notes/mine.txt"_s), "mine") << nth;
    }
    EXPECT_GT(nth, 25) << "the copied files and the written ones";
}

TEST_F(SaveFaults, ADeathAnywhereLosesNoDesign)
{
    for (const Start start : starts) {
        int deaths = 0;
        for (int nth = 1; nth < 200; ++nth) {
            const std::string where = named(start, nth);
            const QString folder = makeFolder(start, nth);
            LSMDesignTemplateManager manager;
            LSMDesignTemplate *design = editedDesign(manager, start);
            if (!support::runKilledAt(folder, nth, [&] { manager.saveDesignTemplate(design); }))
                break;
            ++deaths;
            expectWholeFiles(folder, where);

            LSMDesignTemplateManager restarted;
            QStringList found = titles(restarted);
            EXPECT_TRUE(found.removeOne(u"Bystander"_s)) << where;
            EXPECT_TRUE(start == Start::New || !found.isEmpty()) << where;
            LSMBundleCheck check;
            check.addPath(folder);
            const LSMFindings findings = check.findings();
            for (const QString &entry :
                 QDir(folder).entryList({u"*.designTemplate"_s}, QDir::Dirs)) {
                const QString path = folder + u'/' + entry;
                EXPECT_TRUE(restarted.templateWithPath(path) ||
                            std::ranges::any_of(findings,
                                                [&](const LSMFinding &finding) {
                                                    return finding.path.startsWith(path);
                                                }))
                    << where;
            }
            for (const QString &left : found) {
                LSMDesignTemplate *again = designNamed(restarted, left);
                EXPECT_TRUE(again->htmlSourceCode() == before || again->htmlSourceCode() == after)
                    << where;
                EXPECT_TRUE(restarted.saveDesignTemplate(again)) << where;
            }
        }
        EXPECT_GE(deaths, 12) << "two or three files: open, write, sync, rename, sync of each";
    }
}

TEST_F(SaveFaults, ADeleteThatFailsAnywhereLeavesTheBundleWholeOrGone)
{
    for (int nth = 1, count = 1; nth <= count; ++nth) {
        const QString folder = makeFolder(Start::Bundle, nth);
        const QString path = folder + u'/' + title + u".designTemplate"_s;
        const auto whole = snapshot(path);
        LSMDesignTemplateManager manager;
        LSMDesignTemplate *design = designNamed(manager, title);
        IoFaults faults(folder);
        faults.failAt(nth, EACCES, IoFaults::Reach::Onward);
        EXPECT_TRUE(manager.deleteDesignTemplate(design));
        count = faults.count();
        if (QFileInfo::exists(path)) {
            EXPECT_EQ(snapshot(path), whole) << nth;
        }
        EXPECT_EQ(titles(LSMDesignTemplateManager()).contains(title), QFileInfo::exists(path))
            << nth;
    }
}
