#include "kit/ui/KeywordBadges.h"

#include "platform/Appearance.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"

#include <QFontDatabase>
#include <QPainter>
#include <QSvgRenderer>

namespace zq {

namespace {

constexpr double endPieces = 18; // both together, pixels
constexpr double textBottom = 2; // above the badge's, pixels
constexpr int labelSize = 11;    // pixels

struct Look
{
    const char *imageName;
    bool required;
    const char *color;
    const char *textColor;
};

constexpr Look looks[KeywordBadges::StateCount] = {
    {"Keyword0N", true, "badgeBackground", "badgeTextColor"},
    {"Keyword1N", true, "accentColor", "accentTextColor"},
    {"Keyword0-hover", false, "badgeTextColor", "badgeTextColor"},
    {"Keyword1-hover", false, "accentColor", "accentTextColor"},
    {"Keyword0H", false, "badgeTextColor", "badgeTextColor"},
    {"Keyword1H", false, "accentColor", "accentTextColor"},
};

QColor color(const char *name)
{
    return platform::namedColor(QString::fromLatin1(name));
}

/// One line, laid out at (0, 0).
void layOut(QTextLayout &layout, const ZQKeywordText &text)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setFont(KeywordBadges::labelFont());
    layout.setText(QString(text.string).replace(u'\n', u' '));
    layout.setFormats(text.formats);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

} // namespace

QFont KeywordBadges::labelFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(labelSize);
    return font;
}

void KeywordBadges::setMeasures(const Measures &measures)
{
    if (measures == m_measures)
        return;
    m_measures = measures;
    forgetImages();
}

void KeywordBadges::setDevicePixelRatio(qreal ratio)
{
    if (std::exchange(m_ratio, ratio) != ratio)
        forgetImages();
}

void KeywordBadges::forgetImages()
{
    m_badgeImages = {};
    for (Badge &badge : m_badges)
        badge.images = {};
}

void KeywordBadges::setText(const QString &keyword, const ZQKeywordText &text)
{
    const auto found = m_badges.constFind(keyword);
    if (found != m_badges.constEnd() && found->text == text)
        return;
    QTextLayout layout;
    layOut(layout, text);
    m_badges.insert(keyword, {text, layout.lineAt(0).naturalTextWidth(), {}});
}

QString KeywordBadges::text(const QString &keyword) const
{
    return m_badges.value(keyword).text.string;
}

double KeywordBadges::middleWidth(const Badge &badge) const
{
    return qMax(std::floor(badge.textWidth), m_measures.minWidth);
}

double KeywordBadges::width(const QString &keyword) const
{
    return middleWidth(*m_badges.constFind(keyword)) + endPieces;
}

QPixmap KeywordBadges::image(const QString &keyword, State state)
{
    Badge &badge = *m_badges.find(keyword);
    if (m_badgeImages[state].isNull())
        m_badgeImages[state] = badgeImage(state);
    PLATFORM_ASSERT(!m_badgeImages[state].isNull() || !looks[state].required,
                    "could not create image for keyword '%@' and imageName: %@", keyword,
                    looks[state].imageName);
    if (badge.images[state].isNull() && !m_badgeImages[state].isNull())
        badge.images[state] = computeImage(badge, state);
    return badge.images[state];
}

// The resource as drawn on this device, in its state's colour.
QImage KeywordBadges::badgeImage(State state) const
{
    QSvgRenderer drawing(platform::Bundle::mainBundle().pathForResource(
        QStringLiteral("images/") + QLatin1StringView(looks[state].imageName),
        QStringLiteral("svg")));
    if (!drawing.isValid())
        return {};
    const QSizeF size(drawing.defaultSize().width(), m_measures.height);
    QImage image((size * m_ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color(looks[state].color));
    return image;
}

// In whole pixels of the device, so that no seam shows between the slices.
QPixmap KeywordBadges::computeImage(const Badge &badge, State state)
{
    const QImage &source = m_badgeImages[state];
    const int corner = qRound(m_measures.cornerWidth * m_ratio);
    const int width = qCeil((middleWidth(badge) + endPieces) * m_ratio);
    const int height = source.height();
    QPixmap image(width, height);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawImage(QPoint(), source, {0, 0, corner, height});
    painter.drawImage(QRect(corner, 0, width - 2 * corner, height), source,
                      {corner, 0, source.width() - 2 * corner, height});
    painter.drawImage(QPoint(width - corner, 0), source,
                      {source.width() - corner, 0, corner, height});
    painter.scale(m_ratio, m_ratio);
    drawText(painter, badge, state);
    painter.end();
    image.setDevicePixelRatio(m_ratio);
    return image;
}

void KeywordBadges::drawText(QPainter &painter, const Badge &badge, State state) const
{
    QTextLayout layout;
    layOut(layout, badge.text);
    const double x =
        std::trunc(m_measures.cornerWidth + (middleWidth(badge) - badge.textWidth) / 2);
    const double y = m_measures.height - textBottom - layout.lineAt(0).height();
    painter.setPen(color(looks[state].textColor));
    layout.draw(&painter,
                QPointF(x + m_measures.labelOffset.width(), y - m_measures.labelOffset.height()));
}

} // namespace zq
