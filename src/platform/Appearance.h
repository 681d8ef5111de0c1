#pragma once

#include <QColor>
#include <QObject>
#include <QPalette>
#include <QStringList>

namespace platform {

enum class ColorScheme { Light, Dark };

/// Light or dark: the user's own choice (user default `appearance`: "light", "dark", or "auto"), or
/// what the desktop says, now and when it changes. A desktop that says nothing: light. One object,
/// made on first use, main thread; asking the desktop never blocks.
class Appearance : public QObject
{
    Q_OBJECT

public:
    static Appearance &shared();

    ColorScheme colorScheme() const { return m_scheme; }

    /// "auto", "light" or "dark"; stored in the user defaults. Anything else counts as "auto".
    QString choice() const;
    void setChoice(const QString &choice);

Q_SIGNALS:
    void colorSchemeDidChange();

private:
    Appearance();
    void settle();

    ColorScheme m_scheme = ColorScheme::Light;
    ColorScheme m_desktopScheme = ColorScheme::Light;
};

/// A colour of the program by its name ("codeEditorBackground"), for the current scheme. The whole
/// palette, light and dark, is one table. An unknown name is a programming fault.
QColor namedColor(const QString &name);
QColor namedColor(const QString &name, ColorScheme scheme);
QStringList colorNames();

/// So much of one colour laid over another; both are taken as opaque.
QColor mixed(const QColor &over, qreal share, const QColor &under);

/// The widgets' palette from the same table, made for `QApplication::setPalette` and the Fusion
/// style.
QPalette palette(ColorScheme scheme);

} // namespace platform
