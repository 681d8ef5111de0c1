#include "library/LibraryTestSupport.h"

#include "library/LSMDesignKeys.h"
#include "platform/Assert.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;

namespace {

class Loading : public LibraryTest
{
protected:
    void oldFile(const QString &title, const QByteArray &text) const
    {
        support::writeFile(custom + u'/' + title + u".html"_s, text);
    }
};

} // namespace

TEST_F(Loading, BothGroupsInOrderAndOnlyWhatIsADesign)
{
    writeBundle(custom, u"zebra"_s, titled(u"apple"_s), "");
    writeBundle(custom, u"b"_s, titled(u"Banana"_s), "", PropertyList::Format::Binary);
    writeBundle(custom, u".hidden"_s, titled(u"carrot"_s), "");
    oldFile(u"Old. One"_s, "<p>old</p>");
    writeBundle(builtin, u"built"_s, titled(u"A built-in"_s), "");
    QDir().mkpath(bundle(u"no info"_s));
    support::writeFile(custom + u"/notes.txt"_s, "x");
    support::writeFile(custom + u"/Page.htm"_s, "x");
    support::writeFile(custom + u"/Old.html.old"_s, "x");
    support::writeFile(custom + u"/.html"_s, "x");
    writeBundle(custom + u"/nested"_s, u"deep"_s, titled(u"Deep"_s), "");

    const LSMDesignTemplateManager manager;
    EXPECT_EQ(titles(manager),
              QStringList({u"apple"_s, u"Banana"_s, u"carrot"_s, u"Old. One"_s, u"A built-in"_s}));
    EXPECT_EQ(manager.designTemplateGroups()[0]->type(), customType);
    EXPECT_EQ(manager.designTemplateGroups()[1]->type(), builtinType);
    EXPECT_TRUE(designNamed(manager, u"A built-in"_s)->isBuiltInDesignTemplate());
    EXPECT_EQ(designNamed(manager, u"Banana"_s), manager.templateWithPath(bundle(u"b"_s)));
}

TEST_F(Loading, AnOldFileIsADesignWithItsUrls)
{
    oldFile(u"Old"_s, "<img src='http://x/é.png'>");
    oldFile(u"Latin"_s, "caf\xE9 http://x/y.gif");
    const LSMDesignTemplateManager manager;
    const LSMDesignTemplate *old = designNamed(manager, u"Old"_s);
    ASSERT_TRUE(old && old->isOldVersion());
    EXPECT_EQ(old->templatePath(), custom + u"/Old.html"_s);
    EXPECT_EQ(old->remoteResources(), QStringList(u"http://x/é.png"_s));
    EXPECT_FALSE(old->templateShouldBeSaved());
    EXPECT_TRUE(old->templateImage().isNull());
    ASSERT_TRUE(designNamed(manager, u"Latin"_s));
    EXPECT_TRUE(designNamed(manager, u"Latin"_s)->htmlSourceCode().startsWith(u"caf"));
}

TEST_F(Loading, NoFoldersNoDesigns)
{
    using platform::UserDefaults;
    support::writeFile(home(u"file"_s), "x");
    for (const QString &path : {home(u"missing"_s), home(u"file"_s), home(u"file/below"_s)}) {
        UserDefaults::standardUserDefaults().setObject(u"customTemplatesPath"_s, path);
        UserDefaults::standardUserDefaults().setObject(u"lotbookApplicationIdentifier"_s,
                                                       u"com.example.none"_s);
        const LSMDesignTemplateManager manager;
        EXPECT_TRUE(manager.pathForBuiltinTemplates().isNull());
        EXPECT_EQ(manager.designTemplateGroups().size(), 2U);
        EXPECT_TRUE(titles(manager).isEmpty());
    }
}

TEST_F(Loading, MarkingPaidKeepsWhatTheStoreHolds)
{
    LSMDesignTemplateManager manager;
    const DesignPointer design = newDesign(manager, u"A"_s, {});
    design->setPaidTemplate(true);
    const QVariantMap first = design->templateDictionary()->value(store).toMap();
    EXPECT_EQ(first.keys(), QStringList(releaseDate));
    EXPECT_LT(
        std::abs(
            first.value(releaseDate).value<QDateTime>().secsTo(QDateTime::currentDateTimeUtc())),
        60);
    const QVariantMap kept{{releaseDate, QVariant::fromValue(platform::PropertyListDate{1})}};
    design->templateDictionary()->setValue(store, kept);
    design->setPaidTemplate(false);
    EXPECT_TRUE(design->templateDictionary()->contains(store));
    design->setPaidTemplate(true);
    EXPECT_EQ(design->templateDictionary()->value(store).toMap(), kept);
}

TEST_F(Loading, ACopyIsMadeFromDisk)
{
    const QString path = writeBundle(custom, u"A"_s, titled(u"A"_s, {{u"own"_s, 1}}), "saved");
    writePicture(path + u'/' + jpegThumbnail, Qt::red);
    const LSMDesignTemplateManager manager;
    LSMDesignTemplate *source = designNamed(manager, u"A"_s);
    source->setHtmlSourceCode(u"edited"_s);
    source->templateDictionary()->setValue(u"own"_s, 2);
    const DesignPointer copy = source->copy();
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->templatePath().isNull());
    EXPECT_EQ(copy->htmlSourceCode(), u"saved");
    EXPECT_EQ(copy->templateDictionary()->value(u"own"_s).toInt(), 1);
    EXPECT_EQ(copy->templateImagePath(), path + u'/' + jpegThumbnail);
    copy->templateDictionary()->setValue(name, u"B"_s);
    EXPECT_EQ(source->templateName(), u"A");
    QDir(path).removeRecursively();
    EXPECT_EQ(copy->htmlSourceCode(), u"saved");
    EXPECT_FALSE(copy->templateImage().isNull());
    EXPECT_FALSE(source->copy()) << "nothing on disk to copy";
    EXPECT_FALSE(copy->copy());
}

TEST_F(Loading, RevertTakesWhatStandsOnDisk)
{
    const QString path = writeBundle(custom, u"A"_s, titled(u"A"_s), "saved");
    writeBundle(builtin, u"B"_s, titled(u"B"_s), "built-in");
    const LSMDesignTemplateManager manager;
    const auto edit = [](LSMDesignTemplate *design) {
        design->setHtmlSourceCode(u"edited"_s);
        design->templateDictionary()->setValue(name, u"Renamed"_s);
        design->setPaidTemplate(true);
        design->setTemplateShouldBeSaved(true);
    };
    LSMDesignTemplate *design = designNamed(manager, u"A"_s);
    edit(design);
    design->revertToSaved();
    EXPECT_EQ(design->htmlSourceCode(), u"saved");
    EXPECT_EQ(design->templateName(), u"A");
    EXPECT_FALSE(design->templateShouldBeSaved());
    EXPECT_TRUE(design->isPaidTemplate()) << "the paid mark is not read again";

    edit(design);
    QFile::remove(path + u'/' + infoFile);
    support::writeFile(path + u'/' + bodyFile, "elsewhere");
    design->revertToSaved();
    EXPECT_EQ(design->templateName(), u"Renamed") << "no Info.plist: the dictionary stands";
    EXPECT_EQ(design->htmlSourceCode(), u"elsewhere");
    EXPECT_FALSE(design->templateShouldBeSaved());

    LSMDesignTemplate *other = designNamed(manager, u"B"_s);
    edit(other);
    other->revertToSaved();
    EXPECT_EQ(other->htmlSourceCode(), u"edited");
}

TEST_F(Loading, ANameOrIdentifierIsTakenByEitherGroup)
{
    writeBundle(custom, u"A"_s, titled(u"A"_s, {{identifier, u"id"_s}, {u"number"_s, 5}}), "");
    writeBundle(builtin, u"B"_s, titled(u"B"_s, {{identifier, QString(u""_s)}}), "");
    writeBundle(builtin, u"B1"_s, titled(u"B 1"_s), "");
    const LSMDesignTemplateManager manager;
    const LSMDesignTemplate *a = designNamed(manager, u"A"_s);
    const LSMDesignTemplate *b = designNamed(manager, u"B"_s);
    const struct
    {
        const LSMDesignTemplate *except;
        QString value;
        QString key;
        bool taken;
    } cases[] = {
        {nullptr, u"A"_s, name, true},
        {nullptr, u"a"_s, name, false},
        {a, u"A"_s, name, false},
        {b, u"A"_s, name, true},
        {nullptr, {}, u"absent"_s, false},
        {nullptr, u"5"_s, u"number"_s, false},
        {a, u""_s, identifier, true},
        {b, u""_s, identifier, false},
        {nullptr, u""_s, u"number"_s, false},
    };
    for (const auto &[except, value, key, taken] : cases)
        EXPECT_EQ(manager.hasDesignNotEqualToDesign(except, value, key), taken)
            << value.toStdString() << " " << key.toStdString();
    EXPECT_THROW((void)manager.hasDesignWithValue(u"x"_s, {}), platform::AssertionFailure);

    EXPECT_EQ(manager.uniquifyDesignTitle(u"New"_s), u"New");
    EXPECT_EQ(manager.uniquifyDesignTitle(u"A"_s), u"A 1");
    EXPECT_EQ(manager.uniquifyDesignTitle(u"B"_s), u"B 2") << "built-in titles count";
    EXPECT_EQ(manager.uniquifyDesignTitle(u"B 1"_s), u"B 1 1");
    EXPECT_EQ(manager.uniquifyDesignIdentifier(u"id"_s), u"id-1");
}

TEST_F(Loading, KeywordsOfAllDesignsSortedEachOnce)
{
    writeBundle(custom, u"A"_s,
                titled(u"A"_s, {{keywords, QVariantList{u"shop"_s, u"Art"_s, 5, u"art"_s}}}), "");
    writeBundle(builtin, u"B"_s, titled(u"B"_s, {{keywords, QVariantList{u"art"_s, u"Zoo"_s}}}),
                "");
    writeBundle(builtin, u"C"_s, titled(u"C"_s, {{keywords, u"no list"_s}}), "");
    EXPECT_EQ(LSMDesignTemplateManager().keywords(),
              QStringList({u"Art"_s, u"art"_s, u"shop"_s, u"Zoo"_s}));
}

TEST_F(Loading, TheDateOfTheDefaultLayoutsSampleIsTold)
{
    const QString path = writeBundle(custom, u"A"_s, titled(u"A"_s),
                                     "x [[LBLayoutEnabled_Two_Columns or LBLayoutNotDefined]]");
    const LSMDesignTemplateManager manager;
    LSMDesignTemplate *design = designNamed(manager, u"A"_s);
    EXPECT_TRUE(design->layoutPreviewGenerationDateString().isNull());
    const QString sample = path + u"/Layout_Samples/Two_Columns.html"_s;
    support::writeFile(sample, "x");
    QFile file(sample);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime({2024, 5, 6}, {7, 8, 9}), QFileDevice::FileModificationTime);
    file.close();
    const QString text = design->layoutPreviewGenerationDateString();
    EXPECT_TRUE(text.startsWith(u"Previews generated: ")) << text.toStdString();
    EXPECT_TRUE(text.contains(u"2024") && text.contains(u"08:09")) << text.toStdString();
    QFile::remove(sample);
    EXPECT_EQ(design->layoutPreviewGenerationDateString(), text) << "kept until set to null";
    design->setLayoutPreviewGenerationDateString({});
    EXPECT_TRUE(design->layoutPreviewGenerationDateString().isNull());
}
