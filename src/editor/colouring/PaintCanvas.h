#pragma once

#include "editor/colouring/SyntaxPaint.h"
#include "platform/text/LayoutManager.h"
#include <optional>
#include <QHash>

/// Paints attributes on a range at once, as colouring does it: a run of one group that the range
/// touches loses its colour whole, but for commands and instructions, which lose only what lies in
/// the range. Everything with a group but those, in short, is all of its group or nothing.
void paintTemporaryAttributes(platform::LayoutManager &layoutManager,
                              const platform::TextAttributes &attributes,
                              platform::TextRange range);

/// The same for the many paints of one colouring: works on one byte a character, and hands what has
/// come out of it to the layout manager in the end. Covers the range that is being coloured, and
/// grows when runs reach beyond it; paint that lies apart from it goes to the layout manager at
/// once. Lives as long as one colouring, during which nobody edits the text. Borrows its arguments.
class PaintCanvas
{
public:
    /// The range starts without paint. Where `kept` is only a part of it, only that is handed over.
    PaintCanvas(platform::LayoutManager &layoutManager, const SyntaxPaints &paints,
                platform::TextRange range, platform::TextRange kept);

    /// The index may lie anywhere in the text.
    bool has(SyntaxPaint paint, qsizetype index) const;

    /// The next index from `index` on, below `limit`, that has the paint; else `limit`. All in the
    /// range of the canvas.
    qsizetype next(SyntaxPaint paint, qsizetype index, qsizetype limit) const;

    void paint(SyntaxPaint paint, platform::TextRange range);

    void flush();  ///< To the layout manager, with one notification, if anything has changed.
    void reload(); ///< After somebody else has painted.

private:
    using Byte = quint8; ///< Number of a colour and group; of ours those of SyntaxPaint.

    struct Colour
    {
        platform::TextAttributes attributes;
        Byte group; ///< Equal for equal groups; those of SyntaxPaint for ours.
    };

    Byte &at(qsizetype index) { return m_bytes[size_t(index - m_range.location)]; }
    const Byte &at(qsizetype index) const { return m_bytes[size_t(index - m_range.location)]; }
    Byte groupAt(qsizetype index) const { return m_colours[at(index)].group; }
    Byte groupBeside(qsizetype index) const;
    const platform::TemporaryAttributes &store() const { return m_manager.temporaryAttributes(); }

    bool isApart(platform::TextRange range) const;
    bool paintApart(SyntaxPaint paint, platform::TextRange range);
    void cover(platform::TextRange range);
    qsizetype wipeRun(qsizetype index, qsizetype limit);
    qsizetype endOfRun(qsizetype index, qsizetype limit) const;
    platform::TextRange effectiveRange(qsizetype index);
    void fill(platform::TextRange range, Byte byte);
    void load(platform::TextRange range);
    std::optional<Byte> knownByte(const platform::TextAttributes &attributes);
    Byte addColour(const QVariant &colour, const QVariant &group);
    platform::TextRange changedRange();

    platform::LayoutManager &m_manager;
    const platform::TextRange m_start; ///< The range at first.
    const platform::TextRange m_kept;
    platform::TextRange m_range;
    std::vector<Byte> m_bytes;
    std::vector<Colour> m_colours;
    bool m_hasForeign = false;                    ///< Colours besides ours.
    bool m_hasGroupless = false;                  ///< Colours without a group.
    QHash<const void *, Byte> m_seen;             ///< Attributes of the store, by identity.
    std::vector<platform::TextAttributes> m_held; ///< Whose identities those are.
};
