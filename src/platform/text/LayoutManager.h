#pragma once

#include "platform/text/HiddenLines.h"
#include "platform/text/LineLayout.h"
#include "platform/text/TemporaryAttributes.h"
#include "platform/text/TextStorage.h"
#include <functional>
#include <map>
#include <memory>

namespace platform {

/// Stands between a text and those who show it: keeps the temporary attributes of the text in step
/// with it, and lays out those lines that somebody looks at, keeping the layouts of the last few
/// hundred. Lines that nobody looks at cost nothing, so the height of the whole text is not known:
/// views scroll by line. The storage is shared with whoever else edits or shows it.
///
/// Until a line is asked for nothing here needs a screen. Main thread.
class LayoutManager : public QObject, private LineFormats
{
    Q_OBJECT

public:
    explicit LayoutManager(std::shared_ptr<TextStorage> storage = std::make_shared<TextStorage>(),
                           QObject *parent = nullptr);
    ~LayoutManager() override;

    TextStorage *textStorage() const { return m_storage.get(); }
    const std::shared_ptr<TextStorage> &sharedTextStorage() const { return m_storage; }

    /// Another text, without temporary attributes; `textStorageDidChange` tells of it.
    void replaceTextStorage(std::shared_ptr<TextStorage> storage);

    // Temporary attributes: painted on the text, never in it.
    const TemporaryAttributes &temporaryAttributes() const { return m_attributes; }
    void setTemporaryAttributes(const TextAttributes &attributes, TextRange range);
    void addTemporaryAttributes(const TextAttributes &attributes, TextRange range);
    void removeTemporaryAttributes(TextAttributeKeys keys, TextRange range);

    /// Many changes within a range at the cost of one notification.
    void changeTemporaryAttributes(TextRange range,
                                   const std::function<void(TemporaryAttributes &)> &change);

    // How lines are laid out. Setting what already is costs nothing.
    const LineStyle &style() const { return m_style; }
    /// Its characters stand on whole pixels: columns are even, and a page is drawn in half the
    /// time.
    void setFont(const QFont &font);
    void setTabInterval(qreal pixels);
    void setWrapWidth(qreal pixels);          ///< 0: lines do not wrap.
    void setLineHeightMultiple(qreal factor); ///< 0 counts as 1; 10 at the most.
    qreal lineHeightMultiple() const { return m_lineHeightMultiple; }

    /// The line (zero-based, existing), laid out as far as it was looked at. Borrowed until the
    /// next call or edit.
    LineLayout &line(qsizetype line);

    /// Pixels; 0 for a hidden line. Lays the line out if need be, part of it by estimate if it is
    /// long.
    qreal heightOfLine(qsizetype line);

    // Lines that take no room, until they are edited; neither the first nor the last line can be.
    const HiddenLines &hiddenLines() const { return m_hiddenLines; }
    void hideLines(qsizetype first, qsizetype last);
    void showLine(qsizetype line); ///< With those that were hidden along with it.
    void showAllLines();

    // What of the line lies in `clip`, its left top corner at `origin`: first what is behind it.
    virtual void drawLineBackground(QPainter *painter, qsizetype line, QPointF origin,
                                    const QRectF &clip);
    virtual void drawLine(QPainter *painter, qsizetype line, QPointF origin, const QRectF &clip);

Q_SIGNALS:
    void textStorageDidChange(); ///< By `replaceTextStorage`.

    // What the storage tells, passed on once attributes and layouts are in step with it: observers
    // of these need not care which storage it is.
    void charactersReplaced(platform::TextRange range, qsizetype changeInLength);
    void didProcessEditing(platform::TextRange range, qsizetype changeInLength);

    void layoutDidChange(); ///< Font, tabs, wrapping, hidden lines: everything.
    void displayDidChange(platform::TextRange range); ///< Attributes there have changed.

private:
    void observeTextStorage();
    void textDidChange(TextRange range, qsizetype changeInLength);
    bool replaceInLine(qsizetype line, TextRange range, qsizetype changeInLength);
    void styleDidChange();
    void forgetFarLines(qsizetype line);

    std::vector<Run> runs(TextRange range) const override;

    std::shared_ptr<TextStorage> m_storage;
    TemporaryAttributes m_attributes;
    LineStyle m_style;
    qreal m_lineHeightMultiple = 0;
    std::map<qsizetype, std::unique_ptr<LineLayout>> m_lines; ///< Some, by number.
    qsizetype m_lineCount = 1;                                ///< That the numbers are by.
    HiddenLines m_hiddenLines;
    bool m_hidesLess = false; ///< By an edit that nobody has been told of.
};

} // namespace platform
