#include "platform/text/TextPrinter.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include <QGuiApplication>
#include <QScreen>

namespace platform {

namespace {

constexpr qreal marginRows = 2; // for the title above and the number below

QColor onPaper(const QColor &color)
{
    float hue = 0;
    float saturation = 0;
    float lightness = 0;
    color.getHslF(&hue, &saturation, &lightness);
    return lightness <= 0.5F ? color : QColor::fromHslF(hue, saturation, 1 - lightness);
}

TextAttributes onPaper(const TextAttributes &attributes)
{
    const QVariant color = attributes.value(TextAttribute::ForegroundColor);
    const QVariant underline = attributes.value(TextAttribute::UnderlineStyle);
    return {{TextAttribute::ForegroundColor,
             color.isValid() ? QVariant(onPaper(color.value<QColor>())) : QVariant()},
            {TextAttribute::UnderlineStyle, underline}};
}

} // namespace

TextPrinter::Outcome TextPrinter::print(QPagedPaintDevice *device, Error *error)
{
    m_device = device;
    m_page = 0;
    m_hasPage = false;
    Outcome outcome = Outcome::Failed;
    if (m_painter.begin(device)) {
        outcome = printLines();
        if (!m_painter.end())
            outcome = Outcome::Failed;
        m_paper.reset();
    }
    if (outcome == Outcome::Failed)
        fail(error, QStringLiteral("platform.print"), 0,
             localized("The printer could not be used."));
    return outcome;
}

TextPrinter::Outcome TextPrinter::printLines()
{
    preparePaper();
    const qsizetype lines = m_paper->textStorage()->lineCount();
    Outcome outcome = beginPage() ? Outcome::Printed : Outcome::Failed;
    for (qsizetype line = 0; line < lines && outcome == Outcome::Printed; ++line)
        outcome = printLine(line);
    return outcome;
}

void TextPrinter::preparePaper()
{
    const qreal scale =
        m_device->logicalDpiX() / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    m_painter.scale(scale, scale);
    m_size = QSizeF(m_device->width(), m_device->height()) / scale;
    QFont font = m_source->style().font;
    font.setHintingPreference(QFont::PreferNoHinting); // the screen's pixels do not matter here
    m_paper = std::make_unique<LayoutManager>(m_source->sharedTextStorage());
    m_paper->setFont(font);
    m_paper->setTabInterval(m_source->style().tabInterval);
    m_paper->setLineHeightMultiple(m_source->lineHeightMultiple());
    m_paper->setWrapWidth(m_size.width());
}

TextPrinter::Outcome TextPrinter::printLine(qsizetype line)
{
    const TextRange contents = m_paper->textStorage()->lineContents(line);
    const qreal rowHeight = m_paper->style().rowHeight;
    const auto room = qMax<qsizetype>(1, qsizetype((bottom() - top()) / rowHeight));
    if (m_willPrint)
        m_willPrint(contents);
    copyColors(contents);
    LineLayout &layout = m_paper->line(line);
    for (qsizetype row = 0; row < layout.rowCount();) {
        if (m_row == room && !beginPage())
            return Outcome::Failed;
        qsizetype count = 0; // rows are known when they have been asked for
        for (; count < room - m_row && row + count < layout.rowCount(); ++count)
            layout.rowRange(row + count);
        if (isWanted())
            drawRows(line, row, count);
        row += count;
        m_row += count;
        const qsizetype done = contents.location + layout.rowRange(row - 1).end();
        if (m_progress &&
            !m_progress(double(done + 1) / double(m_paper->textStorage()->length() + 1)))
            return Outcome::Cancelled;
    }
    m_paper->setTemporaryAttributes({}, contents);
    return Outcome::Printed;
}

void TextPrinter::copyColors(TextRange contents)
{
    m_paper->changeTemporaryAttributes(contents, [&](TemporaryAttributes &all) {
        m_source->temporaryAttributes().forEachRun(
            contents, [&](TextRange range, const TextAttributes &attributes) {
                all.set(onPaper(attributes), range);
            });
    });
}

void TextPrinter::drawRows(qsizetype line, qsizetype row, qsizetype count)
{
    const qreal rowHeight = m_paper->style().rowHeight;
    const qreal y = top() + qreal(m_row) * rowHeight;
    const QRectF clip(0, y, m_size.width(), qreal(count) * rowHeight);
    m_painter.setClipRect(clip);
    m_paper->drawLine(&m_painter, line, {0, y - qreal(row) * rowHeight}, clip);
    m_painter.setClipping(false);
}

qreal TextPrinter::top() const
{
    return marginRows * m_paper->style().rowHeight;
}

qreal TextPrinter::bottom() const
{
    return m_size.height() - top();
}

bool TextPrinter::isWanted() const
{
    const QPageRanges wanted = m_device->pageRanges();
    return wanted.isEmpty() || wanted.contains(m_page);
}

bool TextPrinter::beginPage()
{
    ++m_page;
    m_row = 0;
    if (!isWanted())
        return true;
    if (m_hasPage && !m_device->newPage())
        return false;
    m_hasPage = true;
    const QRectF page({}, m_size);
    m_painter.setPen(Qt::black);
    m_painter.setFont(m_paper->style().font);
    m_painter.drawText(page, Qt::AlignTop | Qt::AlignHCenter | Qt::TextSingleLine, m_title);
    m_painter.drawText(page, Qt::AlignBottom | Qt::AlignHCenter,
                       format(localized("Page %ld"), qsizetype(m_page)));
    return true;
}

} // namespace platform
