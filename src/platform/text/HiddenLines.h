#pragma once

#include <QtGlobal>
#include <vector>

namespace platform {

/// Lines of a text that take no room when it is shown, in stretches that were hidden together.
/// Lines are zero-based; the first and the last line of the text are always shown. Whoever owns it
/// keeps it in step with the text. Questions cost O(log stretches), and nothing while all is shown.
class HiddenLines
{
public:
    struct Stretch
    {
        qsizetype first;
        qsizetype last; ///< At least the first.
    };

    bool isEmpty() const { return m_stretches.empty(); }
    const std::vector<Stretch> &stretches() const { return m_stretches; } ///< Ascending, apart.
    qsizetype count() const { return m_count; }                           ///< Of lines.
    bool contains(qsizetype line) const { return !isEmpty() && find(line) != m_stretches.end(); }

    /// The line itself if it is shown, or the nearest one that is.
    qsizetype shownAtOrAfter(qsizetype line) const;
    qsizetype shownAtOrBefore(qsizetype line) const;

    /// Stretches that overlap become one.
    void hide(Stretch lines);
    /// The line and those hidden along with it. False if it is shown already.
    bool show(qsizetype line);
    void clear();

    /// The lines `first` to `last`, as they are now, were edited, and as many were added. Stretches
    /// that the edit touches are shown, also if it put lines between one and the line above it,
    /// which stands for it. True if there were such.
    bool textDidChange(qsizetype first, qsizetype last, qsizetype added);

private:
    std::vector<Stretch>::const_iterator find(qsizetype line) const;
    void countLines();

    std::vector<Stretch> m_stretches;
    qsizetype m_count = 0;
};

} // namespace platform
