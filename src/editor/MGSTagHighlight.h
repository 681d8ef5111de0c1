#pragma once

#include "editor/MGSTagPartner.h"
#include <QRectF>
#include <QTimer>

class QPainter;
class SMLTextView;

/// Shows which tags belong together: puts a faint ground under the names of the tag at the caret
/// and of its partner. In HTML only, with one caret and nothing selected. It looks when the caret
/// has come to rest, so that no key waits for it.
///
/// Belongs to the text view, which borrows itself to it and calls `draw`. Main thread.
class MGSTagHighlight : public QObject
{
    Q_OBJECT

public:
    explicit MGSTagHighlight(SMLTextView *view);

    bool isEnabled() const { return m_isEnabled; } ///< Not at first.
    void setEnabled(bool enabled);

    void draw(QPainter *painter); ///< Behind the text, in the viewport's coordinates.

private:
    void waitForRest();
    void textDidChange();
    void look();
    std::optional<MGSTagPair> pairAtCaret() const;
    std::vector<QRectF> rects();
    void update(const std::vector<QRectF> &rects);

    SMLTextView *m_view;
    bool m_isEnabled = false;
    QTimer m_rest;
    std::optional<MGSTagPair> m_pair;
    std::vector<QRectF> m_drawn; ///< As painted last.
};
