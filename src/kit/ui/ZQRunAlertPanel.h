#pragma once

#include "kit/ui/ZQCustomizableAlert.h"
#include "platform/Format.h"

/// Modal alerts as plain functions. `format` is the informative text, filled with the trailing
/// arguments as `platform::format` does; an empty one gives no informative text. A null title
/// leaves its button out. The result is that of the button: 1000, 1001, 1002. The first button is
/// the default one (Return); closing the box counts as "Cancel" or, without one, as the last
/// button.

template <class... Arguments>
int ZQRunAlertPanelWithStyleAndAccessoryView(const QString &title, const QString &format,
                                             const QString &defaultButton,
                                             const QString &alternateButton,
                                             const QString &otherButton, ZQAlertStyle style,
                                             QWidget *accessoryView, const Arguments &...arguments)
{
    return ZQCustomizableAlert::runAlertPanelWithMessageText(
        title, defaultButton, alternateButton, otherButton, platform::format(format, arguments...),
        style, accessoryView);
}

template <class... Arguments>
int ZQRunAlertPanel(const QString &title, const QString &format, const QString &defaultButton,
                    const QString &alternateButton = {}, const QString &otherButton = {},
                    const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Warning, nullptr,
                                                    arguments...);
}

/// `ZQRunAlertPanel` for a text that is ready: nothing in it is read as a conversion.
inline int ZQRunAlertPanel3(const QString &title, const QString &message,
                            const QString &defaultButton, const QString &alternateButton = {},
                            const QString &otherButton = {})
{
    return ZQRunAlertPanel(title, QStringLiteral("%@"), defaultButton, alternateButton, otherButton,
                           message);
}

template <class... Arguments>
int ZQRunInformationalAlertPanel(const QString &title, const QString &format,
                                 const QString &defaultButton, const QString &alternateButton = {},
                                 const QString &otherButton = {}, const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Informational,
                                                    nullptr, arguments...);
}

template <class... Arguments>
int ZQRunCriticalAlertPanel(const QString &title, const QString &format,
                            const QString &defaultButton, const QString &alternateButton = {},
                            const QString &otherButton = {}, const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Critical, nullptr,
                                                    arguments...);
}

template <class... Arguments>
int ZQRunAlertPanelWithAccessoryView(const QString &title, const QString &format,
                                     const QString &defaultButton, const QString &alternateButton,
                                     const QString &otherButton, QWidget *accessoryView,
                                     const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Warning,
                                                    accessoryView, arguments...);
}

template <class... Arguments>
int ZQRunInformationalAlertPanelWithAccessoryView(const QString &title, const QString &format,
                                                  const QString &defaultButton,
                                                  const QString &alternateButton,
                                                  const QString &otherButton,
                                                  QWidget *accessoryView,
                                                  const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Informational,
                                                    accessoryView, arguments...);
}

template <class... Arguments>
int ZQRunCriticalAlertPanelWithAccessoryView(const QString &title, const QString &format,
                                             const QString &defaultButton,
                                             const QString &alternateButton,
                                             const QString &otherButton, QWidget *accessoryView,
                                             const Arguments &...arguments)
{
    return ZQRunAlertPanelWithStyleAndAccessoryView(title, format, defaultButton, alternateButton,
                                                    otherButton, ZQAlertStyle::Critical,
                                                    accessoryView, arguments...);
}

template <class... Arguments>
int ZQRunAlertPanelWithAccessoryViewAndHelpAnchor(const QString &title, const QString &format,
                                                  const QString &defaultButton,
                                                  const QString &alternateButton,
                                                  const QString &otherButton,
                                                  QWidget *accessoryView, const QString &helpAnchor,
                                                  const Arguments &...arguments)
{
    return ZQCustomizableAlert::runAlertPanelWithMessageText(
        title, defaultButton, alternateButton, otherButton, platform::format(format, arguments...),
        ZQAlertStyle::Warning, accessoryView, helpAnchor);
}

template <class... Arguments>
int ZQRunAlertPanelWithButtons(const QString &title, const QString &format,
                               const QStringList &buttonTitles, const Arguments &...arguments)
{
    return ZQCustomizableAlert::runAlertPanelWithMessageText(
        title, buttonTitles, platform::format(format, arguments...), ZQAlertStyle::Warning);
}

/// As `ZQRunAlertPanelWithButtons`; style and view are not used.
template <class... Arguments>
int ZQRunAlertPanelWithButtonsAndStyleAndAccessoryView(const QString &title, const QString &format,
                                                       const QStringList &buttonTitles,
                                                       ZQAlertStyle /*style*/,
                                                       QWidget * /*accessoryView*/,
                                                       const Arguments &...arguments)
{
    return ZQRunAlertPanelWithButtons(title, format, buttonTitles, arguments...);
}

/// With a check box that switches the alert off for good; then the result is 1000 at once.
template <class... Arguments>
int ZQRunAlertPanelWithSuppressionPreferencesKey(const QString &title, const QString &format,
                                                 const QString &defaultButton,
                                                 const QString &alternateButton,
                                                 const QString &otherButton,
                                                 const QString &preferencesKey,
                                                 const Arguments &...arguments)
{
    return ZQCustomizableAlert::runAlertPanelWithMessageText(
        title, defaultButton, alternateButton, otherButton, platform::format(format, arguments...),
        preferencesKey, nullptr);
}
