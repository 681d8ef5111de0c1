#pragma once

#include "platform/text/view/TextView.h"
#include <QIcon>

class MGSBreakpointDelegate;
class MGSChangedLines;
class MGSFolding;
class MGSFragariaView;

/// The gutter: the text view's ruler, with the numbers of the lines in sight, a marker for each
/// line with a breakpoint, decorations (small pictures) on lines, and, if asked to, a bar beside
/// lines that have changed since the text was saved and marks that fold lines away. Rows are
/// zero-based; lines, as delegates and decorations count them, one-based. Places are pixels in the
/// gutter.
///
/// Owned by the text view, which it borrows; main thread.
class MGSLineNumberView : public QWidget
{
    Q_OBJECT

public:
    using Decorations = QMap<qsizetype, QIcon>; ///< By line.

    /// Becomes the text view's ruler. The editor view, handed to delegates, may be null.
    explicit MGSLineNumberView(platform::TextView *textView, MGSFragariaView *fragaria = nullptr);

    /// Borrowed. Throws `platform::Exception` "MGSBrokenBreakpointDelegate", here and at each
    /// reload, when it implements neither way to tell the breakpoints.
    MGSBreakpointDelegate *breakpointDelegate() const { return m_breakpointDelegate; }
    void setBreakpointDelegate(MGSBreakpointDelegate *delegate);
    void reloadBreakpointData();

    QFont font() const { return QWidget::font(); } ///< "Menlo" 11
    void setFont(const QFont &font);
    QColor textColor() const { return m_textColor; } ///< White 0.42
    void setTextColor(const QColor &colour);
    QColor backgroundColor() const { return m_backgroundColor; } ///< White 0.94
    void setBackgroundColor(const QColor &colour);
    double minimumWidth() const { return m_minimumWidth; }          ///< 40
    void setMinimumWidth(double pixels);                            ///< 400 at the most.
    int startingLineNumber() const { return m_startingLineNumber; } ///< Of the first line; 1
    void setStartingLineNumber(int number);
    bool showsLineNumbers() const { return m_showsLineNumbers; }
    void setShowsLineNumbers(bool shows);
    bool marksChangedLines() const { return m_marksChangedLines; } ///< See MGSChangedLines.h; off.
    void setMarksChangedLines(bool marks);
    void setFolding(MGSFolding *folding); ///< Of the text view, which owns it, or null.

    const Decorations &decorations() const { return m_decorations; }
    void setDecorations(const Decorations &decorations);
    /// Keeps their column where there are none, so that lines do not jump when they come; off.
    void setReservesDecorationColumn(bool reserves);
    /// The slot `NAME(QObject *gutter)` of the target (borrowed) for clicks on decorations.
    void setDecorationAction(QObject *target, const QByteArray &selector);

    /// Line of the last click on a line, row of the last one on a decoration.
    qsizetype selectedLineNumber() const { return m_selectedLineNumber; }

    qsizetype lineCount() const; ///< Of the text.
    double requiredThickness() const;
    double decorationColumnWidth() const;
    qsizetype lineNumberForLocation(qreal y) const;   ///< The nearest row.
    QRectF wholeLineRectForLine(qsizetype row) const; ///< Null out of sight.
    QRectF decorationRectOfLine(qsizetype row) const; ///< Null without one, and out of sight.
    QRectF foldRectOfLine(qsizetype row) const;       ///< The same.

    enum class HitKind { Outside = -1, Line = 0, Decoration = 1, Fold = 2 };
    struct Hit
    {
        qsizetype row = platform::NotFound;
        HitKind kind = HitKind::Outside;
        QRectF rect;
    };
    Hit testHit(QPointF point) const;

    /// Around a replacement of the text.
    void layoutManagerWillChangeTextStorage();
    void layoutManagerDidChangeTextStorage();

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    static constexpr qreal numberMargin = 5; ///< Pixels right of the numbers.

    void updateThickness();
    void updateDigitWidthCache();
    void textStorageDidProcessEditing(platform::TextRange range, qsizetype changeInLength);
    void updateLines(platform::TextRange range);
    void breakpointClickedOnLine(qsizetype line);
    QSizeF decorationSize(const QIcon &decoration, qreal lineHeight) const;
    qreal decorationInset(qreal lineHeight) const;
    qreal decorationHeight(qreal lineHeight) const;

    void drawBackground(QPainter *painter) const;
    void drawRow(QPainter *painter, qsizetype row, const QRectF &rect);
    qreal foldColumnWidth() const;
    void drawFoldMark(QPainter *painter, qsizetype row) const;
    void drawChangeBar(QPainter *painter, qsizetype row) const;
    void drawMarker(QPainter *painter, const QRectF &rect, const QColor &colour);
    void drawLineNumber(QPainter *painter, qsizetype row, const QRectF &rect,
                        const QColor &colour) const;

    platform::TextView *m_textView;
    MGSFragariaView *m_fragaria;
    MGSBreakpointDelegate *m_breakpointDelegate = nullptr;
    QColor m_textColor = QColor::fromRgbF(0.42F, 0.42F, 0.42F);
    QColor m_backgroundColor = QColor::fromRgbF(0.94F, 0.94F, 0.94F);
    double m_minimumWidth = 40;
    int m_startingLineNumber = 1;
    bool m_showsLineNumbers = true;
    bool m_marksChangedLines = false;
    QPointer<MGSChangedLines> m_changedLines; ///< Those of the text; null if they are not marked.
    QPointer<MGSFolding> m_folding;
    Decorations m_decorations;
    bool m_reservesDecorationColumn = false;
    QPointer<QObject> m_decorationActionTarget;
    QByteArray m_decorationActionSelector;
    qsizetype m_selectedLineNumber = platform::NotFound;

    Hit m_mouseDown; ///< Outside: no click is tracked.
    qreal m_maxDigitWidthOfCurrentFont = 0;
    qreal m_fontSize = 0;                     ///< Pixels.
    QMap<qsizetype, QColor> m_breakpointData; ///< By line.
    qsizetype m_lastLineCount = 1;
};
