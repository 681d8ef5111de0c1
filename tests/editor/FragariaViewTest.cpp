#include "editor/EditorFixture.h"

#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSArchiving.h"
#include "editor/MGSLineNumberView.h"
#include "platform/Assert.h"
#include "platform/ObservableDictionary.h"
#include "platform/text/view/FindBar.h"
#include "support/TestSupport.h"
#include <QApplication>
#include <QMetaProperty>
#include <QTest>

using platform::NotFound;

namespace {

class FragariaView : public support::EditorFixture
{
protected:
    QVariant value(const QString &key) { return editor.property(key.toLatin1().constData()); }
    bool set(const QString &key, const QVariant &value)
    {
        return editor.setProperty(key.toLatin1().constData(), value);
    }
};

/// Another value of the same type.
QVariant changed(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::QColor:
        return QColor(1, 2, 3);
    case QMetaType::QFont:
        return QFont("DejaVu Sans Mono", 17);
    case QMetaType::QString:
        return "HTML";
    default: {
        QVariant number = value.toDouble() + 3;
        number.convert(value.metaType());
        return number;
    }
    }
}

TEST_F(FragariaView, EverySettingOfTheCatalogueGoesToItsOwnerAndBack)
{
    const QVariantMap defaults = MGSFragariaView::defaultsDictionary();
    EXPECT_EQ(defaults.size(), 58);
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it) {
        SCOPED_TRACE(it.key().toStdString());
        const QVariant other = changed(mgs_unarchivedValue(*it));
        ASSERT_TRUE(set(it.key(), other));
        EXPECT_EQ(value(it.key()), other);
    }
    editor.resetDefaults();
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it)
        EXPECT_EQ(value(it.key()), mgs_unarchivedValue(*it)) << it.key().toStdString();
}

TEST_F(FragariaView, TheOwnersHaveTheValues)
{
    editor.setTabWidth(7);
    editor.setMinimumGutterWidth(66);
    editor.setColourForStrings(Qt::cyan);
    EXPECT_EQ(view.tabWidth(), 7);
    EXPECT_EQ(editor.gutterView()->minimumWidth(), 66);
    EXPECT_EQ(editor.syntaxColouring()->property("colourForStrings"), QColor(Qt::cyan));
    view.setLineWrap(false);
    EXPECT_FALSE(editor.lineWrap());
}

TEST_F(FragariaView, DefaultsHoldPlainValuesOnly)
{
    const QVariantMap defaults = MGSFragariaView::defaultsDictionary();
    EXPECT_EQ(defaults["autoCompleteDelay"], 1.0);
    EXPECT_EQ(defaults["minimumGutterWidth"], 40);
    EXPECT_EQ(defaults["syntaxDefinitionName"], "Standard");
    EXPECT_EQ(defaults["textColor"].typeId(), QMetaType::QByteArray);
    EXPECT_EQ(mgs_unarchivedValue(defaults["colourForComments"]), QColor::fromRgbF(0, 0.45F, 0));
    EXPECT_EQ(mgs_unarchivedValue(defaults["textFont"]).value<QFont>().pointSizeF(), 11);
    for (const QByteArray &damaged :
         {defaults["textFont"].toByteArray().chopped(9), QByteArray("nothing that was archived")})
        EXPECT_EQ(mgs_unarchivedValue(damaged), damaged);

    EXPECT_EQ(MGSFragariaView::namespacedKeyForKey("tabWidth"), "MGSFragariaDefaultsTabWidth");
    const QVariantMap namespaced = MGSFragariaView::defaultsDictionaryWithNamespace();
    EXPECT_EQ(namespaced.size(), 58);
    EXPECT_EQ(namespaced["MGSFragariaDefaultsTabWidth"], 4);
}

TEST_F(FragariaView, GroupsDivideTheCatalogue)
{
    using View = MGSFragariaView;
    const QList<QSet<QString>> groups = {
        View::propertyGroupEditing(),
        View::propertyGroupGutter(),
        View::propertyGroupAutocomplete(),
        View::propertyGroupIndenting(),
        View::propertyGroupTextFont(),
        View::propertyGroupEditorColours(),
        View::propertyGroupSyntaxHighlightingColours(),
        View::propertyGroupSyntaxHighlightingBools(),
        View::propertyGroupColouringExtraOptions(),
    };
    QList<qsizetype> sizes;
    QSet<QString> all;
    for (const auto &group : groups) {
        sizes << group.size();
        EXPECT_FALSE(all.intersects(group));
        all |= group;
    }
    EXPECT_EQ(sizes, (QList<qsizetype>{11, 3, 5, 6, 1, 6, 9, 9, 2}));
    for (const QString &key : all)
        EXPECT_TRUE(View::defaultsDictionary().contains(key)) << key.toStdString();
    EXPECT_EQ(View::propertyGroupSyntaxHighlighting(), groups[6] | groups[7]);
    EXPECT_EQ(View::propertyGroupTheme(), groups[5] | groups[6] | groups[7]);
}

TEST_F(FragariaView, ABoundSettingFollowsItsModelAndIsHandedBack)
{
    platform::ObservableDictionary model;
    model.setValue("width", 3);
    model.setValue("coloured", false);
    mgs_bind(&editor, "tabWidth", &model, "width");
    mgs_bind(&editor, "isSyntaxColoured", &model, "coloured");
    EXPECT_EQ(editor.tabWidth(), 3);
    EXPECT_FALSE(editor.isSyntaxColoured());
    model.setValue("width", 5);
    EXPECT_EQ(editor.tabWidth(), 5);
    editor.setTabWidth(6);
    editor.setSyntaxColoured(true);
    EXPECT_EQ(model.value("width"), 6);
    EXPECT_EQ(model.value("coloured"), true);
    view.setTabWidth(9); // the owner's own setter hands nothing on
    EXPECT_EQ(model.value("width"), 6);
    mgs_unbind(&editor, "tabWidth");
    editor.setTabWidth(2);
    EXPECT_EQ(model.value("width"), 6);
}

class Doubling : public platform::ValueTransformer
{
public:
    explicit Doubling(bool isReversible) : m_isReversible(isReversible) {}
    QVariant transformedValue(const QVariant &value) const override { return value.toInt() * 2; }
    bool allowsReverseTransformation() const override { return m_isReversible; }
    QVariant reverseTransformedValue(const QVariant &value) const override
    {
        return value.toInt() / 2;
    }

private:
    bool m_isReversible;
};

TEST_F(FragariaView, TransformersWorkBothWaysOrSaySo)
{
    platform::ObservableDictionary model;
    model.setValue("width", 3);
    mgs_bind(&editor, "tabWidth", &model, "width", {std::make_shared<Doubling>(true), {}});
    EXPECT_EQ(editor.tabWidth(), 6);
    editor.setTabWidth(8);
    EXPECT_EQ(model.value("width"), 4);
    mgs_bind(&editor, "indentWidth", &model, "indent");
    editor.setIndentWidth(4'000'000'000);
    EXPECT_EQ(model.value("indent"), editor.indentWidth()) << "as it was limited";

    platform::ValueTransformer::setValueTransformer(std::make_shared<Doubling>(false), "Doubling");
    mgs_bind(&editor, "pageGuideColumn", &model, "width", {nullptr, "Doubling"});
    EXPECT_EQ(editor.pageGuideColumn(), 8);
    support::LogCapture log;
    mgs_propagateValue(&editor, 20, "pageGuideColumn");
    EXPECT_TRUE(log.contains("WARNING: binding \"pageGuideColumn\" has value transformer, but it "
                             "doesn't allow reverse transformations in "));
    EXPECT_EQ(model.value("width"), 20);
    platform::ValueTransformer::setValueTransformer(nullptr, "Doubling");
}

TEST_F(FragariaView, BrokenBindingsAreLogged)
{
    auto model = std::make_unique<platform::ObservableDictionary>();
    mgs_bind(&editor, "tabWidth", model.get(), "width");
    mgs_bind(&editor, "lineWrap", &editor, {});
    model.reset();
    support::LogCapture log;
    editor.setTabWidth(3);
    editor.setLineWrap(false);
    editor.setShowsPageGuide(true); // has none
    EXPECT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.contains("ERROR: NSObservedObjectKey was nil for binding \"tabWidth\" in "));
    EXPECT_TRUE(log.contains("ERROR: NSObservedKeyPathKey was nil for binding \"lineWrap\" in "));
    EXPECT_EQ(editor.tabWidth(), 3);
    EXPECT_THROW(mgs_propagateValue(&editor, 1, {}), platform::AssertionFailure);
}

TEST_F(FragariaView, GoesToLines)
{
    setMarked("¦a\nb\nc\n");
    support::LogCapture log;
    editor.goToLine(2, true, true);
    EXPECT_EQ(marked(), "a\n‹b\n›c\n");
    EXPECT_EQ(log.lines(), QStringList{"Warning: centered option is ignored."});
    editor.goToLine(4, false, true);
    EXPECT_EQ(marked(), "a\nb\nc\n¦");
    editor.goToLine(1, false, false); // only brought into sight
    EXPECT_EQ(marked(), "a\nb\nc\n¦");
    EXPECT_EQ(takeBeeps(), 0);
    editor.goToLine(5, false, true);
    editor.goToLine(0, false, true);
    EXPECT_EQ(takeBeeps(), 2);
    EXPECT_EQ(marked(), "a\nb\nc\n¦");
}

TEST_F(FragariaView, FindsInItsText)
{
    setMarked("¦one two one");
    EXPECT_FALSE(editor.findBar()->isVisible());
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(editor.findBar()->isVisible());
    QTest::keyClicks(QApplication::focusWidget(), "two");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(support::waitUntil([&] { return marked() == "one ‹two› one"; }));
}

TEST_F(FragariaView, KnowsRowsAndColumns)
{
    editor.setString("ab\n\tcd\n");
    const auto place = [&](qsizetype index) {
        qsizetype row = -1;
        qsizetype column = -1;
        editor.getRowAndColumn(&row, &column, index);
        return std::pair(row, column);
    };
    EXPECT_EQ(place(0), std::pair(qsizetype(0), qsizetype(0)));
    EXPECT_EQ(place(5), std::pair(qsizetype(1), qsizetype(5)));
    EXPECT_EQ(place(7), std::pair(qsizetype(2), qsizetype(0)));
    EXPECT_EQ(place(8), std::pair(NotFound, NotFound));
    qsizetype index = -1;
    editor.getRowAndIndexInRow(nullptr, &index, 5);
    EXPECT_EQ(index, 2);
    EXPECT_EQ(editor.characterIndexAtColumn(2, 1), 3); // within the tab
    EXPECT_EQ(editor.characterIndexAtColumn(4, 1), 4);
    EXPECT_EQ(editor.characterIndexAtColumn(6, 1), 6); // the line's end
    EXPECT_EQ(editor.characterIndexAtColumn(7, 1), NotFound);
    EXPECT_EQ(editor.characterIndexAtColumn(0, 3), NotFound);
    EXPECT_EQ(editor.characterIndexAtIndex(99, 0), 2);
    EXPECT_EQ(editor.characterIndexAtIndex(0, 3), NotFound);
}

TEST_F(FragariaView, TheColouredTextIsTheWholeText)
{
    editor.setSyntaxDefinitionName("C");
    editor.setString("int a; /* c */\n" + QString("\n").repeated(1000) + "return 1;");
    view.layoutManager()->addTemporaryAttributes(
        {{platform::TextAttribute::BackgroundColor, QColor(Qt::yellow)}}, {4, 2});
    const MGSAttributedString text = editor.attributedStringWithTemporaryAttributesApplied();
    EXPECT_EQ(text.string, view.string());
    QStringList groups;
    for (const auto &run : text.runs) {
        groups << text.string.mid(run.range.location, run.range.length) + "=" +
                      run.attributes.value(platform::TextAttribute::Group).toString();
        EXPECT_FALSE(run.attributes.value(platform::TextAttribute::BackgroundColor).isValid());
        EXPECT_TRUE(run.attributes.value(platform::TextAttribute::ForegroundColor).isValid());
    }
    EXPECT_EQ(groups,
              (QStringList{"int=keyword", "/* c */=comments", "return=keyword", "1=number"}));
}

} // namespace
