#include "platform/text/LayoutManager.h"

#include "platform/Assert.h"
#include "platform/text/PlainGlyphs.h"

#include <cmath>
#include <QFontMetricsF>

namespace platform {

namespace {

constexpr qreal greatestLineHeightMultiple = 10;
constexpr size_t mostLines = 400; // a tall screen shows a third of it

bool hasSurrogates(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
}

} // namespace

LayoutManager::LayoutManager(std::shared_ptr<TextStorage> storage, QObject *parent)
    : QObject(parent), m_storage(std::move(storage))
{
    observeTextStorage();
}

LayoutManager::~LayoutManager() = default;

void LayoutManager::replaceTextStorage(std::shared_ptr<TextStorage> storage)
{
    m_storage->disconnect(this);
    m_storage = std::move(storage);
    observeTextStorage();
    Q_EMIT textStorageDidChange();
}

void LayoutManager::observeTextStorage()
{
    m_lines.clear();
    m_hiddenLines.clear();
    m_attributes.reset(m_storage->length());
    m_lineCount = m_storage->lineCount();
    connect(m_storage.get(), &TextStorage::charactersReplaced, this, &LayoutManager::textDidChange);
    connect(m_storage.get(), &TextStorage::charactersReplaced, this,
            &LayoutManager::charactersReplaced);
    connect(m_storage.get(), &TextStorage::didProcessEditing, this, [this] {
        if (std::exchange(m_hidesLess, false))
            Q_EMIT layoutDidChange();
    });
    connect(m_storage.get(), &TextStorage::didProcessEditing, this,
            &LayoutManager::didProcessEditing);
}

void LayoutManager::textDidChange(TextRange range, qsizetype changeInLength)
{
    m_attributes.textDidChange(range, changeInLength);
    const qsizetype first = m_storage->lineAt(range.location);
    const qsizetype last = m_storage->lineAt(range.end());
    const qsizetype added = m_storage->lineCount() - m_lineCount;
    m_lineCount = m_storage->lineCount();
    if (!m_hiddenLines.isEmpty() && m_hiddenLines.textDidChange(first, last, added))
        m_hidesLess = true;
    if (first == last && added == 0 && replaceInLine(first, range, changeInLength))
        return;
    const auto behind = m_lines.upper_bound(last - added);
    m_lines.erase(m_lines.lower_bound(first), behind);
    if (added == 0)
        return;
    std::map<qsizetype, std::unique_ptr<LineLayout>> moved;
    for (auto at = behind; at != m_lines.end();) {
        auto node = m_lines.extract(at++);
        node.key() += added;
        moved.insert(moved.end(), std::move(node));
    }
    m_lines.merge(moved);
}

// Of a long line only a piece is laid out anew. False: the line is not kept, or another now.
bool LayoutManager::replaceInLine(qsizetype line, TextRange range, qsizetype changeInLength)
{
    const auto kept = m_lines.find(line);
    if (kept == m_lines.end() || kept->second->length() < LineLayout::longestPiece(m_style))
        return false;
    const TextRange contents = m_storage->lineContents(line);
    const qsizetype removed = range.length - changeInLength;
    const TextRange before{range.location - contents.location, removed};
    const QString text = m_storage->substring(range);
    if (before.end() > kept->second->length() || range.end() > contents.end() ||
        kept->second->length() + changeInLength != contents.length || hasSurrogates(text))
        return false;
    kept->second->replace(before, text);
    kept->second->formatsDidChange({before.location, range.length});
    return true;
}

void LayoutManager::setTemporaryAttributes(const TextAttributes &attributes, TextRange range)
{
    changeTemporaryAttributes(range, [&](auto &all) { all.set(attributes, range); });
}

void LayoutManager::addTemporaryAttributes(const TextAttributes &attributes, TextRange range)
{
    changeTemporaryAttributes(range, [&](auto &all) { all.add(attributes, range); });
}

void LayoutManager::removeTemporaryAttributes(TextAttributeKeys keys, TextRange range)
{
    changeTemporaryAttributes(range, [&](auto &all) { all.remove(keys, range); });
}

void LayoutManager::changeTemporaryAttributes(
    TextRange range, const std::function<void(TemporaryAttributes &)> &change)
{
    change(m_attributes);
    if (!m_lines.empty()) {
        const qsizetype last = m_storage->lineAt(range.end());
        for (auto at = m_lines.lower_bound(m_storage->lineAt(range.location));
             at != m_lines.end() && at->first <= last; ++at) {
            const qsizetype start = m_storage->lineStart(at->first);
            const TextRange line{start, at->second->length()};
            TextRange part = line.intersected(range);
            part.location -= start;
            at->second->formatsDidChange(part);
        }
    }
    Q_EMIT displayDidChange(range);
}

void LayoutManager::setFont(const QFont &font)
{
    QFont hinted = font;
    hinted.setHintingPreference(QFont::PreferFullHinting);
    if (hinted == m_style.font && !m_lines.empty())
        return;
    m_style.font = hinted;
    m_style.plainGlyphs = std::make_shared<PlainGlyphs>(hinted);
    styleDidChange();
}

void LayoutManager::setTabInterval(qreal pixels)
{
    if (pixels == m_style.tabInterval)
        return;
    m_style.tabInterval = pixels;
    styleDidChange();
}

void LayoutManager::setWrapWidth(qreal pixels)
{
    if (pixels == m_style.wrapWidth)
        return;
    m_style.wrapWidth = pixels;
    styleDidChange();
}

void LayoutManager::setLineHeightMultiple(qreal factor)
{
    const qreal taken = factor > 0 ? qMin(factor, greatestLineHeightMultiple) : 0;
    if (taken == m_lineHeightMultiple)
        return;
    m_lineHeightMultiple = taken;
    styleDidChange();
}

void LayoutManager::styleDidChange()
{
    const QFontMetricsF metrics(m_style.font);
    const qreal factor = m_lineHeightMultiple > 0 ? m_lineHeightMultiple : 1;
    const qreal natural = metrics.ascent() + metrics.descent() + metrics.leading();
    m_style.rowHeight = qMax<qreal>(1, std::ceil(natural * factor));
    m_style.baseline = std::round(m_style.rowHeight - metrics.descent() - metrics.leading() / 2);
    m_style.characterWidth = qMax<qreal>(1, metrics.horizontalAdvance(u' '));
    m_lines.clear();
    Q_EMIT layoutDidChange();
}

LineLayout &LayoutManager::line(qsizetype line)
{
    auto kept = m_lines.find(line);
    if (kept == m_lines.end()) {
        const QString text = m_storage->substring(m_storage->lineContents(line));
        const LineFormats &formats = *this;
        kept = m_lines.emplace(line, std::make_unique<LineLayout>(text, m_style, formats)).first;
        if (m_lines.size() > mostLines)
            forgetFarLines(line);
    }
    kept->second->setLocation(m_storage->lineStart(line));
    return *kept->second;
}

void LayoutManager::forgetFarLines(qsizetype line)
{
    while (m_lines.size() > mostLines / 2) {
        const qsizetype first = m_lines.begin()->first;
        const auto last = std::prev(m_lines.end());
        m_lines.erase(line - first > last->first - line ? m_lines.begin() : last);
    }
}

qreal LayoutManager::heightOfLine(qsizetype line)
{
    if (m_hiddenLines.contains(line))
        return 0;
    if (m_style.wrapWidth <= 0)
        return m_style.rowHeight;
    const auto kept = m_lines.find(line);
    return kept == m_lines.end() ? this->line(line).height() : kept->second->height();
}

void LayoutManager::hideLines(qsizetype first, qsizetype last)
{
    PLATFORM_ASSERT(first > 0 && first <= last && last < m_storage->lineCount() - 1,
                    "lines %ld to %ld cannot be hidden", first, last);
    m_hiddenLines.hide({first, last});
    Q_EMIT layoutDidChange();
}

void LayoutManager::showLine(qsizetype line)
{
    if (m_hiddenLines.show(line))
        Q_EMIT layoutDidChange();
}

void LayoutManager::showAllLines()
{
    m_hiddenLines.clear();
    Q_EMIT layoutDidChange();
}

void LayoutManager::drawLineBackground(QPainter *painter, qsizetype line, QPointF origin,
                                       const QRectF &clip)
{
    this->line(line).drawBackground(painter, origin, clip);
}

void LayoutManager::drawLine(QPainter *painter, qsizetype line, QPointF origin, const QRectF &clip)
{
    this->line(line).draw(painter, origin, clip);
}

std::vector<LineFormats::Run> LayoutManager::runs(TextRange range) const
{
    std::vector<Run> runs;
    m_attributes.forEachRun(range, [&runs](TextRange part, const TextAttributes &attributes) {
        runs.push_back({part, attributes});
    });
    return runs;
}

} // namespace platform
