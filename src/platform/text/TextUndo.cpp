#include "platform/text/TextUndo.h"

namespace platform {

namespace {

constexpr qint64 longestPause = 1500; // milliseconds within one run of typing

bool beginsWithLineEnd(const TextUndo::Change &change)
{
    const QString &text = change.front().inserted;
    return !text.isEmpty() && endsLine(text.front().unicode());
}

// What takes the change back, in the text that it left.
TextUndo::Change inverted(const TextUndo::Change &change)
{
    TextUndo::Change result;
    result.reserve(change.size());
    qsizetype shift = 0;
    for (const TextUndo::Replacement &replacement : change) {
        const TextRange range{replacement.range.location + shift, replacement.inserted.size()};
        result.push_back({range, replacement.inserted, replacement.removed});
        shift += replacement.inserted.size() - replacement.range.length;
    }
    return result;
}

TextSelections selectionsAfter(const TextUndo::Change &change)
{
    std::vector<TextRange> carets;
    for (const TextUndo::Replacement &replacement : inverted(change))
        carets.push_back({replacement.range.end(), 0});
    return TextSelections::of(carets);
}

qsizetype bytesOf(const TextUndo::Change &change)
{
    qsizetype bytes = 0;
    for (const TextUndo::Replacement &replacement : change)
        bytes += 2 * (replacement.removed.size() + replacement.inserted.size()) +
                 qsizetype(sizeof(TextUndo::Replacement));
    return bytes;
}

// Whether `next`, in the text after `last`, goes on where that ended.
bool follows(TextUndo::Kind kind, const TextUndo::Replacement &last,
             const TextUndo::Replacement &next)
{
    switch (kind) {
    case TextUndo::Kind::Typing:
        return next.range == TextRange{last.range.end(), 0};
    case TextUndo::Kind::DeletingBackward:
        return next.range.end() == last.range.location && next.inserted.isEmpty();
    case TextUndo::Kind::DeletingForward:
        return next.range.location == last.range.location && next.inserted.isEmpty();
    case TextUndo::Kind::Other:
        break;
    }
    return false;
}

void append(TextUndo::Kind kind, TextUndo::Replacement &last, const TextUndo::Replacement &next)
{
    last.inserted += next.inserted;
    if (kind == TextUndo::Kind::DeletingBackward) {
        last.range.location -= next.range.length;
        last.removed.prepend(next.removed);
    } else {
        last.removed += next.removed;
    }
    last.range.length += next.range.length;
}

} // namespace

TextUndo::TextUndo(TextStorage *storage) : QObject(storage)
{
    connect(storage, &TextStorage::charactersReplaced, this, &TextUndo::textDidChange);
}

TextUndo &TextUndo::of(TextStorage *storage)
{
    auto *history = storage->findChild<TextUndo *>({}, Qt::FindDirectChildrenOnly);
    return history ? *history : *new TextUndo(storage);
}

void TextUndo::record(Kind kind, Change change, const TextSelections &before)
{
    std::erase_if(change, [](const Replacement &replacement) {
        return replacement.range.isEmpty() && replacement.inserted.isEmpty();
    });
    if (change.empty())
        return;
    if (!m_expected.empty())
        clear();
    forgetUndone();
    expect({change});
    const qsizetype bytes = bytesOf(change);
    if (m_appends) {
        m_steps.back().changes.push_back(std::move(change));
    } else if (coalesces(kind, change)) {
        Change &last = m_steps.back().changes.back();
        const Change places = inverted(last);
        for (size_t i = 0; i < change.size(); ++i) {
            const qsizetype shift = places[i].range.location - last[i].range.location;
            change[i].range.location -= shift;
            append(kind, last[i], change[i]);
        }
    } else {
        m_steps.push_back({kind, {std::move(change)}, before, 0, 0});
        ++m_done;
    }
    m_steps.back().state = ++m_lastState;
    m_steps.back().bytes += bytes;
    m_bytes += bytes;
    m_appends = m_groups > 0;
    m_isBroken = m_groups > 0;
    m_sinceLast.start();
    trim();
    Q_EMIT didChange();
}

bool TextUndo::coalesces(Kind kind, const Change &change) const
{
    if (m_isBroken || m_done == 0 || m_steps.back().kind != kind ||
        m_sinceLast.elapsed() > longestPause || beginsWithLineEnd(change))
        return false;
    const Change places = inverted(m_steps.back().changes.back());
    return std::ranges::equal(places, change, [kind](const auto &last, const auto &next) {
        return follows(kind, last, next);
    });
}

void TextUndo::breakCoalescing()
{
    m_isBroken = true;
}

void TextUndo::beginGroup()
{
    if (m_groups++ == 0)
        m_isBroken = true;
}

void TextUndo::endGroup()
{
    if (--m_groups > 0)
        return;
    m_appends = false;
    m_isBroken = true;
    Q_EMIT didChange();
}

std::optional<TextUndo::Step> TextUndo::next(Direction direction) const
{
    if (direction == Direction::Undo)
        return canUndo() ? std::optional(stepToUndo()) : std::nullopt;
    return canRedo() ? std::optional(stepToRedo()) : std::nullopt;
}

TextUndo::Step TextUndo::stepToUndo() const
{
    const Entry &entry = m_steps[m_done - 1];
    Step step{{}, entry.before};
    for (size_t i = entry.changes.size(); i > 0; --i)
        step.changes.push_back(inverted(entry.changes[i - 1]));
    return step;
}

TextUndo::Step TextUndo::stepToRedo() const
{
    const Entry &entry = m_steps[m_done];
    return {entry.changes, selectionsAfter(entry.changes.back())};
}

std::optional<TextUndo::Step> TextUndo::take(Direction direction)
{
    const std::optional<Step> step = next(direction);
    if (step) {
        direction == Direction::Undo ? --m_done : ++m_done;
        m_isBroken = true;
        expect(step->changes);
        Q_EMIT didChange();
    }
    return step;
}

void TextUndo::clear()
{
    m_firstState = state();
    m_steps.clear();
    m_expected.clear();
    m_done = 0;
    m_bytes = 0;
    m_appends = false;
    m_isBroken = true;
    Q_EMIT didChange();
}

void TextUndo::setMemoryLimit(qsizetype bytes)
{
    m_memoryLimit = bytes;
    trim();
}

void TextUndo::markClean()
{
    m_cleanState = state();
    m_isBroken = true;
    Q_EMIT didMarkClean();
}

void TextUndo::textDidChange(TextRange range, qsizetype changeInLength)
{
    const TextRange replaced{range.location, range.length - changeInLength};
    if (!m_expected.empty() && m_expected.front().range == replaced &&
        m_expected.front().insertedLength == range.length) {
        m_expected.pop_front();
        return;
    }
    clear();
    m_firstState = ++m_lastState;
}

void TextUndo::expect(const std::vector<Change> &changes)
{
    m_expected.clear();
    for (const Change &change : changes) {
        for (size_t i = change.size(); i > 0; --i)
            m_expected.push_back({change[i - 1].range, change[i - 1].inserted.size()});
    }
}

void TextUndo::forgetUndone()
{
    for (; m_steps.size() > m_done; m_steps.pop_back())
        m_bytes -= m_steps.back().bytes;
}

void TextUndo::trim()
{
    while (m_bytes > m_memoryLimit && m_done > 1) {
        m_firstState = m_steps.front().state;
        m_bytes -= m_steps.front().bytes;
        m_steps.pop_front();
        --m_done;
    }
}

} // namespace platform
