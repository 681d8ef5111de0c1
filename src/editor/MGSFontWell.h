#pragma once

#include <QFont>
#include <QPointer>
#include <QPushButton>

class QFontDialog;

/// Shows a font by name and size and lets the user choose another one in the font dialog. Main
/// thread.
class MGSFontWell : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(
        QFont chosenFont READ chosenFont WRITE setChosenFont NOTIFY chosenFontDidChange USER true)

public:
    explicit MGSFontWell(QWidget *parent = nullptr);

    QFont chosenFont() const { return m_font; }
    void setChosenFont(const QFont &font); ///< Tells of it, too, if it is another one.

    /// The font that it has, with the family, style and size of that one.
    QFont convertFont(const QFont &font) const;

    void showFontDialog(); ///< Asked while it is open, it comes to the front.

Q_SIGNALS:
    void chosenFontDidChange();

private:
    QFont m_font;
    QPointer<QFontDialog> m_dialog;
};
