#include "platform/Format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <QLocale>
#include <QObject>
#include <QRegularExpression>

namespace platform {

namespace {

QString printed(const QByteArray &spec, auto value)
{
    std::array<char, 2048> buffer{}; // the widest is "%999.999f" of a number of 309 digits
    const int length = std::snprintf(buffer.data(), buffer.size(), spec.constData(), value);
    return QString::fromLatin1(buffer.data(), qBound(0, length, int(buffer.size()) - 1));
}

// "%02hhx" with the length modifier that fits a 64-bit value.
QByteArray widened(const QString &spec)
{
    QByteArray result = spec.toLatin1();
    const char conversion = result.back();
    result.chop(1);
    while (!result.isEmpty() && QByteArray("hljztqL").contains(result.back()))
        result.chop(1);
    return result + "ll" + conversion;
}

template <class Narrow>
qint64 narrowed(qint64 value, bool isSigned)
{
    return isSigned ? qint64(Narrow(value)) : qint64(std::make_unsigned_t<Narrow>(value));
}

// The value as the length modifier and the conversion see it. Without a modifier only a negative
// number that is read as an unsigned one is cut, to the 32 bits that it has in C.
qint64 seenAs(const QString &spec, qint64 value)
{
    const bool isSigned = spec.back() == u'd' || spec.back() == u'i';
    if (spec.contains(QLatin1String("hh")))
        return narrowed<qint8>(value, isSigned);
    if (spec.contains(u'h'))
        return narrowed<qint16>(value, isSigned);
    const bool isLong = std::any_of(spec.begin(), spec.end(),
                                    [](QChar c) { return QLatin1String("ljztq").contains(c); });
    return isLong || value != qint32(value) ? value : narrowed<qint32>(value, isSigned);
}

qint64 integerPart(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (std::abs(value) >= limit)
        return value < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return qint64(value);
}

QString padded(const QString &text, const QString &spec)
{
    static const QRegularExpression fields(QStringLiteral("%([-0 +#]*)(\\d*)(?:\\.(\\d+))?"));
    const auto match = fields.match(spec);
    const QString cut = match.hasCaptured(3) ? text.left(match.captured(3).toInt()) : text;
    const int width = match.captured(2).toInt();
    return match.captured(1).contains(u'-') ? cut.leftJustified(width) : cut.rightJustified(width);
}

struct Printer
{
    QString spec;
    QChar conversion;

    QString operator()(const QString &value) const
    {
        return padded(value.isNull() ? QStringLiteral("(null)") : value, spec);
    }
    QString operator()(double value) const
    {
        if (conversion == u'@')
            return QString::number(value, 'g', QLocale::FloatingPointShortest);
        return QStringLiteral("aAeEfFgG").contains(conversion) ? printed(spec.toLatin1(), value)
                                                               : (*this)(integerPart(value));
    }
    template <std::integral Integer>
    QString operator()(Integer value) const
    {
        if (conversion == u'@')
            return QString::number(value);
        if (conversion == u'C' || conversion == u'c')
            return QString(QChar(char16_t(value)));
        if (conversion == u'p')
            return QStringLiteral("0x%1").arg(quint64(value), 0, 16);
        if (QStringLiteral("aAeEfFgG").contains(conversion))
            return printed(spec.toLatin1(), double(value));
        if (QStringLiteral("diuxXo").contains(conversion))
            return printed(widened(spec), seenAs(spec, qint64(value)));
        return QString::number(value);
    }
};

} // namespace

FormatArgument::FormatArgument(const QStringList &value)
    : m_value(QStringLiteral("(%1)").arg(value.join(QStringLiteral(", "))))
{
}

FormatArgument::FormatArgument(const QObject *object)
    : m_value(object ? QStringLiteral("<%1: 0x%2>")
                           .arg(QLatin1StringView(object->metaObject()->className()))
                           .arg(quint64(reinterpret_cast<quintptr>(object)), 0, 16)
                     : QString())
{
}

QString FormatArgument::formatted(const QString &spec) const
{
    return std::visit(Printer{spec, spec.back()}, m_value);
}

QString formatList(const QString &text, std::initializer_list<FormatArgument> arguments)
{
    static const QRegularExpression conversion(QStringLiteral(
        "%(?:%|[-0 +#]*\\d{0,3}(?:\\.\\d{0,3})?(?:hh?|ll?|[jztqL])?[@diuxXoaAeEfFgGcCsSp])"));
    QString result;
    qsizetype position = 0;
    auto next = arguments.begin();
    for (auto matches = conversion.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        result += QStringView(text).mid(position, match.capturedStart() - position);
        position = match.capturedEnd();
        if (match.captured() == u"%%")
            result += u'%';
        else
            result += next == arguments.end() ? QStringLiteral("(null)")
                                              : (next++)->formatted(match.captured());
    }
    return result += QStringView(text).mid(position);
}

} // namespace platform
