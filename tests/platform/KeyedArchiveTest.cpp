#include "platform/KeyedArchive.h"

#include "platform/PropertyList.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

QVariant uid(quint64 value)
{
    return QVariant::fromValue(PropertyListUid{value});
}

QByteArray archive(const QVariantList &objects, quint64 root = 1)
{
    return *PropertyList::serialize(
        QVariantMap{{"$top", QVariantMap{{"root", uid(root)}}}, {"$objects", objects}},
        PropertyList::Format::Binary);
}

QByteArray colorArchive(QVariantMap color, const QVariantMap &other = {})
{
    color.insert("$class", uid(2));
    return archive({"$null", color, QVariantMap{{"$classname", "NSColor"}}, other});
}

QByteArray components(const char *text)
{
    return QByteArray(text) + '\0';
}

} // namespace

TEST(KeyedArchive, ColoursComeBackAsTheyWere)
{
    for (const QColor &color : {QColor(0xE8, 0xE2, 0xEA), QColor(1, 2, 3, 4), QColor(Qt::black),
                                QColor::fromRgba64(1, 65535, 32767, 65534)})
        EXPECT_EQ(KeyedArchive::unarchivedColor(KeyedArchive::archivedColor(color)), color);
    EXPECT_EQ(
        KeyedArchive::unarchivedColor(KeyedArchive::archivedColor(QColor::fromHsv(120, 255, 255))),
        QColor(0, 255, 0));
    EXPECT_TRUE(KeyedArchive::archivedColor({}).isNull());

    const auto written = PropertyList::parse(KeyedArchive::archivedColor(QColor(255, 0, 0)));
    ASSERT_TRUE(written);
    EXPECT_EQ(written->format, PropertyList::Format::Binary);
    const QVariantMap root = written->root.toMap();
    EXPECT_EQ(root["$archiver"], "NSKeyedArchiver");
    EXPECT_EQ(root["$version"], 100000);
    const QVariantMap object = root["$objects"].toList().value(1).toMap();
    EXPECT_EQ(object["NSColorSpace"], 2);
    EXPECT_EQ(object["NSRGB"], components("1 0 0"));
}

TEST(KeyedArchive, ReadsColoursOfOtherPrograms)
{
    const struct
    {
        const char *name;
        QByteArray bytes;
        QColor color;
    } cases[] = {
        {"with alpha", colorArchive({{"NSRGB", components("1 0.5 0 0.5")}}),
         QColor::fromRgbF(1, 0.5F, 0, 0.5F)},
        {"without NUL", colorArchive({{"NSRGB", QByteArray("0 1  0")}}), QColor(0, 255, 0)},
        {"grey", colorArchive({{"NSColorSpace", 3}, {"NSWhite", components("1")}}), Qt::white},
        {"clear grey", colorArchive({{"NSWhite", components("0 0")}}), QColor(0, 0, 0, 0)},
        {"cmyk", colorArchive({{"NSCMYK", components("0 1 1 0 1")}}), QColor(255, 0, 0)},
        {"beyond", colorArchive({{"NSRGB", components("-1 2 1e30")}}), QColor(0, 255, 255)},
        {"named",
         colorArchive({{"NSColorSpace", 6}, {"NSColor", uid(3)}},
                      {{"NSWhite", components("0")}, {"$class", uid(2)}}),
         Qt::black},
    };
    for (const auto &each : cases) {
        const QColor read = KeyedArchive::unarchivedColor(each.bytes);
        EXPECT_EQ(read.name(QColor::HexArgb), each.color.name(QColor::HexArgb)) << each.name;
    }
}

TEST(KeyedArchive, WhatIsNoColourIsNone)
{
    const QByteArray whole = KeyedArchive::archivedColor(Qt::red);
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(KeyedArchive::unarchivedColor(whole.left(length)).isValid()) << length;
    const QByteArray wrong[] = {
        "bplist00",
        "colour",
        *PropertyList::serialize(QVariantList{1}, PropertyList::Format::Binary),
        archive({}),
        archive({"$null", "no dictionary"}),
        archive({"$null", QVariantMap{{"NSRGB", components("1 0 0")}}}), // of no class
        archive({"$null", QVariantMap{{"$class", uid(99)}}}, 77),
        colorArchive({{"NSRGB", components("1 0")}}),
        colorArchive({{"NSRGB", components("nan 0 0")}}),
        colorArchive({{"NSRGB", components("red green blue")}}),
        colorArchive({{"NSRGB", 5}}),
        colorArchive({{"NSColor", uid(1)}}), // itself
        KeyedArchive::archivedFont(QFont("Serif", 12)),
    };
    for (const QByteArray &bytes : wrong)
        EXPECT_FALSE(KeyedArchive::unarchivedColor(bytes).isValid()) << bytes.toStdString();
}

TEST(KeyedArchive, FontsComeBackAsTheyWere)
{
    QFont font("DejaVu Serif", 13, QFont::Bold, true);
    font.setStyleHint(QFont::Serif);
    EXPECT_EQ(KeyedArchive::unarchivedFont(KeyedArchive::archivedFont(font)), font);
    const QVariantMap menlo{{"NSName", uid(3)}, {"NSSize", 11.5}, {"$class", uid(2)}};
    const auto foreign = KeyedArchive::unarchivedFont(
        archive({"$null", menlo, QVariantMap{{"$classname", "NSFont"}}, "Menlo-Bold"}));
    ASSERT_TRUE(foreign);
    EXPECT_EQ(foreign->family(), "Menlo-Bold");
    EXPECT_EQ(foreign->pointSizeF(), 11.5);
    EXPECT_FALSE(KeyedArchive::unarchivedFont(KeyedArchive::archivedColor(Qt::red)));
}
