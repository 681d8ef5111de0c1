#include "platform/text/TextPrinter.h"

#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QBuffer>
#include <QFontDatabase>
#include <QPdfWriter>

using namespace Qt::StringLiterals;
using platform::LayoutManager;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextPrinter;
using platform::TextRange;
using Outcome = platform::TextPrinter::Outcome;

namespace {

/// A device whose pages become pictures.
class PicturePages : private QBuffer, public QPdfWriter
{
public:
    PicturePages()
        : QPdfWriter(static_cast<QBuffer *>(this)), m_canvas(600, 400, QImage::Format_RGB32)
    {
        open(WriteOnly);
        m_canvas.fill(Qt::white);
    }

    bool newPage() override
    {
        if (m_done.size() + 1 == mostPages)
            return false;
        m_done << m_canvas.copy();
        m_canvas.fill(Qt::white);
        return true;
    }

    QList<QImage> pages() const { return m_done + QList<QImage>{m_canvas}; }

    qsizetype mostPages = 100;

protected:
    QPaintDevice *redirected(QPoint *) const override { return &m_canvas; }
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmWidth || metric == PdmHeight)
            return metric == PdmWidth ? m_canvas.width() : m_canvas.height();
        return metric == PdmDpiX || metric == PdmDpiY ? 96 : QPdfWriter::metric(metric);
    }

private:
    mutable QImage m_canvas;
    QList<QImage> m_done;
};

/// Rows of pixels of the page between its margins that have anything on them.
QList<int> inkedRows(const QImage &page, int rowHeight)
{
    QList<int> rows;
    for (int y = 2 * rowHeight; y < page.height() - 2 * rowHeight; ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (page.pixel(x, y) != 0xFFFFFFFF) {
                rows << (y - 2 * rowHeight) / rowHeight;
                break;
            }
        }
    }
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

bool hasColor(const QImage &page, const std::function<bool(QColor)> &isWanted)
{
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (isWanted(page.pixelColor(x, y)))
                return true;
        }
    }
    return false;
}

struct Printing
{
    explicit Printing(const QString &text)
    {
        layout.textStorage()->setString(text);
        layout.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        rowHeight = int(layout.style().rowHeight);
        room = (400 - 4 * rowHeight) / rowHeight;
    }

    LayoutManager layout;
    TextPrinter printer{&layout};
    PicturePages device;
    int rowHeight = 0;
    int room = 0; ///< Rows on a page.
};

} // namespace

TEST(TextPrinter, EachRowStandsOnOnePageOnce)
{
    QStringList lines;
    for (int i = 0; i < 50; ++i)
        lines << u"M"_s;
    Printing printing(lines.join(u'\n'));
    EXPECT_EQ(printing.printer.print(&printing.device), Outcome::Printed);
    const QList<QImage> pages = printing.device.pages();
    qsizetype rows = 0;
    for (const QImage &page : pages)
        rows += inkedRows(page, printing.rowHeight).size();
    EXPECT_EQ(rows, 50);
    EXPECT_EQ(pages.size(), (50 + printing.room - 1) / printing.room);
    EXPECT_EQ(printing.printer.pageCount(), pages.size());
}

TEST(TextPrinter, ALongLineGoesOverPages)
{
    Printing printing(QString(30'000, u'M') + u"\nM"_s);
    EXPECT_EQ(printing.printer.print(&printing.device), Outcome::Printed);
    const QList<QImage> pages = printing.device.pages();
    ASSERT_GT(pages.size(), 5);
    for (const QImage &page : pages.first(pages.size() - 1))
        EXPECT_EQ(inkedRows(page, printing.rowHeight).size(), printing.room);
    EXPECT_FALSE(inkedRows(pages.last(), printing.rowHeight).isEmpty());
}

TEST(TextPrinter, ColorsOfADarkScreenAreDarkOnPaper)
{
    Printing printing(u"MMMM"_s);
    const QRgb screen = 0xFF8FB4FF;
    printing.printer.setWillPrint([&](TextRange line) {
        printing.layout.setTemporaryAttributes(
            TextAttributes{{TextAttribute::ForegroundColor, QColor::fromRgb(screen)}}, line);
    });
    EXPECT_EQ(printing.printer.print(&printing.device), Outcome::Printed);
    const QImage page = printing.device.pages().first();
    EXPECT_TRUE(
        hasColor(page, [](QColor c) { return c.lightnessF() < 0.4F && c.blue() > c.red() + 60; }));
    const auto kept =
        printing.layout.temporaryAttributes().value(TextAttribute::ForegroundColor, 0);
    EXPECT_EQ(kept.value<QColor>().rgb(), screen);
}

TEST(TextPrinter, PrintsThePagesThatAreWanted)
{
    Printing printing(QString(200, u'\n').replace(u"\n"_s, u"M\n"_s));
    printing.device.setPageRanges(QPageRanges::fromString(u"2,4-5"_s));
    EXPECT_EQ(printing.printer.print(&printing.device), Outcome::Printed);
    EXPECT_EQ(printing.device.pages().size(), 3);
}

TEST(TextPrinter, CancellingAndADeviceThatFailsEndIt)
{
    Printing cancelled(QString(200, u'\n'));
    double last = 0;
    cancelled.printer.setProgress([&last](double done) {
        EXPECT_GT(done, last);
        return (last = done) < 0.5;
    });
    EXPECT_EQ(cancelled.printer.print(&cancelled.device), Outcome::Cancelled);
    EXPECT_LT(last, 0.6);

    Printing failing(QString(200, u'\n'));
    failing.device.mostPages = 2;
    platform::Error error;
    EXPECT_EQ(failing.printer.print(&failing.device, &error), Outcome::Failed);
    EXPECT_FALSE(error.description.isEmpty());
}
