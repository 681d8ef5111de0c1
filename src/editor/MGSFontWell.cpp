#include "editor/MGSFontWell.h"

#include "platform/Bundle.h"
#include "platform/Format.h"

#include <QFontDialog>
#include <QFontInfo>
#include <QLocale>

MGSFontWell::MGSFontWell(QWidget *parent) : QPushButton(parent)
{
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &MGSFontWell::showFontDialog);
    setChosenFont(font());
}

void MGSFontWell::setChosenFont(const QFont &font)
{
    const QFontInfo info(font);
    setText(platform::format(platform::localized("%@ - %@pt"), info.family(),
                             locale().toString(font.pointSizeF(), 'g', 4)));
    if (font == m_font)
        return;
    m_font = font;
    Q_EMIT chosenFontDidChange();
}

QFont MGSFontWell::convertFont(const QFont &font) const
{
    QFont converted = m_font;
    converted.setFamilies(font.families());
    converted.setPointSizeF(font.pointSizeF());
    converted.setWeight(font.weight());
    converted.setItalic(font.italic());
    converted.setStyleName(font.styleName());
    return converted;
}

void MGSFontWell::showFontDialog()
{
    if (!m_dialog) {
        m_dialog = new QFontDialog(m_font, window());
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setOptions(QFontDialog::DontUseNativeDialog | QFontDialog::MonospacedFonts);
        connect(m_dialog, &QFontDialog::fontSelected, this,
                [this](const QFont &font) { setChosenFont(convertFont(font)); });
        m_dialog->open();
    }
    m_dialog->raise();
}
