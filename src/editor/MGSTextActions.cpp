#include "editor/MGSTextActions.h"

#include "editor/MGSMutableSubstring.h"
#include "editor/MGSStringExtensions.h"
#include "platform/text/TextReader.h"
#include "platform/text/TextSearch.h"

using platform::NotFound;
using platform::TextRange;
using platform::TextReader;
using platform::TextStorage;

namespace mgs {

namespace {

constexpr qsizetype shortBlock = 128; // every line is looked up and edited: fast in short blocks

/// The text after the block has had each of its lines.
QString editLines(const QString &text, const MGSMutableSubstringBlock &block)
{
    TextStorage lines(shortBlock);
    lines.setString(text);
    enumerateMutableSubstringsOfLines(lines, block);
    return lines.string();
}

/// For what makes lines anew: the text of what the function gives for each.
QString mapLines(const QString &text, const std::function<QString(const QString &)> &function)
{
    TextStorage lines(shortBlock);
    lines.setString(text);
    QString result;
    enumerateMutableSubstringsOfLines(
        lines, [&](const MGSMutableSubstring &line, bool &) { result += function(line.string()); });
    return result;
}

QString entabbedLine(const QString &line, qsizetype numberOfSpaces)
{
    QString result;
    qsizetype column = 0;
    qsizetype blanks = 0; // since the last stop or other character, still at the result's end
    for (const QChar character : line) {
        result += character;
        column += character == u'\t' ? numberOfSpaces - column % numberOfSpaces : 1;
        blanks = character == u' ' ? blanks + 1 : 0;
        if (column % numberOfSpaces != 0)
            continue;
        if (blanks >= 2)
            result.replace(result.size() - blanks, blanks, u'\t');
        blanks = 0;
    }
    return result;
}

/// Tags without a closing one, by what they begin with.
constexpr QLatin1StringView unclosedTags[] = {
    QLatin1StringView("<br>"),    QLatin1StringView("<hr>"),    QLatin1StringView("<!--"),
    QLatin1StringView("<?"),      QLatin1StringView("<%"),      QLatin1StringView("<img "),
    QLatin1StringView("<br/>"),   QLatin1StringView("<br />"),  QLatin1StringView("<hr />"),
    QLatin1StringView("<area "),  QLatin1StringView("<base "),  QLatin1StringView("<link "),
    QLatin1StringView("<meta "),  QLatin1StringView("<frame "), QLatin1StringView("<input "),
    QLatin1StringView("<param "),
};
constexpr qsizetype longestUnclosedTag = 7;

/// The reader stands at the tag's "<"; `end` is behind its ">".
bool isNeverClosed(TextReader &reader, qsizetype start, qsizetype end)
{
    QString tag;
    for (qsizetype i = start; i < end && tag.size() < longestUnclosedTag; ++i)
        tag += QChar(reader.at(i));
    return std::ranges::any_of(unclosedTags, [&](QLatin1StringView unclosed) {
        return tag.startsWith(unclosed, Qt::CaseInsensitive);
    });
}

/// The opening tag, with its brackets, that is not closed before its end; `end` is behind a ">".
TextRange innermostOpenTag(const TextStorage &text, qsizetype end)
{
    TextReader reader(text);
    qsizetype depth = 0;
    bool endsInSlash = false;
    for (qsizetype index = end - 1; index >= 0; --index) {
        const char16_t unit = reader.at(index);
        if (unit == u'>') {
            end = index + 1;
            endsInSlash = index > 0 && reader.at(index - 1) == u'/';
        }
        if (unit != u'<' || endsInSlash || isNeverClosed(reader, index, end))
            continue;
        if (reader.at(index + 1) == u'/')
            ++depth;
        else if (depth-- == 0)
            return TextRange::between(index, end);
    }
    return TextRange::notFound();
}

} // namespace

QString indentString(qsizetype width, const IndentStyle &style)
{
    const bool useTabs = !style.indentWithSpaces && style.tabWidth > 0;
    const qsizetype tabs = useTabs ? width / style.tabWidth : 0;
    return QString(tabs, u'\t') + QString(width - tabs * style.tabWidth, u' ');
}

QString shifted(const QString &text, qsizetype by, const IndentStyle &style)
{
    return editLines(text, [&](MGSMutableSubstring &line, bool &) {
        const QString old = line.string();
        const qsizetype indent = mgs_leadingWhitespace(old);
        const qsizetype width = mgs_columnOfCharacter(old, indent, style.tabWidth) + by;
        line.replaceCharacters({0, indent}, indentString(qMax(qsizetype(0), width), style));
    });
}

QString entabbed(const QString &text, qsizetype numberOfSpaces)
{
    if (numberOfSpaces <= 0)
        return text;
    return mapLines(text, [&](const QString &line) { return entabbedLine(line, numberOfSpaces); });
}

QString detabbed(const QString &text, qsizetype numberOfSpaces)
{
    return mapLines(text, [&](const QString &line) {
        QString result;
        for (const QChar character : line) {
            if (character != u'\t')
                result += character;
            else if (numberOfSpaces > 0)
                result.resize(result.size() + numberOfSpaces - result.size() % numberOfSpaces,
                              u' ');
        }
        return result;
    });
}

QString commentedOrUncommented(const QString &text, const QString &token)
{
    static const platform::CharacterSet whitespace = platform::CharacterSet::whitespace();
    bool areCommented = true;
    const QString uncommented = editLines(text, [&](MGSMutableSubstring &line, bool &stop) {
        MGSMutableSubstring trimmed = line.mutableSubstringByLeftTrimmingCharacters(whitespace);
        areCommented = trimmed.string().startsWith(token);
        stop = !areCommented;
        if (areCommented)
            trimmed.replaceCharacters({0, token.size()}, {});
    });
    if (areCommented)
        return uncommented;
    return editLines(text, [&](MGSMutableSubstring &line, bool &) {
        line.replaceCharacters({0, 0}, token);
    });
}

QString withoutNeedlessWhitespace(const QString &text)
{
    return editLines(text, [](MGSMutableSubstring &line, bool &) {
        const QString old = line.string();
        qsizetype end = old.size();
        while (end > 0 && mgs_isNewline(old[end - 1]))
            --end;
        qsizetype start = end;
        while (start > 0 && mgs_isWhitespace(old[start - 1]))
            --start;
        line.replaceCharacters(TextRange::between(start, end), {});
    });
}

QString withoutLineEndings(const QString &text)
{
    QString result = text;
    return result.removeIf(mgs_isNewline);
}

QString preparedForXML(const QString &text)
{
    QString result = text;
    result.replace(QLatin1StringView("&amp;"), QLatin1StringView("&"));
    result.replace(u'&', QLatin1StringView("&amp;"));
    result.replace(u'<', QLatin1StringView("&lt;"));
    return result.replace(u'>', QLatin1StringView("&gt;"));
}

QString closingTag(const TextStorage &text, qsizetype caret)
{
    const qsizetype bracket = platform::indexOfCharacter(
        text, [](char16_t unit) { return unit == u'>'; }, {0, caret},
        platform::SearchDirection::Backward);
    if (bracket == NotFound || bracket == 0)
        return {};
    const TextRange tag = innermostOpenTag(text, bracket + 1);
    if (!tag.isFound())
        return {};
    const QString inner = text.substring({tag.location + 1, tag.length - 1});
    const auto *end = std::ranges::find_if(inner, [](QChar character) {
        return character.isSpace() || character == u'>' || character == u'/';
    });
    const QString name = inner.first(end - inner.begin());
    return name.isEmpty() ? QString() : QStringLiteral("</%1>").arg(name);
}

std::vector<TextRange> alignedToLines(const TextStorage &text, const std::vector<TextRange> &ranges)
{
    std::vector<TextRange> aligned;
    for (const TextRange range : ranges) {
        const TextRange lines = text.lineRange(range);
        if (!aligned.empty() && !lines.isEmpty() && lines.location <= aligned.back().end())
            aligned.back() = aligned.back().united(lines);
        else
            aligned.push_back(lines);
    }
    return aligned;
}

} // namespace mgs
