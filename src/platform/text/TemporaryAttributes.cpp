#include "platform/text/TemporaryAttributes.h"

#include "platform/Assert.h"

namespace platform {

namespace {

constexpr size_t smallestTableLimit = 1024;
constexpr size_t rememberedSets = 64; // while many are replaced

} // namespace

size_t TemporaryAttributes::Block::runAt(quint32 offset) const
{
    const auto after = std::upper_bound(runs.begin(), runs.end(), offset,
                                        [](quint32 at, const Run &run) { return at < run.start; });
    return size_t(after - runs.begin()) - 1;
}

quint32 TemporaryAttributes::Block::end(size_t run) const
{
    return run + 1 < runs.size() ? runs[run + 1].start : length;
}

void TemporaryAttributes::Block::append(quint32 runLength, Number set)
{
    if (runLength > 0 && (runs.empty() || runs.back().set != set))
        runs.push_back({length, set});
    length += runLength;
}

void TemporaryAttributes::Block::append(const Block &other)
{
    for (size_t i = 0; i < other.runs.size(); ++i)
        append(other.end(i) - other.runs[i].start, other.runs[i].set);
}

/// Other runs in place of those from `first` up to and with `last`; what follows moves by `change`.
void TemporaryAttributes::Block::replaceRuns(size_t first, size_t last,
                                             const std::vector<Run> &others, quint32 change)
{
    const size_t count = last - first + 1;
    const size_t kept = std::min(count, others.size());
    const auto at = runs.begin() + std::ptrdiff_t(first);
    const auto rest = std::copy_n(others.begin(), kept, at);
    if (kept < count)
        runs.erase(rest, at + std::ptrdiff_t(count));
    else
        runs.insert(rest, others.begin() + std::ptrdiff_t(kept), others.end());
    if (change == 0)
        return;
    for (size_t i = first + others.size(); i < runs.size(); ++i)
        runs[i].start += change;
    length += change;
}

TemporaryAttributes::TemporaryAttributes(qsizetype length, qsizetype blockRuns)
    : m_tableLimit(smallestTableLimit), m_blockRuns(blockRuns)
{
    reset(length);
}

void TemporaryAttributes::reset(qsizetype length)
{
    m_lastPlace = {};
    m_table = {};
    m_tree.assign({});
    grow(0, length);
}

TextAttributes TemporaryAttributes::attributes(qsizetype index, TextRange *run) const
{
    const Position at = position(index);
    if (run)
        *run = extended(at, {0, length()}, [&at](Number set) { return set == at.set(); });
    return m_table.attributes(at.set());
}

QVariant TemporaryAttributes::value(TextAttribute key, qsizetype index) const
{
    return m_table.attributes(position(index).set()).value(key);
}

QVariant TemporaryAttributes::value(TextAttribute key, qsizetype index, TextRange limit,
                                    TextRange *run) const
{
    check(limit);
    PLATFORM_ASSERT(limit.contains(index), "index %ld outside of its limits", index);
    const Position at = position(index);
    *run = extended(at, limit, [&](Number set) { return m_table.isEqual(set, at.set(), key); });
    return m_table.attributes(at.set()).value(key);
}

void TemporaryAttributes::forEachRun(
    TextRange range, const std::function<void(TextRange, const TextAttributes &)> &function) const
{
    check(range);
    if (range.isEmpty())
        return;
    TextRange run;
    Number number = 0; // of what the run has
    const auto report = [&] {
        if (number != 0)
            function(run, m_table.attributes(number));
    };
    for (Tree::Place at = place(range.location); at.node && at.before.length < range.end();
         at = at.next()) {
        const Block &block = at.node->block;
        const qsizetype offset = std::max<qsizetype>(0, range.location - at.before.length);
        for (size_t i = block.runAt(quint32(offset)); i < block.runs.size(); ++i) {
            const qsizetype start = at.before.length + block.runs[i].start;
            if (start >= range.end())
                break;
            const TextRange part =
                TextRange::between(start, at.before.length + block.end(i)).intersected(range);
            if (block.runs[i].set == number) {
                run = run.united(part);
            } else {
                report();
                run = part;
                number = block.runs[i].set;
            }
        }
    }
    report();
}

void TemporaryAttributes::set(const TextAttributes &attributes, TextRange range)
{
    check(range);
    forgetUnused();
    const Number number = m_table.number(attributes);
    rewrite(range, [number](Block &out, quint32 length, Number) { out.append(length, number); });
}

void TemporaryAttributes::add(const TextAttributes &attributes, TextRange range)
{
    check(range);
    forgetUnused();
    const Number number = m_table.number(attributes);
    rewrite(range, [this, number](Block &out, quint32 length, Number set) {
        out.append(length, m_table.with(set, number));
    });
}

void TemporaryAttributes::remove(TextAttributeKeys keys, TextRange range)
{
    check(range);
    rewrite(range, [this, keys](Block &out, quint32 length, Number set) {
        out.append(length, m_table.without(set, keys));
    });
}

void TemporaryAttributes::replace(TextAttributeKeys keys, TextRange range,
                                  const std::function<Stretch()> &next)
{
    check(range);
    forgetUnused();
    Stretch stretch{};
    struct Rewritten
    {
        Number from = 0;
        const void *added = nullptr;
        Number to = 0;
    };
    std::array<Rewritten, rememberedSets> known; // 0 without anything stays 0
    const auto rewritten = [&](Number set) {
        const void *added = stretch.attributes->identity();
        Rewritten &found = known[(set + quintptr(added) / sizeof(QVariant)) % known.size()];
        if (found.from != set || found.added != added)
            found = {set, added,
                     m_table.with(m_table.without(set, keys), m_table.number(*stretch.attributes))};
        return found.to;
    };
    rewrite(range, [&](Block &out, quint32 length, Number set) {
        while (length > 0) {
            if (stretch.length == 0)
                stretch = next();
            const auto part = quint32(std::min<qsizetype>(stretch.length, length));
            out.append(part, rewritten(set));
            stretch.length -= part;
            length -= part;
        }
    });
}

void TemporaryAttributes::textDidChange(TextRange range, qsizetype changeInLength)
{
    const TextRange old{range.location, range.length - changeInLength};
    check(old);
    const bool inheritsBefore = old.isEmpty() && old.location > 0;
    grow(inheritsBefore ? old.location - 1 : old.location, range.length);
    rewrite({range.end(), old.length}, [](Block &, quint32, Number) {});
}

/// The run at the index gets longer; in an empty text a run is made.
void TemporaryAttributes::grow(qsizetype index, qsizetype length)
{
    if (length == 0)
        return;
    if (m_tree.isEmpty()) {
        m_tree.assign({Block{{{0, 0}}, quint32(length)}});
        return;
    }
    const Tree::Place at = place(index);
    Block &block = at.node->block;
    for (size_t i = block.runAt(quint32(index - at.before.length)) + 1; i < block.runs.size(); ++i)
        block.runs[i].start += quint32(length);
    block.length += quint32(length);
    m_tree.update(at.node);
}

TemporaryAttributes::Tree::Place TemporaryAttributes::place(qsizetype index) const
{
    const auto holds = [index](const Tree::Place &at) {
        return at.node && TextRange{at.before.length, at.node->block.length}.contains(index);
    };
    if (holds(m_lastPlace))
        return m_lastPlace;
    if (m_lastPlace.node && holds(m_lastPlace.next()))
        return m_lastPlace = m_lastPlace.next();
    return m_lastPlace = m_tree.find(&Measure::length, index);
}

TemporaryAttributes::Position TemporaryAttributes::position(qsizetype index) const
{
    check({index, 1});
    const Tree::Place at = place(index);
    const Block &block = at.node->block;
    const size_t run = block.runAt(quint32(index - at.before.length));
    return {at.node, run,
            TextRange::between(at.before.length + block.runs[run].start,
                               at.before.length + block.end(run))};
}

/// The run with its neighbours, across blocks, as far as `isEqual(set)`; cut to the limit.
template <class Equal>
TextRange TemporaryAttributes::extended(Position at, TextRange limit, Equal isEqual) const
{
    const auto lengthOf = [](const Tree::Node *node, size_t run) {
        return qsizetype(node->block.end(run)) - node->block.runs[run].start;
    };
    TextRange range = at.range;
    Tree::Node *node = at.node;
    size_t run = at.run;
    while (range.location > limit.location) {
        if (run == 0) {
            node = node->previous();
            run = node->block.runs.size();
        }
        if (!isEqual(node->block.runs[--run].set))
            break;
        range = TextRange::between(range.location - lengthOf(node, run), range.end());
    }
    node = at.node;
    run = at.run;
    while (range.end() < limit.end()) {
        if (++run == node->block.runs.size()) {
            node = node->next();
            run = 0;
        }
        if (!isEqual(node->block.runs[run].set))
            break;
        range.length += lengthOf(node, run);
    }
    return range.intersected(limit);
}

/// Calls `map(out, length, set)` for each stretch of equal attributes in the range; what it appends
/// to `out` stands there afterwards.
template <class Map>
void TemporaryAttributes::rewrite(TextRange range, Map map)
{
    if (range.isEmpty())
        return;
    Tree::Place at = place(range.location);
    // A long range may get more runs than are worth to pass through the block.
    const bool isShort = range.length <= m_blockRuns * 16;
    if (isShort && range.end() <= at.next().before.length) {
        rewriteWithin(at, range, map);
        return;
    }
    Tree::Node *const first = at.node;
    Tree::Node *last = first;
    Block out;
    for (; at.node && at.before.length < range.end(); at = at.next()) {
        last = at.node;
        appendRewritten(out, at, 0, last->block.runs.size() - 1, range, map);
    }
    replaceBlocks(first, last, std::move(out));
}

/// The same for a range in one block, in place.
template <class Map>
void TemporaryAttributes::rewriteWithin(const Tree::Place &at, TextRange range, Map map)
{
    Block &block = at.node->block;
    const qsizetype offset = range.location - at.before.length;
    // One run more on both sides, since neighbours that become equal join.
    size_t first = block.runAt(quint32(offset));
    size_t last = block.runAt(quint32(offset + range.length - 1));
    first -= first > 0 ? 1 : 0;
    last += last + 1 < block.runs.size() ? 1 : 0;

    Block &out = m_scratch;
    out.runs.clear();
    out.length = 0;
    appendRewritten(out, at, first, last, range, map);
    const quint32 start = block.runs[first].start;
    const quint32 change = out.length - (block.end(last) - start); // modulo 2^32, as the sums are
    for (Run &run : out.runs)
        run.start += start;
    block.replaceRuns(first, last, out.runs, change);
    if (change != 0)
        m_tree.update(at.node);

    const size_t count = block.runs.size();
    const auto isAlone = [&at] {
        return !at.node->previous() && !at.node->next();
    };
    if (count == 0 || count > size_t(m_blockRuns) ||
        (count < size_t(m_blockRuns) / 4 && !isAlone()))
        replaceBlocks(at.node, at.node, std::move(block));
}

/// The runs from `first` up to and with `last` of a block, rewritten where they lie in the range.
template <class Map>
void TemporaryAttributes::appendRewritten(Block &out, const Tree::Place &at, size_t first,
                                          size_t last, TextRange range, Map map)
{
    const Block &block = at.node->block;
    for (size_t i = first; i <= last; ++i) {
        const TextRange run = TextRange::between(at.before.length + block.runs[i].start,
                                                 at.before.length + block.end(i));
        const TextRange part = run.intersected(range);
        const Number set = block.runs[i].set;
        out.append(quint32(part.location - run.location), set);
        if (!part.isEmpty())
            map(out, quint32(part.length), set);
        out.append(quint32(run.end() - part.end()), set);
    }
}

/// The runs in place of some blocks, cut into blocks; a few runs alone take a neighbour in.
void TemporaryAttributes::replaceBlocks(Tree::Node *first, Tree::Node *last, Block runs)
{
    if (runs.runs.size() < size_t(m_blockRuns) / 4) {
        if (Tree::Node *next = last->next()) {
            last = next;
            runs.append(next->block);
        } else if (Tree::Node *previous = first->previous()) {
            first = previous;
            Block joined = previous->block;
            joined.append(runs);
            runs = std::move(joined);
        }
    }
    const size_t limit = size_t(m_blockRuns);
    const size_t count = (runs.runs.size() + limit - 1) / limit;
    std::vector<Block> blocks(count);
    for (size_t i = 0, at = 0; i < count; ++i) {
        for (; at < runs.runs.size() * (i + 1) / count; ++at)
            blocks[i].append(runs.end(at) - runs.runs[at].start, runs.runs[at].set);
        blocks[i].runs.shrink_to_fit();
    }
    m_tree.replace(first, last, std::move(blocks));
    m_lastPlace = {};
}

/// A new table, with the sets that runs have, once the old one is mostly sets that none has.
void TemporaryAttributes::forgetUnused()
{
    if (m_table.size() <= m_tableLimit)
        return;
    TextAttributeTable table;
    for (Tree::Place at = m_tree.find(&Measure::length, 0); at.node; at = at.next()) {
        for (Run &run : at.node->block.runs)
            run.set = table.number(m_table.attributes(run.set));
    }
    m_table = std::move(table);
    m_tableLimit = std::max(smallestTableLimit, m_table.size() * 2);
}

void TemporaryAttributes::check(TextRange range) const
{
    PLATFORM_ASSERT(range.location >= 0 && range.length >= 0 && range.location <= length() &&
                        range.length <= length() - range.location,
                    "range {%ld, %ld} beyond the text's length %ld", range.location, range.length,
                    length());
}

} // namespace platform
