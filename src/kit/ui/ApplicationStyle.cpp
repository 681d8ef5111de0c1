#include "kit/ui/ApplicationStyle.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Appearance.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QStyleOption>

namespace zq {

namespace {

// "@name" stands for a named colour.
const QString sheet = QStringLiteral(R"(
QMainWindow, QStackedWidget, QScrollArea, #designPage, #storeView, #propertiesTab, #editorView { background: @contentBackground; }
#sidebar, LSMOutlineView { background: @sidebarBackground; }
#splitter::handle, #htmlSplitter::handle { background: @separatorColor; }
QToolBar { background: @windowBackground; border: none; border-bottom: 1px solid @separatorColor;
           padding: 3px 8px; spacing: 2px; }
QToolButton:focus { border: 1px solid @accentColor; border-radius: 5px; }
QMenuBar { background: @windowBackground; padding: 2px 4px; }
QMenuBar::item { padding: 4px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @inactiveSelectionBackground; }
QStatusBar { background: @windowBackground; border-top: 1px solid @separatorColor; }
QStatusBar::item { border: none; }
QStatusBar QLabel, QStatusBar zq--ElidedLabel { color: @secondaryLabelColor; padding: 2px 10px; }
#banner, #previewBanner { background: @bannerBackground; border: none; border-bottom: 1px solid @separatorColor; }
#bannerText, #previewBannerText { color: @bannerTextColor; }
QLineEdit { background: @controlBackground; border: 1px solid @controlBorder; border-radius: 5px;
            padding: 4px 6px; }
QLineEdit:read-only { background: transparent; border-color: transparent; }
QLineEdit:focus { border: 1px solid @accentColor; }
QAbstractSpinBox { background: @controlBackground; border: 1px solid @controlBorder; border-radius: 5px;
                   padding: 2px 3px; }
QAbstractSpinBox:focus { border-color: @accentColor; }
QAbstractSpinBox:disabled { color: @secondaryLabelColor; }
QAbstractSpinBox::up-button, QAbstractSpinBox::down-button { border: none; width: 16px; }
QAbstractSpinBox::up-arrow { image: url(:/layoutsmith/images/StepUp.svg); width: 10px; height: 10px; }
QAbstractSpinBox::down-arrow { image: url(:/layoutsmith/images/StepDown.svg); width: 10px; height: 10px; }
QPlainTextEdit { background: @controlBackground; border: 1px solid @controlBorder; border-radius: 5px; }
QPlainTextEdit:focus { border-color: @accentColor; }
QPlainTextEdit:read-only, QPlainTextEdit:disabled, QLineEdit:disabled { background: transparent; }
zq--PopUpButton { background: @controlBackground; border: 1px solid @controlBorder; border-radius: 5px;
            padding: 4px 8px; }
zq--PopUpButton:focus { border-color: @accentColor; }
zq--PopUpButton:disabled { color: @secondaryLabelColor; }
zq--PopUpButton::drop-down { border: none; width: 20px; }
zq--PopUpButton QLineEdit { border: none; padding: 0; }
zq--PopUpButton QAbstractItemView { background: @controlBackground; }
#priceHint, #supportUrlHint, #minimumVersionHint { color: @warningColor; }
#lotbookVersionHint, #finderColorHint, #hintLabel { color: @secondaryLabelColor; }
QAbstractItemView QLineEdit { border-radius: 2px; padding: 0 1px; }
#emptyText { color: @secondaryLabelColor; }
QPushButton { background: @controlBackground; border: 1px solid @controlBorder; border-radius: 5px;
              padding: 5px 14px; outline: 0; }
QPushButton::menu-indicator { subcontrol-origin: padding; subcontrol-position: right center; right: 9px; }
#placeholderPopup, #layoutPopup { padding-right: 26px; }
QPushButton:hover { border-color: @accentColor; }
QPushButton:pressed { background: @inactiveSelectionBackground; }
QPushButton:default { background: @accentColor; color: @accentTextColor; border-color: @accentColor; }
QPushButton:focus { border-color: @accentColor; }
QPushButton:disabled { background: @windowBackground; border-color: @separatorColor; color: @secondaryLabelColor; }
QCheckBox { padding: 2px; border: 1px solid transparent; border-radius: 5px; }
QCheckBox:focus { border-color: @accentColor; outline: 0; }
QScrollBar { background: transparent; border: none; margin: 0; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @controlBorder; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: @secondaryLabelColor; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
#samplesList, #propertiesTable, #valuesTable { background: @controlBackground; border: 1px solid @separatorColor;
                                border-radius: 6px; padding: 4px; }
#samplesList:focus, #propertiesTable:focus, #valuesTable:focus { border-color: @accentColor; }
#samplesList::item { padding: 4px 2px; }
#toolbarItems { background: @controlBackground; border: 1px solid @separatorColor;
                border-radius: 6px; padding: 5px; outline: 0; }
#toolbarItems:focus { border-color: @accentColor; }
#toolbarItems::item { border-radius: 5px; }
#toolbarItems::item:selected { background: @selectionBackground; color: @labelColor; }
QHeaderView::section { background: @windowBackground; color: @secondaryLabelColor; border: none;
                       padding: 5px 8px; }
)");

void drawCheckBox(const QStyleOption &option, QPainter &painter)
{
    const bool on = option.state & (QStyle::State_On | QStyle::State_NoChange);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(option.state & QStyle::State_Enabled ? 1 : 0.5);
    painter.setPen(platform::namedColor(on ? QStringLiteral("accentColor")
                                           : QStringLiteral("secondaryLabelColor")));
    painter.setBrush(platform::namedColor(on ? QStringLiteral("accentColor")
                                             : QStringLiteral("controlBackground")));
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen({platform::namedColor(QStringLiteral("accentTextColor")), 1.8, Qt::SolidLine,
                    Qt::RoundCap});
    const auto at = [&box](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (option.state & QStyle::State_On)
        painter.drawPolyline(QList{at(0.22, 0.53), at(0.42, 0.73), at(0.78, 0.29)});
    else if (on)
        painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
    painter.restore();
}

// The stock check boxes, and the sign for "more items than fit", are dark in a dark window too, and
// the icons of a dialog's buttons are of another time.
class Style : public QProxyStyle
{
public:
    Style() : QProxyStyle(QStringLiteral("Fusion")) {}

    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option,
                       const QWidget *widget) const override
    {
        return icon == SP_ToolBarHorizontalExtensionButton
                   ? tintedIcon(QStringLiteral("ToolbarChevron"))
                   : QProxyStyle::standardIcon(icon, option, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck)
            drawCheckBox(*option, *painter);
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

void apply()
{
    const auto scheme = platform::Appearance::shared().colorScheme();
    QApplication::setPalette(platform::palette(scheme));
    QString text = sheet;
    static const QRegularExpression name(QStringLiteral("@(\\w+)"));
    for (auto match = name.match(text); match.hasMatch(); match = name.match(text))
        text.replace(match.capturedStart(), match.capturedLength(),
                     platform::namedColor(match.captured(1), scheme).name());
    qApp->setStyleSheet(text);
}

} // namespace

void installApplicationStyle()
{
    QApplication::setStyle(new Style);
    apply();
    QObject::connect(&platform::Appearance::shared(), &platform::Appearance::colorSchemeDidChange,
                     qApp, apply);
}

} // namespace zq
