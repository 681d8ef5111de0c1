#include "editor/colouring/SMLSyntaxColouring.h"

#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/PaintCanvas.h"
#include "editor/colouring/SyntaxPatterns.h"

using platform::NotFound;
using platform::SearchDirection;
using platform::TextAttribute;
using platform::TextAttributes;
using platform::TextRange;
using platform::TextStorage;

struct SMLSyntaxColouring::Paint
{
    const char *group;
    std::array<float, 3> colour; ///< Red, green, blue.
    QColor SMLSyntaxColouring::*property;
};

const std::array<SMLSyntaxColouring::Paint, syntaxPaintCount> SMLSyntaxColouring::paints = {{
    {nullptr, {}, nullptr},
    {"command", {0.031F, 0.0F, 0.855F}, &SMLSyntaxColouring::m_colourForCommands},
    {"comments", {0.0F, 0.45F, 0.0F}, &SMLSyntaxColouring::m_colourForComments},
    {"instruction", {0.737F, 0.0F, 0.647F}, &SMLSyntaxColouring::m_colourForInstructions},
    {"keyword", {0.737F, 0.0F, 0.647F}, &SMLSyntaxColouring::m_colourForKeywords},
    {"autocomplete", {0.84F, 0.41F, 0.006F}, &SMLSyntaxColouring::m_colourForAutocomplete},
    {"strings", {0.804F, 0.071F, 0.153F}, &SMLSyntaxColouring::m_colourForStrings},
    {"variable", {0.73F, 0.0F, 0.74F}, &SMLSyntaxColouring::m_colourForVariables},
    {"attribute", {0.5F, 0.5F, 0.2F}, &SMLSyntaxColouring::m_colourForAttributes},
    {"number", {0.031F, 0.0F, 0.855F}, &SMLSyntaxColouring::m_colourForNumbers},
}};

SMLSyntaxColouring::SMLSyntaxColouring(platform::LayoutManager *layoutManager, QObject *parent)
    : QObject(parent), m_layoutManager(layoutManager)
{
    setDefaultColours();
    rebuildAttributesCache();
    m_lookAhead.setSingleShot(true);
    m_lookAhead.setInterval(0);
    connect(&m_lookAhead, &QTimer::timeout, this, &SMLSyntaxColouring::lookAhead);
    connect(this, &SMLSyntaxColouring::coloursChanged, this, [this] {
        rebuildAttributesCache();
        invalidateAllColouring();
    });
    connect(
        layoutManager, &platform::LayoutManager::charactersReplaced, this,
        [this](TextRange range, qsizetype change) { m_delimiters.textDidChange(range, change); });
    connect(layoutManager, &platform::LayoutManager::didProcessEditing, this,
            &SMLSyntaxColouring::textStorageDidProcessEditing);
    connect(layoutManager, &platform::LayoutManager::textStorageDidChange, this,
            &SMLSyntaxColouring::layoutManagerDidChangeTextStorage);
    layoutManagerDidChangeTextStorage();
}

SMLSyntaxColouring::~SMLSyntaxColouring() = default;

void SMLSyntaxColouring::setDefaultColours()
{
    for (const Paint &paint : paints) {
        if (paint.property)
            this->*paint.property =
                QColor::fromRgbF(paint.colour[0], paint.colour[1], paint.colour[2]);
    }
}

void SMLSyntaxColouring::rebuildAttributesCache()
{
    for (size_t i = 1; i < paints.size(); ++i)
        m_attributes[i] = {{TextAttribute::ForegroundColor, this->*paints[i].property},
                           {TextAttribute::Group, QString::fromLatin1(paints[i].group)}};
}

void SMLSyntaxColouring::setSyntaxDefinition(std::shared_ptr<const MGSSyntaxDefinition> definition)
{
    m_definition = std::move(definition);
    m_patterns = m_definition ? std::make_unique<SyntaxPatterns>(*m_definition) : nullptr;
    m_delimiters.clear();
    m_lookAhead.start();
    invalidateAllColouring();
}

// Where no comment begins or ends is known before somebody opens one.
void SMLSyntaxColouring::lookAhead()
{
    if (!m_observed || !m_definition)
        return;
    bool isMore = false;
    for (const auto &comment : m_definition->multiLineComments()) {
        isMore |= m_delimiters.lookAhead(*m_observed, comment.opening);
        isMore |= m_delimiters.lookAhead(*m_observed, comment.closing);
    }
    if (isMore)
        m_lookAhead.start();
}

QString SMLSyntaxColouring::syntaxDefinitionName() const
{
    return m_definition ? m_definition->name() : QString();
}

void SMLSyntaxColouring::setSyntaxDefinitionName(const QString &name)
{
    setSyntaxDefinition(MGSSyntaxController::sharedInstance().loadDefinition(name));
}

bool SMLSyntaxColouring::isSyntaxColouringRequired() const
{
    return m_definition && m_definition->syntaxDefinitionAllowsColouring();
}

void SMLSyntaxColouring::setColoursMultiLineStrings(bool colours)
{
    m_coloursMultiLineStrings = colours;
    invalidateAllColouring();
}

void SMLSyntaxColouring::setColoursOnlyUntilEndOfLine(bool only)
{
    m_coloursOnlyUntilEndOfLine = only;
    invalidateAllColouring();
}

QString SMLSyntaxColouring::syntaxColouringGroupOfCharacterAtIndex(qsizetype index) const
{
    return m_layoutManager ? m_layoutManager->temporaryAttributes()
                                 .value(TextAttribute::Group, index)
                                 .toString()
                           : QString();
}

void SMLSyntaxColouring::setColour(const TextAttributes &attributes, TextRange range)
{
    if (m_layoutManager)
        paintTemporaryAttributes(
            *m_layoutManager, attributes,
            TextRange{0, m_layoutManager->textStorage()->length()}.intersected(range));
}

void SMLSyntaxColouring::layoutManagerWillChangeTextStorage()
{
    m_observed = nullptr;
}

void SMLSyntaxColouring::layoutManagerDidChangeTextStorage()
{
    m_inspected.clear();
    m_delimiters.clear();
    m_observed = m_layoutManager ? m_layoutManager->textStorage() : nullptr;
    m_lookAhead.start();
}

void SMLSyntaxColouring::textStorageDidProcessEditing(TextRange range, qsizetype changeInLength)
{
    m_lookAhead.start();
    m_inspected.shift(range.end() - changeInLength, changeInLength);
    m_inspected.remove(
        m_observed->lineRange(TextRange{0, m_observed->length()}.intersected(range)));
}

void SMLSyntaxColouring::invalidateAllColouring()
{
    m_inspected.clear();
    if (m_layoutManager)
        m_layoutManager->removeTemporaryAttributes(syntaxKeys,
                                                   {0, m_layoutManager->textStorage()->length()});
}

void SMLSyntaxColouring::recolourRange(TextRange range)
{
    if (!isSyntaxColouringRequired() || !m_observed)
        return;
    TextRange left = TextRange{0, m_observed->length()}.intersected(range);
    std::vector<TextRange> gaps;
    for (TextRange gap; !(gap = m_inspected.firstGap(left)).isEmpty();) {
        gaps.push_back(gap);
        left = TextRange::between(gap.end(), left.end());
    }
    for (const TextRange gap : gaps) {
        if (!m_inspected.contains(gap) && m_observed)
            m_inspected.insert(recolourChangedRange(gap));
    }
}

TextRange SMLSyntaxColouring::recolourChangedRange(TextRange range)
{
    const TextRange working = workingRange(range);
    const TextRange kept = keptRange(working, range);
    if (!working.isEmpty() && m_definition)
        colour(working, kept, range);
    return kept;
}

/// The range's lines, or the surroundings of the range in a line that is too long.
TextRange SMLSyntaxColouring::lineRange(TextRange range) const
{
    const TextRange lines = m_observed->lineRange(range);
    if (lines.length <= longestWholeLine)
        return lines;
    return lines.intersected(TextRange::between(std::max<qsizetype>(0, range.location - lineMargin),
                                                range.end() + lineMargin));
}

/// What of the working range gets its paint; the rest of it is there to be read.
TextRange SMLSyntaxColouring::keptRange(TextRange working, TextRange range) const
{
    if (!m_observed || m_observed->lineRange(range).length <= longestWholeLine)
        return working;
    const qsizetype start = std::max<qsizetype>(0, range.location - lineMargin / 2);
    const TextRange before = m_inspected.lastGap(TextRange::between(start, range.location));
    const TextRange behind = m_inspected.firstGap({range.end(), lineMargin / 2});
    return working.intersected(
        TextRange::between(before.end() == range.location ? before.location : range.location,
                           behind.location == range.end() ? behind.end() : range.end()));
}

TextRange SMLSyntaxColouring::workingRange(TextRange range)
{
    if (!m_observed)
        return {};
    TextRange working = lineRange(range);
    if (m_coloursMultiLineStrings && m_definition)
        working = extendedForStrings(working, range);
    return extendedForRuns(working);
}

/// Further, where a string runs into the lines or out of the range.
TextRange SMLSyntaxColouring::extendedForStrings(TextRange lines, TextRange range)
{
    const QString &quote = m_definition->firstString();
    TextRange extended = lines;
    const qsizetype before =
        m_delimiters.find(*m_observed, quote, {0, lines.location}, SearchDirection::Backward);
    if (before != NotFound &&
        syntaxColouringGroupOfCharacterAtIndex(before) == QStringLiteral("strings"))
        extended = TextRange::between(lineRange({before, 0}).location, range.end());
    const qsizetype inside =
        m_delimiters.find(*m_observed, quote, range, SearchDirection::Backward);
    if (inside == NotFound)
        return extended;
    const qsizetype behind = m_delimiters.find(
        *m_observed, quote, TextRange::between(range.end(), m_observed->length()));
    if (behind == NotFound)
        return extended;
    return extended.united(TextRange::between(inside, lineRange({behind, 0}).end()));
}

/// Further, where a run of one group reaches over either end, so that it is coloured whole. A run
/// that only begins behind the end is not touched.
TextRange SMLSyntaxColouring::extendedForRuns(TextRange range) const
{
    const auto &attributes = m_layoutManager->temporaryAttributes();
    const TextRange all{0, attributes.length()};
    TextRange run;
    if (all.contains(range.location) &&
        attributes.value(TextAttribute::Group, range.location, all, &run).isValid())
        range = range.united(run);
    if (all.contains(range.end()) &&
        attributes.value(TextAttribute::Group, range.end(), all, &run).isValid() &&
        run.location < range.end())
        range = range.united(run);
    return range;
}
