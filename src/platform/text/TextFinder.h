#pragma once

#include "platform/text/TextPattern.h"
#include <QTimer>

namespace platform {

/// Knows all matches of a query in a text, which do not overlap, and keeps them in step with it.
/// Looks for them from the text's start on in short steps between the events, so that a window
/// stays alive however long the text is; a short text is searched at once. After an edit the
/// matches move with the text until they have been looked for anew. Main thread.
class TextFinder : public QObject
{
    Q_OBJECT

public:
    /// Matches kept at most; the search ends there.
    static constexpr qsizetype mostMatches = 5'000'000;

    explicit TextFinder(std::shared_ptr<TextStorage> storage, QObject *parent = nullptr);

    /// Another text; the query stays.
    void setTextStorage(std::shared_ptr<TextStorage> storage);

    /// Looks for this from now on; for an empty string nothing is found. The same query again
    /// changes nothing. False: it cannot be read, as `obstacle` says, and nothing is found.
    bool setQuery(const TextQuery &query);
    const TextQuery &query() const { return m_query; }

    /// Somebody waits: does not pause after an edit.
    void hurry();

    bool isSearching() const { return m_state != State::Done; }
    /// All that are known now, which after an edit may be the former ones.
    qsizetype matchCount() const { return qsizetype(known().size()); }
    TextRange match(qsizetype index) const { return known()[size_t(index)].range(); }
    /// The number of the first match that ends behind `location`, or begins there; `matchCount()`
    /// when there is none.
    qsizetype firstMatchFrom(qsizetype location) const;
    /// The number of this very match, or NotFound.
    qsizetype indexOf(TextRange match) const;

    /// Why the text was not searched to its end, for the user; null: it was, or will be.
    const QString &obstacle() const { return m_obstacle; }

    /// The first match that begins at `location` or behind; from the text's start when there is
    /// none. Not found: there is no match at all. Nullopt: ask again when the search has gone on.
    std::optional<TextRange> next(qsizetype location) const;
    /// The last match that ends at `location` or before; from the text's end when there is none.
    std::optional<TextRange> previous(qsizetype location) const;

    /// See TextPattern::replacement.
    std::optional<QString> replacement(TextRange match, const QString &text, Error *error) const;

Q_SIGNALS:
    void didProgress(); ///< There are more matches, others, or the search has ended.

private:
    /// Half the size of a TextRange: texts are short enough.
    struct Match
    {
        quint32 location;
        quint32 length;
        TextRange range() const { return {location, length}; }
    };
    using Matches = std::vector<Match>;

    enum class State {
        Searching,
        SearchingAnew, ///< The text has been edited; `m_former` is what was found before.
        Done,
    };

    const Matches &known() const { return m_state == State::SearchingAnew ? m_former : m_found; }
    Matches::const_iterator firstFrom(const Matches &matches, qsizetype location) const;
    void observeTextStorage();
    void restart();
    void searchOn();
    bool take(const TextPattern::Step &step);
    void finish(const QString &obstacle);
    void textDidChange(TextRange range, qsizetype changeInLength);

    std::shared_ptr<TextStorage> m_storage;
    TextQuery m_query;
    std::unique_ptr<TextPattern> m_pattern; ///< Null: nothing is looked for.
    Matches m_found;                        ///< In the text as it is, up to `m_position`.
    Matches m_former;
    qsizetype m_position = 0;
    State m_state = State::Done;
    QString m_obstacle;
    QTimer m_timer;
};

} // namespace platform
