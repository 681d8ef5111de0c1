#pragma once

#include "platform/text/TextAttributes.h"
#include "platform/text/TextStorage.h"
#include <functional>
#include <optional>
#include <QLatin1StringView>
#include <QVariantMap>

// What delegates find in `info`.
inline constexpr QLatin1StringView SMLSyntaxInfo("syntaxInfo"); ///< The definition (QVariantMap)
inline constexpr QLatin1StringView SMLSyntaxWillColour("willColour"); ///< bool: unless asked not to
inline constexpr QLatin1StringView SMLSyntaxGroup("group");     ///< Name of the pass (QString)
inline constexpr QLatin1StringView SMLSyntaxGroupID("groupID"); ///< Its number (int), from 0
inline constexpr QLatin1StringView SMLSyntaxAttributes("attributes"); ///< platform::TextAttributes

// The passes, in their order.
inline constexpr QLatin1StringView SMLSyntaxGroupNumber("number");
inline constexpr QLatin1StringView SMLSyntaxGroupCommand("command");
inline constexpr QLatin1StringView SMLSyntaxGroupInstruction("instruction");
inline constexpr QLatin1StringView SMLSyntaxGroupKeyword("keyword");
inline constexpr QLatin1StringView SMLSyntaxGroupAutoComplete("autocomplete");
inline constexpr QLatin1StringView SMLSyntaxGroupVariable("variable");
inline constexpr QLatin1StringView SMLSyntaxGroupSecondString("secondString");
inline constexpr QLatin1StringView SMLSyntaxGroupFirstString("firstString");
inline constexpr QLatin1StringView SMLSyntaxGroupAttribute("attribute");
inline constexpr QLatin1StringView SMLSyntaxGroupSingleLineComment("singleLineComment");
inline constexpr QLatin1StringView SMLSyntaxGroupMultiLineComment("multiLineComment");
inline constexpr QLatin1StringView SMLSyntaxGroupSecondStringPass2("secondStringPass2");

/// Steers colouring and paints on its own: asked and told around each colouring of a range, and
/// around each pass over it. All operations are optional. They may read and paint the layout
/// manager; editing the text or replacing it ends the colouring.
class SMLSyntaxColouringDelegate
{
public:
    /// Paints a range of the text as colouring does (SMLSyntaxColouring::setColour). True.
    using Block = std::function<bool(const platform::TextAttributes &, platform::TextRange)>;

    /// Who asks. Borrowed for the call; the view may be null, and the string is the whole text.
    struct Context
    {
        QObject *fragaria;
        const Block &block;
        const platform::TextStorage &string;
    };

    virtual ~SMLSyntaxColouringDelegate() = default;

    /// False: the text about the range stays without paint, and is not asked for again. Nullopt: no
    /// answer.
    virtual std::optional<bool> fragariaDocumentShouldColour(const Context &,
                                                             platform::TextRange /*range*/,
                                                             const QVariantMap & /*info*/)
    {
        return std::nullopt;
    }
    virtual void fragariaDocumentDidColour(const Context &, platform::TextRange /*range*/,
                                           const QVariantMap & /*info*/)
    {
    }

    /// The answer decides whether the pass runs, whatever else it depends on. Here the range is all
    /// that is being coloured.
    virtual std::optional<bool> fragariaDocumentShouldColourGroup(const Context &,
                                                                  platform::TextRange /*range*/,
                                                                  const QVariantMap & /*info*/)
    {
        return std::nullopt;
    }
    virtual void fragariaDocumentDidColourGroup(const Context &, platform::TextRange /*range*/,
                                                const QVariantMap & /*info*/)
    {
    }
};
