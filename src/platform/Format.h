#pragma once

#include <concepts>
#include <initializer_list>
#include <QString>
#include <QStringList>
#include <variant>

class QObject;

namespace platform {

/// One argument of `format`. Made implicitly from whatever the caller has.
class FormatArgument
{
public:
    template <std::signed_integral T>
    FormatArgument(T value) : m_value(qint64(value))
    {
    }
    template <std::unsigned_integral T>
    FormatArgument(T value) : m_value(quint64(value))
    {
    }
    FormatArgument(double value) : m_value(value) {}
    FormatArgument(const QString &value) : m_value(value) {}
    FormatArgument(const char *value) : m_value(QString::fromUtf8(value)) {}
    FormatArgument(const QStringList &value);
    /// "<QWidget: 0x5581...>", as the class is called; null without an object.
    FormatArgument(const QObject *object);
    FormatArgument(const void *value) : m_value(quint64(reinterpret_cast<quintptr>(value))) {}

    /// The argument as the conversion `spec` asks for it, e.g. "%@", "%ld", "%02hhx", "%C".
    QString formatted(const QString &spec) const;

private:
    std::variant<qint64, quint64, double, QString> m_value;
};

/// Fills the conversions of `text` with `arguments`, in order: `%@` (a string), the printf family
/// (`%d %i %u %x %X %o %f %g %e %s %p` with flags, width, precision and length), `%C` and `%c` (one
/// UTF-16 unit) and `%%`. A null string reads "(null)", as does an argument that is missing.
/// Arguments are never read as formats.
QString formatList(const QString &text, std::initializer_list<FormatArgument> arguments);

template <class... Arguments>
QString format(const QString &text, const Arguments &...arguments)
{
    return formatList(text, {FormatArgument(arguments)...});
}

} // namespace platform
