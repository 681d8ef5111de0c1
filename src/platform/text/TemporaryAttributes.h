#pragma once

#include "platform/text/BlockTree.h"
#include "platform/text/TextAttributeTable.h"
#include "platform/text/TextRange.h"
#include <functional>

namespace platform {

/// Attributes of a text's characters, beside the text and never in it: colours, underlines, tool
/// tips. Kept as runs of equal attributes; neighbours that are equal are one run. All operations
/// cost O(log runs) and the runs they touch; near the last place asked for the logarithm falls
/// away.
///
/// Whoever owns it keeps it in step with the text by `textDidChange`, at each edit
/// (TextStorage::charactersReplaced). New characters take the attributes of the first character
/// that they replace; put in without replacing any, those of the character before them, or, at the
/// text's start, of the one behind. So typing in a run or at its end makes it longer.
///
/// A range or index beyond the text is a fault of the program (AssertionFailure). Of the thread of
/// its text.
class TemporaryAttributes
{
public:
    /// A stretch of text and what it has; the attributes are borrowed.
    struct Stretch
    {
        qsizetype length; ///< At least 1.
        const TextAttributes *attributes;
    };

    /// `blockRuns`: runs that a block of the tree holds at most; tests make it small.
    explicit TemporaryAttributes(qsizetype length = 0, qsizetype blockRuns = 512);

    /// Another text, nothing set on it.
    void reset(qsizetype length);

    /// Of the text, in UTF-16 units.
    qsizetype length() const { return m_tree.summary().length; }

    /// All attributes at the index; `run`: the longest range around it where all are equal.
    TextAttributes attributes(qsizetype index, TextRange *run = nullptr) const;

    /// One attribute at the index, invalid if it is not there; `run`: the longest range around the
    /// index, within `limit`, where it has this value or is not there either.
    QVariant value(TextAttribute key, qsizetype index) const;
    QVariant value(TextAttribute key, qsizetype index, TextRange limit, TextRange *run) const;

    /// Calls `function(range, attributes)` for each run that has attributes, in order, cut to the
    /// range. The function must not change them.
    void forEachRun(TextRange range,
                    const std::function<void(TextRange, const TextAttributes &)> &function) const;

    void set(const TextAttributes &attributes, TextRange range); ///< In place of all others.
    void add(const TextAttributes &attributes, TextRange range); ///< In place of the same keys.
    void remove(TextAttributeKeys keys, TextRange range);

    /// Many changes in one walk: the range loses the keys and gets the attributes of the stretches,
    /// which `next` gives in order until they fill it.
    void replace(TextAttributeKeys keys, TextRange range, const std::function<Stretch()> &next);

    /// The text has been edited: `range` is where the new text stands, now; `changeInLength` is the
    /// length that was gained or lost.
    void textDidChange(TextRange range, qsizetype changeInLength);

    /// Sets kept in memory, those that have fallen out of use since the last clearing too.
    size_t attributeSetCount() const { return m_table.size(); }

private:
    using Number = TextAttributeTable::Number;

    struct Run
    {
        quint32 start; ///< Within its block.
        Number set;
    };

    struct Measure
    {
        qsizetype length = 0;
        friend Measure operator+(Measure a, Measure b) { return {a.length + b.length}; }
    };

    /// Runs that follow each other, never none; the first starts at 0, none is empty.
    struct Block
    {
        using Summary = Measure;
        std::vector<Run> runs;
        quint32 length = 0;

        Measure summary() const { return {length}; }
        size_t runAt(quint32 offset) const;
        quint32 end(size_t run) const;
        void append(quint32 runLength, Number set);
        void append(const Block &other);
        void replaceRuns(size_t first, size_t last, const std::vector<Run> &others, quint32 change);
    };

    using Tree = BlockTree<Block>;

    /// A run, and where it starts in the text.
    struct Position
    {
        Tree::Node *node;
        size_t run;
        TextRange range;
        Number set() const { return node->block.runs[run].set; }
    };

    Tree::Place place(qsizetype index) const;
    Position position(qsizetype index) const;
    template <class Equal>
    TextRange extended(Position at, TextRange limit, Equal isEqual) const;
    template <class Map>
    void rewrite(TextRange range, Map map);
    template <class Map>
    void rewriteWithin(const Tree::Place &at, TextRange range, Map map);
    template <class Map>
    static void appendRewritten(Block &out, const Tree::Place &at, size_t first, size_t last,
                                TextRange range, Map map);
    void replaceBlocks(Tree::Node *first, Tree::Node *last, Block runs);
    void grow(qsizetype index, qsizetype length);
    void forgetUnused();
    void check(TextRange range) const;

    Tree m_tree;
    mutable Tree::Place m_lastPlace; ///< No node: unknown.
    TextAttributeTable m_table;
    size_t m_tableLimit;
    qsizetype m_blockRuns;
    Block m_scratch; ///< Kept for its memory.
};

} // namespace platform
