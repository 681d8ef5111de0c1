#pragma once

#include "editor/MGSFragariaTextViewDelegate.h"
#include "editor/SMLEditingSettings.h"
#include "editor/SMLLayoutManager.h"
#include "platform/text/view/TextView.h"
#include <QMimeData>
#include <QPointer>

class MGSColourSwatches;
class MGSExtraInterfaceController;
class MGSFolding;
class MGSSyntaxDefinition;
class MGSTagHighlight;
class SMLSyntaxColouring;
struct MGSColourValue;

namespace platform {
class CompletionList;
}

/// The text view in which the user writes code: colours what is about to be seen, indents, closes
/// and matches brackets, completes words, shows a page guide and the current line, wraps in three
/// ways, and carries the commands on selected lines. Where a behaviour speaks of the caret and
/// there are several, each has its own.
///
/// Every change of the text asks the delegate first; a refusal leaves text and selection as they
/// were. A command that finds nothing to do beeps. One command is one step of undo.
///
/// Owned by its parent widget (the editor view); the main thread.
class SMLTextView : public platform::TextView, public SMLEditingSettings
{
    Q_OBJECT

public:
    explicit SMLTextView(QWidget *parent = nullptr);
    ~SMLTextView() override;

    SMLLayoutManager *layoutManager() const;
    SMLSyntaxColouring *syntaxColouring() const { return m_syntaxColouring.get(); }
    MGSExtraInterfaceController *interfaceController() const { return m_interfaceController.get(); }

    // What is seen. Columns and widths are in characters.
    bool isSyntaxColoured() const { return m_syntaxColoured; }
    void setSyntaxColoured(bool coloured);
    bool lineWrap() const { return m_lineWrap; }
    void setLineWrap(bool wraps);
    bool lineWrapsAtPageGuide() const { return m_lineWrapsAtPageGuide; }
    void setLineWrapsAtPageGuide(bool wraps);
    bool showsPageGuide() const { return m_showsPageGuide; }
    void setShowsPageGuide(bool shows);
    int pageGuideColumn() const { return m_pageGuideColumn; }
    void setPageGuideColumn(int column); ///< 0 to 10,000; else the nearest.
    bool highlightsCurrentLine() const { return m_highlightsCurrentLine; }
    void setHighlightsCurrentLine(bool highlights);
    QColor currentLineHighlightColour() const { return m_currentLineHighlightColour; }
    void setCurrentLineHighlightColour(const QColor &colour);
    bool showsTagPartners() const; ///< Of the tag at the caret (MGSTagHighlight.h); off at first.
    void setShowsTagPartners(bool shows);
    bool showsColourSwatches() const; ///< Under colour values (MGSColourSwatches.h); off at first.
    void setShowsColourSwatches(bool shows);
    MGSFolding *folding() const { return m_folding.get(); }
    bool foldsLines() const; ///< By marks in the gutter (MGSFolding.h); off at first.
    void setFoldsLines(bool folds);
    int tabWidth() const { return m_tabWidth; }
    void setTabWidth(int width); ///< 0 to 100; else the nearest.
    bool showsInvisibleCharacters() const { return layoutManager()->showsInvisibleCharacters(); }
    void setShowsInvisibleCharacters(bool s) { layoutManager()->setShowsInvisibleCharacters(s); }
    QColor textInvisibleCharactersColour() const;
    void setTextInvisibleCharactersColour(const QColor &colour);
    QFont textFont() const;
    void setTextFont(const QFont &font);
    double lineHeightMultiple() const { return layoutManager()->lineHeightMultiple(); }
    void setLineHeightMultiple(double multiple)
    {
        layoutManager()->setLineHeightMultiple(multiple);
    }
    void setTextColor(const QColor &colour);

    /// Text has one look and runs from left to right, whatever is asked.
    void setRichText(bool /*isRich*/) {}
    void setLayoutOrientation(Qt::Orientation /*orientation*/) {}

    /// The text with its syntax colours; colours all of it first.
    MGSAttributedString attributedStringWithTemporaryAttributesApplied();

    /// Asks for a printer and prints the text in its colours, under the title; returns when done.
    void runPrintPanel(const QString &title);

    // Rows and columns, zero-based; what does not exist is NotFound. Tabs count by `tabWidth`. The
    // pointers may be null.
    void getRowAndColumn(qsizetype *row, qsizetype *column, qsizetype forCharacterIndex) const;
    void getRowAndIndexInRow(qsizetype *row, qsizetype *index, qsizetype forCharacterIndex) const;
    qsizetype characterIndexAtColumn(qsizetype column, qsizetype withinRow) const;
    qsizetype characterIndexAtIndex(qsizetype index, qsizetype withinRow) const;
    qsizetype realColumnOfCharacter(qsizetype index) const;
    qsizetype findBeginningOfNestedBlock(qsizetype index, char16_t openedByCharacter,
                                         char16_t closedByCharacter) const;
    qsizetype findEndOfNestedBlock(qsizetype index, char16_t openedByCharacter,
                                   char16_t closedByCharacter) const;

    void insertText(const QString &text) override;
    void insertNewline() override;
    void insertTab() override;
    void insertBacktab() override;
    void complete() override;
    void setSelections(const platform::TextSelections &selections) override;
    platform::TextRange rangeForUserCompletion() const override;
    QStringList completionsForPartialWord(platform::TextRange range) override;

    void performEntabWithNumberOfSpaces(qsizetype spaces);
    void performDetabWithNumberOfSpaces(qsizetype spaces);
    /// One-based; beeps at a line that does not exist. Selects it if asked, with its line end.
    void performGoToLine(qsizetype line, bool setSelected);
    void performChangeColour(const MGSColourValue &value, const QColor &colour);

    /// Whether the item's command has something to act on; an item is what `zq::action` knows.
    Q_INVOKABLE bool validateMenuItem(QObject *item);

public Q_SLOTS:
    void shiftLeft(QObject *sender = nullptr);
    void shiftRight(QObject *sender = nullptr);
    void removeNeedlessWhitespace(QObject *sender = nullptr);
    void lowercaseCharacters(QObject *sender = nullptr);
    void uppercaseCharacters(QObject *sender = nullptr);
    void capitalizeWord(QObject *sender = nullptr);
    void entab(QObject *sender = nullptr);
    void detab(QObject *sender = nullptr);
    void removeLineEndings(QObject *sender = nullptr);
    void goToLine(QObject *sender = nullptr);
    void closeTag(QObject *sender = nullptr);
    void toggleFold(QObject *sender = nullptr);   ///< Of what begins on the caret's line.
    void changeColour(QObject *sender = nullptr); ///< Of the value at the caret, by a dialog.
    void prepareForXML(QObject *sender = nullptr);
    void commentOrUncomment(QObject *sender = nullptr);
    void transpose(QObject *sender = nullptr);

Q_SIGNALS:
    void didBeep(); ///< With each beep: a command found nothing to do.

protected:
    void viewWillDraw(const QRectF &dirty) override;
    void willDrawText(platform::TextRange characters) override;
    void drawViewBackground(QPainter *painter, const QRectF &dirty) override;
    void drawBehindText(QPainter *painter, const QRectF &dirty) override;
    void drawOverText(QPainter *painter, const QRectF &dirty) override;
    platform::TextRange selectionRange(platform::TextRange proposed, qsizetype clicked,
                                       platform::TextGranularity granularity) override;
    void fillContextMenu(QMenu *menu) override;
    void didPaste() override;

    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    using TextEdit = std::function<QString(const QString &)>;

    void beep();

    // Drawing and wrapping.
    void configurePageGuide();
    void updateTabInterval();
    void updateLineWrap();
    void lineWrapDidChange();
    QRectF lineHighlightingRect();
    void updateCurrentLineRect();

    // Typing.
    void shiftBackToLastOpenBrace();
    void insertStringAfterInsertionPoint(const QString &string);
    void showBraceMatchingBrace(char16_t brace);
    QString textOfTab(qsizetype column) const;
    QStringList blanksOfTabs() const;
    QString indentAfterNewline(qsizetype caret) const;
    bool selectionStartsInIndentation() const;

    // Completion.
    void scheduleAutocomplete();
    void autocompleteWordsTimerDidFire();
    const QStringList &keywords();

    // Commands.
    std::optional<qsizetype> editSelections(const TextEdit &edit);
    void alignSelectionToLineBoundaries();
    void shiftSelectionBy(qsizetype width);

    // Dragging.
    void repeatDragMove(const QDragMoveEvent &event);
    void dragTimerDidFire();
    void hideDropMark();

    // The mouse.
    void modifiersDidChange(Qt::KeyboardModifiers modifiers);

    std::unique_ptr<SMLSyntaxColouring> m_syntaxColouring;
    std::unique_ptr<MGSExtraInterfaceController> m_interfaceController;
    std::unique_ptr<MGSTagHighlight> m_tagHighlight;
    std::unique_ptr<MGSColourSwatches> m_colourSwatches;
    std::unique_ptr<MGSFolding> m_folding;

    bool m_syntaxColoured = true;
    bool m_lineWrap = true;
    bool m_lineWrapsAtPageGuide = false;
    bool m_showsPageGuide = false;
    bool m_highlightsCurrentLine = false;
    int m_pageGuideColumn = 80;
    int m_tabWidth = 4;
    QColor m_currentLineHighlightColour = QColor::fromRgbF(0.96F, 0.96F, 0.71F);

    QFont m_textFont;
    qreal m_pageGuideX = 0;
    QRectF m_currentLineRect;
    QTimer m_autocompleteWordsTimer;
    platform::CompletionList *m_completionList; ///< Ours as a child.
    QStringList m_cachedKeywords;
    std::weak_ptr<const MGSSyntaxDefinition> m_syntaxDefOfCachedKeywords;

    QTimer m_dragTimer;
    std::unique_ptr<QDragMoveEvent> m_lastDragMove;
    QPointer<const QMimeData> m_draggedData; ///< Of that move; null when its drag is gone.

    bool m_isDoubleClick = false;
    bool m_lacksPartner = false; ///< The brace that was double-clicked.
    bool m_isDragging = false;   ///< Command and Option are down.
    std::optional<QPointF> m_startPoint;
    platform::ScrollPosition m_startOrigin;
};
