#include "kit/ui/ZQKeywordView.h"

#include "kit/ui/TintedIcon.h"
#include "kit/ui/ZQKeywordViewAccessible.h"
#include "platform/Appearance.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"

#include <QAccessible>
#include <QPainter>
#include <QPaintEvent>

using platform::ArrayController;
using platform::namedColor;
using zq::KeywordBadges;

namespace {

constexpr int chevronSize = 16;
constexpr int focusRing = 2; // Around a badge.
constexpr double disabledOpacity = 0.7;

// Never null, so that null can stand for no keyword.
QString keywordOf(const QVariant &object)
{
    return object.toString() + QLatin1StringView("");
}

} // namespace

ZQKeywordView::ZQKeywordView(QWidget *parent) : QWidget(parent)
{
    ZQKeywordViewAccessible::install();
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ZQKeywordView::setArrayController(ArrayController *controller)
{
    if (m_controller)
        m_controller->disconnect(this);
    m_controller = controller;
    if (controller) {
        connect(controller, &ArrayController::arrangedObjectsDidChange, this,
                &ZQKeywordView::arrangedObjectsDidChange);
        connect(controller, &ArrayController::selectionIndexesDidChange, this,
                &ZQKeywordView::selectionIndexesDidChange);
        connect(controller, &QObject::destroyed, this, [this] { setArrayController(nullptr); });
    }
    arrangedObjectsDidChange();
}

void ZQKeywordView::setDelegate(ZQKeywordViewDelegate *delegate)
{
    m_delegate = delegate;
    arrangedObjectsDidChange();
}

void ZQKeywordView::setSettings(const Settings &settings)
{
    m_settings = settings;
    m_badges.setMeasures(
        {settings.badgeHeight, settings.minBadgeSize, settings.cornerWidth, settings.labelOffset});
    layOut();
}

void ZQKeywordView::arrangedObjectsDidChange()
{
    m_cachedStringsToDraw.clear();
    m_cachedTooltips.clear();
    m_keywords.clear();
    if (m_controller) {
        for (const QVariant &object : m_controller->arrangedObjects())
            m_keywords.append(keywordOf(object));
    }
    readSelection();
    layOut();
    QAccessibleEvent event(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

void ZQKeywordView::selectionIndexesDidChange()
{
    const QSet<QString> before = m_selected;
    readSelection();
    update();
    announceSelection(before);
    if (m_delegate)
        m_delegate->selectionChangedTo(this, m_controller->selectedObjects());
}

void ZQKeywordView::readSelection()
{
    m_selected.clear();
    if (!m_controller)
        return;
    for (const QVariant &object : m_controller->selectedObjects())
        m_selected.insert(keywordOf(object));
}

void ZQKeywordView::announceSelection(const QSet<QString> &before)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    for (qsizetype index = 0; index < m_keywords.size(); ++index) {
        if (before.contains(m_keywords.at(index)) == isKeywordSelected(m_keywords.at(index)))
            continue;
        QAccessibleStateChangeEvent event(this, changed);
        event.setChild(int(index));
        QAccessible::updateAccessibility(&event);
    }
}

void ZQKeywordView::layOut()
{
    m_ends.clear();
    double end = 0;
    for (const QString &keyword : std::as_const(m_keywords)) {
        m_badges.setText(keyword, textToDraw(keyword));
        end += m_settings.badgeSpacing + m_badges.width(keyword);
        m_ends.push_back(end);
    }
    updateHover();
    updateGeometry();
    update();
}

ZQKeywordText ZQKeywordView::textToDraw(const QString &keyword)
{
    if (m_delegate) {
        if (const auto text = m_delegate->attributedStringToDrawForKeyword(this, keyword))
            return *text;
    }
    return {textForKeyword(keyword), {}};
}

QString ZQKeywordView::textForKeyword(const QString &keyword)
{
    const auto cached = m_cachedStringsToDraw.constFind(keyword);
    if (cached != m_cachedStringsToDraw.constEnd())
        return *cached;
    if (m_delegate) {
        if (const auto text = m_delegate->stringToDrawForKeyword(this, keyword))
            return *m_cachedStringsToDraw.insert(keyword, *text);
    }
    if (m_settings.displayLocalizedStrings)
        return platform::Bundle::mainBundle().localizedString(keyword, {},
                                                              m_settings.localizableStringsTable);
    return keyword;
}

QString ZQKeywordView::tooltipForKeyword(const QString &keyword)
{
    const auto cached = m_cachedTooltips.constFind(keyword);
    if (cached != m_cachedTooltips.constEnd())
        return *cached;
    const auto text =
        m_delegate ? m_delegate->tooltipForKeyword(this, keyword) : std::optional<QString>();
    return text ? *m_cachedTooltips.insert(keyword, *text) : QString();
}

void ZQKeywordView::setCachedStringToDraw(const QString &text, const QString &keyword)
{
    m_cachedStringsToDraw.insert(keyword, text);
    layOut();
}

void ZQKeywordView::setCachedTooltip(const QString &text, const QString &keyword)
{
    m_cachedTooltips.insert(keyword, text);
}

void ZQKeywordView::removeCachedTooltip(const QString &keyword)
{
    m_cachedTooltips.remove(keyword);
}

QPixmap ZQKeywordView::imageForKeyword(const QString &keyword)
{
    m_badges.setDevicePixelRatio(devicePixelRatioF());
    const auto image = [&](KeywordBadges::State plain, KeywordBadges::State selected) {
        return m_badges.image(keyword, isKeywordSelected(keyword) ? selected : plain);
    };
    QPixmap found;
    if (keyword == m_clickedKeyword && !m_clickedKeyword.isNull())
        found = image(KeywordBadges::Pressed, KeywordBadges::PressedSelected);
    else if (keyword == m_keywordUnderMouse && !m_keywordUnderMouse.isNull())
        found = image(KeywordBadges::Hover, KeywordBadges::HoverSelected);
    return found.isNull() ? image(KeywordBadges::Normal, KeywordBadges::Selected) : found;
}

QRectF ZQKeywordView::rectForKeywordAtIndex(qsizetype index) const
{
    PLATFORM_ASSERT(index >= 0 && index < m_keywords.size(),
                    "ZQKeywordView: keyword index out ouf bounds");
    const double left = (index == 0 ? 0 : m_ends[index - 1]) + m_settings.badgeSpacing;
    const double top = std::trunc((height() - m_settings.badgeHeight) / 2);
    return {left, top, m_ends[index] - left, m_settings.badgeHeight};
}

bool ZQKeywordView::fitsInBounds(qsizetype index) const
{
    return QRectF(rect()).contains(rectForKeywordAtIndex(index));
}

bool ZQKeywordView::canDrawKeywordAtIndex(qsizetype index) const
{
    if (!fitsInBounds(index))
        return false;
    if (index == m_keywords.size() - 1 || fitsInBounds(index + 1))
        return true;
    return width() - rectForKeywordAtIndex(index).right() >
           2 * m_settings.badgeSpacing + chevronSize;
}

qsizetype ZQKeywordView::drawableCount() const
{
    qsizetype count = 0;
    while (count < m_keywords.size() && canDrawKeywordAtIndex(count))
        ++count;
    return count;
}

std::optional<qsizetype> ZQKeywordView::indexAtPoint(const QPointF &point) const
{
    for (qsizetype index = 0; index < drawableCount(); ++index) {
        if (rectForKeywordAtIndex(index).contains(point))
            return index;
    }
    return {};
}

QString ZQKeywordView::keywordAtPoint(const QPointF &point) const
{
    const auto index = indexAtPoint(point);
    return index ? m_keywords.at(*index) : QString();
}

QStringList ZQKeywordView::overflowKeywords() const
{
    return m_keywords.mid(drawableCount());
}

QRectF ZQKeywordView::chevronRect() const
{
    if (drawableCount() == m_keywords.size())
        return {};
    return {width() - (chevronSize + m_settings.badgeSpacing), (height() - chevronSize) / 2.0,
            chevronSize, chevronSize};
}

QSizeF ZQKeywordView::intrinsicContentSize() const
{
    if (m_keywords.isEmpty())
        return QWidget::sizeHint();
    const QPointF corner = rectForKeywordAtIndex(m_keywords.size() - 1).bottomRight();
    return {corner.x(), corner.y()};
}

// The intrinsic height depends on the present one.
QSize ZQKeywordView::sizeHint() const
{
    const int width = qCeil(qMin(intrinsicContentSize().width(), double(QWIDGETSIZE_MAX)));
    return minimumSizeHint().expandedTo({width, 0});
}

QSize ZQKeywordView::minimumSizeHint() const
{
    return {qCeil(2 * m_settings.badgeSpacing) + chevronSize,
            qCeil(m_settings.badgeHeight) + 2 * (focusRing + 1)};
}

void ZQKeywordView::changeEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        m_badges.forgetImages();
        break;
    case QEvent::EnabledChange:
        m_pressedKeyword = m_clickedKeyword = QString();
        updateHover();
        break;
    default:
        break;
    }
    update();
    QWidget::changeEvent(event);
}

void ZQKeywordView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (m_settings.drawsBackground)
        painter.fillRect(event->rect(), m_settings.backgroundColor);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    const qsizetype count = drawableCount();
    for (qsizetype index = 0; index < count; ++index) {
        const QRectF place = rectForKeywordAtIndex(index);
        if (place.intersects(event->rect()))
            painter.drawPixmap(place.topLeft(), imageForKeyword(m_keywords.at(index)));
    }
    if (count < m_keywords.size())
        drawChevron(painter);
    if (hasFocus() && m_showsFocusRing)
        drawFocusRing(painter);
    painter.setOpacity(1);
    painter.setPen(Qt::darkGray);
    if (m_settings.drawsFrame)
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ZQKeywordView::drawChevron(QPainter &painter) const
{
    zq::tintedIcon(QStringLiteral("ToolbarChevron")).paint(&painter, chevronRect().toRect());
}

// Around the whole row where there is nothing in it.
void ZQKeywordView::drawFocusRing(QPainter &painter) const
{
    const qsizetype index = focusIndex();
    QRectF place = index < drawableCount() ? rectForKeywordAtIndex(index) : chevronRect();
    if (place.isEmpty())
        place =
            QRectF(rect()).adjusted(focusRing + 1, focusRing + 1, -focusRing - 1, -focusRing - 1);
    const QRectF ring = place.adjusted(-focusRing, -focusRing, focusRing, focusRing);
    const double radius = ring.height() / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(namedColor(QStringLiteral("accentColor")), focusRing));
    painter.drawRoundedRect(ring, radius, radius);
}
