#include "platform/PropertyListValue.h"
#include "platform/XmlPropertyList.h"

#include <array>
#include <charconv>
#include <cmath>

namespace platform::XmlPropertyList {

namespace {

class Encoder
{
public:
    bool document(const QVariant &root);
    QByteArray bytes() const { return m_out.toUtf8(); }

    QStringList culprit; // the way to the value that `document` stopped at
    QString reason;

private:
    bool value(const QVariant &value);
    bool dictionary(const QVariantMap &map);
    bool array(const QVariantList &list);
    bool text(QLatin1String element, const QString &text);
    bool date(PropertyListDate date);
    bool uid(PropertyListUid uid);
    void data(const QByteArray &data);
    void integer(const QVariant &value);
    void real(double value);
    bool child(const QVariant &value, const QString &step);
    bool refuse(const char *why);
    void line(QStringView content);
    void element(const char *name, const QString &content);
    bool open(const char *tag);
    bool close(const char *tag); // null for an empty container
    bool escaped(const QString &text);

    QString m_out;
    int m_depth = 0;
};

bool Encoder::refuse(const char *why)
{
    reason = QLatin1String(why);
    return false;
}

void Encoder::line(QStringView content)
{
    m_out.resize(m_out.size() + m_depth, u'\t');
    m_out += content;
    m_out += u'\n';
}

void Encoder::element(const char *name, const QString &content)
{
    line(QStringLiteral("<%1>%2</%1>").arg(QLatin1String(name), content));
}

bool Encoder::document(const QVariant &root)
{
    m_out = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                           "<plist version=\"1.0\">\n");
    if (!value(root))
        return false;
    m_out += u"</plist>\n";
    return true;
}

bool Encoder::value(const QVariant &value)
{
    switch (kindOfPropertyListValue(value)) {
    case PropertyListKind::Dictionary:
        return dictionary(value.toMap());
    case PropertyListKind::Array:
        return array(value.toList());
    case PropertyListKind::String:
        return text(QLatin1String("string"), value.toString());
    case PropertyListKind::Data:
        data(value.toByteArray());
        return true;
    case PropertyListKind::Boolean:
        line(value.toBool() ? u"<true/>" : u"<false/>");
        return true;
    case PropertyListKind::Integer:
        element("integer", value.toString());
        return true;
    case PropertyListKind::Real:
        real(value.toDouble());
        return true;
    case PropertyListKind::Date:
        return date(value.value<PropertyListDate>());
    case PropertyListKind::Uid:
        return uid(value.value<PropertyListUid>());
    case PropertyListKind::None:
        break;
    }
    return refuse("its type has no form in property lists");
}

bool Encoder::open(const char *tag)
{
    if (m_depth >= PropertyListDepthLimit)
        return refuse("it is nested too deeply");
    line(QLatin1String(tag).toString());
    ++m_depth;
    return true;
}

bool Encoder::close(const char *tag)
{
    --m_depth;
    if (tag)
        line(QLatin1String(tag).toString());
    return true;
}

bool Encoder::child(const QVariant &child, const QString &step)
{
    if (value(child))
        return true;
    culprit.prepend(step);
    return false;
}

bool Encoder::dictionary(const QVariantMap &map)
{
    if (!open(map.isEmpty() ? "<dict/>" : "<dict>"))
        return false;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        if (!text(QLatin1String("key"), entry.key()) || !child(entry.value(), entry.key()))
            return false;
    }
    return close(map.isEmpty() ? nullptr : "</dict>");
}

bool Encoder::array(const QVariantList &list)
{
    if (!open(list.isEmpty() ? "<array/>" : "<array>"))
        return false;
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (!child(list[i], QString::number(i)))
            return false;
    }
    return close(list.isEmpty() ? nullptr : "</array>");
}

bool Encoder::text(QLatin1String element, const QString &text)
{
    m_out.resize(m_out.size() + m_depth, u'\t');
    m_out += QLatin1String("<") + element + QLatin1String(">");
    if (!escaped(text))
        return refuse("XML has no form for one of its characters");
    m_out += QLatin1String("</") + element + QLatin1String(">\n");
    return true;
}

bool isXmlCharacter(char16_t unit)
{
    return unit >= 0x20 ? unit < 0xFFFE : unit == u'\t' || unit == u'\n' || unit == u'\r';
}

bool Encoder::escaped(const QString &text)
{
    if (!text.isValidUtf16())
        return false;
    for (const QChar unit : text) {
        switch (unit.unicode()) {
        case u'&':
            m_out += u"&amp;";
            break;
        case u'<':
            m_out += u"&lt;";
            break;
        case u'>':
            m_out += u"&gt;";
            break;
        case u'\r': // bare, it would be read as a line feed
            m_out += u"&#13;";
            break;
        default:
            if (!isXmlCharacter(unit.unicode()))
                return false;
            m_out += unit;
        }
    }
    return true;
}

void Encoder::data(const QByteArray &data)
{
    constexpr int width = 76;
    constexpr int tabWidth = 8;
    const int columns = qMax(4, (width - tabWidth * qMin(m_depth, 8)) / 4 * 4);
    const QString base64 = QString::fromLatin1(data.toBase64());
    line(u"<data>");
    for (qsizetype start = 0; start < base64.size(); start += columns)
        line(QStringView(base64).mid(start, columns));
    line(u"</data>");
}

void Encoder::real(double value)
{
    std::array<char, 32> buffer{};
    const auto [end, fault] = std::to_chars(buffer.begin(), buffer.end(), value);
    element("real", std::isnan(value) ? QStringLiteral("nan")
                                      : QString::fromLatin1(buffer.data(), end - buffer.data()));
}

bool Encoder::date(PropertyListDate date)
{
    const double seconds = std::floor(date.secondsSince2001);
    const double days = std::floor(seconds / secondsPerDay);
    constexpr double limit = 1e7; // of days, far beyond any year of four digits
    if (!(std::abs(days) < limit))
        return refuse("XML has no form for a date outside the years 0 to 9999");
    const std::chrono::year_month_day day(referenceDay + std::chrono::days(int(days)));
    const int year = int(day.year());
    if (year < 0 || year > 9999)
        return refuse("XML has no form for a date outside the years 0 to 9999");
    const int second = int(seconds - days * secondsPerDay);
    element("date",
            QString::asprintf("%04d-%02u-%02uT%02d:%02d:%02dZ", year, unsigned(day.month()),
                              unsigned(day.day()), second / 3600, second / 60 % 60, second % 60));
    return true;
}

bool Encoder::uid(PropertyListUid uid)
{
    if (!open("<dict>"))
        return false;
    element("key", QLatin1String(uidKey));
    element("integer", QString::number(uid.value));
    return close("</dict>");
}

} // namespace

std::optional<QByteArray> serialize(const QVariant &root, Error *error)
{
    Encoder encoder;
    if (encoder.document(root))
        return encoder.bytes();
    failPropertyListValue(error, encoder.culprit, encoder.reason);
    return std::nullopt;
}

} // namespace platform::XmlPropertyList
