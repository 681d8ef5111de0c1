#pragma once

#include "platform/text/LayoutManager.h"
#include <array>
#include <QStaticText>

/// A text with attributes of its own, apart from any view. Runs are ascending and apart; what no
/// run covers has no attributes.
struct MGSAttributedString
{
    struct Run
    {
        platform::TextRange range;
        platform::TextAttributes attributes;
        bool operator==(const Run &) const = default;
    };

    QString string;
    std::vector<Run> runs;
};

/// Shows the invisible characters (tabs, blanks, line ends) when asked to, and underlines errors
/// with a red zigzag (platform::isErrorUnderline). Main thread.
class SMLLayoutManager : public platform::LayoutManager
{
    Q_OBJECT

public:
    explicit SMLLayoutManager(
        std::shared_ptr<platform::TextStorage> storage = std::make_shared<platform::TextStorage>(),
        QObject *parent = nullptr);

    bool showsInvisibleCharacters() const { return m_showsInvisibleCharacters; }
    void setShowsInvisibleCharacters(bool shows);

    QFont invisibleCharactersFont() const { return m_invisibleCharactersFont; } ///< "Menlo" 11
    void setInvisibleCharactersFont(const QFont &font);

    QColor invisibleCharactersColour() const { return m_invisibleCharactersColour; } ///< Orange
    void setInvisibleCharactersColour(const QColor &colour);

    /// The text with its temporary attributes but the background, which marks errors and no syntax.
    MGSAttributedString attributedStringWithTemporaryAttributesApplied() const;

    /// A background that a whole line has reaches from edge to edge.
    void drawLineBackground(QPainter *painter, qsizetype line, QPointF origin,
                            const QRectF &clip) override;
    void drawLine(QPainter *painter, qsizetype line, QPointF origin, const QRectF &clip) override;

private:
    enum Sign { Tab, Space, Newline, SignCount };

    void prepareSigns();
    void drawInvisibleCharacters(QPainter *painter, qsizetype line, QPointF origin,
                                 const QRectF &clip);
    void drawSign(QPainter *painter, Sign sign, const QRectF &place) const;
    QColor backgroundOfLine(qsizetype line) const; ///< Invalid unless all of the line has it.
    void drawErrorUnderlines(QPainter *painter, qsizetype line, QPointF origin, const QRectF &clip);

    bool m_showsInvisibleCharacters = false;
    QFont m_invisibleCharactersFont;
    QColor m_invisibleCharactersColour{255, 128, 0};
    std::array<QStaticText, SignCount> m_signs;
};
