#include "workbench/LSMEditorSettings.h"

#include "editor/MGSFragariaView.h"
#include "editor/MGSUserDefaultsController.h"
#include "platform/Appearance.h"

#include <QFontDatabase>

using platform::Appearance;
using platform::namedColor;

namespace {

constexpr auto editorFontSize = 10.0; // points, at least
const QString backgroundKey = QStringLiteral("backgroundColor");

struct NamedColour
{
    const char *property;
    const char *name;
};
constexpr NamedColour editorColours[] = {
    {"backgroundColor", "codeEditorBackground"},
    {"currentLineHighlightColour", "codeEditorCurrentLineHighlightColour"},
    {"defaultSyntaxErrorHighlightingColour", "codeEditorSyntaxErrorHighlightingColour"},
    {"textColor", "codeEditorTextColor"},
    {"insertionPointColor", "codeEditorTextColor"},
    {"colourForAttributes", "codeEditorAttributes"},
    {"colourForAutocomplete", "codeEditorAutocomplete"},
    {"colourForCommands", "codeEditorCommands"},
    {"colourForComments", "codeEditorComments"},
    {"colourForInstructions", "codeEditorInstructions"},
    {"colourForKeywords", "codeEditorKeywords"},
    {"colourForNumbers", "codeEditorNumbers"},
    {"colourForStrings", "codeEditorStrings"},
    {"colourForVariables", "codeEditorVariables"},
};

QFont editorFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(qMax(editorFontSize, font.pointSizeF()));
    return font;
}

QSet<QString> sharedProperties()
{
    using View = MGSFragariaView;
    return View::propertyGroupEditing() | View::propertyGroupGutter() |
           View::propertyGroupAutocomplete() | View::propertyGroupIndenting() |
           View::propertyGroupTextFont() | View::propertyGroupTheme() |
           View::propertyGroupColouringExtraOptions() | QSet{QStringLiteral("gutterFont")};
}

MGSUserDefaultsController *controller()
{
    return MGSUserDefaultsController::sharedController();
}

} // namespace

LSMEditorSettings::LSMEditorSettings(MGSFragariaView *view) : QObject(view), m_view(view)
{
    configureView();
    shareSettings();
    applyEditorColours();
    connect(&Appearance::shared(), &Appearance::colorSchemeDidChange, this,
            &LSMEditorSettings::applyEditorColours);
    connect(controller()->values().get(), &platform::ObservableDictionary::valueChanged, this,
            [this](const QString &key) {
                if (key == backgroundKey || key == QStringLiteral("textColor"))
                    applyGutterColours();
            });
}

void LSMEditorSettings::configureView()
{
    m_view->setShowsGutter(true);
    m_view->setAutoCompleteEnabled(true);
    m_view->setAutoCompleteDelay(0.05);
    m_view->setHighlightsCurrentLine(true);
    m_view->setTextFont(editorFont());
    m_view->setTabWidth(2);
    m_view->setIndentWithSpaces(true);
    m_view->setSyntaxDefinitionName(QStringLiteral("HTML"));
    m_view->setMarksChangedLines(true);
    m_view->setShowsTagPartners(true);
    m_view->setShowsColourSwatches(true);
    m_view->setFoldsLines(true);
    m_view->setShowsIndividualErrors(true);
}

// What the view has is what it goes back to.
void LSMEditorSettings::shareSettings()
{
    QVariantMap settings;
    for (const QString &property : sharedProperties())
        settings.insert(property, m_view->property(property.toLatin1().constData()));
    controller()->setDefaultValues(settings);
    controller()->setManagedProperties(sharedProperties());
    controller()->setPersistent(true);
    controller()->addFragariaToManagedSet(m_view);
}

// Text and paint are told apart on dark ground by colours of their own.
void LSMEditorSettings::applyEditorColours()
{
    QVariantMap settings = controller()->defaultValues();
    for (const auto &[property, name] : editorColours)
        settings.insert(QLatin1StringView(property), namedColor(QLatin1StringView(name)));
    controller()->setDefaultValues(settings);
    applyGutterColours();
}

// The gutter goes with the ground beside it.
void LSMEditorSettings::applyGutterColours()
{
    const QColor ground = m_view->backgroundColor();
    const QColor text = m_view->textColor();
    const bool isChosen = controller()->isSet(backgroundKey);
    m_view->setGutterBackgroundColour(
        isChosen ? platform::mixed(text, 0.04, ground)
                 : namedColor(QStringLiteral("codeEditorGutterBackgroundColour")));
    m_view->setGutterTextColour(isChosen
                                    ? platform::mixed(text, 0.65, ground)
                                    : namedColor(QStringLiteral("codeEditorGutterTextColour")));
}
