// Set-up, and the road of changes.
#include "platform/text/view/TextView.h"

#include "platform/text/TextReader.h"
#include "platform/text/view/FindIndicator.h"
#include "platform/text/view/TextComposition.h"
#include "platform/text/view/TextViewAccessible.h"
#include <QFontDatabase>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace platform {

namespace {

// Lengths of what both have at the start and, behind that, at the end.
std::pair<qsizetype, qsizetype> commonEnds(const TextStorage &storage, const QString &string)
{
    TextReader reader(storage);
    const qsizetype shorter = qMin(storage.length(), string.size());
    qsizetype start = 0;
    while (start < shorter && reader.at(start) == string[start].unicode())
        ++start;
    qsizetype end = 0;
    while (end < shorter - start &&
           reader.at(storage.length() - 1 - end) == string[string.size() - 1 - end].unicode())
        ++end;
    return {start, end};
}

} // namespace

TextView::TextView(std::unique_ptr<LayoutManager> layoutManager, QWidget *parent)
    : QAbstractScrollArea(parent), m_layoutManager(std::move(layoutManager)),
      m_scroller(*m_layoutManager, [this](qsizetype line) { return heightOfLine(line); }),
      m_composition(std::make_unique<TextComposition>(*m_layoutManager))
{
    TextViewAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhMultiLine | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    setAcceptDrops(true);
    setFrameShape(QFrame::NoFrame);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    if (m_layoutManager->style().font == QFont())
        m_layoutManager->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_zoom.setFont(m_layoutManager->style().font);

    connect(&m_blinkTimer, &QTimer::timeout, this, [this] {
        m_showsCarets = !m_showsCarets;
        updateCarets();
    });
    connect(&m_autoscrollTimer, &QTimer::timeout, this, &TextView::autoscroll);
    m_primaryTimer.setSingleShot(true);
    connect(&m_primaryTimer, &QTimer::timeout, this, &TextView::putOnPrimarySelection);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, &TextView::verticalBarActed);

    connect(m_layoutManager.get(), &LayoutManager::layoutDidChange, this,
            &TextView::layoutDidChange);
    connect(m_layoutManager.get(), &LayoutManager::displayDidChange, this, [this](TextRange range) {
        m_composition->invalidate();
        updateLines(range);
    });
    connect(m_layoutManager.get(), &LayoutManager::charactersReplaced, this,
            &TextView::charactersReplaced);
    connect(m_layoutManager.get(), &LayoutManager::didProcessEditing, this,
            &TextView::textDidChange);
    connect(m_layoutManager.get(), &LayoutManager::textStorageDidChange, this, [this] {
        takeTextStorage();
        setSelections({});
        setScrollPosition({});
        viewport()->update();
    });
    takeTextStorage();
}

TextView::~TextView() = default;

void TextView::takeTextStorage()
{
    TextUndo::of(textStorage()); // watches from now on
    m_lineCount = textStorage()->lineCount();
    m_selections = m_selections.within(0);
    m_scroller.textStorageDidChange();
    m_shownHeights.clear();
    m_shownTop = 0;
}

TextUndo &TextView::undoHistory() const
{
    return TextUndo::of(textStorage());
}

void TextView::setEditable(bool editable)
{
    m_isEditable = editable;
    m_composition->set({}, {});
    setAttribute(Qt::WA_InputMethodEnabled, editable);
    updateMicroFocus();
}

bool TextView::shouldChangeText(const std::vector<TextRange> &ranges,
                                const QStringList &replacements)
{
    if (!m_isEditable)
        return false;
    if (!m_delegate)
        return true;
    const quint64 revision = textStorage()->revision();
    return m_delegate->shouldChangeTextInRanges(this, ranges, replacements) &&
           textStorage()->revision() == revision;
}

void TextView::didChangeText()
{
    if (m_delegate)
        m_delegate->textDidChange(this);
}

bool TextView::changeText(TextRange range, const QString &replacement)
{
    return changeText(std::vector{range}, {replacement});
}

bool TextView::changeText(const std::vector<TextRange> &ranges, const QStringList &replacements,
                          TextUndo::Kind kind, const std::optional<TextSelections> &selectionsAfter)
{
    if (ranges.empty() || !shouldChangeText(ranges, replacements))
        return false;
    TextUndo::Change change;
    std::vector<TextRange> carets;
    qsizetype shift = 0;
    for (size_t i = 0; i < ranges.size(); ++i) {
        const QString &text = replacements[qsizetype(i)];
        change.push_back({ranges[i], textStorage()->substring(ranges[i]), text});
        shift += text.size() - ranges[i].length;
        carets.push_back({ranges[i].end() + shift, 0});
    }
    undoHistory().record(kind, change, m_selections);
    carryOut({change}, selectionsAfter.value_or(TextSelections::of(carets)));
    didChangeText();
    return true;
}

void TextView::carryOut(const std::vector<TextUndo::Change> &changes, const TextSelections &after)
{
    updateSelectionsInSight();
    {
        const QScopedValueRollback changing(m_isChanging, true);
        textStorage()->beginEditing();
        m_isReplacing = true;
        for (const TextUndo::Change &change : changes) {
            forgetWidthOf(change.front().range);
            for (size_t i = change.size(); i > 0; --i)
                textStorage()->replaceCharacters(change[i - 1].range, change[i - 1].inserted);
        }
        m_isReplacing = false;
        m_selections = after.within(textStorage()->length());
        m_selectionMoved = true;
        textStorage()->endEditing();
    }
    setSelections(TextSelections(m_selections));
    scrollToCaret();
}

void TextView::undo()
{
    walkHistory(TextUndo::Direction::Undo);
}

void TextView::redo()
{
    walkHistory(TextUndo::Direction::Redo);
}

void TextView::walkHistory(TextUndo::Direction direction)
{
    const std::optional<TextUndo::Step> step = undoHistory().next(direction);
    if (!step)
        return;
    for (const TextUndo::Change &change : step->changes) {
        std::vector<TextRange> ranges;
        QStringList replacements;
        for (const TextUndo::Replacement &replacement : change) {
            ranges.push_back(replacement.range);
            replacements << replacement.inserted;
        }
        if (!shouldChangeText(ranges, replacements))
            return;
    }
    undoHistory().take(direction);
    carryOut(step->changes, step->selections);
    didChangeText();
}

void TextView::reloadString(const QString &string)
{
    const auto [start, end] = commonEnds(*textStorage(), string);
    const TextRange range = TextRange::between(start, textStorage()->length() - end);
    const QString text = string.mid(start, string.size() - start - end);
    if (range.isEmpty() && text.isEmpty())
        return;
    undoHistory().breakCoalescing();
    undoHistory().record(TextUndo::Kind::Other, {{range, textStorage()->substring(range), text}},
                         m_selections);
    forgetWidthOf(range);
    textStorage()->replaceCharacters(range, text);
}

void TextView::charactersReplaced(TextRange range, qsizetype changeInLength)
{
    m_scroller.textDidChange(range, changeInLength);
    if (m_dropIndex != NotFound)
        m_dropIndex = qMin(m_dropIndex, textStorage()->length());
    if (m_isReplacing)
        return;
    const TextSelections before = m_selections;
    m_selections.textDidChange(range, changeInLength);
    m_selectionMoved = m_selectionMoved || m_selections != before;
}

// Only what looks different is painted again: often one line.
void TextView::textDidChange(TextRange range)
{
    const TextStorage &text = *textStorage();
    const bool hasSameLines = text.lineCount() == std::exchange(m_lineCount, text.lineCount());
    const qsizetype first = text.lineAt(range.location);
    const qsizetype last = text.lineAt(range.end());
    if (std::exchange(m_widestMayBeGone, false)) {
        m_scroller.forgetWidth();
        noteWidths();
    }
    m_scroller.setPosition(scrollPosition());
    const qsizetype top = scrollPosition().line;
    for (qsizetype line = qMax(first, top); line <= last; ++line) {
        const QRectF rect = rectOfLine(line);
        if (rect.isNull())
            break;
        const auto shown = m_shownHeights.find(line);
        if (!hasSameLines || shown == m_shownHeights.end() || shown->second != rect.height()) {
            updateFrom(rect.top());
            break;
        }
        viewport()->update(rect.toAlignedRect());
    }
    if (!hasSameLines && first < top)
        updateFrom(0);
    scrollPositionMayHaveChanged();
    if (m_selectionMoved && !m_isChanging)
        setSelections(TextSelections(m_selections));
}

void TextView::layoutDidChange()
{
    if (m_layoutManager->style().font != m_zoom.font())
        m_zoom.setFont(m_layoutManager->style().font);
    m_composition->invalidate();
    m_scroller.forgetWidth();
    ScrollPosition position = scrollPosition();
    const auto top = navigator().placeOf(qMin(m_shownTop, textStorage()->length()));
    if (position.above > 0 && top.line == position.line)
        position.above = m_layoutManager->line(top.line).caretRect(top.offset).y();
    m_scroller.setPosition(position);
    noteWidths();
    scrollPositionMayHaveChanged();
    updateFrom(0);
    updateMicroFocus();
}

} // namespace platform
