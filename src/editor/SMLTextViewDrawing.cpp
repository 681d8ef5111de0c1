// What the text view shows beside the text, and how its lines wrap.
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/MGSColourSwatches.h"
#include "editor/MGSFolding.h"
#include "editor/MGSTagHighlight.h"
#include "editor/SMLTextView.h"
#include "platform/text/view/TextPrintPanel.h"

#include <cmath>
#include <QScrollBar>

using platform::TextRange;
using platform::TextStorage;

namespace {

constexpr int widestTab = 100;
constexpr int lastPageGuideColumn = 10'000;
constexpr float pageGuideAlpha = 0.25F;

} // namespace

QFont SMLTextView::textFont() const
{
    return m_textFont;
}

void SMLTextView::setTextFont(const QFont &font)
{
    m_textFont = font;
    zoom(0);
    layoutManager()->setFont(font);
    updateTabInterval();
}

void SMLTextView::setTabWidth(int width)
{
    m_tabWidth = qBound(0, width, widestTab);
    updateTabInterval();
}

void SMLTextView::updateTabInterval()
{
    const qreal blank = layoutManager()->style().characterWidth;
    layoutManager()->setTabInterval(blank * qMax(1, m_tabWidth));
    if (layoutManager()->invisibleCharactersFont() != layoutManager()->style().font)
        layoutManager()->setInvisibleCharactersFont(layoutManager()->style().font);
    configurePageGuide();
}

void SMLTextView::configurePageGuide()
{
    const qreal blank = layoutManager()->style().characterWidth;
    m_pageGuideX = std::floor(blank * (m_pageGuideColumn + 1)) - 1.5;
    if (m_lineWrapsAtPageGuide)
        updateLineWrap();
    viewport()->update();
}

void SMLTextView::updateLineWrap()
{
    const qreal room = viewport()->width() - 2 * textInset;
    const qreal toGuide = m_pageGuideX + 0.5 - textInset;
    const bool atGuide = m_lineWrap && m_lineWrapsAtPageGuide;
    const qreal width = m_lineWrap ? qMax<qreal>(10, atGuide ? toGuide : room) : 0;
    layoutManager()->setWrapWidth(width);
    const bool needsScroller = !m_lineWrap || (atGuide && m_pageGuideX > viewport()->width());
    setHorizontalScrollBarPolicy(needsScroller ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void SMLTextView::lineWrapDidChange()
{
    updateLineWrap();
    m_syntaxColouring->invalidateAllColouring();
    viewport()->update();
}

void SMLTextView::setLineWrap(bool wraps)
{
    m_lineWrap = wraps;
    lineWrapDidChange();
}

void SMLTextView::setLineWrapsAtPageGuide(bool wraps)
{
    m_lineWrapsAtPageGuide = wraps;
    lineWrapDidChange();
}

void SMLTextView::setPageGuideColumn(int column)
{
    m_pageGuideColumn = qBound(0, column, lastPageGuideColumn);
    configurePageGuide();
    lineWrapDidChange();
}

void SMLTextView::setShowsPageGuide(bool shows)
{
    m_showsPageGuide = shows;
    viewport()->update();
}

void SMLTextView::setHighlightsCurrentLine(bool highlights)
{
    m_highlightsCurrentLine = highlights;
    updateCurrentLineRect();
}

void SMLTextView::setCurrentLineHighlightColour(const QColor &colour)
{
    m_currentLineHighlightColour = colour;
    updateCurrentLineRect();
    viewport()->update(m_currentLineRect.toAlignedRect());
}

bool SMLTextView::showsTagPartners() const
{
    return m_tagHighlight->isEnabled();
}

void SMLTextView::setShowsTagPartners(bool shows)
{
    m_tagHighlight->setEnabled(shows);
}

bool SMLTextView::showsColourSwatches() const
{
    return m_colourSwatches->isEnabled();
}

void SMLTextView::setShowsColourSwatches(bool shows)
{
    m_colourSwatches->setEnabled(shows);
}

bool SMLTextView::foldsLines() const
{
    return m_folding->isEnabled();
}

void SMLTextView::setFoldsLines(bool folds)
{
    m_folding->setEnabled(folds);
}

QRectF SMLTextView::lineHighlightingRect()
{
    if (!m_highlightsCurrentLine)
        return {};
    const TextStorage &text = *textStorage();
    const TextRange selection = selectedRange();
    if (text.lineRange(selection) != text.lineRange({selection.location, 0}))
        return {};
    return rectOfLine(text.lineAt(selection.location));
}

void SMLTextView::updateCurrentLineRect()
{
    const QRectF rect = lineHighlightingRect();
    if (rect == m_currentLineRect)
        return;
    viewport()->update(m_currentLineRect.toAlignedRect());
    m_currentLineRect = rect;
    viewport()->update(rect.toAlignedRect());
}

void SMLTextView::setSelections(const platform::TextSelections &selections)
{
    TextView::setSelections(selections);
    updateCurrentLineRect();
}

void SMLTextView::viewWillDraw(const QRectF &dirty)
{
    TextView::viewWillDraw(dirty);
    m_colourSwatches->beginFrame();
    updateCurrentLineRect();
}

void SMLTextView::willDrawText(TextRange characters)
{
    TextView::willDrawText(characters);
    m_colourSwatches->willDrawText(characters);
    if (m_syntaxColoured)
        m_syntaxColouring->recolourRange(characters);
}

void SMLTextView::drawViewBackground(QPainter *painter, const QRectF &dirty)
{
    TextView::drawViewBackground(painter, dirty);
    if (m_currentLineRect.intersects(dirty))
        painter->fillRect(m_currentLineRect, m_currentLineHighlightColour);
}

void SMLTextView::drawBehindText(QPainter *painter, const QRectF &dirty)
{
    TextView::drawBehindText(painter, dirty);
    m_tagHighlight->draw(painter);
    m_colourSwatches->draw(painter);
}

void SMLTextView::drawOverText(QPainter *painter, const QRectF &dirty)
{
    TextView::drawOverText(painter, dirty);
    m_folding->draw(painter);
    const qreal x = std::floor(m_pageGuideX - scrollPosition().left);
    const QRectF guide(x, 0, 1, viewport()->height());
    if (!m_showsPageGuide || !guide.intersects(dirty))
        return;
    QColor color = textColor();
    color.setAlphaF(color.alphaF() * pageGuideAlpha);
    painter->fillRect(guide, color);
}

void SMLTextView::runPrintPanel(const QString &title)
{
    platform::runTextPrintPanel(
        this, title, [this](TextRange range) { m_syntaxColouring->recolourRange(range); });
}
