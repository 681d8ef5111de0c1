#include "library/LSMPlaceholders.h"

#include "library/LSMDesignTemplate.h"
#include "library/LSMPropertyValues.h"
#include "platform/KeyedArchive.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString value(const QString &name)
{
    static const QHash<QString, QString> values = {
        {u"LBTitle"_s, u"Lamp & shade"_s}, {u"Yes"_s, u"1"_s}, {u"No"_s, u""_s}};
    return values.value(name);
}

TEST(Placeholders, GiveWayToValuesAndPartsToConditions)
{
    const std::pair<const char *, const char *> cases[] = {
        {"a[[LBTitle]]b[[No]]c", "aLamp & shadebc"},
        {"[[Unknown]] [[ LBTitle ]] [[]]", "[[Unknown]] [[ LBTitle ]] [[]]"},
        {"[[if Yes]]a[[endif]][[if No]]b[[endif]]c", "ac"},
        {"[[if Yes]]a[[if No]]b[[endif]]c[[endif]]d", "acd"},
        {"[[if No]]a[[if Yes]]b[[endif]]c[[endif]]d", "d"},
        {"a[[if No]]b", "a"},               // to the end
        {"a[[endif]]b", "a[[endif]]b"},     // of nothing
        {"a[[LBTitle", "a[[LBTitle"},       // never closed
        {"x[[1,2],[3]]y", "x[[1,2],[3]]y"}, // a script's
        {"[[LBTitle]", "[[LBTitle]"},
        {"", ""},
    };
    for (const auto &[html, expected] : cases)
        EXPECT_EQ(LSMPlaceholders::filled(QString(html), value), QString(expected));
}

TEST(Placeholders, ExpressionsBindNotThenAndThenOr)
{
    const std::pair<const char *, bool> cases[] = {
        {"Yes", true},
        {"No", false},
        {"Unknown", false},
        {"not No", true},
        {"not not No", false},
        {"Yes and No", false},
        {"Yes or No", true},
        {"Yes or Yes and No", true},
        {"No and Yes or Yes", true},
        {"not No and No", false},
        {" Yes  and  not  No ", true},
        {"", false},
        {"Yes and", false},
        {"or Yes", false},
        {"Yes No", false},
    };
    for (const auto &[expression, expected] : cases)
        EXPECT_EQ(LSMPlaceholders::holds(QString(expression), value), expected)
            << QString(expression).toStdString();
}

TEST(Placeholders, PropertiesHaveTextForms)
{
    const QByteArray clay = platform::KeyedArchive::archivedColor(QColor(0xB5, 0x63, 0x3F));
    const std::pair<const char *, QVariant> values[] = {
        {"A Text", u"a"_s}, {"Empty", u""_s},         {"On", true}, {"Off", false}, {"Number", 7},
        {"Glaze", clay},    {"Data", QByteArray("x")}};
    QVariantList records{u"no record"_s};
    for (const auto &[name, value] : values)
        records << QVariantMap{{u"name"_s, QString(name)}, {u"defaultValue"_s, value}};
    const auto design =
        LSMDesignTemplate::templateWithDict({{u"LBDesignProperties"_s, records}}, {}, u"custom"_s);
    const QHash<QString, QString> expected{
        {u"LBProperty_A_Text"_s, u"a"_s}, {u"LBProperty_Empty"_s, u""_s},
        {u"LBProperty_On"_s, u"1"_s},     {u"LBProperty_Off"_s, u""_s},
        {u"LBProperty_Number"_s, u"7"_s}, {u"LBProperty_Glaze"_s, u"#b5633f"_s}};
    EXPECT_EQ(LSMPropertyValues(*design), expected);
}

} // namespace
