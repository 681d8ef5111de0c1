#include "editor/colouring/PaintCanvas.h"

#include "platform/Assert.h"

#include <cstring>

using platform::TemporaryAttributes;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;

namespace {

bool staysWhenTouched(const QVariant &group, const QVariant &command, const QVariant &instruction)
{
    return group == command || group == instruction;
}

// The first place that holds another byte.
const quint8 *skipEqual(const quint8 *first, const quint8 *last, quint8 byte)
{
    const quint64 pattern = 0x0101'0101'0101'0101U * byte;
    for (quint64 word = 0; last - first >= 8; first += 8) {
        std::memcpy(&word, first, 8);
        if (word != pattern)
            break;
    }
    while (first != last && *first == byte)
        ++first;
    return first;
}

} // namespace

void paintTemporaryAttributes(platform::LayoutManager &layoutManager,
                              const TextAttributes &attributes, TextRange range)
{
    static const QVariant command(QStringLiteral("command"));
    static const QVariant instruction(QStringLiteral("instruction"));
    if (range.isEmpty())
        return;
    const TextRange all{0, layoutManager.textStorage()->length()};
    TextRange changed = range;
    std::vector<TextRange> wiped;
    for (qsizetype at = range.location; at < range.end();) {
        TextRange run;
        const QVariant group =
            layoutManager.temporaryAttributes().value(TextAttribute::Group, at, all, &run);
        if (!staysWhenTouched(group, command, instruction)) {
            wiped.push_back(run);
            if (group.isValid())
                changed = changed.united(run);
        }
        at = run.end();
    }
    layoutManager.changeTemporaryAttributes(changed, [&](TemporaryAttributes &store) {
        for (const TextRange run : wiped)
            store.remove(syntaxKeys, run);
        store.add(attributes, range);
    });
}

PaintCanvas::PaintCanvas(platform::LayoutManager &layoutManager, const SyntaxPaints &paints,
                         TextRange range, TextRange kept)
    : m_manager(layoutManager), m_start(range), m_kept(kept), m_range(range),
      m_bytes(size_t(range.length))
{
    for (const TextAttributes &attributes : paints)
        m_colours.push_back({attributes, Byte(m_colours.size())});
}

PaintCanvas::Byte PaintCanvas::groupBeside(qsizetype index) const
{
    const QVariant group = store().value(TextAttribute::Group, index);
    for (const Colour &colour : m_colours) {
        if (colour.attributes.value(TextAttribute::Group) == group)
            return colour.group;
    }
    return std::numeric_limits<Byte>::max(); // one that the canvas does not hold
}

bool PaintCanvas::has(SyntaxPaint paint, qsizetype index) const
{
    return (m_range.contains(index) ? groupAt(index) : groupBeside(index)) == Byte(paint);
}

qsizetype PaintCanvas::next(SyntaxPaint paint, qsizetype index, qsizetype limit) const
{
    if (m_hasForeign) {
        while (index < limit && groupAt(index) != Byte(paint))
            ++index;
        return index;
    }
    if (index >= limit)
        return limit;
    const Byte *first = &at(index);
    const void *found = std::memchr(first, int(paint), size_t(limit - index));
    return found ? index + (static_cast<const Byte *>(found) - first) : limit;
}

void PaintCanvas::paint(SyntaxPaint paint, TextRange range)
{
    if (range.isEmpty() || (isApart(range) && paintApart(paint, range)))
        return;
    cover(range);
    for (qsizetype at = range.location; at < range.end();)
        at = wipeRun(at, range.end());
    fill(range, Byte(paint));
}

bool PaintCanvas::isApart(TextRange range) const
{
    return range.location > m_range.end() || range.end() < m_range.location;
}

// False when the paint concerns the canvas after all.
bool PaintCanvas::paintApart(SyntaxPaint paint, TextRange range)
{
    const TextRange side = range.location > m_range.end()
                               ? TextRange::between(m_range.end(), store().length())
                               : TextRange{0, m_range.location};
    TextRange run;
    for (qsizetype at = range.location; at < range.end(); at = run.end()) {
        const bool hasGroup = store().value(TextAttribute::Group, at, side, &run).isValid();
        if (hasGroup && (run.end() == m_range.location || run.location == m_range.end()))
            return false;
    }
    const TextAttributes &attributes = m_colours[size_t(paint)].attributes;
    const auto isPainted = [&](TextAttribute key) {
        return store().value(key, range.location, side, &run) == attributes.value(key) &&
               run == range;
    };
    if (!isPainted(TextAttribute::Group) || !isPainted(TextAttribute::ForegroundColor))
        paintTemporaryAttributes(m_manager, attributes, range);
    return true;
}

void PaintCanvas::cover(TextRange range)
{
    const TextRange old = m_range;
    m_range = old.united(range);
    if (m_range == old)
        return;
    m_bytes.insert(m_bytes.begin(), size_t(old.location - m_range.location), 0);
    m_bytes.resize(size_t(m_range.length));
    load(TextRange::between(m_range.location, old.location));
    load(TextRange::between(old.end(), m_range.end()));
}

// Takes the paint off the run that the index, in the range, lies in, if it is to go. The run's end;
// it need not be told beyond the limit.
qsizetype PaintCanvas::wipeRun(qsizetype index, qsizetype limit)
{
    const Byte group = groupAt(index);
    if (group == Byte(SyntaxPaint::Commands) || group == Byte(SyntaxPaint::Instructions) ||
        (group == Byte(SyntaxPaint::None) && !m_hasGroupless))
        return endOfRun(index, limit);
    const TextRange run = effectiveRange(index);
    fill(run, 0);
    return run.end();
}

qsizetype PaintCanvas::endOfRun(qsizetype index, qsizetype limit) const
{
    const Byte *const first = &at(index);
    const Byte *const last = first + (limit - index);
    const Byte *end = skipEqual(first, last, *first);
    if (m_hasForeign) {
        const Byte group = groupAt(index);
        end = std::find_if(end, last, [&](Byte byte) { return m_colours[byte].group != group; });
    }
    return index + (end - first);
}

TextRange PaintCanvas::effectiveRange(qsizetype index)
{
    const Byte group = groupAt(index);
    TextRange run;
    qsizetype start = index;
    while (start > m_range.location && groupAt(start - 1) == group)
        --start;
    if (start == m_range.location && start > 0 && groupBeside(start - 1) == group) {
        store().value(TextAttribute::Group, start - 1, {0, start}, &run);
        start = run.location;
        cover(run);
    }
    qsizetype end = endOfRun(index, m_range.end());
    if (end == m_range.end() && end < store().length() && groupBeside(end) == group) {
        store().value(TextAttribute::Group, end, TextRange::between(end, store().length()), &run);
        end = run.end();
        cover(run);
    }
    return TextRange::between(start, end);
}

void PaintCanvas::fill(TextRange range, Byte byte)
{
    if (!range.isEmpty())
        std::memset(&at(range.location), byte, size_t(range.length));
}

void PaintCanvas::load(TextRange range)
{
    fill(range, 0);
    store().forEachRun(range, [this](TextRange run, const TextAttributes &attributes) {
        std::optional<Byte> byte = knownByte(attributes);
        if (!byte)
            byte = addColour(attributes.value(TextAttribute::ForegroundColor),
                             attributes.value(TextAttribute::Group));
        if (*byte != 0)
            fill(run, *byte);
    });
}

std::optional<PaintCanvas::Byte> PaintCanvas::knownByte(const TextAttributes &attributes)
{
    const auto seen = m_seen.constFind(attributes.identity());
    if (seen != m_seen.constEnd())
        return *seen;
    const QVariant colour = attributes.value(TextAttribute::ForegroundColor);
    const QVariant group = attributes.value(TextAttribute::Group);
    const auto known = std::find_if(m_colours.begin(), m_colours.end(), [&](const Colour &other) {
        return other.attributes.value(TextAttribute::ForegroundColor) == colour &&
               other.attributes.value(TextAttribute::Group) == group;
    });
    if (known == m_colours.end())
        return std::nullopt;
    m_held.push_back(attributes);
    return m_seen[attributes.identity()] = Byte(known - m_colours.begin());
}

PaintCanvas::Byte PaintCanvas::addColour(const QVariant &colour, const QVariant &group)
{
    if (m_colours.size() == std::numeric_limits<Byte>::max())
        throw platform::Exception(QStringLiteral("Colours"),
                                  QStringLiteral("more than 255 colours side by side"));
    const auto byte = Byte(m_colours.size());
    const auto same = std::find_if(m_colours.begin(), m_colours.end(), [&](const Colour &other) {
        return other.attributes.value(TextAttribute::Group) == group;
    });
    m_colours.push_back({{{TextAttribute::ForegroundColor, colour}, {TextAttribute::Group, group}},
                         same == m_colours.end() ? byte : same->group});
    m_hasForeign = true;
    m_hasGroupless = m_hasGroupless || !group.isValid();
    return byte;
}

// From the first to the last character on which canvas and store differ.
TextRange PaintCanvas::changedRange()
{
    const TextRange all = m_kept == m_start ? m_range : m_kept;
    TextRange changed{all.end(), 0};
    qsizetype seen = all.location;
    const auto compare = [&](qsizetype end, const TextAttributes &stored) {
        const Byte *const first = m_bytes.data() + (seen - m_range.location);
        const Byte *last = first + (end - seen);
        const std::optional<Byte> byte = knownByte(stored);
        const Byte *differs = byte ? skipEqual(first, last, *byte) : first;
        while (byte && last > differs && last[-1] == *byte)
            --last;
        if (differs < last) {
            const qsizetype start = changed.isEmpty() ? seen + (differs - first) : changed.location;
            changed = TextRange::between(start, seen + (last - first));
        }
        seen = end;
    };
    store().forEachRun(all, [&](TextRange run, const TextAttributes &stored) {
        compare(run.location, {});
        compare(run.end(), stored);
    });
    compare(all.end(), {});
    return changed;
}

void PaintCanvas::flush()
{
    const TextRange changed = changedRange();
    if (changed.isEmpty())
        return;
    m_manager.changeTemporaryAttributes(changed, [&](TemporaryAttributes &attributes) {
        const Byte *from = &at(changed.location);
        const Byte *const last = from + changed.length;
        attributes.replace(syntaxKeys, changed, [&]() -> TemporaryAttributes::Stretch {
            const Byte *const first = from;
            from = skipEqual(first, last, *first);
            return {from - first, &m_colours[*first].attributes};
        });
    });
}

void PaintCanvas::reload()
{
    load(m_range);
}
