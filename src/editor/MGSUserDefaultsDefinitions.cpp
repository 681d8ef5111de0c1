// The catalogue of the editor view's settings.
#include "editor/MGSArchiving.h"
#include "editor/MGSFont.h"
#include "editor/MGSFragariaView.h"
#include "platform/Appearance.h"

#include <variant>

namespace {

enum Group : quint16 {
    None = 0,
    Editing = 1 << 0,
    Gutter = 1 << 1,
    Autocomplete = 1 << 2,
    Indenting = 1 << 3,
    TextFont = 1 << 4,
    EditorColours = 1 << 5,
    HighlightingColours = 1 << 6,
    HighlightingBools = 1 << 7,
    ColouringExtraOptions = 1 << 8,
    Highlighting = HighlightingColours | HighlightingBools,
    Theme = EditorColours | Highlighting,
};

struct Calibrated
{
    float red, green, blue;
};
enum class SystemColour { Text, White };
struct DefaultFont
{
};

struct Setting
{
    const char *key;
    std::variant<bool, int, unsigned, double, const char *, Calibrated, SystemColour, DefaultFont>
        defaultValue;
    Group group;
};

constexpr Setting catalogue[] = {
    {"syntaxColoured", true, Editing},
    {"syntaxDefinitionName", "Standard", None},
    {"coloursMultiLineStrings", false, ColouringExtraOptions},
    {"coloursOnlyUntilEndOfLine", true, ColouringExtraOptions},
    {"autoCompleteDelay", 1.0, Autocomplete},
    {"autoCompleteEnabled", false, Autocomplete},
    {"autoCompleteWithKeywords", true, Autocomplete},
    {"currentLineHighlightColour", Calibrated{0.96F, 0.96F, 0.71F}, EditorColours},
    {"highlightsCurrentLine", false, Editing},
    {"showsGutter", true, Gutter},
    {"minimumGutterWidth", 40.0, Gutter},
    {"showsLineNumbers", true, Gutter},
    {"startingLineNumber", 1, None},
    {"gutterFont", DefaultFont(), None},
    {"gutterTextColour", Calibrated{0.42F, 0.42F, 0.42F}, None},
    {"showsSyntaxErrors", true, Editing},
    {"showsIndividualErrors", false, Editing},
    {"defaultSyntaxErrorHighlightingColour", Calibrated{1.0F, 1.0F, 0.7F}, EditorColours},
    {"tabWidth", 4, Indenting},
    {"indentWidth", 4U, Indenting},
    {"useTabStops", true, Indenting},
    {"indentWithSpaces", false, Indenting},
    {"indentBracesAutomatically", true, Indenting},
    {"indentNewLinesAutomatically", true, Indenting},
    {"lineHeightMultiple", 0.0, Editing},
    {"insertClosingBraceAutomatically", false, Autocomplete},
    {"insertClosingParenthesisAutomatically", false, Autocomplete},
    {"showsMatchingBraces", true, Editing},
    {"pageGuideColumn", 80, Editing},
    {"showsPageGuide", false, Editing},
    {"lineWrap", true, Editing},
    {"lineWrapsAtPageGuide", false, Editing},
    {"showsInvisibleCharacters", false, Editing},
    {"textInvisibleCharactersColour", SystemColour::Text, EditorColours},
    {"textColor", SystemColour::Text, EditorColours},
    {"backgroundColor", SystemColour::White, EditorColours},
    {"textFont", DefaultFont(), TextFont},
    {"hasVerticalScroller", true, None},
    {"insertionPointColor", SystemColour::Text, EditorColours},
    {"scrollElasticityDisabled", false, None},
    {"colourForAutocomplete", Calibrated{0.84F, 0.41F, 0.006F}, HighlightingColours},
    {"colourForAttributes", Calibrated{0.5F, 0.5F, 0.2F}, HighlightingColours},
    {"colourForCommands", Calibrated{0.031F, 0.0F, 0.855F}, HighlightingColours},
    {"colourForComments", Calibrated{0.0F, 0.45F, 0.0F}, HighlightingColours},
    {"colourForInstructions", Calibrated{0.737F, 0.0F, 0.647F}, HighlightingColours},
    {"colourForKeywords", Calibrated{0.737F, 0.0F, 0.647F}, HighlightingColours},
    {"colourForNumbers", Calibrated{0.031F, 0.0F, 0.855F}, HighlightingColours},
    {"colourForStrings", Calibrated{0.804F, 0.071F, 0.153F}, HighlightingColours},
    {"colourForVariables", Calibrated{0.73F, 0.0F, 0.74F}, HighlightingColours},
    {"coloursAttributes", true, HighlightingBools},
    {"coloursAutocomplete", false, HighlightingBools},
    {"coloursCommands", true, HighlightingBools},
    {"coloursComments", true, HighlightingBools},
    {"coloursInstructions", true, HighlightingBools},
    {"coloursKeywords", true, HighlightingBools},
    {"coloursNumbers", true, HighlightingBools},
    {"coloursStrings", true, HighlightingBools},
    {"coloursVariables", true, HighlightingBools},
};

/// A default value as the property has it.
struct Value
{
    QVariant operator()(const char *text) const { return QString::fromLatin1(text); }
    QVariant operator()(Calibrated c) const { return QColor::fromRgbF(c.red, c.green, c.blue); }
    QVariant operator()(DefaultFont) const { return mgs_defaultFont(); }
    QVariant operator()(auto number) const { return number; }

    /// Text is dark: the default background is white in either appearance.
    QVariant operator()(SystemColour colour) const
    {
        return colour == SystemColour::White
                   ? QColor(Qt::white)
                   : platform::namedColor(QStringLiteral("codeEditorTextColor"),
                                          platform::ColorScheme::Light);
    }
};

QVariant defaultValue(const Setting &setting)
{
    return std::visit(Value(), setting.defaultValue);
}

QSet<QString> keysOfGroup(Group group)
{
    QSet<QString> keys;
    for (const Setting &setting : catalogue) {
        if (setting.group & group)
            keys.insert(QString::fromLatin1(setting.key));
    }
    return keys;
}

} // namespace

QVariantMap MGSFragariaView::defaultsDictionary()
{
    QVariantMap defaults;
    for (const Setting &setting : catalogue)
        defaults.insert(QString::fromLatin1(setting.key), mgs_archivedValue(defaultValue(setting)));
    return defaults;
}

QString MGSFragariaView::namespacedKeyForKey(const QString &key)
{
    return QStringLiteral("MGSFragariaDefaults") + key.left(1).toUpper() + key.mid(1);
}

QVariantMap MGSFragariaView::defaultsDictionaryWithNamespace()
{
    const QVariantMap plain = defaultsDictionary();
    QVariantMap defaults;
    for (auto it = plain.cbegin(); it != plain.cend(); ++it)
        defaults.insert(namespacedKeyForKey(it.key()), *it);
    return defaults;
}

void MGSFragariaView::resetDefaults()
{
    for (const Setting &setting : catalogue)
        setProperty(setting.key, defaultValue(setting));
}

QSet<QString> MGSFragariaView::propertyGroupEditing()
{
    return keysOfGroup(Editing);
}

QSet<QString> MGSFragariaView::propertyGroupGutter()
{
    return keysOfGroup(Gutter);
}

QSet<QString> MGSFragariaView::propertyGroupAutocomplete()
{
    return keysOfGroup(Autocomplete);
}

QSet<QString> MGSFragariaView::propertyGroupIndenting()
{
    return keysOfGroup(Indenting);
}

QSet<QString> MGSFragariaView::propertyGroupTextFont()
{
    return keysOfGroup(TextFont);
}

QSet<QString> MGSFragariaView::propertyGroupEditorColours()
{
    return keysOfGroup(EditorColours);
}

QSet<QString> MGSFragariaView::propertyGroupSyntaxHighlightingColours()
{
    return keysOfGroup(HighlightingColours);
}

QSet<QString> MGSFragariaView::propertyGroupSyntaxHighlightingBools()
{
    return keysOfGroup(HighlightingBools);
}

QSet<QString> MGSFragariaView::propertyGroupSyntaxHighlighting()
{
    return keysOfGroup(Highlighting);
}

QSet<QString> MGSFragariaView::propertyGroupTheme()
{
    return keysOfGroup(Theme);
}

QSet<QString> MGSFragariaView::propertyGroupColouringExtraOptions()
{
    return keysOfGroup(ColouringExtraOptions);
}
