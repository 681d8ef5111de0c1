// The Design tab of the design editor: the picture, and what the design asks of the host.

#include "kit/ui/OpenPanel.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "kit/ui/ZQViewExtensions.h"
#include "kit/ZQImageExtensions.h"
#include "library/LSMDesignKeys.h"
#include "platform/Bundle.h"
#include "ui_LSMDesignEditorViewController.h"
#include "workbench/LSMDesignEditorViewController.h"

#include <QApplication>
#include <QFileInfo>
#include <QRegularExpression>

using namespace LSMDesignKeys;
using platform::localizable;
using platform::localized;

namespace {

constexpr QSize largestPicture(300, 300);

struct Inclusion
{
    const char *value; // null: none is stored
    const char *title;
};

constexpr Inclusion inclusions[] = {
    {nullptr, localizable("As Lotbook is set")},
    {"none", localizable("None")},
    {"first", localizable("The first one")},
    {"all", localizable("All")},
};

bool isVersion(const QString &text)
{
    static const QRegularExpression numbers(QStringLiteral("^\\d+(\\.\\d+)*$"));
    return numbers.match(text).hasMatch();
}

void setOrRemove(LSMDesignTemplate &design, QLatin1StringView key, const QString &text)
{
    design.templateDictionary()->setValue(key, text.isEmpty() ? QVariant() : text);
}

} // namespace

void LSMDesignEditorViewController::configureHostFields()
{
    connect(m_ui->minimumVersionField, &QLineEdit::textEdited, this,
            &LSMDesignEditorViewController::templateMinLBVersionDidChange);
    connect(m_ui->imageInclusionPopup, &QComboBox::activated, this,
            &LSMDesignEditorViewController::templateImageInclusionDidChange);
}

// A value that is none of the known ones has an item of its own, so that it is seen and kept.
void LSMDesignEditorViewController::updateHostFields()
{
    const auto text = [this](QLatin1StringView key) {
        return m_design ? m_design->templateDictionary()->stringValue(key) : QString();
    };
    if (m_ui->minimumVersionField->text() != text(minimumVersion))
        m_ui->minimumVersionField->setText(text(minimumVersion));
    updateVersionHint();

    QComboBox *popup = m_ui->imageInclusionPopup;
    popup->clear();
    for (const auto &[value, title] : inclusions)
        popup->addItem(localized(title), QString::fromLatin1(value));
    const QString inclusion = text(imageInclusion);
    if (popup->findData(inclusion) < 0)
        popup->addItem(inclusion, inclusion);
    popup->setCurrentIndex(popup->findData(inclusion));
}

void LSMDesignEditorViewController::updateVersionHint()
{
    const QString version = m_ui->minimumVersionField->text();
    m_ui->minimumVersionHint->setText(
        version.isEmpty() || isVersion(version) ? QString() : localized("Such as 8.2"));
}

void LSMDesignEditorViewController::templateMinLBVersionDidChange()
{
    if (!m_design)
        return;
    setOrRemove(*m_design, minimumVersion, m_ui->minimumVersionField->text());
    updateVersionHint();
    markDirty();
}

void LSMDesignEditorViewController::templateImageInclusionDidChange()
{
    const QString inclusion = m_ui->imageInclusionPopup->currentData().toString();
    if (!m_design || inclusion == m_design->templateDictionary()->stringValue(imageInclusion))
        return;
    setOrRemove(*m_design, imageInclusion, inclusion);
    markDirty();
}

void LSMDesignEditorViewController::choosePicture()
{
    const QString path = zq::runOpenPanel(
        m_view, localized("Choose a Picture"),
        localized("Pictures") + QStringLiteral(" (*.png *.jpg *.jpeg *.gif *.webp *.svg *.bmp)"));
    if (!path.isEmpty())
        m_ui->designIconImageView->takeFile(path);
}

// The program that the file was dragged from waits for the drop to end: the alert comes after it.
void LSMDesignEditorViewController::handleDroppedImage(const QString &path)
{
    if (!m_design)
        return;
    if (const QImage picture = zq::imageAtPath(path); !picture.isNull())
        return takePicture(picture, path);
    const auto complain = [path] {
        ZQRunAlertPanel(localized("Picture Not Readable"),
                        localized("“%@” is not a picture that can be read. The design keeps the "
                                  "one that it has."),
                        localized("OK"), {}, {}, QFileInfo(path).fileName());
    };
    QMetaObject::invokeMethod(this, complain, Qt::QueuedConnection);
}

void LSMDesignEditorViewController::takePictureOfPreview()
{
    const QImage picture = m_ui->previewView->picture();
    if (m_design && !picture.isNull())
        takePicture(picture, {});
    else
        QApplication::beep();
}

void LSMDesignEditorViewController::takePicture(const QImage &picture, const QString &path)
{
    m_design->setTemplateImagePath(path);
    m_design->setTemplateImage(zq::reducedAndResampledImageOfMaximumSize(picture, largestPicture));
    m_ui->designIconImageView->setImage(m_design->templateImage());
    markDirty();
}
