#include "editor/colouring/MGSSyntaxController.h"
#include "editor/colouring/ReferenceColouring.h"
#include "editor/colouring/SMLSyntaxColouring.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using platform::TextRange;

namespace {

/// Seeded chance, texts and definitions full of what colouring looks at.
class Chance
{
public:
    explicit Chance(unsigned seed) : m_engine(seed) {}

    qsizetype below(qsizetype bound) { return qsizetype(m_engine() % unsigned(bound)); }
    bool once(int in) { return below(in) == 0; }

    template <class List>
    QString oneOf(const List &list)
    {
        return list[size_t(below(qsizetype(std::size(list))))];
    }

    TextRange range(qsizetype length, qsizetype longest)
    {
        const qsizetype location = below(length + 1);
        return {location, below(std::min(length - location, longest) + 1)};
    }

    QString text(qsizetype most, const QStringList &own)
    {
        QString text;
        for (qsizetype left = below(most + 1); left > 0; --left)
            text += once(3) && !own.isEmpty() ? oneOf(own) : oneOf(fragments);
        return text;
    }

    QVariantMap definition()
    {
        QVariantMap definition;
        for (const auto &[key, values] : choices) {
            if (!once(3))
                definition.insert(key, oneOf(values));
        }
        for (const auto &key : {u"keywordsCaseSensitive"_s, u"recolourKeywordIfAlreadyColoured"_s})
            definition.insert(key, once(2));
        definition.insert(u"keywords"_s, QStringList{u"if"_s, u"IF"_s, u"a"_s, u"#b"_s, u"é"_s});
        definition.insert(u"autocompleteWords"_s, QStringList{u"if"_s, u"be"_s, u"Be"_s});
        if (once(3))
            definition.insert(u"instructions"_s, QStringList{u"be"_s, u":x"_s});
        return definition;
    }

private:
    const QStringList fragments = {u"\r"_s,
                                   u"\n"_s,
                                   u"\r\n"_s,
                                   u"\n"_s,
                                   u" "_s,
                                   u" "_s,
                                   u"\t"_s,
                                   QString(QChar(0x85)),
                                   u"\u2028"_s,
                                   u"\u00A0"_s,
                                   QString(QChar(0xD83D)),
                                   QString(QChar(0xDE00)),
                                   u"😀"_s,
                                   u"é"_s,
                                   u"ß"_s,
                                   u"\u0301"_s,
                                   u"_"_s,
                                   u"\""_s,
                                   u"\""_s,
                                   u"'"_s,
                                   u"'"_s,
                                   u"\\"_s,
                                   u"\\\""_s,
                                   u"`"_s,
                                   u"if"_s,
                                   u"IF"_s,
                                   u"a"_s,
                                   u"b"_s,
                                   u"be"_s,
                                   u"Be"_s,
                                   u"12"_s,
                                   u"1."_s,
                                   u".5"_s,
                                   u"."_s,
                                   u"="_s,
                                   u"<"_s,
                                   u">"_s,
                                   u"<a href=\"x\">"_s,
                                   u"</"_s,
                                   u"<!--"_s,
                                   u"-->"_s,
                                   u"-"_s,
                                   u"--></script>"_s,
                                   u"--> </STYLE>"_s,
                                   u"/*"_s,
                                   u"*/"_s,
                                   u"/"_s,
                                   u"*"_s,
                                   u"//"_s,
                                   u":"_s,
                                   u"#"_s,
                                   u"#!"_s,
                                   u"$"_s,
                                   u"&"_s,
                                   u"%"_s,
                                   u"%%"_s,
                                   u";"_s,
                                   u"?"_s,
                                   u"<?"_s,
                                   u"?>"_s,
                                   u"rem "_s,
                                   u"REM "_s,
                                   u"=begin"_s,
                                   u"=end"_s,
                                   u"\"\"\""_s,
                                   u"\0"_s,
                                   u" x-y ="_s,
                                   u"|"_s};

    const std::vector<std::pair<QString, QStringList>> choices = {
        {u"beginCommand"_s, {u"<"_s, u"<"_s, u"<?"_s, u"["_s, u"a"_s}},
        {u"endCommand"_s, {u">"_s, u">"_s, u"?>"_s, u"a"_s, u"<"_s, u"IF"_s}},
        {u"beginInstruction"_s, {u"<?"_s, u"<a"_s, u"\""_s, u"/"_s, u"<script"_s}},
        {u"endInstruction"_s, {u"?>"_s, u"</"_s, u"\""_s, u"</script>"_s, u"\n"_s, u""_s}},
        {u"firstString"_s, {u"\""_s, u"\""_s, u"'"_s, u"['`]"_s, u"\\$"_s, u"a"_s, u"("_s}},
        {u"secondString"_s, {u"'"_s, u"'"_s, u"\""_s, u"`"_s, u"['`]"_s, u"=="_s}},
        {u"firstSingleLineComment"_s, {u"//"_s, u"#"_s, u"%"_s, u"rem "_s, u"<!--"_s}},
        {u"secondSingleLineComment"_s, {u"#"_s, u"//"_s, u";"_s, u"%"_s}},
        {u"beginFirstMultiLineComment"_s, {u"/*"_s, u"<!--"_s, u"\"\"\""_s, u"<"_s, u"=begin"_s}},
        {u"endFirstMultiLineComment"_s, {u"*/"_s, u"-->"_s, u"\"\"\""_s, u"-->"_s, u"=end"_s}},
        {u"beginSecondMultiLineComment"_s, {u"<!--"_s, u"#"_s, u"*"_s, u"<!--"_s}},
        {u"endSecondMultiLineComment"_s, {u"-->"_s, u"#"_s, u"*"_s, u"-->"_s}},
        {u"beginVariable"_s, {u"$"_s, u"%$"_s, u"é&"_s}},
        {u"endVariable"_s, {u" ;"_s, u" \n"_s, u"$"_s, u""_s}},
        {u"variableRegex"_s, {u"(?m)^\\w+"_s, u"\\$\\w*"_s, u"("_s, u"(?<=a)b.?"_s}},
        {u"numberDefinition"_s, {u"\\b[0-9]+"_s, u"[0-9.]*$"_s}},
        {u"singleLineCommentRegex"_s, {u"(?m)#.*$"_s, u"^//.*"_s}},
        {u"includeInKeywordEndCharacterSet"_s, {u"-"_s, u"x"_s}},
        {u"excludeFromKeywordStartCharacterSet"_s, {u":@#"_s, u"a"_s}},
    };

    std::mt19937 m_engine;
};

/// The engine and the reference with one text.
class Pair
{
public:
    Pair(const std::shared_ptr<const MGSSyntaxDefinition> &definition, qsizetype blockLength)
        : m_layout(std::make_shared<platform::TextStorage>(blockLength)), m_reference(*definition)
    {
        m_engine.setSyntaxDefinition(definition);
    }

    void set(bool multiLineStrings, bool onlyUntilEndOfLine, bool autocomplete)
    {
        m_engine.setColoursMultiLineStrings(multiLineStrings);
        m_engine.setColoursOnlyUntilEndOfLine(onlyUntilEndOfLine);
        m_engine.setProperty("coloursAutocomplete", autocomplete);
        m_reference.coloursMultiLineStrings = multiLineStrings;
        m_reference.coloursOnlyUntilEndOfLine = onlyUntilEndOfLine;
        m_reference.coloursAutocomplete = autocomplete;
    }

    qsizetype length() const { return m_reference.text().size(); }

    void replaceCharacters(TextRange range, const QString &string)
    {
        m_layout.textStorage()->replaceCharacters(range, string);
        if (!range.isEmpty() || !string.isEmpty())
            m_reference.replaceCharacters(range, string);
    }

    void recolourRange(TextRange range)
    {
        m_engine.recolourRange(range);
        m_reference.recolourRange(range);
    }

    /// Empty: they agree.
    QString difference() const
    {
        for (qsizetype i = 0; i < length(); ++i) {
            const QString group = m_engine.syntaxColouringGroupOfCharacterAtIndex(i);
            const QString &expected = m_reference.groups()[size_t(i)];
            if (group != expected)
                return u"at %1 \"%2\" for \"%3\" in: %4"_s.arg(i).arg(
                    group, expected, QString(m_reference.text()).replace(QChar(0), u'0'));
            if (m_engine.inspectedCharacterIndexes().contains({i, 1}) != m_reference.isInspected(i))
                return u"at %1 inspected"_s.arg(i);
        }
        return {};
    }

private:
    platform::LayoutManager m_layout;
    SMLSyntaxColouring m_engine{&m_layout};
    ReferenceColouring m_reference;
};

void expectAgreement(Chance &chance, const std::shared_ptr<const MGSSyntaxDefinition> &definition)
{
    QStringList own(definition->keywords().begin(), definition->keywords().end());
    own.resize(std::min<qsizetype>(own.size(), 4));
    for (const QString &delimiter :
         {definition->beginCommand(), definition->endCommand(), definition->beginInstruction(),
          definition->endInstruction(), definition->firstString(), definition->secondString()})
        own += delimiter;
    own += definition->singleLineComments().value_or(QStringList());
    for (const auto &pair : definition->multiLineComments())
        own += {pair.opening, pair.closing};
    own.removeAll(QString());

    Pair pair(definition, 1 + chance.below(40));
    pair.set(chance.once(3), !chance.once(3), chance.once(2));
    pair.replaceCharacters({}, chance.text(40, own));
    for (int step = 0; step < 14; ++step) {
        if (step > 0 && !chance.once(3))
            pair.replaceCharacters(chance.range(pair.length(), 6), chance.text(3, own));
        pair.recolourRange(step == 0 && chance.once(2)
                               ? TextRange{0, pair.length()}
                               : chance.range(pair.length(), pair.length() / 2 + 1));
        const QString difference = pair.difference();
        ASSERT_TRUE(difference.isEmpty()) << "step " << step << ' ' << difference.toStdString();
    }
}

} // namespace

TEST(ColouringAgainstReference, AnyDefinition)
{
    const support::LogCapture log; // of patterns that cannot be compiled
    for (unsigned seed = 1; seed <= 1500 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const QVariantMap dictionary = chance.definition();
        expectAgreement(chance, std::make_shared<MGSSyntaxDefinition>(dictionary, u"Any"_s));
    }
}

TEST(ColouringAgainstReference, ShippedDefinitions)
{
    const support::LogCapture log;
    const MGSSyntaxController &controller = MGSSyntaxController::sharedInstance();
    unsigned seed = 1;
    for (const QString &name : controller.syntaxDefinitionNames()) {
        SCOPED_TRACE(name.toStdString());
        const auto definition =
            std::make_shared<MGSSyntaxDefinition>(*controller.syntaxDictionaryWithName(name), name);
        for (int i = 0; i < 8 && !testing::Test::HasFailure(); ++i) {
            Chance chance(++seed);
            expectAgreement(chance, definition);
        }
    }
}
