#include "platform/AppleScriptParser.h"

#include "platform/AppleScript.h"
#include "platform/Format.h"

#include <QStringList>

namespace platform::applescript {

namespace {

constexpr int deepestNesting = 50;

struct Token
{
    enum class Kind { Word, Text, Sign, LineEnd, End, Bad };
    Kind kind = Kind::End;
    QString text; // of a string literal its value
    int line = 1;
};

class Lexer
{
public:
    explicit Lexer(const QString &source) : m_source(source) {}

    std::vector<Token> tokens()
    {
        std::vector<Token> result;
        do {
            result.push_back(next());
        } while (result.back().kind != Token::Kind::End && result.back().kind != Token::Kind::Bad);
        return result;
    }

private:
    using Kind = Token::Kind;

    QStringView rest() const { return QStringView(m_source).sliced(m_at); }
    QChar peek() const { return m_at < m_source.size() ? m_source[m_at] : QChar(); }

    Token next()
    {
        skipBlanks();
        if (m_at >= m_source.size())
            return {Kind::End, {}, m_line};
        const QChar first = peek();
        if (first == u'\n' || first == u'\r')
            return lineEnd();
        if (first == u'"')
            return text();
        if (first.isLetter() || first == u'_')
            return word();
        ++m_at;
        return {QStringView(u"&()").contains(first) ? Kind::Sign : Kind::Bad, first, m_line};
    }

    void skipBlanks()
    {
        const auto isLineEnd = [this] {
            return peek() == u'\n' || peek() == u'\r';
        };
        while (m_at < m_source.size()) {
            if (peek() == u'#' || rest().startsWith(u"--")) {
                while (m_at < m_source.size() && !isLineEnd())
                    ++m_at;
            } else if (rest().startsWith(u"(*")) {
                const qsizetype end = m_source.indexOf(u"*)", m_at);
                const qsizetype after = end < 0 ? m_source.size() : end + 2;
                m_line += int(rest().first(after - m_at).count(u'\n'));
                m_at = after;
            } else if (peek().isSpace() && !isLineEnd()) {
                ++m_at;
            } else {
                return;
            }
        }
    }

    Token lineEnd()
    {
        m_at += rest().startsWith(u"\r\n") ? 2 : 1;
        return {Kind::LineEnd, {}, m_line++};
    }

    Token word()
    {
        const qsizetype start = m_at;
        while (peek().isLetterOrNumber() || peek() == u'_')
            ++m_at;
        return {Kind::Word, m_source.sliced(start, m_at - start), m_line};
    }

    Token text()
    {
        const int line = m_line;
        QString value = QStringLiteral("");
        for (++m_at; m_at < m_source.size() && peek() != u'"'; ++m_at) {
            if (peek() == u'\n')
                ++m_line;
            if (peek() == u'\\' && m_at + 1 < m_source.size())
                value += escapedCharacter(m_source[++m_at]);
            else
                value += peek();
        }
        if (m_at == m_source.size())
            return {Kind::Bad, QStringLiteral("\""), line};
        ++m_at;
        return {Kind::Text, value, line};
    }

    static QChar escapedCharacter(QChar letter)
    {
        switch (letter.unicode()) {
        case u'n':
            return u'\n';
        case u'r':
            return u'\r';
        case u't':
            return u'\t';
        default:
            return letter;
        }
    }

    QString m_source;
    qsizetype m_at = 0;
    int m_line = 1;
};

class Parser
{
public:
    explicit Parser(const QString &source) : m_tokens(Lexer(source).tokens()) {}

    std::optional<Script> script(Error *error)
    {
        Script script;
        if (block(script) && (is(Kind::End) || expected("the end of the script")))
            return script;
        *error = m_error;
        return std::nullopt;
    }

private:
    using Kind = Token::Kind;

    const Token &token() const { return m_tokens[m_at]; }
    bool is(Kind kind) const { return token().kind == kind; }
    bool isSign(char16_t sign) const { return is(Kind::Sign) && token().text == QChar(sign); }
    bool isWord(QLatin1StringView word) const
    {
        return is(Kind::Word) && token().text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool isWord(const char *word) const { return isWord(QLatin1StringView(word)); }
    bool take(const char *word)
    {
        const bool found = isWord(word);
        m_at += found;
        return found;
    }
    bool require(const char *word) { return take(word) || expected(word); }

    bool expected(const char *what)
    {
        const QString found = is(Kind::End)       ? QStringLiteral("the end of the script")
                              : is(Kind::LineEnd) ? QStringLiteral("the end of the line")
                                                  : token().text;
        return stop(format(QStringLiteral("Line %d of the script: %@ was expected, not %@."),
                           token().line, what, found));
    }

    bool stop(const QString &description)
    {
        return fail(&m_error, QString::fromLatin1(AppleScript::errorDomain),
                    AppleScript::SyntaxError, description);
    }

    // Statements up to what ends the block around them.
    bool block(Script &statements)
    {
        while (true) {
            while (is(Kind::LineEnd))
                ++m_at;
            if (is(Kind::End) || isWord("end") || isWord("on"))
                return true;
            if (!statement(statements.emplace_back()) || !lineEnd())
                return false;
        }
    }

    bool lineEnd() { return is(Kind::LineEnd) || is(Kind::End) || expected("the end of the line"); }

    bool end(const char *ofWhat)
    {
        if (!require("end"))
            return false;
        return is(Kind::LineEnd) || is(Kind::End) || require(ofWhat);
    }

    bool statement(Statement &result)
    {
        if (++m_depth > deepestNesting)
            return stop(QStringLiteral("The script nests too deeply."));
        result.line = token().line;
        const bool read = take("tell")     ? tell(result)
                          : take("try")    ? tryBlock(result)
                          : take("set")    ? set(result)
                          : take("return") ? returnValue(result)
                                           : commandOrExpression(result);
        --m_depth;
        return read;
    }

    bool tell(Statement &result)
    {
        result.kind = Statement::Kind::Tell;
        if (!require("application"))
            return false;
        if (!is(Kind::Text))
            return expected("text in quotes");
        result.name = m_tokens[m_at++].text;
        if (take("to"))
            return statement(result.body.emplace_back());
        return lineEnd() && block(result.body) && end("tell");
    }

    bool tryBlock(Statement &result)
    {
        result.kind = Statement::Kind::Try;
        if (!lineEnd() || !block(result.body))
            return false;
        if (take("on")) {
            if (!require("error"))
                return false;
            if (is(Kind::Word))
                result.name = m_tokens[m_at++].text;
            if (!lineEnd() || !block(result.handler))
                return false;
        }
        return end("try");
    }

    bool set(Statement &result)
    {
        result.kind = Statement::Kind::Set;
        return name(result.name) && (!take("of") || object(result.object)) && require("to") &&
               expression(result.value.emplace());
    }

    bool returnValue(Statement &result)
    {
        result.kind = Statement::Kind::Return;
        return is(Kind::LineEnd) || is(Kind::End) || expression(result.value.emplace());
    }

    // A command is a name, and perhaps one value behind it; anything else is an expression.
    bool commandOrExpression(Statement &result)
    {
        const std::size_t start = m_at;
        if (is(Kind::Word) && !isWord("get")) {
            if (!name(result.name))
                return false;
            const bool hasValue = is(Kind::Text) || isSign(u'(');
            if (hasValue || is(Kind::LineEnd) || is(Kind::End)) {
                result.kind = Statement::Kind::Command;
                return !hasValue || expression(result.value.emplace());
            }
            m_at = start;
        }
        result.kind = Statement::Kind::Evaluate;
        return expression(result.value.emplace());
    }

    bool expression(Expression &result)
    {
        if (++m_depth > deepestNesting)
            return stop(QStringLiteral("The script nests too deeply."));
        take("get");
        do {
            if (!operand(result.parts.emplace_back()))
                return false;
        } while (isSign(u'&') && ++m_at);
        --m_depth;
        return true;
    }

    bool operand(Expression &result)
    {
        if (isSign(u'(')) {
            ++m_at;
            if (!expression(result))
                return false;
            if (!isSign(u')'))
                return expected(")");
            ++m_at;
            return true;
        }
        if (is(Kind::Text)) {
            result = {Expression::Kind::Text, m_tokens[m_at++].text, {}, {}};
            return true;
        }
        if (!name(result.text))
            return false;
        const bool isProperty = take("of");
        result.kind = isProperty ? Expression::Kind::Property : Expression::Kind::Variable;
        return !isProperty || object(result.object);
    }

    // Words up to one that cannot belong to a name: "design identifier".
    bool name(QString &result)
    {
        QStringList words;
        while (is(Kind::Word) && !isWord("of") && !isWord("to"))
            words << m_tokens[m_at++].text;
        result = words.join(u' ');
        return !words.isEmpty() || expected("a name");
    }

    bool object(QString &result)
    {
        do {
            QString each;
            if (!name(each))
                return false;
            result += (result.isNull() ? QString() : QStringLiteral(" of ")) + each;
        } while (take("of"));
        return true;
    }

    std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    int m_depth = 0;
    Error m_error;
};

} // namespace

std::optional<Script> parse(const QString &source, Error *error)
{
    Error reason;
    auto script = Parser(source).script(&reason);
    if (!script && error)
        *error = reason;
    return script;
}

} // namespace platform::applescript
