#include "editor/MGSErrorHighlighter.h"

#include "editor/MGSTextStorageExtensions.h"

#include <set>

using platform::NotFound;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;
using platform::TextStorage;

namespace {

constexpr int none = -1;

/// What counts from one, counted from zero; 0 itself counts as the first.
qsizetype fromZero(quint64 number)
{
    return number == 0 ? 0 : qsizetype(qMin<quint64>(number - 1, NotFound - 1));
}

TextRange rangeOfRow(const TextStorage &text, qsizetype row)
{
    const qsizetype end = row + 1 < text.lineCount() ? text.lineStart(row + 1) : text.length();
    return TextRange::between(text.lineStart(row), end);
}

/// mgs_characterAtIndex, which looks the row's end up anew, only where the end matters.
qsizetype indexInRow(const TextStorage &text, qsizetype offset, qsizetype row, TextRange line)
{
    constexpr qsizetype longestLineEnd = 2;
    return offset <= line.length - longestLineEnd ? line.location + offset
                                                  : mgs_characterAtIndex(text, offset, row);
}

} // namespace

/// The errors that have a part in the look of one place.
struct MGSErrorHighlighter::Sweep
{
    int line = none;
    std::set<int> tips;
    int underlines = 0;

    bool isEmpty() const { return line == none && tips.empty() && underlines == 0; }
};

void MGSErrorHighlighter::setErrors(const QList<SMLSyntaxError> &errors)
{
    m_errors.clear();
    std::ranges::copy_if(errors, std::back_inserter(m_errors),
                         [](const SMLSyntaxError &error) { return !error.hidden; });
    m_attributes = {};
}

void MGSErrorHighlighter::setLook(const Look &look)
{
    m_look = look;
    m_attributes = {};
}

bool MGSErrorHighlighter::isUnderlined(const SMLSyntaxError &error) const
{
    return m_look.underlinesEach && error.length > 0;
}

std::vector<MGSErrorHighlight> MGSErrorHighlighter::highlights(const TextStorage &text)
{
    std::vector<MGSErrorHighlight> highlights;
    Sweep sweep;
    qsizetype start = 0;
    for (const Boundary &boundary : boundaries(text)) {
        if (boundary.at > start && !sweep.isEmpty())
            highlights.push_back({TextRange::between(start, boundary.at),
                                  attributes(lineColour(sweep.line),
                                             sweep.tips.empty() ? none : *sweep.tips.rbegin(),
                                             sweep.underlines > 0)});
        start = boundary.at;
        const SMLSyntaxError &error = m_errors[boundary.error];
        const bool begins = boundary.side == Boundary::Side::Begin;
        if (boundary.part == Boundary::Part::Line) {
            sweep.line = begins ? boundary.error : none;
            continue;
        }
        if (isUnderlined(error))
            sweep.underlines += begins ? 1 : -1;
        if (error.errorDescription.isEmpty())
            continue;
        if (begins)
            sweep.tips.insert(boundary.error);
        else
            sweep.tips.erase(boundary.error);
    }
    return highlights;
}

std::vector<MGSErrorHighlighter::Boundary>
MGSErrorHighlighter::boundaries(const TextStorage &text) const
{
    using Side = Boundary::Side;
    using Part = Boundary::Part;
    std::vector<Boundary> boundaries;
    const auto add = [&boundaries](qsizetype at, int error, Side side, Part part) {
        boundaries.push_back({at, error, side, part});
    };
    std::vector<bool> hasColour(size_t(text.lineCount()));
    qsizetype lastRow = none;
    TextRange line;
    for (int i = 0; i < m_errors.size(); ++i) {
        const SMLSyntaxError &error = m_errors[i];
        const qsizetype row = fromZero(error.line);
        if (row >= text.lineCount())
            continue;
        if (row != lastRow)
            line = rangeOfRow(text, lastRow = row);
        const qsizetype index = indexInRow(text, fromZero(error.character), row, line);
        const auto length = qsizetype(qMin<quint64>(error.length, quint64(text.length() - index)));
        const TextRange range = error.length == 0 ? line : TextRange{index, length};
        const bool coloursLine = !line.isEmpty() && !hasColour[size_t(row)];
        if (coloursLine) {
            hasColour[size_t(row)] = true;
            add(line.location, i, Side::Begin, Part::Line);
        }
        if (!range.isEmpty()) {
            add(range.location, i, Side::Begin, Part::Characters);
            add(range.end(), i, Side::End, Part::Characters);
        }
        if (coloursLine)
            add(line.end(), i, Side::End, Part::Line);
    }
    // Most clients hand errors over in the order of their lines.
    const auto order = [](const Boundary &boundary) {
        return std::pair(boundary.at, boundary.side);
    };
    if (!std::ranges::is_sorted(boundaries, {}, order))
        std::ranges::stable_sort(boundaries, {}, order);
    return boundaries;
}

QColor MGSErrorHighlighter::lineColour(int error) const
{
    if (error == none)
        return {};
    const QColor own = m_errors[error].errorLineHighlightColor;
    return own.isValid() ? own : m_look.lineColour;
}

const TextAttributes &MGSErrorHighlighter::attributes(const QColor &lineColour, int tipError,
                                                      bool isUnderlined)
{
    const quint64 colour = lineColour.isValid() ? quint64(lineColour.rgba64()) : 0;
    TextAttributes &found = m_attributes[isUnderlined ? 1 : 0][{colour, tipError}];
    if (!found.isEmpty())
        return found;
    const QVariant tip = tipError == none ? QVariant() : m_errors[tipError].errorDescription;
    return found = {
               {TextAttribute::BackgroundColor, lineColour.isValid() ? lineColour : QVariant()},
               {TextAttribute::ToolTip, tip},
               {TextAttribute::UnderlineStyle,
                isUnderlined ? QVariant(platform::errorUnderline) : QVariant()}};
}
