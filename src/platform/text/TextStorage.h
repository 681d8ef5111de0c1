#pragma once

#include "platform/Error.h"
#include "platform/text/BlockTree.h"
#include "platform/text/TextBlock.h"
#include "platform/text/TextRange.h"
#include <array>
#include <optional>
#include <QObject>

namespace platform {

/// A stretch of a storage's units as they lie in memory, never empty; exactly one of the pointers
/// is set. Borrowed from the storage until its next edit.
struct TextPiece
{
    qsizetype location = 0;
    qsizetype length = 0;
    const uchar *narrow = nullptr; ///< Latin-1, one byte a unit.
    const char16_t *wide = nullptr;

    TextRange range() const { return {location, length}; }

    /// The unit at an index of the text that lies in the range.
    char16_t at(qsizetype index) const
    {
        return narrow ? narrow[index - location] : wide[index - location];
    }
};

/// The text of a document, in UTF-16 units: any units, lone surrogates and NULs too, given back as
/// they came. Kept in short blocks, those without wide characters in one byte a unit, so that no
/// operation but one on the whole text costs time in proportion to its length: edits, look-ups of
/// lines and pieces take O(log length) and the length of what is put in or taken out.
///
/// A line ends with LF, CR, CR LF (one end), U+0085, U+2028 or U+2029; lines count from 0, and a
/// text that ends with a line end has one more, empty, line. An index or a range beyond the text is
/// a fault of the program (AssertionFailure), and so is a text beyond `maximumLength`; the storage
/// stays as it was.
///
/// Whoever makes a storage owns it. Main thread, or any one thread when nobody else knows of it.
class TextStorage : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype maximumLength = 0x7FFF'FFFF;

    /// `blockLength`: what a block holds at most, in units; tests make it small.
    explicit TextStorage(qsizetype blockLength = 2048, QObject *parent = nullptr);

    // Reading.
    qsizetype length() const { return m_tree.summary().length; }
    char16_t character(qsizetype index) const { return piece(index).at(index); }
    QString substring(TextRange range) const;
    QString string() const { return substring({0, length()}); }

    /// The whole text; nullopt, with a message that names the place, when UTF-8 cannot hold it.
    std::optional<QByteArray> utf8(Error *error = nullptr) const;

    /// The piece that the index lies in; near the last one asked for, O(1). No piece ends between
    /// CR and LF or within a surrogate pair. For runs of characters see TextReader.
    TextPiece piece(qsizetype index) const;

    // Lines. An index may be the text's length, which lies in the last line.
    qsizetype lineCount() const { return m_tree.summary().lineEnds + 1; }
    qsizetype lineAt(qsizetype index) const;
    /// NotFound for a line that does not exist.
    qsizetype lineStart(qsizetype line) const;
    /// From the start of the range's first line to behind the end of the line that the range's last
    /// unit (its location, when it is empty) lies in.
    TextRange lineRange(TextRange range) const;
    /// The same for one existing line, by number, without its line end.
    TextRange lineContents(qsizetype line) const;

    // Editing. A call that changes nothing (nothing for nothing) tells nobody.
    void replaceCharacters(TextRange range, QStringView string);
    void setString(QStringView string) { replaceCharacters({0, length()}, string); }

    /// The whole text from UTF-8, without the way through UTF-16. A byte order mark stays as
    /// U+FEFF. False for ill-formed or too many bytes; then nothing has changed.
    bool setUtf8(QByteArrayView bytes);

    /// Edits up to the matching end are told of as one by the processing signals. Nests.
    void beginEditing() { ++m_grouping; }
    void endEditing();

    /// Differs after each edit from what it was ever before.
    quint64 revision() const { return m_revision; }

Q_SIGNALS:
    /// Before each edit: what stands in `range` goes. Nobody may edit in it.
    void charactersWillBeReplaced(platform::TextRange range);

    /// At once after each edit, also within a group, for what has to stay in step with the text.
    /// `range` is where the new text stands, `changeInLength` the length gained or lost. Nobody may
    /// edit in it.
    void charactersReplaced(platform::TextRange range, qsizetype changeInLength);

    /// After the outermost group: `range`, in the text as it is now, spans all edits. An edit made
    /// in the first signal widens what the second tells. One made in the second is told of by a
    /// further pair after it, so that all receivers hear of edits in their order; receivers that
    /// are still to be told of the former then find the text with both.
    void willProcessEditing(platform::TextRange range, qsizetype changeInLength);
    void didProcessEditing(platform::TextRange range, qsizetype changeInLength);

private:
    using Tree = BlockTree<TextBlock>;
    struct Edit
    {
        TextRange range;
        qsizetype changeInLength = 0;
    };
    struct LineStart
    {
        qsizetype line = NotFound;
        qsizetype start = 0;
    };

    Tree::Place place(qsizetype index) const;
    void announce(TextRange range);
    void splice(TextRange range, QStringView string);
    void edited(TextRange range, qsizetype changeInLength);
    void processEditing();
    void checkRange(TextRange range) const;
    void checkEdit(qsizetype newLength) const;

    Tree m_tree;
    mutable Tree::Place m_lastPlace;                 ///< No node: unknown.
    mutable std::array<LineStart, 128> m_lineStarts; ///< As many as a screen shows.
    qsizetype m_blockLength;
    quint64 m_revision = 0;
    std::optional<Edit> m_pending; ///< Not told of yet.
    int m_grouping = 0;
    bool m_replacing = false;  ///< While the signals of each edit are emitted.
    bool m_processing = false; ///< While the processing signals are.
};

} // namespace platform
