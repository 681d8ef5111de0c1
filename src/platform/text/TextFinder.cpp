#include "platform/text/TextFinder.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include <algorithm>

namespace platform {

namespace {

constexpr int stepMilliseconds = 8;   // half a frame
constexpr int pauseMilliseconds = 80; // after an edit: who types has the machine

} // namespace

TextFinder::TextFinder(std::shared_ptr<TextStorage> storage, QObject *parent)
    : QObject(parent), m_storage(std::move(storage))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TextFinder::searchOn);
    observeTextStorage();
}

void TextFinder::setTextStorage(std::shared_ptr<TextStorage> storage)
{
    m_storage->disconnect(this);
    m_storage = std::move(storage);
    observeTextStorage();
    if (m_pattern) {
        m_pattern = TextPattern::compile(m_query); // the old one knows the old text
        restart();
        searchOn();
    }
}

void TextFinder::observeTextStorage()
{
    connect(m_storage.get(), &TextStorage::charactersReplaced, this, &TextFinder::textDidChange);
}

bool TextFinder::setQuery(const TextQuery &query)
{
    if (query == m_query)
        return m_pattern || query.string.isEmpty();
    Error error;
    m_query = query;
    m_pattern.reset();
    if (!query.string.isEmpty())
        m_pattern = TextPattern::compile(query, &error);
    restart();
    if (m_pattern)
        searchOn();
    else
        finish(error.description);
    return error.isNull();
}

void TextFinder::hurry()
{
    if (isSearching())
        searchOn();
}

void TextFinder::restart()
{
    m_found.clear();
    m_position = 0;
    m_obstacle.clear();
    m_state = State::Searching;
}

void TextFinder::searchOn()
{
    const QDeadlineTimer deadline(stepMilliseconds);
    while (isSearching() && take(m_pattern->find(*m_storage, m_position, deadline))) {
        if (deadline.hasExpired()) {
            m_timer.start(0);
            break;
        }
    }
    if (m_state != State::Done)
        Q_EMIT didProgress();
}

// False: the step has ended.
bool TextFinder::take(const TextPattern::Step &step)
{
    using enum TextPattern::Outcome;
    m_position = step.position;
    if (step.outcome == Interrupted)
        return true;
    if (step.outcome == TooCostly)
        finish(localized("The expression takes too long on this text."));
    else if (step.outcome == Ended)
        finish({});
    else {
        m_found.push_back({quint32(step.match.location), quint32(step.match.length)});
        m_position = TextPattern::positionAfter(*m_storage, step.match);
        if (qsizetype(m_found.size()) == mostMatches)
            finish(format(localized("Only the first %ld matches are shown."), mostMatches));
        else if (m_position > m_storage->length())
            finish({});
    }
    return isSearching();
}

void TextFinder::finish(const QString &obstacle)
{
    m_timer.stop();
    m_state = State::Done;
    m_former = {};
    m_obstacle = obstacle;
    Q_EMIT didProgress();
}

void TextFinder::textDidChange(TextRange range, qsizetype changeInLength)
{
    if (!m_pattern)
        return;
    if (m_state != State::SearchingAnew)
        m_former = std::move(m_found);
    const qsizetype formerEnd = range.end() - changeInLength;
    const auto touched = [&](const Match &each) {
        return qsizetype(each.location) < formerEnd;
    };
    const auto first = m_former.begin() + (firstFrom(m_former, range.location) - m_former.cbegin());
    const auto behind = std::find_if_not(first, m_former.end(), touched);
    for (auto match = m_former.erase(first, behind); match != m_former.end(); ++match)
        match->location = quint32(qsizetype(match->location) + changeInLength);
    restart();
    m_state = State::SearchingAnew;
    m_timer.start(pauseMilliseconds);
}

TextFinder::Matches::const_iterator TextFinder::firstFrom(const Matches &matches,
                                                          qsizetype location) const
{
    return std::partition_point(matches.begin(), matches.end(), [location](const Match &match) {
        return qsizetype(match.location) < location && match.range().end() <= location;
    });
}

qsizetype TextFinder::firstMatchFrom(qsizetype location) const
{
    return firstFrom(known(), location) - known().begin();
}

qsizetype TextFinder::indexOf(TextRange match) const
{
    const qsizetype index = firstMatchFrom(match.location);
    return index < matchCount() && this->match(index) == match ? index : NotFound;
}

std::optional<TextRange> TextFinder::next(qsizetype location) const
{
    const auto match = std::partition_point(m_found.begin(), m_found.end(), [&](const Match &each) {
        return qsizetype(each.location) < location;
    });
    if (match != m_found.end())
        return match->range();
    if (isSearching())
        return std::nullopt;
    return m_found.empty() ? TextRange::notFound() : m_found.front().range();
}

std::optional<TextRange> TextFinder::previous(qsizetype location) const
{
    const auto behind =
        std::partition_point(m_found.begin(), m_found.end(),
                             [&](const Match &each) { return each.range().end() <= location; });
    if (isSearching() && (behind == m_found.begin() || m_position < location))
        return std::nullopt;
    if (m_found.empty())
        return TextRange::notFound();
    return (behind == m_found.begin() ? m_found.back() : *std::prev(behind)).range();
}

std::optional<QString> TextFinder::replacement(TextRange match, const QString &text,
                                               Error *error) const
{
    return m_pattern ? m_pattern->replacement(*m_storage, match, text, error) : std::nullopt;
}

} // namespace platform
