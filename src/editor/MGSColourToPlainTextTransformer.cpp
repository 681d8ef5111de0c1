#include "editor/MGSColourToPlainTextTransformer.h"

#include "platform/Log.h"

#include <QColor>
#include <QRegularExpression>

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
    QString text = platform::format(QStringLiteral("%lf %lf %lf"), double(converted.redF()),
                                    double(converted.greenF()), double(converted.blueF()));
    if (converted.alpha() != 255)
        text += platform::format(QStringLiteral(" %lf"), double(converted.alphaF()));
    return text;
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
