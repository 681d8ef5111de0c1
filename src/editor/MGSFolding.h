#pragma once

#include "editor/MGSFoldRegions.h"
#include <QRectF>
#include <QTimer>

class QPainter;
class SMLTextView;

/// Folds the elements and comments of HTML away: the lines between the first and the last one are
/// hidden, and a "…" behind the first one stands for them. The text does not change; a caret or an
/// edit within brings the lines back. What can be folded is looked for in the lines in sight, when
/// typing rests, so that no key waits for it.
///
/// Belongs to the text view, which borrows itself to it. Lines are zero-based. Main thread.
class MGSFolding : public QObject
{
    Q_OBJECT

public:
    explicit MGSFolding(SMLTextView *view);

    bool isEnabled() const { return m_isEnabled; } ///< Not at first.
    void setEnabled(bool enabled);                 ///< Not: unfolds everything.

    bool canFold(qsizetype line) const { return m_regions.contains(line) || isFolded(line); }
    bool isFolded(qsizetype line) const; ///< Stands for lines below it.

    /// Folds what begins on the line, or unfolds it. Carets that would be hidden go to its end.
    /// False if there is nothing to fold.
    bool toggle(qsizetype line);

    void draw(QPainter *painter);                ///< Over the text: the "…" of folded lines.
    qsizetype foldedLineAt(QPointF point) const; ///< Whose "…" is there, or NotFound.

Q_SIGNALS:
    void didChange(); ///< What can be folded in sight, or whether it can.

private:
    void takeTextStorage();
    void textDidChange(platform::TextRange range);
    void lookSoon();
    void look();
    void moveCaretsOutOf(qsizetype first, qsizetype last);
    std::vector<qsizetype> foldedLinesInSight() const;
    QRectF rectOfEllipsis(qsizetype line) const;

    SMLTextView *m_view;
    bool m_isEnabled = false;
    QTimer m_rest;
    MGSFoldRegions m_regions; ///< As seen last.
    qsizetype m_lineCount = 1;
};
