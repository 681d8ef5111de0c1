#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/ReferenceColouring.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "fuzz/FuzzTargets.h"
#include "platform/Assert.h"
#include "platform/PropertyList.h"

namespace fuzz {

namespace {

constexpr qsizetype longestText = 1500; // the reference takes its square

std::shared_ptr<MGSSyntaxDefinition> definitionFrom(const QByteArray &head)
{
    try {
        if (const auto document = platform::PropertyList::parse(head);
            document && document->root.typeId() == QMetaType::QVariantMap)
            return std::make_shared<MGSSyntaxDefinition>(document->root.toMap(), QString());
        const QString name = QString::fromLatin1(head);
        const auto shipped = MGSSyntaxController::sharedInstance().syntaxDictionaryWithName(name);
        return std::make_shared<MGSSyntaxDefinition>(shipped.value_or(QVariantMap()), name);
    } catch (const platform::AssertionFailure &) {
        return nullptr;
    }
}

void requireAgreement(const SMLSyntaxColouring &colouring, const ReferenceColouring &reference)
{
    for (qsizetype i = 0; i < reference.text().size(); ++i) {
        if (colouring.syntaxColouringGroupOfCharacterAtIndex(i) != reference.groups()[size_t(i)])
            qFatal("another colour at %lld", qint64(i));
    }
}

} // namespace

/// The name of a language or a definition, NUL, a text. It is coloured as a whole; then its middle
/// is taken out, and what is left is coloured line by line.
void colouring(const QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    const auto definition = definitionFrom(bytes.left(std::max<qsizetype>(end, 0)));
    if (!definition)
        return;
    const QString text = QString::fromUtf8(bytes.mid(end + 1)).left(longestText);
    platform::LayoutManager layout;
    SMLSyntaxColouring colouring(&layout);
    colouring.setSyntaxDefinition(definition);
    ReferenceColouring reference(*definition);
    const auto replace = [&](platform::TextRange range, const QString &string) {
        layout.textStorage()->replaceCharacters(range, string);
        reference.replaceCharacters(range, string);
    };
    const auto recolour = [&](platform::TextRange range) {
        colouring.recolourRange(range);
        reference.recolourRange(range);
        requireAgreement(colouring, reference);
    };
    if (text.isEmpty())
        return;
    replace({}, text);
    recolour({0, text.size()});
    replace({text.size() / 3, text.size() / 3}, QString());
    for (qsizetype line = layout.textStorage()->lineCount(); line-- > 0;)
        recolour(layout.textStorage()->lineContents(line));
}

} // namespace fuzz
