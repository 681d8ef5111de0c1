#include "platform/AppleScript.h"

#include "platform/AppleScriptParser.h"
#include "platform/Format.h"
#include "platform/ScriptEvent.h"

#include <QHash>

namespace platform {

using namespace applescript;

namespace {

class Interpreter
{
public:
    explicit Interpreter(std::chrono::milliseconds patience) : m_patience(patience) {}

    std::optional<QString> run(const Script &script, Error *error)
    {
        if (runAll(script) != Flow::Failed)
            return m_result;
        if (error)
            *error = m_error;
        return std::nullopt;
    }

private:
    enum class Flow { Next, Returned, Failed };

    Flow runAll(const Script &statements)
    {
        for (const Statement &statement : statements) {
            const Flow flow = runOne(statement);
            if (flow != Flow::Next)
                return flow;
        }
        return Flow::Next;
    }

    Flow runOne(const Statement &statement)
    {
        switch (statement.kind) {
        case Statement::Kind::Tell:
            return tell(statement);
        case Statement::Kind::Try:
            return tryAll(statement);
        case Statement::Kind::Set:
            return keep(set(statement));
        case Statement::Kind::Command:
            return keep(command(statement));
        case Statement::Kind::Return:
            return keep(valueOf(statement)) == Flow::Failed ? Flow::Failed : Flow::Returned;
        case Statement::Kind::Evaluate:
            return keep(valueOf(statement));
        }
        return Flow::Next;
    }

    Flow tell(const Statement &statement)
    {
        const QString around = std::exchange(m_application, statement.name);
        const Flow flow = runAll(statement.body);
        m_application = around;
        return flow;
    }

    Flow tryAll(const Statement &statement)
    {
        const QString application = m_application;
        const Flow flow = runAll(statement.body);
        if (flow != Flow::Failed)
            return flow;
        m_application = application;
        if (!statement.name.isNull())
            m_variables[statement.name.toLower()] = m_error.description;
        return runAll(statement.handler);
    }

    Flow keep(const std::optional<QString> &value)
    {
        if (!value)
            return Flow::Failed;
        m_result = *value;
        return Flow::Next;
    }

    std::optional<QString> set(const Statement &statement)
    {
        const auto value = valueOf(statement);
        if (!value)
            return std::nullopt;
        if (statement.object.isNull())
            m_variables[statement.name.toLower()] = *value;
        else if (!send({ScriptEvent::Kind::Set, {}, statement.name, statement.object, *value}))
            return std::nullopt;
        return value;
    }

    std::optional<QString> command(const Statement &statement)
    {
        const auto variable = m_variables.constFind(statement.name.toLower());
        if (!statement.value && variable != m_variables.cend())
            return *variable;
        const auto value = valueOf(statement);
        if (!value)
            return std::nullopt;
        return send({ScriptEvent::Kind::Perform, {}, statement.name, {}, *value});
    }

    std::optional<QString> valueOf(const Statement &statement)
    {
        return statement.value ? evaluate(*statement.value) : QStringLiteral("");
    }

    std::optional<QString> evaluate(const Expression &expression)
    {
        switch (expression.kind) {
        case Expression::Kind::Text:
            return expression.text;
        case Expression::Kind::Variable:
            return variable(expression.text);
        case Expression::Kind::Property:
            return send({ScriptEvent::Kind::Get, {}, expression.text, expression.object, {}});
        case Expression::Kind::Joined:
            break;
        }
        QString joined = QStringLiteral("");
        for (const Expression &part : expression.parts) {
            const auto value = evaluate(part);
            if (!value)
                return std::nullopt;
            joined += *value;
        }
        return joined;
    }

    std::optional<QString> variable(const QString &name)
    {
        const auto found = m_variables.constFind(name.toLower());
        if (found != m_variables.cend())
            return *found;
        return refuse(format(QStringLiteral("The variable %@ is not defined."), name));
    }

    std::optional<QString> send(ScriptEvent event)
    {
        if (m_application.isNull())
            return refuse(
                format(QStringLiteral("\"%@\" was asked of no application."), event.name));
        event.application = m_application;
        return sendScriptEvent(event, m_patience, &m_error);
    }

    std::nullopt_t refuse(const QString &description)
    {
        fail(&m_error, QString::fromLatin1(AppleScript::errorDomain), AppleScript::NoSuchObject,
             description);
        return std::nullopt;
    }

    QDeadlineTimer m_patience;
    QString m_application;
    QHash<QString, QString> m_variables; // by their names in lower case
    QString m_result = QStringLiteral("");
    Error m_error;
};

} // namespace

QString AppleScript::escaped(QString text)
{
    constexpr std::pair<QChar, const char *> escapes[] = {
        {u'\\', "\\\\"}, {u'"', "\\\""}, {u'\n', "\\n"}, {u'\r', "\\r"}, {u'\t', "\\t"}};
    for (const auto &[character, escape] : escapes)
        text.replace(character, QLatin1StringView(escape));
    return text;
}

std::optional<QString> AppleScript::executeAndReturnError(Error *error,
                                                          std::chrono::milliseconds patience) const
{
    const auto script = parse(m_source, error);
    if (!script)
        return std::nullopt;
    return Interpreter(patience).run(*script, error);
}

} // namespace platform
