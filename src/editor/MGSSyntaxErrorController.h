#pragma once

#include "editor/MGSHighlightWriter.h"
#include "editor/MGSLineNumberView.h"

/// Shows what a client says is wrong in the text: the line's background, tool tips, zigzag
/// underlines, and badges in the gutter that open the messages when they are clicked. Finds no
/// errors itself.
///
/// Errors stay on the lines that the client gave, whatever is edited, until it gives others; what
/// is highlighted is settled again after each edit. Those on lines that do not exist are not shown;
/// a character beyond its line counts as the line's end, a length beyond the text reaches to the
/// text's end.
///
/// Owned by the editor view; borrows gutter and text view. Main thread.
class MGSSyntaxErrorController : public QObject
{
    Q_OBJECT

public:
    using Errors = QList<SMLSyntaxError>;

    explicit MGSSyntaxErrorController(QObject *parent);

    const Errors &syntaxErrors() const { return m_syntaxErrors; }
    void setSyntaxErrors(const QVariantList &errors); ///< What is no SMLSyntaxError is dropped.

    bool showsSyntaxErrors() const { return m_showsSyntaxErrors; }
    void setShowsSyntaxErrors(bool shows);
    bool showsIndividualErrors() const { return m_highlighter.look().underlinesEach; }
    void setShowsIndividualErrors(bool shows); ///< By zigzags.
    QColor defaultSyntaxErrorHighlightingColour() const { return m_highlighter.look().lineColour; }
    void setDefaultSyntaxErrorHighlightingColour(const QColor &colour);

    MGSLineNumberView *lineNumberView() const { return m_lineNumberView; }
    void setLineNumberView(MGSLineNumberView *gutter); ///< Takes the clicks on its decorations.
    platform::TextView *textView() const { return m_textView; }
    void setTextView(platform::TextView *textView);

    // What is not hidden. Lines are one-based.
    Errors nonHiddenErrors() const;
    QList<quint64> linesWithErrors() const; ///< Each once, ascending.
    qsizetype errorCountForLine(quint64 line) const { return errorsForLine(line).size(); }
    Errors errorsForLine(quint64 line) const;
    /// The first of those with the line's highest level.
    std::optional<SMLSyntaxError> errorForLine(quint64 line) const;

    /// The badges, of `errorForLine`, by line.
    MGSLineNumberView::Decorations errorDecorations() const;
    /// The same in one size, unless a side of it is 0 or less.
    MGSLineNumberView::Decorations errorDecorationsHavingSize(QSize size) const;

    /// Opens the line's messages beside a place of the view; nothing without messages.
    void showErrorsForLine(quint64 line, const QRectF &relativeToRect, QWidget *ofView);

public Q_SLOTS:
    void clickedError(QObject *gutter);

private:
    QMap<quint64, const SMLSyntaxError *> worstErrors() const; ///< By line; borrowed.
    void setLook(const MGSErrorHighlighter::Look &look);
    void updateSyntaxErrorsDisplay();
    void textStorageDidChange();
    void textStorageDidProcessEditing(platform::TextRange range, qsizetype changeInLength);
    void settleEdits();
    void highlightErrors();

    Errors m_syntaxErrors;
    bool m_showsSyntaxErrors = false;
    MGSErrorHighlighter m_highlighter;
    QPointer<MGSLineNumberView> m_lineNumberView;
    QPointer<platform::TextView> m_textView;
    MGSHighlightWriter m_writer;
};
