#pragma once

#include <QColor>
#include <QObject>
#include <QVariantList>

/// What a client says is wrong in the text, and how it wants to see it. Owned by the editor view;
/// main thread.
class MGSSyntaxErrorController : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    const QVariantList &syntaxErrors() const { return m_syntaxErrors; }
    void setSyntaxErrors(const QVariantList &errors) { m_syntaxErrors = errors; }

    bool showsSyntaxErrors() const { return m_showsSyntaxErrors; }
    void setShowsSyntaxErrors(bool shows) { m_showsSyntaxErrors = shows; }

    bool showsIndividualErrors() const { return m_showsIndividualErrors; }
    void setShowsIndividualErrors(bool shows) { m_showsIndividualErrors = shows; }

    QColor defaultSyntaxErrorHighlightingColour() const { return m_highlightingColour; }
    void setDefaultSyntaxErrorHighlightingColour(const QColor &colour)
    {
        m_highlightingColour = colour;
    }

private:
    QVariantList m_syntaxErrors;
    bool m_showsSyntaxErrors = false;
    bool m_showsIndividualErrors = false;
    QColor m_highlightingColour = QColor::fromRgbF(1.0F, 1.0F, 0.7F);
};
