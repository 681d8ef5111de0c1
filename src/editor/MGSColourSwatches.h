#pragma once

#include "editor/MGSColourValues.h"

class QPainter;
class SMLTextView;

/// Draws under each colour value in sight a bar of its colour, behind the text, which it neither
/// moves nor changes. Looks for values in what is about to be painted only, so a key costs no more
/// than its line.
///
/// Belongs to the text view, which calls it for each frame. Main thread.
class MGSColourSwatches
{
public:
    explicit MGSColourSwatches(SMLTextView *view) : m_view(view) {}

    bool isEnabled() const { return m_isEnabled; } ///< Not at first.
    void setEnabled(bool enabled);

    void beginFrame() { m_found.clear(); }
    void willDrawText(platform::TextRange characters);
    void draw(QPainter *painter);

    /// The value that the index lies in or at the edges of.
    std::optional<MGSColourValue> valueAt(qsizetype index) const;

private:
    std::vector<MGSColourValue> valuesIn(platform::TextRange characters) const;

    SMLTextView *m_view;
    bool m_isEnabled = false;
    std::vector<MGSColourValue> m_found; ///< In this frame.
};
