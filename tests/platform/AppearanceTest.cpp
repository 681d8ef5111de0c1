#include "platform/Appearance.h"
#include "platform/Assert.h"
#include "platform/UserDefaults.h"
#include "support/Contrast.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>

using platform::Appearance;
using platform::ColorScheme;
using platform::namedColor;
using support::contrast;

namespace {

struct Pairs
{
    QStringList texts;
    QStringList backgrounds;
};

} // namespace

TEST(NamedColors, TextIsReadable)
{
    const QStringList surfaces = {"windowBackground", "sidebarBackground", "contentBackground",
                                  "cardBackground", "controlBackground"};
    const QStringList rows =
        surfaces + QStringList{"selectionBackground", "inactiveSelectionBackground"};
    const Pairs table[] = {
        {{"labelColor", "secondaryLabelColor", "paidTemplateColor"}, rows},
        {{"errorColor", "warningColor", "successColor", "accentColor"}, surfaces},
        {{"accentTextColor"}, {"accentColor"}},
        {{"bannerTextColor"}, {"bannerBackground"}},
        {{"badgeTextColor"}, {"badgeBackground"}},
        {{"codeEditorTextColor"},
         {"codeEditorBackground", "codeEditorCurrentLineHighlightColour",
          "codeEditorSyntaxErrorHighlightingColour", "selectionBackground"}},
        {{"codeEditorGutterTextColour"},
         {"codeEditorGutterBackgroundColour", "codeEditorCurrentLineHighlightColour"}},
    };
    for (const auto scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        for (const auto &[texts, backgrounds] : table) {
            for (const QString &text : texts) {
                for (const QString &background : backgrounds)
                    EXPECT_GE(contrast(namedColor(text, scheme), namedColor(background, scheme)),
                              4.5)
                        << qPrintable(text) << " on " << qPrintable(background)
                        << (scheme == ColorScheme::Dark ? ", dark" : ", light");
            }
        }
    }
    EXPECT_EQ(namedColor("paidTemplateColor", ColorScheme::Light), QColor(177, 0, 0));
    EXPECT_THROW(namedColor("paidTemplateColour", ColorScheme::Light), platform::AssertionFailure);
}

TEST(NamedColors, PaletteIsReadable)
{
    for (const auto scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        const QPalette palette = platform::palette(scheme);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
                {QPalette::WindowText, QPalette::Window},
                {QPalette::Text, QPalette::Base},
                {QPalette::Text, QPalette::AlternateBase},
                {QPalette::PlaceholderText, QPalette::Base},
                {QPalette::ButtonText, QPalette::Button},
                {QPalette::HighlightedText, QPalette::Highlight},
                {QPalette::ToolTipText, QPalette::ToolTipBase},
                {QPalette::Link, QPalette::Base}};
            for (const auto &[text, background] : pairs)
                EXPECT_GE(contrast(palette.color(group, text), palette.color(group, background)),
                          4.5)
                    << group << ": " << text << " on " << background;
        }
        EXPECT_LT(contrast(palette.color(QPalette::Disabled, QPalette::Text),
                           palette.color(QPalette::Disabled, QPalette::Base)),
                  contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)));
    }
}

TEST(Appearance, FollowsTheUsersChoice)
{
    const support::TemporaryHome home;
    Appearance &appearance = Appearance::shared();
    int changes = 0;
    const auto connection =
        QObject::connect(&appearance, &Appearance::colorSchemeDidChange, [&changes] { ++changes; });
    const struct
    {
        const char *set;
        const char *choice;
        ColorScheme scheme;
        int changes;
    } steps[] = {
        {"dark", "dark", ColorScheme::Dark, 1},    {"dark", "dark", ColorScheme::Dark, 1},
        {"light", "light", ColorScheme::Light, 2}, {"dark", "dark", ColorScheme::Dark, 3},
        {"purple", "auto", ColorScheme::Light, 4}, {"auto", "auto", ColorScheme::Light, 4},
    };
    for (const auto &step : steps) {
        appearance.setChoice(QString::fromLatin1(step.set));
        EXPECT_EQ(appearance.choice(), step.choice);
        EXPECT_EQ(appearance.colorScheme(), step.scheme);
        EXPECT_EQ(changes, step.changes) << step.set;
    }
    appearance.setChoice("dark");
    EXPECT_EQ(namedColor("labelColor"), namedColor("labelColor", ColorScheme::Dark));
    platform::UserDefaults::setStandardPath(home.path("fresh.plist"));
    EXPECT_EQ(appearance.colorScheme(), ColorScheme::Light) << "the settings were exchanged";
    QObject::disconnect(connection);
}
