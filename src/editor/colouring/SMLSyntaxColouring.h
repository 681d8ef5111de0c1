#pragma once

#include "editor/colouring/DelimiterIndex.h"
#include "editor/colouring/MGSSyntaxDefinition.h"
#include "editor/colouring/SyntaxPaint.h"
#include "platform/text/IndexSet.h"
#include "platform/text/LayoutManager.h"
#include <QColor>
#include <QPointer>
#include <QTimer>

class SMLSyntaxColouringDelegate;
class SyntaxPatterns;

/// Colours code lazily: paints temporary attributes on the layout manager, a foreground colour and
/// the name of a group, for text that is about to be seen. Remembers which characters are coloured;
/// an edit takes its lines out of that memory and colours nothing, the next drawing does. What text
/// shows its colours depends on calling `recolourRange` before it is drawn.
///
/// Of a line above `longestWholeLine` only the surroundings of the asked range are looked at,
/// `lineMargin` to both sides, and half of that is coloured, up to what has been before.
///
/// Whoever makes it owns it. The layout manager is borrowed, and nothing happens without it, or
/// without a definition. Main thread; nothing here needs a screen.
class SMLSyntaxColouring : public QObject
{
    Q_OBJECT

    Q_PROPERTY(
        bool coloursMultiLineStrings READ coloursMultiLineStrings WRITE setColoursMultiLineStrings)
    Q_PROPERTY(bool coloursOnlyUntilEndOfLine READ coloursOnlyUntilEndOfLine WRITE
                   setColoursOnlyUntilEndOfLine)
    // The colour of each group, and whether it is coloured at all.
    Q_PROPERTY(QColor colourForAttributes MEMBER m_colourForAttributes NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForAutocomplete MEMBER m_colourForAutocomplete NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForCommands MEMBER m_colourForCommands NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForComments MEMBER m_colourForComments NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForInstructions MEMBER m_colourForInstructions NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForKeywords MEMBER m_colourForKeywords NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForNumbers MEMBER m_colourForNumbers NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForStrings MEMBER m_colourForStrings NOTIFY coloursChanged)
    Q_PROPERTY(QColor colourForVariables MEMBER m_colourForVariables NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursAttributes MEMBER m_coloursAttributes NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursAutocomplete MEMBER m_coloursAutocomplete NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursCommands MEMBER m_coloursCommands NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursComments MEMBER m_coloursComments NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursInstructions MEMBER m_coloursInstructions NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursKeywords MEMBER m_coloursKeywords NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursNumbers MEMBER m_coloursNumbers NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursStrings MEMBER m_coloursStrings NOTIFY coloursChanged)
    Q_PROPERTY(bool coloursVariables MEMBER m_coloursVariables NOTIFY coloursChanged)

public:
    static constexpr qsizetype longestWholeLine = 4 << 20; ///< UTF-16 units.
    static constexpr qsizetype lineMargin = 64 << 10;      ///< UTF-16 units.
    static constexpr int groupCount = 12;

    explicit SMLSyntaxColouring(platform::LayoutManager *layoutManager, QObject *parent = nullptr);
    ~SMLSyntaxColouring() override;

    platform::LayoutManager *layoutManager() const { return m_layoutManager; }

    /// The view that delegates are told of; may be null.
    QObject *fragaria() const { return m_fragaria; }
    void setFragaria(QObject *fragaria) { m_fragaria = fragaria; }

    /// Borrowed: whoever sets it takes it back before it goes. May be null.
    SMLSyntaxColouringDelegate *syntaxColouringDelegate() const { return m_delegate; }
    void setSyntaxColouringDelegate(SMLSyntaxColouringDelegate *d) { m_delegate = d; }

    /// Null at first. Setting one takes all colours off.
    const std::shared_ptr<const MGSSyntaxDefinition> &syntaxDefinition() const
    {
        return m_definition;
    }
    void setSyntaxDefinition(std::shared_ptr<const MGSSyntaxDefinition> definition);

    /// The definition that the shared register has for the name; a name that it does not know, or
    /// whose definition cannot be used, gets the standard one, and keeps its name. Null without a
    /// definition.
    QString syntaxDefinitionName() const;
    void setSyntaxDefinitionName(const QString &name);
    bool isSyntaxColouringRequired() const;

    /// Whether strings may run across lines; at first they do not.
    bool coloursMultiLineStrings() const { return m_coloursMultiLineStrings; }
    void setColoursMultiLineStrings(bool colours);

    /// Whether a comment or an instruction that is never closed ends with its first line, as at
    /// first, or with the text.
    bool coloursOnlyUntilEndOfLine() const { return m_coloursOnlyUntilEndOfLine; }
    void setColoursOnlyUntilEndOfLine(bool only);

    /// Colours what of the range is not coloured; beyond the text there is nothing to colour.
    void recolourRange(platform::TextRange range);

    /// Colours the range's lines, and the runs that reach into them, whole. What has been coloured.
    /// An exception ends the colouring, is logged, and changes nothing about the result.
    platform::TextRange recolourChangedRange(platform::TextRange range);

    /// Takes all colours off; what is drawn next is coloured anew.
    void invalidateAllColouring();

    /// What is seen is coloured anew when it is drawn next, and keeps its colours until then.
    void invalidateVisibleRange(platform::TextRange range) { m_inspected.remove(range); }

    const platform::IndexSet &inspectedCharacterIndexes() const { return m_inspected; }

    /// "command", "comments", "instruction", "keyword", "autocomplete", "strings", "variable",
    /// "attribute" or "number", or what a delegate has painted; null for none.
    QString syntaxColouringGroupOfCharacterAtIndex(qsizetype index) const;

    /// Paints the attributes on the range, see PaintCanvas.h.
    void setColour(const platform::TextAttributes &attributes, platform::TextRange range);

    // Called before and after the layout manager gets another text.
    void layoutManagerWillChangeTextStorage();
    void layoutManagerDidChangeTextStorage();

Q_SIGNALS:
    void coloursChanged(); ///< One of the properties above has.

private:
    struct Paint;
    struct Group;
    struct Run;
    static const std::array<Paint, syntaxPaintCount> paints;
    static const std::array<Group, groupCount> groups;

    void setDefaultColours();
    void rebuildAttributesCache();
    void lookAhead();
    void textStorageDidProcessEditing(platform::TextRange range, qsizetype changeInLength);

    platform::TextRange lineRange(platform::TextRange range) const;
    platform::TextRange keptRange(platform::TextRange working, platform::TextRange range) const;
    platform::TextRange workingRange(platform::TextRange range);
    platform::TextRange extendedForStrings(platform::TextRange lines, platform::TextRange range);
    platform::TextRange extendedForRuns(platform::TextRange range) const;
    void colour(platform::TextRange working, platform::TextRange kept, platform::TextRange range);
    void colourGroupWithIdentifier(int identifier, Run &run);

    QPointer<platform::LayoutManager> m_layoutManager;
    QPointer<QObject> m_fragaria;
    SMLSyntaxColouringDelegate *m_delegate = nullptr;
    std::shared_ptr<const MGSSyntaxDefinition> m_definition;
    std::unique_ptr<SyntaxPatterns> m_patterns;
    platform::IndexSet m_inspected;
    DelimiterIndex m_delimiters;
    QTimer m_lookAhead; ///< Fires when nothing else is to do.
    SyntaxPaints m_attributes;
    QPointer<platform::TextStorage> m_observed;
    bool m_coloursMultiLineStrings = false;
    bool m_coloursOnlyUntilEndOfLine = true;

    QColor m_colourForAttributes;
    QColor m_colourForAutocomplete;
    QColor m_colourForCommands;
    QColor m_colourForComments;
    QColor m_colourForInstructions;
    QColor m_colourForKeywords;
    QColor m_colourForNumbers;
    QColor m_colourForStrings;
    QColor m_colourForVariables;
    bool m_coloursAttributes = true;
    bool m_coloursAutocomplete = false;
    bool m_coloursCommands = true;
    bool m_coloursComments = true;
    bool m_coloursInstructions = true;
    bool m_coloursKeywords = true;
    bool m_coloursNumbers = true;
    bool m_coloursStrings = true;
    bool m_coloursVariables = true;
};
