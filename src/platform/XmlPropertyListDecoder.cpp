#include "platform/PropertyListValue.h"
#include "platform/XmlPropertyList.h"

#include <array>
#include <charconv>
#include <cmath>
#include <expat.h>
#include <limits>
#include <QRandomGenerator>
#include <string_view>

namespace platform::XmlPropertyList {

namespace {

// Takes the parser's events. The first refusal stops it.
class Decoder
{
public:
    std::optional<QVariant> document(QByteArrayView bytes, Error *error);

private:
    enum class Content { List, Key, Dictionary, Array, Leaf };

    struct Element
    {
        std::string_view name;
        Content content;
        QVariant (Decoder::*read)(); ///< The value of a leaf, from its text.
    };
    static const std::array<Element, 11> elements;

    struct Container
    {
        Content content;
        QVariantMap map;
        QVariantList list; // the outermost value stands in one too
        QString key = {};  // null where the next element is to be a key
    };

    using Parser = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

    static Decoder &self(void *data) { return *static_cast<Decoder *>(data); }
    void watch();
    void refuse(const QString &reason);
    bool isStopped() const { return !m_reason.isNull(); } // events that were under way still come
    void refuseText(const char *kind);
    void start(std::string_view name);
    void end();
    void text(std::string_view utf8);
    bool fits(const Element &element);
    void add(const QVariant &value);
    QVariant taken(Container container);

    QVariant string() { return QString::fromUtf8(m_text); }
    QVariant data();
    QVariant integer();
    QVariant real();
    QVariant date();
    template <bool Value>
    QVariant boolean();

    Parser m_parser{XML_ParserCreate(nullptr), &XML_ParserFree};
    std::vector<Container> m_containers;
    const Element *m_leaf = nullptr; // the one that is open, if any; a key is one too
    QByteArray m_text = "";
    QString m_reason;
    quint64 m_line = 0;
};

const std::array<Decoder::Element, 11> Decoder::elements = {{
    {"key", Content::Key, &Decoder::string},
    {"string", Content::Leaf, &Decoder::string},
    {"dict", Content::Dictionary, nullptr},
    {"array", Content::Array, nullptr},
    {"integer", Content::Leaf, &Decoder::integer},
    {"true", Content::Leaf, &Decoder::boolean<true>},
    {"false", Content::Leaf, &Decoder::boolean<false>},
    {"real", Content::Leaf, &Decoder::real},
    {"date", Content::Leaf, &Decoder::date},
    {"data", Content::Leaf, &Decoder::data},
    {"plist", Content::List, nullptr},
}};

void Decoder::watch()
{
    // One salt for the process: a fresh one costs a system call for each list.
    static const auto salt = QRandomGenerator::system()->generate() | 1U;
    XML_Parser parser = m_parser.get();
    XML_SetHashSalt(parser, salt);
    XML_SetUserData(parser, this);
    XML_SetElementHandler(
        parser, [](void *data, const XML_Char *name, const XML_Char **) { self(data).start(name); },
        [](void *data, const XML_Char *) { self(data).end(); });
    XML_SetCharacterDataHandler(parser, [](void *data, const XML_Char *utf8, int length) {
        self(data).text({utf8, std::size_t(length)});
    });
    XML_SetSkippedEntityHandler(parser, [](void *data, const XML_Char *name, int) {
        self(data).refuse(
            QStringLiteral("the entity \"%1\" is unknown").arg(QString::fromUtf8(name)));
    });
    XML_SetEntityDeclHandler(parser, [](void *data, const XML_Char *, int, const XML_Char *, int,
                                        const XML_Char *, const XML_Char *, const XML_Char *,
                                        const XML_Char *) {
        self(data).refuse(QStringLiteral("it declares entities of its own"));
    });
}

std::optional<QVariant> Decoder::document(QByteArrayView bytes, Error *error)
{
    watch();
    const bool isRead =
        bytes.size() <= std::numeric_limits<int>::max() &&
        XML_Parse(m_parser.get(), bytes.data(), int(bytes.size()), true) == XML_STATUS_OK;
    if (isRead && !isStopped())
        return m_containers.front().list.constFirst();
    if (!isStopped()) {
        m_reason = QString::fromUtf8(XML_ErrorString(XML_GetErrorCode(m_parser.get())));
        m_line = XML_GetCurrentLineNumber(m_parser.get());
    }
    failPropertyList(error, QStringLiteral("The property list cannot be read: %1 (line %2).")
                                .arg(m_reason)
                                .arg(m_line));
    return std::nullopt;
}

void Decoder::refuse(const QString &reason)
{
    if (isStopped())
        return;
    m_reason = reason;
    m_line = XML_GetCurrentLineNumber(m_parser.get());
    XML_StopParser(m_parser.get(), false);
}

void Decoder::refuseText(const char *kind)
{
    refuse(QStringLiteral("\"%1\" is no %2")
               .arg(QString::fromUtf8(m_text.left(40)), QLatin1String(kind)));
}

void Decoder::start(std::string_view name)
{
    if (isStopped())
        return;
    const auto element = std::find_if(elements.begin(), elements.end(),
                                      [&](const Element &each) { return each.name == name; });
    if (element == elements.end() || !fits(*element))
        return refuse(QStringLiteral("the element \"%1\" has no place here")
                          .arg(QString::fromUtf8(name.data(), qsizetype(name.size()))));
    if (element->read)
        m_leaf = element;
    else if (m_containers.size() > PropertyListDepthLimit) // the list itself is one more
        refuse(QStringLiteral("it is nested too deeply"));
    else
        m_containers.push_back({element->content, {}, {}});
}

bool Decoder::fits(const Element &element)
{
    if (m_leaf || m_containers.empty())
        return !m_leaf && element.content == Content::List;
    const Container &container = m_containers.back();
    const bool wantsKey = container.content == Content::Dictionary && container.key.isNull();
    const bool hasRoom = container.content != Content::List || container.list.isEmpty();
    return element.content != Content::List && hasRoom &&
           wantsKey == (element.content == Content::Key);
}

void Decoder::text(std::string_view utf8)
{
    if (isStopped())
        return;
    if (m_leaf)
        m_text.append(utf8.data(), qsizetype(utf8.size()));
    else if (utf8.find_first_not_of(" \t\r\n") != std::string_view::npos)
        refuse(QStringLiteral("text stands between the elements"));
}

void Decoder::end()
{
    if (isStopped())
        return;
    if (const Element *leaf = std::exchange(m_leaf, nullptr)) {
        const QVariant value = (this->*leaf->read)();
        if (leaf->content == Content::Key)
            m_containers.back().key = value.toString();
        else
            add(value);
        m_text.resize(0);
    } else if (m_containers.size() > 1) {
        Container container = std::move(m_containers.back());
        m_containers.pop_back();
        if (!container.key.isNull())
            refuse(QStringLiteral("the key \"%1\" has no value").arg(container.key.left(40)));
        add(taken(std::move(container)));
    } else if (m_containers.front().list.isEmpty()) {
        refuse(QStringLiteral("it is empty"));
    }
}

void Decoder::add(const QVariant &value)
{
    Container &container = m_containers.back();
    if (container.content == Content::Dictionary)
        container.map.insert(std::exchange(container.key, {}), value);
    else
        container.list.append(value);
}

QVariant Decoder::taken(Container container)
{
    if (container.content == Content::Array)
        return std::move(container.list);
    if (container.map.size() == 1 && container.map.firstKey() == QLatin1String(uidKey)) {
        const QVariant &uid = container.map.first();
        const bool isIndex = uid.typeId() == QMetaType::ULongLong ||
                             (uid.typeId() == QMetaType::LongLong && uid.toLongLong() >= 0);
        if (isIndex)
            return QVariant::fromValue(PropertyListUid{uid.toULongLong()});
    }
    return std::move(container.map);
}

QVariant Decoder::data()
{
    m_text.removeIf([](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
    const auto decoded =
        QByteArray::fromBase64Encoding(m_text, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        refuse(QStringLiteral("data is not in base64"));
    return (*decoded).isNull() ? QByteArray("") : *decoded;
}

// Decimal or, after "0x", hexadecimal, with a sign or without.
QVariant Decoder::integer()
{
    QByteArray digits = m_text.trimmed();
    const bool isNegative = digits.startsWith('-');
    if (isNegative || digits.startsWith('+'))
        digits.remove(0, 1);
    const bool isHexadecimal = digits.startsWith("0x") || digits.startsWith("0X");
    if (isHexadecimal)
        digits.remove(0, 2);

    quint64 magnitude = 0;
    const auto [end, fault] =
        std::from_chars(digits.begin(), digits.end(), magnitude, isHexadecimal ? 16 : 10);
    constexpr quint64 signedLimit = 1ULL << 63;
    if (fault != std::errc() || end != digits.end() || (isNegative && magnitude > signedLimit))
        refuseText("integer of 64 bits");
    if (isNegative)
        return qint64(0 - magnitude);
    return magnitude < signedLimit ? QVariant(qint64(magnitude)) : QVariant(magnitude);
}

QVariant Decoder::real()
{
    QByteArray digits = m_text.trimmed();
    if (digits.startsWith('+'))
        digits.remove(0, 1);
    double number = 0;
    const auto [end, fault] = std::from_chars(digits.begin(), digits.end(), number);
    if (fault != std::errc() || end != digits.end())
        refuseText("real number");
    return std::isnan(number) ? std::numeric_limits<double>::quiet_NaN() : number;
}

QVariant Decoder::date()
{
    const QByteArray digits = m_text.trimmed();
    std::array<int, 6> fields{}; // year, month, day, hour, minute, second
    constexpr QByteArrayView pattern("0000-11-22T33:44:55Z");
    bool isDate = digits.size() == pattern.size();
    for (qsizetype i = 0; isDate && i < pattern.size(); ++i) {
        const bool isField = pattern[i] >= '0' && pattern[i] <= '5';
        isDate = isField ? digits[i] >= '0' && digits[i] <= '9' : digits[i] == pattern[i];
        if (isField) {
            int &field = fields[std::size_t(pattern[i] - '0')];
            field = field * 10 + (digits[i] - '0');
        }
    }
    const auto [year, month, day, hour, minute, second] = fields;
    const std::chrono::year_month_day calendarDay{std::chrono::year(year),
                                                  std::chrono::month(unsigned(month)),
                                                  std::chrono::day(unsigned(day))};
    if (!isDate || !calendarDay.ok() || hour > 23 || minute > 59 || second > 59) {
        refuseText("date (YYYY-MM-DDThh:mm:ssZ)");
        return {};
    }
    const auto days = double((std::chrono::sys_days(calendarDay) - referenceDay).count());
    return QVariant::fromValue(
        PropertyListDate{days * secondsPerDay + hour * 3600 + minute * 60 + second});
}

template <bool Value>
QVariant Decoder::boolean()
{
    if (!m_text.trimmed().isEmpty())
        refuse(QStringLiteral("a boolean contains text"));
    return Value;
}

// After a byte order mark and white space, as editors leave them before a header.
QByteArrayView withoutLead(QByteArrayView bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.sliced(3);
    while (!bytes.isEmpty() && QByteArrayView(" \t\r\n").contains(bytes.front()))
        bytes = bytes.sliced(1);
    return bytes;
}

} // namespace

std::optional<QVariant> parse(const QByteArray &bytes, Error *error)
{
    return Decoder().document(withoutLead(bytes), error);
}

} // namespace platform::XmlPropertyList
