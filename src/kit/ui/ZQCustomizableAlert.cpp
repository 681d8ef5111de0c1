#include "kit/ui/ZQCustomizableAlert.h"

#include "kit/ui/ZQAlertPresenter.h"
#include "platform/Assert.h"
#include "platform/UserDefaults.h"

namespace {

const QString suppressionKeyPrefix = QStringLiteral("ZQCustomizableAlertPreferencesKey-");

QStringList titlesThatExist(const QStringList &titles)
{
    QStringList result;
    std::copy_if(titles.begin(), titles.end(), std::back_inserter(result),
                 [](const QString &title) { return !title.isNull(); });
    return result;
}

} // namespace

QString ZQCustomizableAlertPreferencesKeyForKey(const QString &key)
{
    PLATFORM_ASSERT(!key.isEmpty(), "0 < [inKey length]");
    return suppressionKeyPrefix + key;
}

int ZQCustomizableAlert::runModal()
{
    return ZQAlertPresenter::current().runModal(*this);
}

ZQCustomizableAlert ZQCustomizableAlert::alertWithMessageText(
    const QString &messageText, const QString &defaultButton, const QString &alternateButton,
    const QString &otherButton, const QString &informativeText, ZQAlertStyle alertStyle,
    QWidget *accessoryView, const QString &suppressionButtonPreferencesKey,
    const QString &helpAnchor)
{
    return alertWithMessageText(
        messageText, QStringList{defaultButton, alternateButton, otherButton}, informativeText,
        alertStyle, accessoryView, suppressionButtonPreferencesKey, helpAnchor);
}

ZQCustomizableAlert ZQCustomizableAlert::alertWithMessageText(
    const QString &messageText, const QStringList &buttonTitles, const QString &informativeText,
    ZQAlertStyle alertStyle, QWidget *accessoryView, const QString &suppressionButtonPreferencesKey,
    const QString &helpAnchor)
{
    PLATFORM_ASSERT(!accessoryView || suppressionButtonPreferencesKey.isNull(),
                    "(nil == inView) || (nil == inPreferencesKey)");
    ZQCustomizableAlert alert;
    alert.messageText = messageText.isNull() ? QStringLiteral("") : messageText;
    alert.informativeText = informativeText;
    alert.buttonTitles = titlesThatExist(buttonTitles);
    alert.alertStyle = alertStyle;
    alert.accessoryView = accessoryView;
    alert.showsSuppressionButton = !suppressionButtonPreferencesKey.isEmpty();
    alert.helpAnchor = helpAnchor;
    return alert;
}

int ZQCustomizableAlert::runWarningAlertPanelWithMessageText(
    const QString &messageText, const QString &defaultButton, const QString &alternateButton,
    const QString &otherButton, const QString &informativeText, QWidget *accessoryView)
{
    return runAlertPanelWithMessageText(messageText, defaultButton, alternateButton, otherButton,
                                        informativeText, ZQAlertStyle::Warning, accessoryView);
}

int ZQCustomizableAlert::runAlertPanelWithMessageText(
    const QString &messageText, const QString &defaultButton, const QString &alternateButton,
    const QString &otherButton, const QString &informativeText, ZQAlertStyle alertStyle,
    QWidget *accessoryView, const QString &helpAnchor)
{
    return alertWithMessageText(messageText, defaultButton, alternateButton, otherButton,
                                informativeText, alertStyle, accessoryView, {}, helpAnchor)
        .runModal();
}

int ZQCustomizableAlert::runAlertPanelWithMessageText(const QString &messageText,
                                                      const QStringList &buttonTitles,
                                                      const QString &informativeText,
                                                      ZQAlertStyle alertStyle,
                                                      QWidget *accessoryView)
{
    return alertWithMessageText(messageText, buttonTitles, informativeText, alertStyle,
                                accessoryView)
        .runModal();
}

int ZQCustomizableAlert::runAlertPanelWithMessageText(
    const QString &messageText, const QString &defaultButton, const QString &alternateButton,
    const QString &otherButton, const QString &informativeText,
    const QString &suppressionButtonPreferencesKey, bool *wasSuppressed)
{
    PLATFORM_ASSERT(!suppressionButtonPreferencesKey.isEmpty(), "0 < [inPreferencesKey length]");
    auto &defaults = platform::UserDefaults::standardUserDefaults();
    const QString key = ZQCustomizableAlertPreferencesKeyForKey(suppressionButtonPreferencesKey);
    const bool isSuppressed = defaults.boolean(key);
    if (wasSuppressed)
        *wasSuppressed = isSuppressed;
    if (isSuppressed)
        return ZQAlertFirstButtonReturn;
    auto alert = alertWithMessageText(messageText, defaultButton, alternateButton, otherButton,
                                      informativeText, ZQAlertStyle::Warning, nullptr,
                                      suppressionButtonPreferencesKey);
    const int result = alert.runModal();
    if (alert.suppressionButtonIsOn)
        defaults.setObject(key, true);
    return result;
}

void ZQCustomizableAlert::reenableAllSuppressedAlerts()
{
    auto &defaults = platform::UserDefaults::standardUserDefaults();
    for (const QString &key : defaults.storedKeys())
        if (key.startsWith(suppressionKeyPrefix))
            defaults.removeObject(key);
}
