#include "editor/MGSColourValues.h"

#include <cmath>
#include <QRegularExpression>

using platform::TextRange;
using namespace Qt::StringLiterals;

namespace {

constexpr auto ignoringCase = QRegularExpression::CaseInsensitiveOption;

/// What the named properties and attributes have for a value, in the groups 1 or 2; a function
/// that stands elsewhere in group 3.
const QRegularExpression &places()
{
    static const QRegularExpression expression(
        u"(?<![\\w-])(?:--[\\w-]+|[\\w-]*(?:colou?r|background|border|outline|shadow|fill|stroke)"
        u"[\\w-]*)\\s*:([^;{}<>\"]*)"
        u"|(?<![\\w-])(?:[\\w-]*color|fill|stroke|text|[av]?link)\\s*=\\s*[\"']?([^\"'>]*)"
        u"|(?<![\\w-])((?:rgb|hsl)a?\\([^()]{1,60}\\))"_s,
        ignoringCase);
    return expression;
}

/// Group 1: digits of a colour, 2: a function, 3: what it is called with, 4: perhaps a name.
const QRegularExpression &values()
{
    static const QRegularExpression expression(
        u"(?<!url\\()(?<!url\\([\"'])(?<![\\w&])#([0-9a-f]{3,8})(?![\\w-])"
        u"|(?<![\\w-])(rgb|hsl)a?\\(([^()]{1,60})\\)"
        u"|(?<![\\w#.-])([a-z]{3,20})(?![\\w(-])"_s,
        ignoringCase);
    return expression;
}

QColor colourOfDigits(QString digits)
{
    if (digits.size() < 5) {
        QString doubled;
        for (const QChar digit : digits)
            doubled += QString(2, digit);
        digits = doubled;
    }
    if (digits.size() != 6 && digits.size() != 8)
        return {};
    const uint value = digits.leftJustified(8, u'f').toUInt(nullptr, 16);
    return QColor::fromRgb(int(value >> 24), int(value >> 16 & 255), int(value >> 8 & 255),
                           int(value & 255));
}

/// A number, or a percentage of the whole; -1 for anything else.
float number(QString argument, float whole)
{
    const bool isPart = argument.endsWith(u'%');
    argument.remove(QRegularExpression(u"(%|deg)$"_s));
    bool isNumber = false;
    const float value = argument.toFloat(&isNumber);
    return !isNumber || value < 0 ? -1 : isPart ? value / 100 * whole : value;
}

QColor colourOfFunction(const QString &name, const QString &call)
{
    static const QRegularExpression separators(u"[\\s,/]+"_s);
    const QStringList arguments = call.trimmed().split(separators);
    if (arguments.size() != 3 && arguments.size() != 4)
        return {};
    const bool isRgb = name.compare(u"rgb", Qt::CaseInsensitive) == 0;
    const float first = number(arguments[0], isRgb ? 255 : 360);
    const float second = number(arguments[1], isRgb ? 255 : 1);
    const float third = number(arguments[2], isRgb ? 255 : 1);
    const float alpha = arguments.size() == 4 ? number(arguments[3], 1) : 1;
    if (first < 0 || second < 0 || third < 0 || alpha < 0)
        return {};
    if (isRgb)
        return QColor::fromRgbF(qMin(first / 255, 1.0F), qMin(second / 255, 1.0F),
                                qMin(third / 255, 1.0F), qMin(alpha, 1.0F));
    return QColor::fromHslF(std::fmod(first, 360.0F) / 360, qMin(second, 1.0F), qMin(third, 1.0F),
                            qMin(alpha, 1.0F));
}

QColor colourOf(const QRegularExpressionMatch &value)
{
    if (value.hasCaptured(1))
        return colourOfDigits(value.captured(1));
    if (value.hasCaptured(3))
        return colourOfFunction(value.captured(2), value.captured(3));
    const QString name = value.captured(4);
    return name.compare(u"transparent", Qt::CaseInsensitive) == 0 ? QColor()
                                                                  : QColor::fromString(name);
}

void appendColours(std::vector<MGSColourValue> &found, const QString &code, TextRange place)
{
    for (auto match = values().globalMatch(code, place.location); match.hasNext();) {
        const QRegularExpressionMatch value = match.next();
        const TextRange range{value.capturedStart(), value.capturedLength()};
        if (range.end() > place.end())
            return;
        if (const QColor colour = colourOf(value); colour.isValid())
            found.push_back({range, colour});
    }
}

} // namespace

std::vector<MGSColourValue> mgs_colourValues(const QString &code)
{
    std::vector<MGSColourValue> found;
    for (auto match = places().globalMatch(code); match.hasNext();) {
        const QRegularExpressionMatch place = match.next();
        const int group = place.lastCapturedIndex();
        appendColours(found, code, {place.capturedStart(group), place.capturedLength(group)});
    }
    return found;
}

QString mgs_colourCode(const QColor &colour)
{
    const QString code = colour.name();
    return colour.alpha() == 255 ? code
                                 : code + u"%1"_s.arg(colour.alpha(), 2, 16, QLatin1Char('0'));
}
