#pragma once

#include "editor/colouring/SMLAutoCompleteDelegate.h"

/// How a text view helps while one types. Plain values; each takes effect at the next key.
class SMLEditingSettings
{
public:
    /// Columns that the shift commands move lines by, 100 at the most.
    unsigned indentWidth() const { return m_indentWidth; }
    void setIndentWidth(unsigned columns) { m_indentWidth = qMin(columns, 100U); }

    /// Tab and indentation put in blanks; with tab stops those up to the next stop.
    bool indentWithSpaces() const { return m_indentWithSpaces; }
    void setIndentWithSpaces(bool indents) { m_indentWithSpaces = indents; }
    bool useTabStops() const { return m_useTabStops; }
    void setUseTabStops(bool uses) { m_useTabStops = uses; }

    bool indentNewLinesAutomatically() const { return m_indentNewLinesAutomatically; }
    void setIndentNewLinesAutomatically(bool indents) { m_indentNewLinesAutomatically = indents; }
    bool indentBracesAutomatically() const { return m_indentBracesAutomatically; }
    void setIndentBracesAutomatically(bool indents) { m_indentBracesAutomatically = indents; }

    bool insertClosingParenthesisAutomatically() const { return m_insertsClosingParenthesis; }
    void setInsertClosingParenthesisAutomatically(bool ins) { m_insertsClosingParenthesis = ins; }
    bool insertClosingBraceAutomatically() const { return m_insertsClosingBrace; }
    void setInsertClosingBraceAutomatically(bool inserts) { m_insertsClosingBrace = inserts; }
    bool showsMatchingBraces() const { return m_showsMatchingBraces; }
    void setShowsMatchingBraces(bool shows) { m_showsMatchingBraces = shows; }

    /// Whether the completion list shows by itself when the keys rest, and after how many seconds.
    bool autoCompleteEnabled() const { return m_autoCompleteEnabled; }
    void setAutoCompleteEnabled(bool enabled) { m_autoCompleteEnabled = enabled; }
    double autoCompleteDelay() const { return m_autoCompleteDelay; }
    void setAutoCompleteDelay(double seconds) { m_autoCompleteDelay = seconds; }

    /// Where its words come from: the delegate (borrowed), or when it is null the language; with
    /// keywords the language's keywords too.
    SMLAutoCompleteDelegate *autoCompleteDelegate() const { return m_autoCompleteDelegate; }
    void setAutoCompleteDelegate(SMLAutoCompleteDelegate *source)
    {
        m_autoCompleteDelegate = source;
    }
    bool autoCompleteWithKeywords() const { return m_autoCompleteWithKeywords; }
    void setAutoCompleteWithKeywords(bool with) { m_autoCompleteWithKeywords = with; }

protected:
    ~SMLEditingSettings() = default;

private:
    unsigned m_indentWidth = 4;
    bool m_indentWithSpaces = false;
    bool m_useTabStops = true;
    bool m_indentNewLinesAutomatically = true;
    bool m_indentBracesAutomatically = true;
    bool m_insertsClosingParenthesis = false;
    bool m_insertsClosingBrace = false;
    bool m_showsMatchingBraces = true;
    bool m_autoCompleteEnabled = false;
    double m_autoCompleteDelay = 1.0;
    SMLAutoCompleteDelegate *m_autoCompleteDelegate = nullptr;
    bool m_autoCompleteWithKeywords = false;
};
