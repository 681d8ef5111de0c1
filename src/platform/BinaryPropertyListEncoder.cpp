#include "platform/BinaryPropertyList.h"
#include "platform/PropertyListValue.h"

#include <bit>
#include <QHash>

namespace platform::BinaryPropertyList {

namespace {

// Lays a value out as numbered objects first, since the width of the references in containers
// follows from how many there are.
class Encoder
{
public:
    bool add(const QVariant &value) { return add(value, 0).has_value(); }
    QByteArray bytes();

    QStringList culprit; // the way to the value that `add` stopped at
    QString reason;

private:
    using References = std::vector<quint64>;

    struct Object
    {
        QVariant leaf;
        Marker marker = Marker::Simple; // Array and Dictionary tell that `references` holds
        References references;
    };

    std::optional<quint64> add(const QVariant &value, int depth);
    bool addElements(const QVariant &value, References &references, int depth);
    bool addEntries(const QVariant &value, References &references, int depth);
    bool addTo(References &references, const QVariant &value, const QString &step, int depth);
    quint64 addString(const QString &text);

    void put(quint64 value, int width);
    void putMarker(Marker marker, quint64 count);
    void putInteger(const QVariant &value);
    void putDouble(Marker marker, double value);
    void putString(const QString &text);
    void putData(const QByteArray &data);
    void putLeaf(const QVariant &value);
    void putObject(const Object &object, int referenceWidth);

    std::vector<Object> m_objects;
    QHash<QString, quint64> m_strings;
    QByteArray m_out;
};

// The exponent of the power of two of bytes that hold the value.
int widthExponent(quint64 value)
{
    return value <= 0xFF ? 0 : value <= 0xFFFF ? 1 : value <= 0xFFFF'FFFF ? 2 : 3;
}

std::optional<quint64> Encoder::add(const QVariant &value, int depth)
{
    const PropertyListKind kind = kindOfPropertyListValue(value);
    if (kind == PropertyListKind::String)
        return addString(value.toString());
    const bool isContainer =
        kind == PropertyListKind::Array || kind == PropertyListKind::Dictionary;
    if (kind == PropertyListKind::None || (isContainer && depth >= PropertyListDepthLimit)) {
        reason = isContainer ? QStringLiteral("it is nested too deeply")
                             : QStringLiteral("its type has no form in property lists");
        return std::nullopt;
    }
    const quint64 index = m_objects.size();
    m_objects.emplace_back();
    if (!isContainer) {
        m_objects[index].leaf = value;
        return index;
    }
    const bool isArray = kind == PropertyListKind::Array;
    References references;
    if (isArray ? !addElements(value, references, depth) : !addEntries(value, references, depth))
        return std::nullopt;
    m_objects[index].marker = isArray ? Marker::Array : Marker::Dictionary;
    m_objects[index].references = std::move(references);
    return index;
}

bool Encoder::addTo(References &references, const QVariant &value, const QString &step, int depth)
{
    const auto index = add(value, depth + 1);
    if (index)
        references.push_back(*index);
    else
        culprit.prepend(step);
    return index.has_value();
}

bool Encoder::addElements(const QVariant &value, References &references, int depth)
{
    const QVariantList list = value.toList();
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (!addTo(references, list[i], QString::number(i), depth))
            return false;
    }
    return true;
}

bool Encoder::addEntries(const QVariant &value, References &references, int depth)
{
    const QVariantMap map = value.toMap();
    for (auto entry = map.keyBegin(); entry != map.keyEnd(); ++entry)
        references.push_back(addString(*entry));
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        if (!addTo(references, entry.value(), entry.key(), depth))
            return false;
    }
    return true;
}

quint64 Encoder::addString(const QString &text)
{
    const auto known = m_strings.constFind(text);
    if (known != m_strings.constEnd())
        return *known;
    const quint64 index = m_objects.size();
    m_objects.push_back({text, Marker::Simple, {}});
    m_strings.insert(text, index);
    return index;
}

QByteArray Encoder::bytes()
{
    const int referenceWidth = 1 << widthExponent(m_objects.size());
    m_out = magic.toByteArray();
    std::vector<quint64> offsets;
    for (const Object &object : m_objects) {
        offsets.push_back(quint64(m_out.size()));
        putObject(object, referenceWidth);
    }
    const quint64 tableOffset = quint64(m_out.size());
    const int offsetWidth = 1 << widthExponent(tableOffset);
    for (const quint64 offset : offsets)
        put(offset, offsetWidth);
    put(0, 6);
    put(quint64(offsetWidth), 1);
    put(quint64(referenceWidth), 1);
    put(m_objects.size(), 8);
    put(0, 8);
    put(tableOffset, 8);
    return m_out;
}

void Encoder::putObject(const Object &object, int referenceWidth)
{
    if (object.marker == Marker::Simple)
        return putLeaf(object.leaf);
    const quint64 perEntry = object.marker == Marker::Dictionary ? 2 : 1;
    putMarker(object.marker, object.references.size() / perEntry);
    for (const quint64 reference : object.references)
        put(reference, referenceWidth);
}

void Encoder::putLeaf(const QVariant &value)
{
    switch (kindOfPropertyListValue(value)) {
    case PropertyListKind::String:
        return putString(value.toString());
    case PropertyListKind::Data:
        return putData(value.toByteArray());
    case PropertyListKind::Boolean:
        return put(value.toBool() ? True : False, 1);
    case PropertyListKind::Integer:
        return putInteger(value);
    case PropertyListKind::Real:
        return putDouble(Marker::Real, value.toDouble());
    case PropertyListKind::Date:
        return putDouble(Marker::Date, value.value<PropertyListDate>().secondsSince2001);
    default: {
        const quint64 uid = value.value<PropertyListUid>().value;
        const int width = 1 << widthExponent(uid);
        put(quint64(Marker::Uid << 4 | (width - 1)), 1);
        return put(uid, width);
    }
    }
}

void Encoder::put(quint64 value, int width)
{
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        m_out.append(char(value >> shift));
}

void Encoder::putMarker(Marker marker, quint64 count)
{
    put(quint64(marker << 4) | qMin<quint64>(count, CountFollows), 1);
    if (count >= CountFollows)
        putInteger(qulonglong(count));
}

void Encoder::putInteger(const QVariant &value)
{
    const quint64 bits = value.toULongLong();
    const bool isUnsigned =
        value.typeId() == QMetaType::ULongLong || value.typeId() == QMetaType::ULong;
    if (isUnsigned && qint64(bits) < 0) { // eight bytes are read as signed
        put(Marker::Integer << 4 | 4, 1);
        put(0, 8);
        return put(bits, 8);
    }
    const int exponent = widthExponent(bits);
    put(quint64(Marker::Integer << 4 | exponent), 1);
    put(bits, 1 << exponent);
}

void Encoder::putDouble(Marker marker, double value)
{
    put(quint64(marker << 4 | 3), 1);
    put(std::bit_cast<quint64>(value), 8);
}

void Encoder::putString(const QString &text)
{
    const bool isAscii =
        std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
    putMarker(isAscii ? Marker::Ascii : Marker::Utf16, quint64(text.size()));
    for (const QChar unit : text)
        put(unit.unicode(), isAscii ? 1 : 2);
}

void Encoder::putData(const QByteArray &data)
{
    putMarker(Marker::Data, quint64(data.size()));
    m_out.append(data);
}

} // namespace

std::optional<QByteArray> serialize(const QVariant &root, Error *error)
{
    Encoder encoder;
    if (encoder.add(root))
        return encoder.bytes();
    failPropertyListValue(error, encoder.culprit, encoder.reason);
    return std::nullopt;
}

} // namespace platform::BinaryPropertyList
