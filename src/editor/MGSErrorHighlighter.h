#pragma once

#include "editor/SMLSyntaxError.h"
#include "platform/text/TextAttributes.h"
#include "platform/text/TextStorage.h"
#include <QHash>

/// How a stretch of text with errors is highlighted.
struct MGSErrorHighlight
{
    platform::TextRange range;
    platform::TextAttributes attributes;
};

/// Works out which stretches of a text have which background, tool tip and underline, given its
/// errors. Attributes that come up again are the same sets, so whoever keeps them finds them again.
/// Main thread.
class MGSErrorHighlighter
{
public:
    struct Look
    {
        QColor lineColour;           ///< Of errors that have no colour of their own.
        bool underlinesEach = false; ///< Those with a length, with a zigzag.
    };

    void setErrors(const QList<SMLSyntaxError> &errors); ///< Hidden ones are left out.
    void setLook(const Look &look);
    const Look &look() const { return m_look; }

    /// Ascending and apart. The first error of a line colours the line; of those that cover a
    /// character the last one gives the tool tip. Costs n log n.
    std::vector<MGSErrorHighlight> highlights(const platform::TextStorage &text);

private:
    /// Where an error begins or ends to have a part in the look of the text. At one place ends go
    /// before beginnings.
    struct Boundary
    {
        enum class Side : quint8 { End, Begin };
        enum class Part : quint8 { Line, Characters };

        qsizetype at;
        int error;
        Side side;
        Part part;
    };
    struct Sweep;

    std::vector<Boundary> boundaries(const platform::TextStorage &text) const;
    QColor lineColour(int error) const;
    const platform::TextAttributes &attributes(const QColor &lineColour, int tipError,
                                               bool isUnderlined);
    bool isUnderlined(const SMLSyntaxError &error) const;

    QList<SMLSyntaxError> m_errors;
    Look m_look;
    /// By the colour and the error that gives the tip; without and with an underline.
    std::array<QHash<std::pair<quint64, int>, platform::TextAttributes>, 2> m_attributes;
};
