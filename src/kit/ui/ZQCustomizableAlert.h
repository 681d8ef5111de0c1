#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

/// How grave an alert is; picks its icon.
enum class ZQAlertStyle { Warning = 0, Informational = 1, Critical = 2 };

/// What a modal alert gives: the first button is 1000, the second 1001, the third 1002, and so on.
constexpr int ZQAlertFirstButtonReturn = 1000;
constexpr int ZQAlertSecondButtonReturn = 1001;
constexpr int ZQAlertThirdButtonReturn = 1002;

/// The user default that holds whether the alert of that key is suppressed. Asserts that the key is
/// not empty.
QString ZQCustomizableAlertPreferencesKeyForKey(const QString &key);

/// One alert, described and then run modally by the current `ZQAlertPresenter`. A value; main
/// thread. A null button title stands for no button; with no button at all there is an "OK".
class ZQCustomizableAlert
{
public:
    QString messageText;
    QString informativeText;
    QStringList buttonTitles; ///< The first is the default one (Return).
    ZQAlertStyle alertStyle = ZQAlertStyle::Warning;
    QWidget *accessoryView = nullptr; ///< Lent by the caller, who gets it back without a parent.
    bool showsSuppressionButton = false;
    bool suppressionButtonIsOn = false; ///< What the user left it at.
    QString helpAnchor;                 ///< Not empty: the alert has a help button for it.

    /// Shows the alert and waits; gives the result of the button (1000 ...).
    int runModal();

    static ZQCustomizableAlert alertWithMessageText(
        const QString &messageText, const QString &defaultButton, const QString &alternateButton,
        const QString &otherButton, const QString &informativeText, ZQAlertStyle alertStyle,
        QWidget *accessoryView = nullptr, const QString &suppressionButtonPreferencesKey = {},
        const QString &helpAnchor = {});

    /// Asserts that an accessory view and a suppression key do not come together.
    static ZQCustomizableAlert alertWithMessageText(
        const QString &messageText, const QStringList &buttonTitles, const QString &informativeText,
        ZQAlertStyle alertStyle, QWidget *accessoryView = nullptr,
        const QString &suppressionButtonPreferencesKey = {}, const QString &helpAnchor = {});

    static int runWarningAlertPanelWithMessageText(const QString &messageText,
                                                   const QString &defaultButton,
                                                   const QString &alternateButton,
                                                   const QString &otherButton,
                                                   const QString &informativeText,
                                                   QWidget *accessoryView = nullptr);
    static int
    runAlertPanelWithMessageText(const QString &messageText, const QString &defaultButton,
                                 const QString &alternateButton, const QString &otherButton,
                                 const QString &informativeText, ZQAlertStyle alertStyle,
                                 QWidget *accessoryView = nullptr, const QString &helpAnchor = {});
    static int runAlertPanelWithMessageText(const QString &messageText,
                                            const QStringList &buttonTitles,
                                            const QString &informativeText, ZQAlertStyle alertStyle,
                                            QWidget *accessoryView = nullptr);

    /// An alert that the user can switch off for good: then it gives 1000 at once, without being
    /// shown, and `*wasSuppressed` is true. Asserts that the key is not empty.
    static int runAlertPanelWithMessageText(
        const QString &messageText, const QString &defaultButton, const QString &alternateButton,
        const QString &otherButton, const QString &informativeText,
        const QString &suppressionButtonPreferencesKey, bool *wasSuppressed);

    /// Every suppressed alert shows again.
    static void reenableAllSuppressedAlerts();
};
