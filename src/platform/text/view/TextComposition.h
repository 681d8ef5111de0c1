#pragma once

#include "platform/text/LayoutManager.h"
#include <QInputMethodEvent>

namespace platform {

/// What an input method is composing: not in the text yet, but shown in its line as if it were.
/// Owned by its view; borrows the layout manager.
class TextComposition final : private LineFormats
{
public:
    explicit TextComposition(LayoutManager &layout) : m_layout(layout) {}

    bool isActive() const { return !m_text.isEmpty(); }
    void set(const QString &text, const QList<QInputMethodEvent::Attribute> &attributes);

    /// The line that holds the index, with the composed text at the index.
    LineLayout &lineAt(qsizetype index);

    QRectF caretRect(qsizetype index); ///< In that line.
    bool showsCaret() const { return m_showsCaret; }

    /// Style or attributes have changed.
    void invalidate() { m_line.reset(); }

private:
    std::vector<Run> runs(TextRange range) const override;

    LayoutManager &m_layout;
    QString m_text;
    std::vector<Run> m_formats; ///< By places in the composed text.
    qsizetype m_caret = 0;
    bool m_showsCaret = true;
    std::unique_ptr<LineLayout> m_line;
    qsizetype m_index = 0;
    qsizetype m_offset = 0; ///< Of the composed text in its line.
    quint64 m_revision = 0;
};

} // namespace platform
