#include "editor/colouring/MGSSyntaxController.h"

#include "editor/colouring/MGSSyntaxDefinition.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>

using namespace Qt::StringLiterals;

namespace {

QVariantMap entry(const QString &name, const QString &file, const QVariant &extensions = {})
{
    QVariantMap made = {{u"name"_s, name}, {u"file"_s, file}};
    if (extensions.isValid())
        made[u"extensions"_s] = extensions;
    return made;
}

QVariantMap marked(const QString &text)
{
    return {{u"firstString"_s, text}};
}

// A resource bundle, a main bundle and a user's folder, to be filled before `controller`.
class SyntaxController : public testing::Test
{
protected:
    void write(const QString &path, const QVariant &root)
    {
        using platform::PropertyList;
        const QString whole = m_home.path(path);
        QDir().mkpath(QFileInfo(whole).path());
        ASSERT_TRUE(PropertyList::write(root, PropertyList::Format::Xml, whole));
    }

    void writeLists(const QVariantList &own, const QVariantList &users = {})
    {
        write(u"resources/SyntaxDefinitions.plist"_s, own);
        if (!users.isEmpty())
            write(u"support/SyntaxDefinitions.plist"_s, users);
    }

    MGSSyntaxController controller() const
    {
        return MGSSyntaxController(
            {m_home.path(u"resources"_s), m_home.path(u"main"_s), m_home.path(u"support"_s)});
    }

    support::TemporaryHome m_home;
};

} // namespace

TEST_F(SyntaxController, StandardAndNoneComeFirstAndNeedNoList)
{
    writeLists({});
    const auto empty = controller();
    EXPECT_EQ(empty.syntaxDefinitionNames(), (QStringList{u"Standard"_s, u"None"_s}));
    EXPECT_EQ(empty.standardSyntaxDefinition().file, u"standard"_s);
    EXPECT_EQ(empty.syntaxDefinitionWithName(u"none"_s).file, u"none"_s);
    EXPECT_EQ(empty.syntaxDefinitionWithExtension(QString()), nullptr);
}

TEST_F(SyntaxController, UsersEntriesFollowAndReplaceByName)
{
    writeLists(
        {entry(u"Beta"_s, u"beta"_s, u"b"_s), entry(u"Alpha"_s, u"alpha"_s, u"a"_s)},
        {entry(u"BETA"_s, u"mybeta"_s, u"bb"_s), entry(u"Listed"_s, u"l"_s, QVariantList{u"l"_s})});
    const auto both = controller();
    EXPECT_EQ(both.syntaxDefinitionNames(),
              (QStringList{u"Standard"_s, u"None"_s, u"Beta"_s, u"Alpha"_s, u"BETA"_s}));
    EXPECT_EQ(both.syntaxDefinitions().size(), 4);
    EXPECT_EQ(both.syntaxDefinitionWithName(u"bEtA"_s).file, u"mybeta"_s);
    EXPECT_EQ(both.syntaxDefinitionWithName(u"beta"_s).sortOrder, 4);
    EXPECT_EQ(both.syntaxDefinitionNameWithExtension(u"bb"_s), u"BETA"_s);
    EXPECT_EQ(both.syntaxDefinitionNameWithExtension(u"b"_s), QString());
    EXPECT_EQ(both.syntaxDefinitionWithName(u"unheard of"_s).name, u"Standard"_s);
}

TEST_F(SyntaxController, ExtensionsMatchWholeAndInLowerCase)
{
    writeLists({entry(u"Web"_s, u"web"_s, u".HTML .htm  tar.gz"_s),
                entry(u"Zed"_s, u"z"_s, u"htm z"_s), entry(u"Bare"_s, u"bare"_s)});
    const auto made = controller();
    const struct
    {
        QString extension;
        QString name;
    } rows[] = {
        {u"htm"_s, u"Web"_s}, {u"HTM"_s, u"Web"_s},   {u"html"_s, {}},   {u"HTML"_s, {}},
        {u"ht"_s, {}},        {u"targz"_s, u"Web"_s}, {u"tar.gz"_s, {}}, {u"Z"_s, u"Zed"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(made.syntaxDefinitionNameWithExtension(row.extension), row.name)
            << row.extension.toStdString();
}

TEST_F(SyntaxController, FilesAreLookedForInThreePlacesThenStandardIs)
{
    writeLists({entry(u"One"_s, u"one"_s), entry(u"Two"_s, u"two"_s), entry(u"Three"_s, u"three"_s),
                entry(u"Gone"_s, u"gone"_s)});
    write(u"main/Syntax Definitions/standard.plist"_s, marked(u"standard"_s));
    for (const char *file : {"one", "two", "three"})
        write(u"support/%1.plist"_s.arg(file), marked(u"user's"_s));
    for (const char *file : {"one", "two"})
        write(u"main/Syntax Definitions/%1.plist"_s.arg(file), marked(u"main"_s));
    write(u"resources/Syntax Definitions/one.plist"_s, marked(u"bundle"_s));
    const auto made = controller();
    const struct
    {
        QString name;
        QString from;
    } rows[] = {
        {u"One"_s, u"bundle"_s},    {u"two"_s, u"main"_s},       {u"Three"_s, u"user's"_s},
        {u"Gone"_s, u"standard"_s}, {u"Other"_s, u"standard"_s}, {QString(), u"standard"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(made.syntaxDictionaryWithName(row.name), marked(row.from))
            << row.name.toStdString();
}

TEST_F(SyntaxController, DamagedFilesAreLoggedAndPassedOver)
{
    writeLists({entry(u"Torn"_s, u"torn"_s), entry(u"Shape"_s, u"shape"_s), 7, QVariantList(),
                entry(QString(), u"nameless"_s), QVariantMap{{u"name"_s, u"Fileless"_s}},
                QVariantMap{{u"name"_s, 5}, {u"file"_s, true}, {u"extensions"_s, 2.5}}});
    support::writeFile(m_home.path(u"support/SyntaxDefinitions.plist"_s), "<plist><array>");
    support::writeFile(m_home.path(u"resources/Syntax Definitions/torn.plist"_s), "\0\xff torn");
    write(u"main/Syntax Definitions/torn.plist"_s, marked(u"whole"_s));
    write(u"resources/Syntax Definitions/shape.plist"_s, QVariantList{1});
    write(u"support/standard.plist"_s, marked(u"standard"_s));
    const support::LogCapture log;
    const auto made = controller();
    EXPECT_FALSE(made.syntaxDefinitionNames().contains(u"Fileless"_s));
    EXPECT_TRUE(log.contains(u"support/SyntaxDefinitions.plist"_s));
    EXPECT_EQ(made.syntaxDictionaryWithName(u"Torn"_s), marked(u"whole"_s));
    EXPECT_TRUE(log.contains(u"torn.plist"_s));
    EXPECT_EQ(made.syntaxDictionaryWithName(u"Shape"_s), marked(u"standard"_s));
    EXPECT_TRUE(log.contains(u"shape.plist"_s));
}

TEST_F(SyntaxController, WithoutItsOwnListTheProgramIsIncomplete)
{
    try {
        controller();
        FAIL() << "a controller without a list";
    } catch (const platform::AssertionFailure &failure) {
        EXPECT_EQ(failure.text(), u"framework syntax definitions not found"_s);
    }
}

TEST_F(SyntaxController, TheFirstLineSuggestsAnExtension)
{
    const struct
    {
        QString line;
        QString extension;
    } rows[] = {
        {u"#!/usr/bin/perl -w"_s, u"pl"_s},
        {u"#!/usr/bin/wish"_s, u"tcl"_s}, // and not "sh"
        {u"#!/bin/BASH"_s, u"sh"_s},
        {u"<?php echo 1;"_s, u"php"_s},
        {u"#!/usr/bin/env python3"_s, u"py"_s},
        {u"#!/usr/bin/gawk -f"_s, u"awk"_s},
        {u"<?XML version=\"1.0\"?>"_s, u"xml"_s},
        {u"#!/usr/bin/env ruby"_s, u"rb"_s},
        {u"%!PS-Adobe-3.0"_s, u"ps"_s},
        {u"%PDF-1.7"_s, u"pdf"_s},
        {u"<!DOCTYPE html>"_s, {}},
        {{}, {}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(MGSSyntaxController::guessSyntaxDefinitionExtensionFromFirstLine(row.line),
                  row.extension)
            << row.line.toStdString();
}

TEST_F(SyntaxController, TheStandardDefinitionStandsInForOneThatCannotBeUsed)
{
    writeLists({}, {entry(u"Mine"_s, u"mine"_s), entry(u"Broken"_s, u"broken"_s)});
    write(u"resources/Syntax Definitions/standard.plist"_s, marked(u"standard"_s));
    write(u"support/mine.plist"_s, marked(u"mine"_s));
    write(u"support/broken.plist"_s, QVariantMap{{u"keywords"_s, 5}});
    const auto definitions = controller();
    EXPECT_EQ(definitions.loadDefinition(u"mine"_s)->firstString(), u"mine"_s);
    {
        const support::LogCapture log;
        const auto standIn = definitions.loadDefinition(u"Broken"_s);
        EXPECT_EQ(standIn->firstString(), u"standard"_s);
        EXPECT_EQ(standIn->name(), u"Broken"_s);
        EXPECT_TRUE(log.contains(u"The syntax definition Broken is left out: NSArray expected"_s));
    }
    write(u"resources/Syntax Definitions/standard.plist"_s, QVariantMap{{u"firstString"_s, 5}});
    EXPECT_EQ(definitions.loadDefinition(u"Broken"_s)->name(), u"Broken"_s);
}
