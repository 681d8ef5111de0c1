#include "platform/Appearance.h"
#include "platform/Assert.h"

#include <algorithm>

namespace platform {

namespace {

struct NamedColor
{
    const char *name;
    QRgb light;
    QRgb dark;

    QColor color(ColorScheme scheme) const
    {
        return QColor::fromRgb(scheme == ColorScheme::Dark ? dark : light);
    }
};

constexpr NamedColor colors[] = {
    {"codeEditorBackground", 0xFFFFFF, 0x1B1C1F},
    {"codeEditorGutterBackgroundColour", 0xF7F8FA, 0x202125},
    {"codeEditorGutterTextColour", 0x666B73, 0x8E939C},
    {"codeEditorCurrentLineHighlightColour", 0xEFF4FC, 0x26292F},
    {"codeEditorSyntaxErrorHighlightingColour", 0xFFFFB3, 0x40361A},
    {"codeEditorTextColor", 0x1D1E21, 0xE3E4E8},
    {"codeEditorAttributes", 0x808033, 0xC8C07A},
    {"codeEditorAutocomplete", 0xD66902, 0xF2A65A},
    {"codeEditorCommands", 0x0800DA, 0x8FB4FF},
    {"codeEditorComments", 0x007300, 0x7FBF7F},
    {"codeEditorInstructions", 0xBC00A5, 0xF08BE0},
    {"codeEditorKeywords", 0xBC00A5, 0xF08BE0},
    {"codeEditorNumbers", 0x0800DA, 0x8FB4FF},
    {"codeEditorStrings", 0xCD1227, 0xFF8F8A},
    {"codeEditorVariables", 0xBA00BD, 0xE79BF2},
    {"findMatchBackground", 0xE0A800, 0xC9A227},

    {"windowBackground", 0xF5F6F8, 0x222327},
    {"sidebarBackground", 0xECEEF1, 0x27292E},
    {"contentBackground", 0xFFFFFF, 0x1B1C1F},
    {"cardBackground", 0xFFFFFF, 0x2B2D32},
    {"controlBackground", 0xFFFFFF, 0x303238},
    {"controlBorder", 0xC8CBD1, 0x4B4E56},
    {"separatorColor", 0xDDDFE3, 0x3A3C43},
    {"thumbnailBorder", 0xD3D6DB, 0x46494F},

    {"labelColor", 0x1D1E21, 0xE8E9EC},
    {"secondaryLabelColor", 0x5B6069, 0xA9ADB6},
    {"accentColor", 0x2A64C5, 0x7CAAF6},
    {"accentTextColor", 0xFFFFFF, 0x0C1830},
    {"selectionBackground", 0xD7E4F9, 0x2D4166},
    {"inactiveSelectionBackground", 0xE1E4E9, 0x383A41},

    {"paidTemplateColor", 0xB10000, 0xFF8F87},
    {"errorColor", 0xB3261E, 0xFF9A8F},
    {"warningColor", 0x855300, 0xE9BC57},
    {"successColor", 0x1C7037, 0x74CC92},
    {"bannerBackground", 0xFFF5D9, 0x3D3521},
    {"bannerTextColor", 0x574000, 0xF4E1AE},
    {"badgeBackground", 0xDFE5EF, 0x3C4352},
    {"badgeTextColor", 0x374865, 0xD5DEEE},
};

struct Role
{
    QPalette::ColorRole role;
    const char *name;
};

constexpr Role roles[] = {
    {QPalette::Window, "windowBackground"},
    {QPalette::WindowText, "labelColor"},
    {QPalette::Base, "contentBackground"},
    {QPalette::AlternateBase, "windowBackground"},
    {QPalette::Text, "labelColor"},
    {QPalette::PlaceholderText, "secondaryLabelColor"},
    {QPalette::Button, "controlBackground"},
    {QPalette::ButtonText, "labelColor"},
    {QPalette::BrightText, "errorColor"},
    {QPalette::ToolTipBase, "cardBackground"},
    {QPalette::ToolTipText, "labelColor"},
    {QPalette::Highlight, "selectionBackground"},
    {QPalette::HighlightedText, "labelColor"},
    {QPalette::Link, "accentColor"},
    {QPalette::LinkVisited, "accentColor"},
    {QPalette::Light, "cardBackground"},
    {QPalette::Midlight, "windowBackground"},
    {QPalette::Mid, "separatorColor"},
    {QPalette::Dark, "controlBorder"},
};

} // namespace

QColor namedColor(const QString &name, ColorScheme scheme)
{
    const auto *found = std::ranges::find_if(
        colors, [&](const NamedColor &entry) { return name == QLatin1String(entry.name); });
    PLATFORM_ASSERT(found != std::end(colors), "no colour is named %@", name);
    return found->color(scheme);
}

QColor namedColor(const QString &name)
{
    return namedColor(name, Appearance::shared().colorScheme());
}

QStringList colorNames()
{
    QStringList names;
    for (const NamedColor &entry : colors)
        names.append(QString::fromLatin1(entry.name));
    return names;
}

QPalette palette(ColorScheme scheme)
{
    const auto color = [scheme](const char *name) {
        return namedColor(QString::fromLatin1(name), scheme);
    };
    QPalette result;
    for (const Role &entry : roles)
        result.setColor(entry.role, color(entry.name));
    result.setColor(QPalette::Shadow, QColor(0, 0, 0, 60));
    result.setColor(QPalette::Inactive, QPalette::Highlight, color("inactiveSelectionBackground"));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::PlaceholderText}) {
        QColor faded = color("secondaryLabelColor");
        faded.setAlphaF(0.6F);
        result.setColor(QPalette::Disabled, role, faded);
    }
    result.setColor(QPalette::Disabled, QPalette::Highlight, color("inactiveSelectionBackground"));
    result.setColor(QPalette::Disabled, QPalette::Base, color("windowBackground"));
    result.setColor(QPalette::Disabled, QPalette::Button, color("windowBackground"));
    return result;
}

} // namespace platform
