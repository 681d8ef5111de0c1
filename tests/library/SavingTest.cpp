#include "library/LibraryTestSupport.h"

#include "library/LSMDesignKeys.h"
#include "platform/FileTags.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;
using platform::PropertyListDate;

namespace {

class Saving : public LibraryTest
{
protected:
    LSMDesignTemplateManager manager;

    void save(LSMDesignTemplate *design)
    {
        platform::Error error;
        EXPECT_TRUE(manager.saveDesignTemplate(design, &error)) << error.description.toStdString();
        EXPECT_TRUE(error.isNull());
    }
};

// Every type that a property list knows, at the edges that writers get wrong.
QVariantMap everyType()
{
    return {
        {u"true"_s, true},
        {u"one"_s, 1},
        {u"big"_s, quint64(1) << 63},
        {u"negative"_s, std::numeric_limits<qint64>::min()},
        {u"real"_s, 0.1},
        {u"whole real"_s, 2.0},
        {u"far date"_s, QVariant::fromValue(PropertyListDate{-3e10})},
        {u"data"_s, QByteArray("\0\xFF\r", 3)},
        {u"empty"_s, u""_s},
        {u"text"_s, u"\U0001F600 \r\n <&> é"_s},
        {u"nested"_s, QVariantMap{{u"list"_s, QVariantList{1, QVariantList{}, QVariantMap{}}}}},
        {u"uid"_s, QVariant::fromValue(platform::PropertyListUid{7})},
    };
}

} // namespace

TEST_F(Saving, ANewDesignGetsAFolderOfItsTitle)
{
    const DesignPointer design =
        newDesign(manager, u"Näw \U0001F600"_s, u"é\r\nhttp://x/y.png http://x/y.png"_s);
    save(design.get());
    EXPECT_EQ(design->templatePath(), bundle(u"Näw \U0001F600"_s));
    EXPECT_EQ(bodyOf(design->templatePath()), u"é\r\nhttp://x/y.png http://x/y.png"_s.toUtf8());
    EXPECT_EQ(infoOf(design->templatePath()),
              QVariantMap({{infoDictionaryVersion, u"6.0"_s},
                           {name, u"Näw \U0001F600"_s},
                           {remoteResources, QVariantList{u"http://x/y.png"_s}}}));
    EXPECT_TRUE(design->templateShouldBeSaved()) << "clearing the mark is the caller's";
}

TEST_F(Saving, ATakenFolderGetsACounter)
{
    QDir().mkpath(bundle(u"A"_s));
    support::writeFile(bundle(u"A 1"_s), "a file of that name");
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    save(design.get());
    EXPECT_EQ(design->templatePath(), bundle(u"A 2"_s));
    EXPECT_EQ(design->templateName(), u"A");
    EXPECT_EQ(manager.saveNameForDesignName(u"A"_s), u"A 3.designTemplate");
    EXPECT_EQ(manager.saveNameForDesignName(u"a"_s), u"a 1.designTemplate") << "case counts";
}

TEST_F(Saving, NoTitleLeavesTheFolder)
{
    const QString longTitle = u"é"_s.repeated(300);
    const struct
    {
        QString title;
        QString folder;
    } cases[] = {
        {u"../../out"_s, u"..-..-out"_s},
        {u"/etc/x"_s, u"-etc-x"_s},
        {u"a/b"_s, u"a-b"_s},
        {u".."_s, u".."_s},
        {u"."_s, u"."_s},
        {u".dot"_s, u".dot"_s},
        {u""_s, u"Untitled"_s},
        {longTitle, longTitle.left(117)},
        {longTitle, longTitle.left(117) + u" 1"_s},
        {u"Case"_s, u"Case"_s},
        {u"case"_s, u"case"_s},
    };
    for (const auto &[title, folder] : cases) {
        const DesignPointer design = newDesign(manager, title, title);
        save(design.get());
        EXPECT_EQ(design->templatePath(), bundle(folder));
    }
    EXPECT_EQ(QDir(custom + u"/.."_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList(u"DesignTemplates"_s));
    QStringList loaded = titles(LSMDesignTemplateManager());
    for (const auto &[title, folder] : cases)
        EXPECT_TRUE(loaded.removeOne(title)) << title.toStdString();
    EXPECT_TRUE(loaded.isEmpty());
}

TEST_F(Saving, TheFolderKeepsItsNameWhenTheTitleChanges)
{
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    save(design.get());
    design->templateDictionary()->setValue(name, u"B"_s);
    save(design.get());
    EXPECT_EQ(QDir(custom).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
              QStringList(u"A.designTemplate"_s));
    EXPECT_EQ(infoOf(bundle(u"A"_s)).value(name), u"B"_s);
}

TEST_F(Saving, AnOldFileBecomesABundle)
{
    for (const QString &file : {u"Old"_s, u"Renamed"_s, u"Taken"_s})
        support::writeFile(custom + u'/' + file + u".html"_s, "<p>" + file.toUtf8() + "</p>");
    QDir().mkpath(bundle(u"Taken"_s));
    LSMDesignTemplateManager loaded;
    designNamed(loaded, u"Renamed"_s)->templateDictionary()->setValue(name, u"New name"_s);
    const struct
    {
        QString file;
        QString title;
        QString folder;
    } cases[] = {{u"Old"_s, u"Old"_s, u"Old"_s},
                 {u"Renamed"_s, u"New name"_s, u"New name"_s},
                 {u"Taken"_s, u"Taken"_s, u"Taken 1"_s}};
    for (const auto &[file, title, folder] : cases) {
        LSMDesignTemplate *design = designNamed(loaded, title);
        ASSERT_TRUE(loaded.saveDesignTemplate(design));
        EXPECT_FALSE(design->isOldVersion());
        EXPECT_EQ(design->templatePath(), bundle(folder));
        EXPECT_EQ(bodyOf(bundle(folder)), "<p>" + file.toUtf8() + "</p>");
        EXPECT_EQ(support::readFile(custom + u'/' + file + u".html.old"_s), bodyOf(bundle(folder)));
        EXPECT_FALSE(QFile::exists(custom + u'/' + file + u".html"_s));
        ASSERT_TRUE(loaded.saveDesignTemplate(design)) << "and once more, in place";
    }
    EXPECT_EQ(titles(LSMDesignTemplateManager()),
              QStringList({u"New name"_s, u"Old"_s, u"Taken"_s}));
}

TEST_F(Saving, ThePictureGoesWhereItDidNotComeFrom)
{
    const QString outside = home(u"outside.png"_s);
    writePicture(outside, Qt::red);
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    design->setTemplateImage(QImage(outside));
    design->setTemplateImagePath(outside);
    save(design.get());
    const QString png = bundle(u"A"_s) + u'/' + pngThumbnail;
    const QString jpg = bundle(u"A"_s) + u'/' + jpegThumbnail;
    EXPECT_TRUE(support::readFile(png).startsWith("\x89PNG"));
    EXPECT_FALSE(QFile::exists(jpg));
    EXPECT_EQ(design->templateImagePath(), outside);

    LSMDesignTemplateManager again;
    const QByteArray before = support::readFile(png);
    ASSERT_TRUE(again.saveDesignTemplate(designNamed(again, u"A"_s)));
    EXPECT_TRUE(support::readFile(jpg).startsWith("\xFF\xD8"));
    EXPECT_EQ(support::readFile(png), before);

    QFile::remove(png);
    LSMDesignTemplateManager fromJpg;
    ASSERT_TRUE(fromJpg.saveDesignTemplate(designNamed(fromJpg, u"A"_s)));
    EXPECT_TRUE(support::readFile(png).startsWith("\x89PNG"));
}

TEST_F(Saving, AFailedPngFallsBackToTheJpg)
{
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    design->setTemplateImage(image);
    const QString path = bundle(u"A"_s) + u'/';
    QDir().mkpath(bundle(u"A"_s));
    design->setTemplatePath(bundle(u"A"_s));
    QDir().mkpath(path + pngThumbnail);
    save(design.get());
    EXPECT_TRUE(QFileInfo(path + jpegThumbnail).isFile());

    QFile::remove(path + jpegThumbnail);
    QDir().mkpath(path + jpegThumbnail);
    platform::Error error;
    EXPECT_FALSE(manager.saveDesignTemplate(design.get(), &error));
    EXPECT_TRUE(error.description.contains(jpegThumbnail)) << error.description.toStdString();
}

TEST_F(Saving, AnUnreadablePictureIsLeftAlone)
{
    const QString path = writeBundle(custom, u"A"_s, titled(u"A"_s), "x");
    support::writeFile(path + u'/' + pngThumbnail, "no picture");
    LSMDesignTemplateManager loaded;
    ASSERT_TRUE(loaded.saveDesignTemplate(designNamed(loaded, u"A"_s)));
    EXPECT_EQ(support::readFile(path + u'/' + pngThumbnail), "no picture");
    EXPECT_FALSE(QFile::exists(path + u'/' + jpegThumbnail));
}

TEST_F(Saving, APaidDesignsFolderIsLabelled)
{
    const struct
    {
        int label;
        bool paid;
        QString tag;
    } cases[] = {{4, true, u"probe,Blue"_s},
                 {0, true, u"probe,Blue"_s},
                 {8, true, u"probe,Blue"_s},
                 {1, false, u"probe,Blue"_s},
                 {7, true, u"probe,Orange"_s}};
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    save(design.get());
    if (!platform::setFileTags(bundle(u"A"_s), u"probe"_s))
        GTEST_SKIP() << "this file system keeps no tags";
    for (const auto &[label, paid, tag] : cases) {
        platform::UserDefaults::standardUserDefaults().setObject(u"finderLabelInt"_s, label);
        design->setPaidTemplate(paid);
        save(design.get());
        EXPECT_EQ(platform::fileTags(bundle(u"A"_s)), tag) << label;
    }
}

TEST_F(Saving, WhatNobodyEditedIsWrittenAsItWasRead)
{
    for (const auto format : {PropertyList::Format::Xml, PropertyList::Format::Binary}) {
        const QVariantMap info = titled(u"A"_s, everyType());
        const QString path = writeBundle(custom, u"A"_s, info, "x", format);
        LSMDesignTemplateManager loaded;
        const QByteArray before = support::readFile(path + u'/' + infoFile);
        ASSERT_TRUE(loaded.saveDesignTemplate(designNamed(loaded, u"A"_s)));
        QVariantMap expected = PropertyList::parse(before)->root.toMap();
        expected.insert(remoteResources, QVariantList());
        const QByteArray after = support::readFile(path + u'/' + infoFile);
        EXPECT_EQ(after, PropertyList::serialize(expected, format));
        ASSERT_TRUE(loaded.saveDesignTemplate(designNamed(loaded, u"A"_s)));
        EXPECT_EQ(support::readFile(path + u'/' + infoFile), after)
            << "a save changes nothing more";
    }
}

TEST_F(Saving, WhatHasNoWrittenFormFailsBeforeAnythingIsTouched)
{
    const QString lone(QChar(0xD800));
    const struct
    {
        const char *what;
        std::function<void(LSMDesignTemplate *)> spoil;
    } cases[] = {
        {"text",
         [&](LSMDesignTemplate *design) {
             design->setHtmlSourceCode(u"a"_s + lone);
         }},
        {"title",
         [](LSMDesignTemplate *design) {
             design->templateDictionary()->setValue(name, u"a"_s + QChar(0));
         }},
        {"value",
         [](LSMDesignTemplate *design) {
             design->templateDictionary()->setValue(u"own"_s, QVariant::fromValue(QSize()));
         }},
    };
    const QVariantMap info = titled(u"Bundle"_s, {{store, QVariantMap{{releaseDate, u"x"_s}}}});
    writeBundle(custom, u"Bundle"_s, info, "old");
    support::writeFile(custom + u"/Old.html"_s, "old");
    const auto before = snapshot(custom);
    for (const auto &[what, spoil] : cases) {
        LSMDesignTemplateManager loaded;
        newDesign(loaded, u"New"_s, u"x"_s);
        for (const QString &title : {u"Bundle"_s, u"Old"_s, u"New"_s}) {
            LSMDesignTemplate *design = designNamed(loaded, title);
            design->setPaidTemplate(false);
            const QString path = design->templatePath();
            spoil(design);
            platform::Error error;
            EXPECT_FALSE(loaded.saveDesignTemplate(design, &error)) << what;
            EXPECT_FALSE(error.description.isEmpty()) << what;
            EXPECT_EQ(design->templatePath(), path) << what;
            EXPECT_EQ(design->templateDictionary()->contains(store), title == u"Bundle") << what;
        }
        EXPECT_EQ(snapshot(custom), before) << what;
    }
}

TEST_F(Saving, AFolderThatWentAwayIsMadeAgain)
{
    const DesignPointer design = newDesign(manager, u"A"_s, u"x"_s);
    save(design.get());
    QDir(custom).removeRecursively();
    save(design.get());
    EXPECT_EQ(bodyOf(bundle(u"A"_s)), "x");
}

TEST_F(Saving, ACustomFolderThatCannotBeMadeFailsTheSave)
{
    support::writeFile(home(u"file"_s), "x");
    platform::UserDefaults::standardUserDefaults().setObject(u"customTemplatesPath"_s,
                                                             home(u"file/designs"_s));
    LSMDesignTemplateManager elsewhere;
    const DesignPointer design = newDesign(elsewhere, u"A"_s, u"x"_s);
    platform::Error error;
    EXPECT_FALSE(elsewhere.saveDesignTemplate(design.get(), &error));
    EXPECT_TRUE(error.description.contains(home(u"file"_s))) << error.description.toStdString();
    EXPECT_TRUE(elsewhere.hasUnsavedDesigns());
}

TEST_F(Saving, DeletingRemovesTheBundleAndNothingElse)
{
    const QString linked = writeBundle(home(u"elsewhere"_s), u"L"_s, titled(u"Linked"_s), "x");
    writeBundle(custom, u"A"_s, titled(u"A"_s), "x");
    writeBundle(custom, u"B"_s, titled(u"B"_s), "x");
    writeBundle(builtin, u"C"_s, titled(u"C"_s), "x");
    support::writeFile(bundle(u"A"_s) + u"/Layout_Samples/x.html"_s, "x");
    support::writeFile(custom + u"/Old.html"_s, "x");
    ASSERT_TRUE(QFile::link(linked, bundle(u"L"_s)));
    LSMDesignTemplateManager loaded;
    newDesign(loaded, u"New"_s, u"x"_s);
    for (const QString &title : {u"A"_s, u"Old"_s, u"Linked"_s, u"New"_s})
        EXPECT_TRUE(loaded.deleteDesignTemplate(designNamed(loaded, title)));
    EXPECT_FALSE(loaded.deleteDesignTemplate(designNamed(loaded, u"C"_s)));
    EXPECT_EQ(titles(loaded), QStringList({u"B"_s, u"C"_s}));
    EXPECT_EQ(QDir(custom).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                     QDir::NoDotAndDotDot),
              QStringList(u"B.designTemplate"_s));
    EXPECT_EQ(bodyOf(linked), "x") << "a link goes, not what it leads to";
    EXPECT_TRUE(QFile::exists(builtin + u"/C.designTemplate/Info.plist"_s));
}
