#pragma once

#include "platform/Format.h"
#include <stdexcept>

namespace platform {

/// A fault of the program, not of its input. Thrown by PLATFORM_ASSERT in every build.
class AssertionFailure : public std::logic_error
{
public:
    explicit AssertionFailure(const QString &text) : std::logic_error(text.toStdString()) {}
    QString text() const { return QString::fromUtf8(what()); }
};

/// A failure that has a name of its own.
class Exception : public std::runtime_error
{
public:
    Exception(const QString &name, const QString &reason)
        : std::runtime_error(reason.toStdString()), m_name(name)
    {
    }
    QString name() const { return m_name; }
    QString reason() const { return QString::fromUtf8(what()); }

private:
    QString m_name;
};

template <class... Arguments>
[[noreturn]] void failAssertion(const char *text, const Arguments &...arguments)
{
    throw AssertionFailure(format(QString::fromUtf8(text), arguments...));
}

} // namespace platform

/// PLATFORM_ASSERT(condition, "text %@", value): throws AssertionFailure with exactly that text.
#define PLATFORM_ASSERT(condition, ...)                                                            \
    (static_cast<bool>(condition) ? void(0) : platform::failAssertion(__VA_ARGS__))
