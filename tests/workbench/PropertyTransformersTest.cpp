#include "workbench/LSMPropertyTransformers.h"

#include "library/LSMDesignKeys.h"
#include "platform/KeyedArchive.h"
#include "platform/PropertyList.h"

#include <gtest/gtest.h>
#include <QGuiApplication>

using namespace LSMDesignKeys;

namespace {

QVariantMap record(const QVariant &value = {}, const QVariant &allowed = {})
{
    QVariantMap result{{propertyName, "x"}, {propertyType, valuesProperty}};
    if (value.isValid())
        result.insert(propertyDefaultValue, value);
    if (allowed.isValid())
        result.insert(propertyAllowedValues, allowed);
    return result;
}

} // namespace

TEST(PropertyTransformers, TakeAnyValue)
{
    const QVariant data = QByteArray("no colour");
    const QVariant red = platform::KeyedArchive::archivedColor(Qt::red);
    const QVariant text = QStringLiteral("yes");
    const LSMPropertyToBoolTransformer toBool;
    const LSMPropertyToColorTransformer toColor;
    const struct
    {
        QVariant value;
        QVariant asBool, boolBack, asColor, colorBack;
    } cases[] = {
        {{}, false, {}, {}, {}},
        {data, false, false, {}, data},
        {red, false, false, QColor(Qt::red), red},
        {true, true, true, {}, {}},
        {0.5, true, 0.5, {}, {}},
        {text, true, {}, {}, {}},
        {QStringLiteral("no"), false, {}, {}, {}},
        {QStringLiteral(" 2 "), true, {}, {}, {}},
        {QStringLiteral("-01abc"), true, {}, {}, {}},
        {QStringLiteral("0.5"), false, {}, {}, {}},
        {QVariantList{1}, false, {}, {}, {}},
        {QVariantMap{{QStringLiteral("a"), 1}}, false, {}, {}, {}},
        {QVariant::fromValue(platform::PropertyListDate{1}), false, {}, {}, {}},
        {QColor(Qt::red), false, {}, {}, red},
        {QColor(), false, {}, {}, {}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.value.typeName() ? each.value.typeName() : "nothing");
        EXPECT_EQ(toBool.transformedValue(each.value), each.asBool);
        EXPECT_EQ(toBool.reverseTransformedValue(each.value), each.boolBack);
        EXPECT_EQ(toColor.transformedValue(each.value), each.asColor);
        EXPECT_EQ(toColor.reverseTransformedValue(each.value), each.colorBack);
    }
}

TEST(PropertyTransformers, SumUpTheValuesOfARecord)
{
    const LSMPropertyToValuesStringTransformer toSummary;
    const QVariantList abc{QStringLiteral("A"), QStringLiteral("Bb"), QStringLiteral("C")};
    for (const QVariant &nothing :
         {QVariant(), QVariant(QStringLiteral("A")), QVariant(abc), QVariant(record({}, abc))})
        EXPECT_FALSE(toSummary.transformedValue(nothing).isValid());
    EXPECT_EQ(toSummary.transformedValue(record(7)), 7);
    EXPECT_EQ(toSummary.transformedValue(record("A", QVariantList())), "A");
    EXPECT_EQ(toSummary.transformedValue(record("A", "no list")), "A");

    const auto text = toSummary.transformedValue(record("Bb", abc)).value<LSMAttributedText>();
    EXPECT_EQ(text.string, "A, Bb, C");
    QStringList runs;
    for (const QTextLayout::FormatRange &range : text.formats) {
        EXPECT_LT(range.format.fontPointSize(), QGuiApplication::font().pointSizeF());
        runs << text.string.mid(range.start, range.length) +
                    (range.format.fontWeight() == QFont::Bold ? u'*' : u' ');
    }
    EXPECT_EQ(runs, QStringList({"A ", "Bb*", "C "}));
}
