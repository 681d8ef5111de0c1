#include "editor/MGSColourToPlainTextTransformer.h"

#include "platform/Log.h"

#include <cmath>
#include <QColor>
#include <QRegularExpression>

namespace {

// A color keeps sixteen bits of each component, so 0.5 became 0.500008: where four digits mean the
// same they are what was written, unless it is one of the 256 steps that pickers give.
QString number(quint16 component)
{
    constexpr double most = 65535;
    constexpr int step = 257;
    const double value = component / most;
    const double rounded = std::round(value * 10'000) / 10'000;
    const bool isMeant = component % step != 0 && qRound(rounded * most) == component;
    return QString::number(isMeant ? rounded : value, 'f', 6);
}

} // namespace

QVariant MGSColourToPlainTextTransformer::transformedValue(const QVariant &colour) const
{
    return text(colour);
}

QVariant MGSColourToPlainTextTransformer::reverseTransformedValue(const QVariant &text) const
{
    return colour(text.toString());
}

QString MGSColourToPlainTextTransformer::text(const QVariant &colour)
{
    const QColor converted = colour.value<QColor>().toRgb();
    if (!converted.isValid()) {
        platform::log("MGSStringFromColor: can't convert %@, returning red", colour.toString());
        return QStringLiteral("1.0 0.0 0.0");
    }
    const QRgba64 parts = converted.rgba64();
    QStringList numbers{number(parts.red()), number(parts.green()), number(parts.blue())};
    if (!parts.isOpaque())
        numbers << number(parts.alpha());
    return numbers.join(u' ');
}

QColor MGSColourToPlainTextTransformer::colour(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("\\G\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?)"));
    QList<double> parts;
    for (auto found = number.globalMatch(text); found.hasNext() && parts.size() < 4;)
        parts << qBound(0.0, found.next().captured(1).toDouble(), 1.0);
    if (parts.size() < 3) {
        platform::log("MGSColorFromString: can't parse %@, returning red", text);
        return Qt::red;
    }
    return QColor::fromRgbF(float(parts[0]), float(parts[1]), float(parts[2]),
                            float(parts.value(3, 1.0)));
}
