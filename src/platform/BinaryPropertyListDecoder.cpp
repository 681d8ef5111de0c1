#include "platform/BinaryPropertyList.h"
#include "platform/PropertyListValue.h"

#include <bit>
#include <span>
#include <stdexcept>

namespace platform::BinaryPropertyList {

namespace {

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;

struct Malformed : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

[[noreturn]] void refuse(const char *reason)
{
    throw Malformed(reason);
}

class Decoder
{
public:
    explicit Decoder(const QByteArray &bytes)
        : m_bytes(reinterpret_cast<const uchar *>(bytes.constData()), std::size_t(bytes.size()))
    {
        readTrailer();
    }

    QVariant root() { return object(m_top, 0).value; }

private:
    enum class State : quint8 { Untouched, Open, Done };

    struct Object
    {
        QVariant value;
        quint64 weight = 0; // in bytes, each reference counted out
        int height = 0;     // of containers
        State state = State::Untouched;
    };

    struct Span
    {
        quint64 position;
        quint64 count;
    };

    void readTrailer();
    quint64 number(quint64 position, quint64 width) const;
    Span counted(quint64 position, quint64 unit) const;
    std::span<const uchar> bytesAt(quint64 position, quint64 size) const;
    const Object &reference(quint64 position, Object &container, int depth);
    const Object &object(quint64 index, int depth);
    void decode(quint64 position, Object &target, int depth);
    void decodeArray(quint64 position, Object &target, int depth);
    void decodeDictionary(quint64 position, Object &target, int depth);
    QVariant leaf(quint64 position, quint64 &weight) const;
    QVariant integer(quint64 position, quint64 width) const;
    QVariant real(quint64 position, quint64 width) const;
    QString utf16(const Span &span) const;
    QString ascii(const Span &span) const;

    std::span<const uchar> m_bytes;
    quint64 m_end = 0; // of the objects
    quint64 m_top = 0;
    quint64 m_offsetWidth = 0;
    quint64 m_referenceWidth = 0;
    quint64 m_weightLimit = 0;
    std::vector<Object> m_objects;
};

quint64 bigEndian(std::span<const uchar> bytes)
{
    quint64 value = 0;
    for (const uchar byte : bytes)
        value = value << 8 | byte;
    return value;
}

void Decoder::readTrailer()
{
    const quint64 size = m_bytes.size();
    if (size < headerSize + trailerSize + 1)
        refuse("the file is cut off");
    const auto trailer = m_bytes.last(trailerSize);
    m_offsetWidth = trailer[6];
    m_referenceWidth = trailer[7];
    const quint64 count = bigEndian(trailer.subspan(8, 8));
    m_top = bigEndian(trailer.subspan(16, 8));
    m_end = bigEndian(trailer.subspan(24, 8));

    if (m_offsetWidth < 1 || m_offsetWidth > 8 || m_referenceWidth < 1 || m_referenceWidth > 8)
        refuse("the trailer is damaged");
    if (m_end <= headerSize || m_end > size - trailerSize)
        refuse("the table of offsets lies outside the file");
    if (count > m_end - headerSize || count > (size - trailerSize - m_end) / m_offsetWidth)
        refuse("it claims more objects than it has room for");
    m_weightLimit = qMax<quint64>(1 << 24, size * 64);
    m_objects.resize(count);
}

std::span<const uchar> Decoder::bytesAt(quint64 position, quint64 size) const
{
    if (position < headerSize || position > m_end || size > m_end - position)
        refuse("an object reaches outside the file");
    return m_bytes.subspan(position, size);
}

quint64 Decoder::number(quint64 position, quint64 width) const
{
    return bigEndian(bytesAt(position, width));
}

// Where the content of a counted object starts, and its count, checked against the room there is.
Decoder::Span Decoder::counted(quint64 position, quint64 unit) const
{
    quint64 count = number(position, 1) & 0x0F;
    ++position;
    if (count == CountFollows) {
        const quint64 marker = number(position, 1);
        if (marker >> 4 != Marker::Integer || (marker & 0x0F) > 3)
            refuse("a count is damaged");
        const quint64 width = 1ULL << (marker & 0x0F);
        count = number(position + 1, width);
        position += 1 + width;
    }
    if (position > m_end || count > (m_end - position) / unit)
        refuse("an object reaches outside the file");
    return {position, count};
}

const Decoder::Object &Decoder::reference(quint64 position, Object &container, int depth)
{
    const Object &found = object(number(position, m_referenceWidth), depth + 1);
    container.weight += found.weight;
    container.height = qMax(container.height, found.height + 1);
    if (container.height > PropertyListDepthLimit)
        refuse("it is nested too deeply");
    if (container.weight > m_weightLimit)
        refuse("it is too large with its shared objects counted out");
    return found;
}

const Decoder::Object &Decoder::object(quint64 index, int depth)
{
    if (index >= m_objects.size())
        refuse("a reference leads to no object");
    Object &target = m_objects[index];
    if (target.state == State::Open)
        refuse("an object contains itself");
    if (target.state == State::Done)
        return target;
    if (depth > PropertyListDepthLimit)
        refuse("it is nested too deeply");
    target.state = State::Open;
    const quint64 entry = m_end + index * m_offsetWidth;
    decode(bigEndian(m_bytes.subspan(entry, m_offsetWidth)), target, depth);
    target.state = State::Done;
    return target;
}

void Decoder::decode(quint64 position, Object &target, int depth)
{
    target.weight = sizeof(QVariant);
    const quint64 marker = number(position, 1) >> 4;
    target.height = marker == Marker::Array || marker == Marker::Dictionary ? 1 : 0;
    if (marker == Marker::Array)
        decodeArray(position, target, depth);
    else if (marker == Marker::Dictionary)
        decodeDictionary(position, target, depth);
    else
        target.value = leaf(position, target.weight);
}

void Decoder::decodeArray(quint64 position, Object &target, int depth)
{
    const auto [start, count] = counted(position, m_referenceWidth);
    QVariantList list;
    list.reserve(qsizetype(count));
    for (quint64 i = 0; i < count; ++i)
        list.append(reference(start + i * m_referenceWidth, target, depth).value);
    target.value = std::move(list);
}

void Decoder::decodeDictionary(quint64 position, Object &target, int depth)
{
    const auto [start, count] = counted(position, 2 * m_referenceWidth);
    QVariantMap map;
    for (quint64 i = 0; i < count; ++i) {
        const quint64 at = start + i * m_referenceWidth;
        const QVariant &key = reference(at, target, depth).value;
        if (key.typeId() != QMetaType::QString)
            refuse("a key is no string");
        map.insert(key.toString(), reference(at + count * m_referenceWidth, target, depth).value);
    }
    target.value = std::move(map);
}

QVariant Decoder::leaf(quint64 position, quint64 &weight) const
{
    const quint64 marker = number(position, 1);
    const quint64 low = marker & 0x0F;
    switch (marker >> 4) {
    case Marker::Simple:
        if (low != False && low != True)
            refuse("it contains a null object");
        return low == True;
    case Marker::Integer:
        return integer(position + 1, 1ULL << low);
    case Marker::Real:
        return real(position + 1, 1ULL << low);
    case Marker::Date:
        return QVariant::fromValue(PropertyListDate{real(position + 1, 1ULL << low).toDouble()});
    case Marker::Uid:
        if (low > 7)
            refuse("a reference number is too large");
        return QVariant::fromValue(PropertyListUid{number(position + 1, low + 1)});
    case Marker::Data: {
        const Span span = counted(position, 1);
        weight += span.count;
        const auto bytes = bytesAt(span.position, span.count);
        return QByteArray(reinterpret_cast<const char *>(bytes.data()), qsizetype(bytes.size()));
    }
    case Marker::Ascii: {
        const Span span = counted(position, 1);
        weight += 2 * span.count;
        return ascii(span);
    }
    case Marker::Utf16: {
        const Span span = counted(position, 2);
        weight += 2 * span.count;
        return utf16(span);
    }
    default:
        refuse("it contains an object of an unknown type");
    }
}

QVariant Decoder::integer(quint64 position, quint64 width) const
{
    if (width > 16)
        refuse("an integer is too large");
    if (width < 8)
        return qint64(number(position, width));
    const quint64 low = number(position + width - 8, 8);
    const quint64 high = width == 16 ? number(position, 8) : qint64(low) < 0 ? ~0ULL : 0;
    const bool fitsSigned = high == (qint64(low) < 0 ? ~0ULL : 0);
    if (!fitsSigned && high != 0)
        refuse("an integer is too large");
    return fitsSigned ? QVariant(qint64(low)) : QVariant(low);
}

QVariant Decoder::real(quint64 position, quint64 width) const
{
    if (width == 4)
        return double(std::bit_cast<float>(quint32(number(position, width))));
    if (width != 8)
        refuse("a real number or date is of an unknown size");
    return std::bit_cast<double>(number(position, width));
}

QString Decoder::ascii(const Span &span) const
{
    const auto bytes = bytesAt(span.position, span.count);
    if (std::any_of(bytes.begin(), bytes.end(), [](uchar byte) { return byte > 0x7F; }))
        refuse("an ASCII string has other characters");
    return QString::fromLatin1(reinterpret_cast<const char *>(bytes.data()),
                               qsizetype(bytes.size()));
}

QString Decoder::utf16(const Span &span) const
{
    QString text(qsizetype(span.count), Qt::Uninitialized);
    const auto bytes = bytesAt(span.position, span.count * 2);
    for (std::size_t i = 0; i < span.count; ++i)
        text[qsizetype(i)] = QChar(bytes[2 * i] << 8 | bytes[2 * i + 1]);
    return text;
}

} // namespace

bool recognizes(const QByteArray &bytes)
{
    return bytes.startsWith("bplist");
}

std::optional<QVariant> parse(const QByteArray &bytes, Error *error)
{
    try {
        if (!bytes.startsWith(magic))
            refuse("its version is unknown");
        return Decoder(bytes).root();
    } catch (const Malformed &fault) {
        failPropertyList(error, QStringLiteral("The binary property list cannot be read: %1.")
                                    .arg(QString::fromUtf8(fault.what())));
        return std::nullopt;
    }
}

} // namespace platform::BinaryPropertyList
