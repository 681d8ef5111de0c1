#include "library/LibraryTestSupport.h"

#include "library/checking/LSMBundleCheck.h"
#include "library/LSMDesignKeys.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace LSMDesignKeys;

namespace {

// What is done to a sound bundle, whether it still loads, and what is said about which file.
struct Case
{
    QString name;
    std::function<void(const QString &bundle)> spoil;
    bool loads;
    QString file; // where the check points, below the bundle
    QString finding;
    QString logged; // part of the line, null when nothing is
};

void replaceBy(const QString &path, const std::function<void(const QString &)> &make)
{
    QFile::remove(path);
    make(path);
}

void folder(const QString &path)
{
    QDir().mkpath(path);
}

void danglingLink(const QString &path)
{
    QFile::link(u"/nowhere/at all"_s, path);
}

void pipe(const QString &path)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
}

auto replaced(QLatin1StringView file, void (*make)(const QString &))
{
    return [=](const QString &bundle) {
        replaceBy(bundle + u'/' + file, make);
    };
}

auto written(QLatin1StringView file, const QByteArray &bytes)
{
    return [=](const QString &bundle) {
        support::writeFile(bundle + u'/' + file, bytes);
    };
}

std::vector<Case> cases()
{
    const QString notRead = u"The HTML cannot be read and counts as empty"_s;
    const QString noPicture = u"This is not a picture that can be read."_s;
    const QString doesNotLoad = u"The design does not load: "_s;
    const QByteArray plist = "<plist version=\"1.0\">";
    return {
        {u"no info"_s, [](const QString &b) { QFile::remove(b + u"/Info.plist"_s); }, false,
         infoFile, doesNotLoad, u"left out"_s},
        {u"broken info"_s, written(infoFile, plist + "<dict><key>a"), false, infoFile, doesNotLoad,
         u"left out"_s},
        {u"empty info"_s, written(infoFile, {}), false, infoFile, doesNotLoad, u"left out"_s},
        {u"info is an array"_s, written(infoFile, plist + "<array/></plist>"), false, infoFile,
         u"this is not a dictionary."_s, u"Info.plist holds no dictionary"_s},
        {u"info is a folder"_s, replaced(infoFile, folder), false, infoFile, doesNotLoad,
         u"left out"_s},
        {u"info is a link to nothing"_s, replaced(infoFile, danglingLink), false, infoFile,
         doesNotLoad, u"left out"_s},
        {u"info is a pipe"_s, replaced(infoFile, pipe), false, infoFile, doesNotLoad,
         u"left out"_s},
        {u"price is a number"_s,
         written(infoFile, plist + "<dict><key>designStore</key><dict><key>price</key>"
                                   "<integer>9</integer></dict></dict></plist>"),
         true,
         infoFile,
         u"price must be a string."_s,
         {}},
        {u"property is named by a number"_s,
         written(infoFile, plist + "<dict><key>LBDesignProperties</key><array><dict>"
                                   "<key>name</key><integer>7</integer></dict></array></dict>"
                                   "</plist>"),
         true,
         infoFile,
         u"name must be a string."_s,
         {}},
        {u"no name"_s,
         written(infoFile, plist + "<dict/></plist>"),
         true,
         infoFile,
         u"CFBundleName is missing"_s,
         {}},
        {u"body is a folder"_s, replaced(bodyFile, folder), true, bodyFile, notRead,
         u"error reading file"_s},
        {u"body is a link to nothing"_s, replaced(bodyFile, danglingLink), true, bodyFile,
         u"The link leads nowhere"_s, u"error reading file"_s},
        {u"body is a pipe"_s, replaced(bodyFile, pipe), true, bodyFile, notRead,
         u"error reading file"_s},
        {u"no body"_s,
         [](const QString &b) { QFile::remove(b + u"/body.html"_s); },
         true,
         bodyFile,
         u"The file is missing"_s,
         {}},
        {u"Latin-1 body"_s, written(bodyFile, "caf\xE9"), true, bodyFile, u"is read as"_s, {}},
        {u"text as thumbnail"_s, written(pngThumbnail, "text"), true, pngThumbnail, noPicture, {}},
        {u"cut JPEG"_s,
         written(jpegThumbnail, "\xFF\xD8\xFF\xE0"),
         true,
         jpegThumbnail,
         noPicture,
         {}},
        {u"thumbnail is a folder"_s,
         replaced(pngThumbnail, folder),
         true,
         pngThumbnail,
         noPicture,
         {}},
    };
}

bool isFound(const LSMFindings &findings, const QString &path, const QString &text)
{
    return std::ranges::any_of(findings, [&](const LSMFinding &finding) {
        return finding.path == path && finding.text.contains(text);
    });
}

LSMFindings checked(const QString &path)
{
    LSMBundleCheck check;
    check.addPath(path);
    return check.findings();
}

std::string listed(const LSMFindings &findings)
{
    QString text;
    for (const LSMFinding &finding : findings)
        text += finding.path + u": "_s + finding.text + u'\n';
    return text.toStdString();
}

class BadInput : public LibraryTest
{
protected:
    QString soundBundle(const QString &name) const
    {
        return writeBundle(custom, name, titled(name, {{identifier, u"com.x."_s + name}}), "x");
    }
};

} // namespace

TEST_F(BadInput, EachBadBundleIsNamedAndTheRestLoads)
{
    QStringList expected{u"sound"_s};
    soundBundle(u"sound"_s);
    for (const Case &bad : cases()) {
        bad.spoil(soundBundle(bad.name));
        if (bad.loads)
            expected.append(bad.name);
    }
    expected.sort(Qt::CaseInsensitive);
    const support::LogCapture log;
    LSMDesignTemplateManager manager;
    EXPECT_EQ(titles(manager), expected);
    const LSMFindings findings = checked(custom);
    for (const Case &bad : cases()) {
        const QString path = bundle(bad.name);
        EXPECT_TRUE(isFound(findings, path + u'/' + bad.file, bad.finding))
            << bad.name.toStdString() << "\n"
            << listed(findings);
        EXPECT_EQ(std::ranges::any_of(log.lines(),
                                      [&](const QString &line) { return line.contains(path); }),
                  !bad.logged.isNull())
            << bad.name.toStdString();
        EXPECT_TRUE(bad.logged.isNull() || log.contains(bad.logged));
        if (LSMDesignTemplate *design = manager.templateWithPath(path)) {
            EXPECT_TRUE(design->templateImage().isNull());
            design->setPaidTemplate(true);
            (void)manager.saveDesignTemplate(design);
            (void)design->copy();
            design->revertToSaved();
        }
    }
    for (const LSMFinding &finding : findings) {
        EXPECT_FALSE(finding.path.startsWith(bundle(u"sound"_s)));
        EXPECT_FALSE(finding.text.contains(finding.path)) << finding.text.toStdString();
    }
}

TEST_F(BadInput, AWrongTypeUnderAnyKnownKeyCountsAsAbsentAndIsKept)
{
    const QVariantList wrong = {5,
                                u"text"_s,
                                true,
                                QByteArray("x"),
                                QVariantList{5},
                                QVariantMap(),
                                QVariant::fromValue(platform::PropertyListDate{1})};
    const struct
    {
        QLatin1StringView key;
        int right; // index of the value above that is of the key's type, -1 for none
    } keys[] = {
        {infoDictionaryVersion, 1},
        {name, 1},
        {identifier, 1},
        {version, 1},
        {keywords, -1},
        {remoteResources, -1},
        {remoteDirectory, 1},
        {properties, -1},
        {minimumVersion, 1},
        {imageInclusion, 1},
        {store, 5},
    };
    for (const auto &[key, right] : keys) {
        for (int index = 0; index < int(wrong.size()); ++index) {
            QVariantMap info = titled(u"A"_s, {{identifier, u"id"_s}});
            info.insert(key, wrong[index]);
            const QString path = writeBundle(custom, u"A"_s, info, "x");
            LSMDesignTemplateManager manager;
            LSMDesignTemplate *design = manager.templateWithPath(path);
            ASSERT_TRUE(design) << key.data() << index;
            EXPECT_EQ(isFound(checked(path), path + u"/Info.plist"_s, key + u" must be"_s),
                      index != right)
                << key.data() << index << "\n"
                << listed(checked(path));
            EXPECT_TRUE(key != name || index == right || design->templateName() == u"A");
            (void)design->keywords();
            (void)design->templateIdentifier();
            design->setPaidTemplate(true);
            ASSERT_TRUE(manager.saveDesignTemplate(design));
            if (key != remoteResources) {
                EXPECT_EQ(
                    infoOf(path).value(key),
                    PropertyList::parse(*PropertyList::serialize(info, PropertyList::Format::Xml))
                        ->root.toMap()
                        .value(key))
                    << key.data() << index;
            }
        }
    }
}

TEST_F(BadInput, AnEmptyTitleLoadsAndIsNamed)
{
    for (const auto format : {PropertyList::Format::Xml, PropertyList::Format::Binary}) {
        const QString path = writeBundle(custom, u"A"_s, titled(u""_s), "x", format);
        LSMDesignTemplateManager manager;
        ASSERT_TRUE(manager.templateWithPath(path));
        EXPECT_EQ(manager.templateWithPath(path)->templateName(), u"");
        EXPECT_TRUE(isFound(checked(path), path + u"/Info.plist"_s, u"The title is empty."_s));
        EXPECT_TRUE(manager.saveDesignTemplate(manager.templateWithPath(path)));
    }
}

TEST_F(BadInput, EntriesThatAreNoFoldersOrFilesAreNamed)
{
    soundBundle(u"sound"_s);
    const struct
    {
        QString name;
        void (*make)(const QString &);
        QString finding;
    } entries[] = {
        {u"file.designTemplate"_s, [](const QString &path) { support::writeFile(path, "x"); },
         u"A design must be a folder"_s},
        {u"link.designTemplate"_s, danglingLink, u"A design must be a folder"_s},
        {u"pipe.designTemplate"_s, pipe, u"A design must be a folder"_s},
        {u"folder.html"_s, folder, u"An old design must be a file"_s},
        {u"link.html"_s, danglingLink, u"An old design must be a file"_s},
        {u"pipe.html"_s, pipe, u"An old design must be a file"_s},
    };
    for (const auto &entry : entries)
        entry.make(custom + u'/' + entry.name);
    const support::LogCapture log;
    EXPECT_EQ(titles(LSMDesignTemplateManager()), QStringList(u"sound"_s));
    const LSMFindings findings = checked(custom);
    for (const auto &entry : entries) {
        const QString path = custom + u'/' + entry.name;
        EXPECT_TRUE(isFound(findings, path, entry.finding)) << listed(findings);
        EXPECT_TRUE(log.contains(path)) << entry.name.toStdString();
    }
}

TEST_F(BadInput, ClashesAndTitlesThatNoFolderCanHaveAreNamed)
{
    writeBundle(custom, u"A"_s, titled(u"Same"_s, {{identifier, u"id"_s}}), "x");
    writeBundle(custom, u"B"_s, titled(u"same"_s, {{identifier, u"ID"_s}}), "x");
    writeBundle(custom, u"C"_s, titled(u"a/b"_s, {{identifier, u"c"_s}}), "x");
    writeBundle(custom, u"D"_s, {{identifier, u"d"_s}}, "x");
    support::writeFile(custom + u"/d.html"_s, "x");
    const LSMFindings findings = checked(custom);
    const QString sameName = u"A template with the same name exists"_s;
    EXPECT_NE(isFound(findings, bundle(u"A"_s), sameName),
              isFound(findings, bundle(u"B"_s), sameName));
    EXPECT_NE(isFound(findings, bundle(u"A"_s), u"same identifier"_s),
              isFound(findings, bundle(u"B"_s), u"same identifier"_s));
    EXPECT_TRUE(isFound(findings, bundle(u"C"_s) + u"/Info.plist"_s, u"\"a-b\""_s));
    EXPECT_NE(isFound(findings, bundle(u"D"_s), sameName),
              isFound(findings, custom + u"/d.html"_s, sameName))
        << "the folder's name is the title";
}

TEST_F(BadInput, TheCheckTakesAPathAsItIsTyped)
{
    const QString path = soundBundle(u"A"_s);
    QFile::remove(path + u"/Info.plist"_s);
    EXPECT_EQ(checked(path + u'/'), checked(path));
    EXPECT_FALSE(checked(path).empty());
    LSMBundleCheck twice;
    twice.addPath(path);
    twice.addPath(custom + u"/./A.designTemplate"_s);
    EXPECT_EQ(twice.findings(), checked(path)) << "it does not clash with itself";
    EXPECT_TRUE(isFound(checked(home(u"gone"_s)), home(u"gone"_s), u"nothing at this path"_s));
}

TEST_F(BadInput, NamesThatAreNotUtf8AreNamed)
{
    soundBundle(u"A"_s);
    const QByteArray path = QFile::encodeName(custom) + "/b\xff.html";
    std::FILE *made = std::fopen(path.constData(), "w");
    ASSERT_TRUE(made);
    std::fclose(made);
    EXPECT_TRUE(isFound(checked(custom), QFile::decodeName(path), u"not UTF-8"_s));
    const support::LogCapture log;
    EXPECT_EQ(titles(LSMDesignTemplateManager()), QStringList(u"A"_s));
    EXPECT_TRUE(log.contains(u"its name is not UTF-8"_s));
}

TEST_F(BadInput, WhatAKilledDeletionLeftBehindIsNamed)
{
    soundBundle(u"A"_s);
    const QString rest = custom + u"/.deleted-xKqTzv"_s;
    QDir().mkpath(rest + u"/B.designTemplate"_s);
    EXPECT_TRUE(isFound(checked(custom), rest, u"was cut short has left this folder"_s));
    EXPECT_EQ(checked(custom).size(), 1U);
}

TEST_F(BadInput, WhatAKilledSaveLeftBehindIsNamed)
{
    const QString path = soundBundle(u"A"_s);
    const QString rest = path + u"/body.html.xKqTzv"_s;
    support::writeFile(rest, "half");
    EXPECT_TRUE(isFound(checked(path), rest, u"cut short"_s));
    EXPECT_EQ(checked(path).size(), 1U);
}
