#pragma once

#include "platform/Error.h"
#include "platform/text/LayoutManager.h"
#include <QPagedPaintDevice>

namespace platform {

/// Puts a text on paper, wrapped and in its colours, with its title above and the page number below
/// each page. Colours that were chosen for a dark screen become dark themselves. Borrows the layout
/// manager whose text it is, and leaves it as it is. Main thread; nobody edits while it prints.
class TextPrinter
{
public:
    enum class Outcome { Printed, Cancelled, Failed };

    explicit TextPrinter(LayoutManager *source) : m_source(source) {}

    /// Above each page; null: nothing.
    void setTitle(const QString &title) { m_title = title; }

    /// Is called for each line before it is printed, so that it can get its colours.
    void setWillPrint(std::function<void(TextRange)> willPrint)
    {
        m_willPrint = std::move(willPrint);
    }

    /// Is called for each line and page, with how much is done, to 1; answers false to end it.
    void setProgress(std::function<bool(double)> progress) { m_progress = std::move(progress); }

    /// Prints those pages that the device's page ranges ask for, or all. What stands on a device
    /// after an end before the last page is the caller's to throw away.
    Outcome print(QPagedPaintDevice *device, Error *error = nullptr);

    int pageCount() const { return m_page; } ///< Pages that the last call came to.

private:
    void preparePaper();
    Outcome printLines();
    Outcome printLine(qsizetype line);
    void copyColors(TextRange contents);
    void drawRows(qsizetype line, qsizetype row, qsizetype count);
    qreal top() const;    ///< Of the text on a page.
    qreal bottom() const; ///< The same.
    bool isWanted() const;
    bool beginPage();

    LayoutManager *m_source;
    QString m_title;
    std::function<void(TextRange)> m_willPrint;
    std::function<bool(double)> m_progress;

    // While it prints.
    std::unique_ptr<LayoutManager> m_paper;
    QPagedPaintDevice *m_device = nullptr;
    QPainter m_painter;     ///< In pixels of the screen.
    QSizeF m_size;          ///< Of the page between its margins.
    int m_page = 0;         ///< From 1.
    bool m_hasPage = false; ///< One stands on the device.
    qsizetype m_row = 0;    ///< Of the page, where the next one goes.
};

} // namespace platform
