#include "editor/colouring/MGSSyntaxDefinition.h"
#include "fuzz/FuzzTargets.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"

namespace fuzz {

namespace {

void require(bool holds, const char *what)
{
    if (!holds)
        qFatal("%s", what);
}

void inspect(const MGSSyntaxDefinition &definition)
{
    for (const auto &pair : definition.multiLineComments())
        require(!pair.opening.isEmpty() && !pair.closing.isEmpty(), "half a comment");
    require(definition.singleLineComments().has_value() ==
                definition.singleLineCommentRegex().isNull(),
            "comment tokens beside a pattern");
    for (const QString &token : definition.singleLineComments().value_or(QStringList()))
        require(!token.isEmpty(), "an empty comment token");
    require(definition.beginVariableCharacterSet().has_value() ==
                definition.variableRegex().isNull(),
            "variables by characters beside a pattern");
    require(definition.completions().size() == definition.autocompleteWords().size(),
            "completions are lost");
}

} // namespace

void syntaxDefinition(const QByteArray &bytes)
{
    const auto document = platform::PropertyList::parse(bytes);
    if (!document || document->root.typeId() != QMetaType::QVariantMap)
        return;
    try {
        inspect(MGSSyntaxDefinition(document->root.toMap(), QStringLiteral("Fuzzed")));
    } catch (const platform::AssertionFailure &failure) {
        require(failure.text().endsWith(QStringLiteral(" expected")), "another assertion");
    }
}

} // namespace fuzz
