#pragma once

#include "platform/text/TextNavigator.h"
#include "platform/text/TextScroller.h"
#include "platform/text/TextUndo.h"
#include "platform/text/view/TextViewDelegate.h"
#include "platform/text/view/TextZoom.h"
#include <QAbstractScrollArea>
#include <QPointer>
#include <QTimer>
#include <span>
#include <unordered_map>

class QMenu;
class QMimeData;

namespace platform {

class FindIndicator;
class TextComposition;

enum class TextGranularity { Character, Word, Paragraph };

/// What the mouse does while its left button is down.
struct TextMouseSelection
{
    TextGranularity granularity = TextGranularity::Character;
    TextRange start; ///< What was clicked: stays selected.
    std::vector<TextSelection> others;
    QPointF pressedAt;
    QPointF lastAt;
    bool mayDragText = false;
};

/// A view of plain text that scales: scrolls by line, lays out and paints only what is seen, and
/// changes no byte that the user did not change. Typing, input methods, several selections, mouse,
/// clipboard, dragging of text, undo, zoom, printing and accessibility as people know them from
/// their desktop. Rows and lines are zero-based, indexes UTF-16 units, pixels are the widget's.
///
/// Every change by the user goes the same road: the delegate is asked (`shouldChangeText`), the
/// storage is edited, the delegate is told (`didChangeText`). A refusal leaves text and selection
/// as they were. Edits of the storage by others move the selections along; those that were not
/// recorded in the undo history clear it.
///
/// Owned by its parent widget; the main thread.
class TextView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// Takes the layout manager over; an heir may bring its own kind.
    explicit TextView(std::unique_ptr<LayoutManager> layoutManager, QWidget *parent = nullptr);
    ~TextView() override;

    LayoutManager *layoutManager() const { return m_layoutManager.get(); }
    TextStorage *textStorage() const { return m_layoutManager->textStorage(); }
    TextUndo &undoHistory() const; ///< That of the storage.

    TextViewDelegate *delegate() const { return m_delegate; }
    void setDelegate(TextViewDelegate *delegate) { m_delegate = delegate; } ///< Borrowed.

    // The text.
    QString string() const { return textStorage()->string(); } ///< A copy of the whole.
    bool isEditable() const { return m_isEditable; }
    void setEditable(bool editable); ///< Else text can be selected and copied.

    /// Another text put in place of the old one: one step of undo, never one with typing; only
    /// what differs is replaced, so selections and scrolling stay with the text around them. Tells
    /// and asks no delegate.
    void reloadString(const QString &string);

    // Changes. Ranges ascending, apart; one replacement for each.
    /// False if refused or not editable; also when the delegate has changed the text instead.
    bool shouldChangeText(const std::vector<TextRange> &ranges, const QStringList &replacements);
    void didChangeText();
    /// All of it: asks, records for undo, edits, sets carets behind what was put in or the
    /// selections given, brings the main one in sight, tells. False if refused.
    bool changeText(const std::vector<TextRange> &ranges, const QStringList &replacements,
                    TextUndo::Kind kind = TextUndo::Kind::Other,
                    const std::optional<TextSelections> &selectionsAfter = std::nullopt);
    bool changeText(TextRange range, const QString &replacement);

    // Selection.
    const TextSelections &selections() const { return m_selections; }
    TextRange selectedRange() const { return m_selections.main().range(); }
    std::vector<TextRange> selectedRanges() const { return m_selections.ranges(); }
    QString selectedText() const; ///< Several ones parted by line feeds.
    void setSelectedRange(TextRange range);
    void setSelectedRanges(const std::vector<TextRange> &ranges); ///< Not empty.
    /// The way of all of them; what lies beyond the text is brought into it. Hidden lines that one
    /// of them starts or ends in are shown.
    virtual void setSelections(const TextSelections &selections);
    void scrollRangeToVisible(TextRange range);

    // What keys and menus do. Each acts on all selections; each can be overridden.
    virtual void insertText(const QString &text); ///< In place of the selections, as if typed.
    virtual void insertNewline();                 ///< As the text's first line ends.
    virtual void insertTab();
    virtual void insertBacktab() {}
    virtual void complete(); ///< Emits `completionWasAskedFor`.

public Q_SLOTS:
    virtual void cut();
    virtual void copy();
    virtual void paste();
    virtual void selectAll();
    void undo();
    void redo();

public:
    void moveCarets(TextMovement movement, TextMode mode);
    /// The selections, or from each caret to where the movement goes.
    void deleteText(TextMovement movement);
    void deleteLines(); ///< Those that are selected in part, whole.
    void addCaretAbove();
    void addCaretBelow();
    void selectNextOccurrence(); ///< The word at the caret first, then its next occurrence.
    void selectOne();            ///< Back to the main selection alone; it alone: to its caret.
    void transpose();            ///< The characters at both sides of each caret.
    void capitalizeWord();       ///< Also the selected words.
    void zoom(int steps);        ///< Of one point each; 0: back to the font that was set.

    // Geometry, in the viewport's coordinates.
    static constexpr qreal textInset = 5; ///< Between the viewport's edges and the text, in pixels.
    const ScrollPosition &scrollPosition() const { return m_scroller.position(); }
    void setScrollPosition(const ScrollPosition &position); ///< Is brought into bounds.
    void scrollByPixels(QPointF delta);
    /// All its rows, the viewport's width; null out of sight and for a hidden line.
    QRectF rectOfLine(qsizetype line);
    QRectF caretRect(qsizetype index, TextAffinity affinity = TextAffinity::Downstream);
    std::vector<QRectF> rectsOf(TextRange range); ///< What of it is in sight.
    qsizetype indexAt(QPointF point,
                      TextAffinity *affinity = nullptr); ///< The nearest for a caret.
    TextRange clusterAt(QPointF point); ///< The character under the point, or empty.
    qsizetype lineAtY(qreal y) const { return m_scroller.lineAtY(y); } ///< The nearest in sight.
    qsizetype lineAfter(qsizetype line) const; ///< The next that is not hidden.

    // Colours. Those that are not set are the palette's.
    void setTextColor(const QColor &color);
    QColor textColor() const;
    void setBackgroundColor(const QColor &color);
    QColor backgroundColor() const;
    void setInsertionPointColor(const QColor &color);
    QColor insertionPointColor() const;
    QColor selectionColor() const; ///< Soft, so that coloured text can be read.

    /// A widget at the left of the text that scrolls with it (line numbers); taken over. Is asked
    /// for its width by `sizeHint`.
    void setRuler(QWidget *ruler);
    QWidget *ruler() const { return m_ruler; }
    void updateRulerWidth(); ///< Its size hint has changed.

    void showFindIndicatorForRange(TextRange range); ///< A short flash that draws the eye.

    /// The word before the caret, or notFound, and what may stand in its place.
    virtual TextRange rangeForUserCompletion() const;
    virtual QStringList completionsForPartialWord(TextRange) { return {}; }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    void selectionDidChange();
    void scrollPositionDidChange();
    void frameDidChange(); ///< The viewport's size.
    void completionWasAskedFor();

protected:
    // For heirs. Called in this order for each frame.
    virtual void viewWillDraw(const QRectF & /*dirty*/) {} ///< Before anything is painted.
    /// About to be painted: whole lines, but of very long ones what is in sight.
    virtual void willDrawText(TextRange /*characters*/) {}
    virtual void drawViewBackground(QPainter *painter, const QRectF &dirty);
    virtual void drawBehindText(QPainter *, const QRectF & /*dirty*/) {} ///< On lines' backgrounds.
    virtual void drawOverText(QPainter *, const QRectF & /*dirty*/) {}

    /// What a click selects; `proposed` is the platform's answer.
    virtual TextRange selectionRange(TextRange proposed, qsizetype clicked,
                                     TextGranularity granularity);
    virtual void fillContextMenu(QMenu *menu); ///< Appends the usual entries.
    virtual void didPaste() {}

    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    // The road of changes (TextView.cpp).
    void takeTextStorage();
    void charactersReplaced(TextRange range, qsizetype changeInLength);
    void textDidChange(TextRange range);
    void layoutDidChange();
    void carryOut(const std::vector<TextUndo::Change> &changes, const TextSelections &after);
    void walkHistory(TextUndo::Direction direction);

    // What keys and menus do (TextViewEditing.cpp).
    void showEnds(TextRange range);
    bool replaceSelections(const QString &text, TextUndo::Kind kind = TextUndo::Kind::Other);
    void addCaret(TextMovement movement);

    // Geometry and scrolling (TextViewScrolling.cpp).
    qreal heightOfLine(qsizetype line) const;
    QPointF originOfLine(qreal top) const;
    void scrollToCaret();
    bool isCaretInSight();
    void scrollPositionMayHaveChanged(); ///< Tells of it, and sets the bars.
    void revealInLine(qsizetype line, const QRectF &rect);
    void forgetWidthOf(TextRange range);
    void noteWidths();
    void updateScrollBars();
    int barValue(const ScrollPosition &position) const;
    int barStepsOfLine() const;
    void verticalBarActed(int action);
    void placeRuler();
    qsizetype rowsOfPage() const;
    TextNavigator navigator() const { return TextNavigator(*m_layoutManager, rowsOfPage()); }

    // Painting (TextViewPainting.cpp).
    /// Calls `function(line, top)` for the lines that reach into the stretch between two heights.
    template <class Function>
    void forEachLine(qreal from, qreal to, Function function);
    TextRange charactersIn(qsizetype line, const QRectF &rect);
    void announceText(const QRectF &dirty);
    void drawLineBackgrounds(QPainter *painter, const QRegion &region);
    void drawSelections(QPainter *painter, const QRectF &dirty);
    void drawLines(QPainter *painter, const QRegion &region);
    void drawCarets(QPainter *painter);
    QRectF caretOf(const TextSelection &selection); ///< As it is painted.
    TextRange linesInSight() const;
    std::span<const TextSelection> selectionsInSight() const;
    void updateCarets();
    void updateLines(TextRange range);
    void updateFrom(qreal top); ///< All below.
    void updateSelections(const TextSelections &before);
    void updateSelectionsInSight();
    void restartBlinking();

    // Mouse (TextViewMouse.cpp).
    void beginSelecting(const QMouseEvent &event, TextGranularity granularity);
    void selectTo(QPointF point);
    TextRange rangeAt(QPointF point, TextGranularity granularity);
    bool isSelectedAt(QPointF point);
    void autoscroll();

    // Input methods (TextViewInput.cpp).
    TextRange surroundingText() const;

    // Dragging and clipboard (TextViewClipboard.cpp).
    void startDrag();
    void dropSelected(qsizetype index, bool isMove);
    void setDropIndex(qsizetype index);
    void insertMimeData(const QMimeData &data);
    void putOnPrimarySelection();
    void pastePrimarySelection(QPointF point);

    std::unique_ptr<LayoutManager> m_layoutManager;
    TextScroller m_scroller;
    TextSelections m_selections;
    TextViewDelegate *m_delegate = nullptr;
    bool m_isEditable = true;
    bool m_isChanging = false;  ///< The text, by the view itself.
    bool m_isReplacing = false; ///< The same, and selections are set after it.

    bool m_selectionMoved = false;                       ///< By edits, and nobody has been told.
    qsizetype m_lineCount = 1;                           ///< As shown.
    ScrollPosition m_shownPosition;                      ///< As told last.
    std::unordered_map<qsizetype, qreal> m_shownHeights; ///< Of lines in sight, as painted last.
    qsizetype m_shownTop = 0; ///< The index at the top edge, as painted last.
    QRegion m_painted;        ///< While painting.
    bool m_updatesBars = false;
    bool m_widestMayBeGone = false; ///< By the edit that goes on.

    QColor m_textColor;
    QColor m_backgroundColor;
    QColor m_insertionPointColor;
    QPointer<QWidget> m_ruler;
    TextZoom m_zoom;
    QPointF m_wheelRest;

    QTimer m_blinkTimer;
    bool m_showsCarets = false;
    QTimer m_primaryTimer;
    QTimer m_autoscrollTimer;
    std::unique_ptr<TextComposition> m_composition;
    QPointer<FindIndicator> m_findIndicator;

    std::optional<TextMouseSelection> m_mouse;
    QElapsedTimer m_sinceDoubleClick;
    QPointF m_doubleClickAt;
    bool m_dragsSelection = false; ///< From here.
    bool m_droppedHere = false;
    qsizetype m_dropIndex = NotFound;
};

} // namespace platform
