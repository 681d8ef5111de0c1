#pragma once

#include "editor/MGSBinding.h"
#include "editor/MGSFragariaProperties.h"
#include "editor/SMLLayoutManager.h"
#include <QAbstractScrollArea>
#include <QSet>
#include <QVariantMap>

class MGSBreakpointDelegate;
class MGSLineNumberView;
class MGSSyntaxErrorController;
class SMLAutoCompleteDelegate;
class SMLSyntaxColouring;
class SMLSyntaxColouringDelegate;
class SMLSyntaxError;
class SMLTextView;

namespace platform {
class FindBar;
class TextViewDelegate;
} // namespace platform

/// A setting as a property with getter and setter.
#define MGS_FRAGARIA_DECLARE(type, name, Name, ...)                                                \
    Q_PROPERTY(type name READ name WRITE set##Name NOTIFY settingsDidChange)                       \
public:                                                                                            \
    type name() const;                                                                             \
    void set##Name(const type &value);

/// The code editor as its clients hold it: makes and owns the text view, its gutter, colouring and
/// syntax errors, and offers their settings as one flat set of properties
/// (MGSFragariaProperties.h). Reading a property asks its owner, writing it goes to the owner, then
/// to a binding of the same name (MGSBinding.h), and is told by `settingsDidChange`.
///
/// Complete when it is made. Owned by its parent widget; delegates are borrowed. Main thread.
class MGSFragariaView : public QFrame
{
    Q_OBJECT
    MGS_FRAGARIA_PROPERTIES(MGS_FRAGARIA_DECLARE, MGS_FRAGARIA_DECLARE, MGS_FRAGARIA_DECLARE)
    Q_PROPERTY(
        bool syntaxColoured READ isSyntaxColoured WRITE setSyntaxColoured NOTIFY settingsDidChange)
    MGS_FRAGARIA_DECLARE(bool, showsGutter, ShowsGutter)
    MGS_FRAGARIA_DECLARE(bool, hasVerticalScroller, HasVerticalScroller)
    /// Kept for its clients: nothing bounces here.
    MGS_FRAGARIA_DECLARE(bool, scrollElasticityDisabled, ScrollElasticityDisabled)

public:
    explicit MGSFragariaView(QWidget *parent = nullptr);
    ~MGSFragariaView() override;

    bool isSyntaxColoured() const;
    void setSyntaxColoured(bool coloured); ///< Its binding is "isSyntaxColoured".

    SMLTextView *textView() const { return m_textView; }
    QAbstractScrollArea *scrollView() const;                 ///< Which is the text view.
    platform::FindBar *findBar() const { return m_findBar; } ///< Below the text, hidden at first.
    MGSLineNumberView *gutterView() const { return m_gutterView; }
    MGSSyntaxErrorController *syntaxErrorController() const { return m_syntaxErrorController; }
    SMLSyntaxColouring *syntaxColouring() const;

    platform::TextViewDelegate *textViewDelegate() const;
    void setTextViewDelegate(platform::TextViewDelegate *delegate);
    SMLAutoCompleteDelegate *autoCompleteDelegate() const;
    void
    setAutoCompleteDelegate(SMLAutoCompleteDelegate *delegate); ///< Null: the language's words.
    MGSBreakpointDelegate *breakpointDelegate() const;
    void setBreakpointDelegate(MGSBreakpointDelegate *delegate);
    SMLSyntaxColouringDelegate *syntaxColouringDelegate() const;
    void setSyntaxColouringDelegate(SMLSyntaxColouringDelegate *delegate);
    QList<SMLSyntaxError> syntaxErrors() const;
    void setSyntaxErrors(const QVariantList &errors); ///< See MGSSyntaxErrorController.h.

    /// Another text under the editor, with its own history of undo.
    void replaceTextStorage(std::shared_ptr<platform::TextStorage> storage);

    MGSAttributedString attributedStringWithTemporaryAttributesApplied();

    // As those of the text view.
    void getRowAndColumn(qsizetype *row, qsizetype *column, qsizetype forCharacterIndex) const;
    void getRowAndIndexInRow(qsizetype *row, qsizetype *index, qsizetype forCharacterIndex) const;
    qsizetype characterIndexAtColumn(qsizetype column, qsizetype withinRow) const;
    qsizetype characterIndexAtIndex(qsizetype index, qsizetype withinRow) const;

    /// One-based; a line that does not exist beeps. `centered` is ignored, with a line in the log.
    void goToLine(qsizetype line, bool centered, bool highlight);
    void reloadBreakpointData();

    // The catalogue: 58 of the properties, with default values and the groups that preferences
    // show them in.

    static QVariantMap defaultsDictionary(); ///< Colours and fonts archived (MGSArchiving.h).
    static QString namespacedKeyForKey(const QString &key); ///< "MGSFragariaDefaultsTabWidth"
    static QVariantMap defaultsDictionaryWithNamespace();
    void resetDefaults();

    static QSet<QString> propertyGroupEditing();
    static QSet<QString> propertyGroupGutter();
    static QSet<QString> propertyGroupAutocomplete();
    static QSet<QString> propertyGroupIndenting();
    static QSet<QString> propertyGroupTextFont();
    static QSet<QString> propertyGroupEditorColours();
    static QSet<QString> propertyGroupSyntaxHighlightingColours();
    static QSet<QString> propertyGroupSyntaxHighlightingBools();
    static QSet<QString> propertyGroupSyntaxHighlighting();
    static QSet<QString> propertyGroupTheme();
    static QSet<QString> propertyGroupColouringExtraOptions();

Q_SIGNALS:
    void settingsDidChange(); ///< Some property has been set.

private:
    void setupView();
    void settingDidChange(const QString &name, const QVariant &value);

    SMLTextView *m_textView = nullptr;
    platform::FindBar *m_findBar = nullptr;
    MGSLineNumberView *m_gutterView = nullptr;
    MGSSyntaxErrorController *m_syntaxErrorController = nullptr;
    bool m_scrollElasticityDisabled = false;
};
