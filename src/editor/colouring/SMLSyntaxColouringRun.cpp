#include "editor/colouring/PaintCanvas.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "editor/colouring/SMLSyntaxColouringDelegate.h"
#include "editor/colouring/SyntaxPasses.h"
#include "platform/Assert.h"
#include "platform/Log.h"

using platform::LayoutManager;
using platform::TextAttributes;
using platform::TextRange;
using platform::TextStorage;

/// One pass: what delegates know it as, what it does, whether it is wanted, what it paints with.
struct SMLSyntaxColouring::Group
{
    QLatin1StringView name;
    void (SyntaxPasses::*colour)();
    bool (*willColour)(const SMLSyntaxColouring &);
    SyntaxPaint paint;
};

const std::array<SMLSyntaxColouring::Group, SMLSyntaxColouring::groupCount>
    SMLSyntaxColouring::groups = {{
        {SMLSyntaxGroupNumber, &SyntaxPasses::colourNumbers,
         [](const SMLSyntaxColouring &c) { return c.m_coloursNumbers; }, SyntaxPaint::Numbers},
        {SMLSyntaxGroupCommand, &SyntaxPasses::colourCommands,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursCommands && !c.m_definition->beginCommand().isEmpty();
         },
         SyntaxPaint::Commands},
        {SMLSyntaxGroupInstruction, &SyntaxPasses::colourInstructions,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursInstructions && (!c.m_definition->beginInstruction().isEmpty() ||
                                                c.m_definition->instructions().has_value());
         },
         SyntaxPaint::Instructions},
        {SMLSyntaxGroupKeyword, &SyntaxPasses::colourKeywords,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursKeywords && !c.m_definition->keywords().isEmpty();
         },
         SyntaxPaint::Keywords},
        {SMLSyntaxGroupAutoComplete, &SyntaxPasses::colourAutocomplete,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursAutocomplete && !c.m_definition->autocompleteWords().isEmpty();
         },
         SyntaxPaint::Autocomplete},
        {SMLSyntaxGroupVariable, &SyntaxPasses::colourVariables,
         [](const SMLSyntaxColouring &c) { return c.m_coloursVariables; }, SyntaxPaint::Variables},
        {SMLSyntaxGroupSecondString, &SyntaxPasses::colourSecondStrings1,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursStrings && !c.m_definition->secondString().isEmpty();
         },
         SyntaxPaint::Strings},
        {SMLSyntaxGroupFirstString, &SyntaxPasses::colourFirstStrings,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursStrings && !c.m_definition->firstString().isEmpty();
         },
         SyntaxPaint::Strings},
        {SMLSyntaxGroupAttribute, &SyntaxPasses::colourAttributes,
         [](const SMLSyntaxColouring &c) { return c.m_coloursAttributes; },
         SyntaxPaint::Attributes},
        {SMLSyntaxGroupSingleLineComment, &SyntaxPasses::colourSingleLineComments,
         [](const SMLSyntaxColouring &c) { return c.m_coloursComments; }, SyntaxPaint::Comments},
        {SMLSyntaxGroupMultiLineComment, &SyntaxPasses::colourMultiLineComments,
         [](const SMLSyntaxColouring &c) { return c.m_coloursComments; }, SyntaxPaint::Comments},
        {SMLSyntaxGroupSecondStringPass2, &SyntaxPasses::colourSecondStrings2,
         [](const SMLSyntaxColouring &c) {
             return c.m_coloursStrings && !c.m_definition->secondString().isEmpty();
         },
         SyntaxPaint::Strings},
    }};

/// One colouring of one range, with the delegate's part in it.
struct SMLSyntaxColouring::Run
{
    using Delegate = SMLSyntaxColouringDelegate;

    Run(SMLSyntaxColouring &engine, TextRange working, TextRange keptRange)
        : colouring(engine), definition(engine.m_definition), storage(engine.m_observed),
          revision(storage->revision()),
          canvas(*engine.m_layoutManager, engine.m_attributes, working, keptRange), range(working),
          passes({*definition, *engine.m_patterns, *storage, engine.m_delimiters, canvas, working,
                  engine.m_coloursMultiLineStrings, engine.m_coloursOnlyUntilEndOfLine})
    {
    }

    bool isIntact() const
    {
        return storage && storage->revision() == revision && colouring.m_observed == storage &&
               colouring.m_layoutManager && colouring.m_definition == definition;
    }

    /// Calls one of the delegate's operations, which sees and may change what is painted so far.
    template <class Result>
    Result ask(Result (Delegate::*operation)(const Delegate::Context &, TextRange,
                                             const QVariantMap &),
               TextRange about, const QVariantMap &info)
    {
        const Delegate::Block block = [this](const TextAttributes &attributes, TextRange part) {
            colouring.setColour(attributes, part);
            return true;
        };
        canvas.flush();
        const Delegate::Context context{colouring.m_fragaria, block, *storage};
        if constexpr (std::is_void_v<Result>) {
            (colouring.m_delegate->*operation)(context, about, info);
            goOn();
        } else {
            const Result result = (colouring.m_delegate->*operation)(context, about, info);
            goOn();
            return result;
        }
    }

    void goOn()
    {
        if (!isIntact())
            throw platform::Exception(QStringLiteral("Colouring"),
                                      QStringLiteral("the text was changed while it was coloured"));
        canvas.reload();
    }

    SMLSyntaxColouring &colouring;
    const std::shared_ptr<const MGSSyntaxDefinition> definition;
    const QPointer<TextStorage> storage;
    const quint64 revision;
    PaintCanvas canvas;
    const TextRange range;
    SyntaxPasses passes;
};

void SMLSyntaxColouring::colour(TextRange working, TextRange kept, TextRange range)
{
    Run run(*this, working, kept);
    try {
        QVariantMap info{{SMLSyntaxInfo, m_definition->syntaxDictionary()}};
        QVariantMap asked = info;
        asked.insert(SMLSyntaxWillColour, isSyntaxColouringRequired());
        if (!m_delegate ||
            run.ask(&SMLSyntaxColouringDelegate::fragariaDocumentShouldColour, range, asked)
                .value_or(true)) {
            for (int identifier = 0; identifier < groupCount; ++identifier)
                colourGroupWithIdentifier(identifier, run);
            if (m_delegate)
                run.ask(&SMLSyntaxColouringDelegate::fragariaDocumentDidColour, range, info);
        }
        run.canvas.flush();
    } catch (const std::exception &exception) {
        platform::log("Syntax colouring exception: %@", exception.what());
    }
}

void SMLSyntaxColouring::colourGroupWithIdentifier(int identifier, Run &run)
{
    if (identifier < 0 || identifier >= groupCount)
        throw platform::Exception(
            QStringLiteral("Bug"),
            platform::format(QStringLiteral("Unrecognized syntax group identifier %ld"),
                             long(identifier)));
    const Group &group = groups[size_t(identifier)];
    bool colours = group.willColour(*this);
    const auto info = [&] {
        return QVariantMap{
            {SMLSyntaxGroup, QString(group.name)},
            {SMLSyntaxGroupID, identifier},
            {SMLSyntaxWillColour, group.willColour(*this)},
            {SMLSyntaxAttributes, QVariant::fromValue(m_attributes[size_t(group.paint)])},
            {SMLSyntaxInfo, m_definition->syntaxDictionary()}};
    };
    if (m_delegate)
        colours = run.ask(&SMLSyntaxColouringDelegate::fragariaDocumentShouldColourGroup, run.range,
                          info())
                      .value_or(colours);
    if (!colours)
        return;
    (run.passes.*group.colour)();
    if (m_delegate)
        run.ask(&SMLSyntaxColouringDelegate::fragariaDocumentDidColourGroup, run.range, info());
}
