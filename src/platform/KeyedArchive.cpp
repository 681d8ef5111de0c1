#include "platform/KeyedArchive.h"

#include "platform/PropertyList.h"

#include <cmath>
#include <QDataStream>
#include <QIODevice>
#include <vector>

using namespace Qt::StringLiterals;

namespace platform::KeyedArchive {

namespace {

constexpr auto streamVersion = QDataStream::Qt_6_0;
constexpr qint64 archiveVersion = 100000;
constexpr qint64 deviceRgb = 2;
constexpr int longestDetour = 8; // from a named colour to its components

QVariant uid(quint64 value)
{
    return QVariant::fromValue(PropertyListUid{value});
}

/// An archive of one object, which refers to its class and, as number 3, to a string.
QByteArray archive(QVariantMap object, const QString &className, const QString &string = {})
{
    object.insert(u"$class"_s, uid(2));
    const QVariantMap classObject{{u"$classname"_s, className},
                                  {u"$classes"_s, QStringList{className, u"NSObject"_s}}};
    QVariantList objects{u"$null"_s, object, classObject};
    if (!string.isNull())
        objects.append(string);
    const QVariantMap root{{u"$archiver"_s, u"NSKeyedArchiver"_s},
                           {u"$version"_s, archiveVersion},
                           {u"$top"_s, QVariantMap{{u"root"_s, uid(1)}}},
                           {u"$objects"_s, objects}};
    return PropertyList::serialize(root, PropertyList::Format::Binary).value_or(QByteArray());
}

/// The objects of an archive. References that lead nowhere give invalid values.
class Objects
{
public:
    explicit Objects(const QByteArray &bytes)
    {
        const auto document = PropertyList::parse(bytes);
        const QVariantMap root = document ? document->root.toMap() : QVariantMap();
        m_objects = root.value(u"$objects"_s).toList();
        m_root = at(root.value(u"$top"_s).toMap().value(u"root"_s)).toMap();
    }

    const QVariantMap &root() const { return m_root; }

    QVariant at(const QVariant &reference) const
    {
        if (reference.typeId() != qMetaTypeId<PropertyListUid>())
            return {};
        const quint64 index = reference.value<PropertyListUid>().value;
        return index < quint64(m_objects.size()) ? m_objects.at(qsizetype(index)) : QVariant();
    }

    QString className(const QVariantMap &object) const
    {
        return at(object.value(u"$class"_s)).toMap().value(u"$classname"_s).toString();
    }

private:
    QVariantList m_objects;
    QVariantMap m_root;
};

/// The numbers of a text such as "0.5 1 0" with a NUL behind it. Empty if there is anything else.
std::vector<float> numbers(const QVariant &data)
{
    std::vector<float> result;
    QByteArray text = data.toByteArray();
    if (text.endsWith('\0'))
        text.chop(1);
    for (const QByteArray &word : text.simplified().split(' ')) {
        bool isNumber = false;
        const float number = word.toFloat(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return {};
        result.push_back(std::clamp(number, 0.0F, 1.0F));
    }
    return result;
}

QColor rgb(const std::vector<float> &c)
{
    return QColor::fromRgbF(c[0], c[1], c[2], c.size() > 3 ? c[3] : 1);
}

QColor grey(const std::vector<float> &c)
{
    return QColor::fromRgbF(c[0], c[0], c[0], c.size() > 1 ? c[1] : 1);
}

QColor cmyk(const std::vector<float> &c)
{
    return QColor::fromCmykF(c[0], c[1], c[2], c[3], c.size() > 4 ? c[4] : 1).toRgb();
}

struct Form
{
    QLatin1StringView key;
    std::size_t components; ///< One more may follow, the alpha.
    QColor (*color)(const std::vector<float> &components);
};

constexpr Form forms[] = {{"NSRGB"_L1, 3, rgb}, {"NSWhite"_L1, 1, grey}, {"NSCMYK"_L1, 4, cmyk}};

QColor colorOf(const QVariantMap &object)
{
    for (const Form &form : forms) {
        const std::vector<float> components = numbers(object.value(form.key));
        if (components.size() == form.components || components.size() == form.components + 1)
            return form.color(components);
    }
    return {};
}

QByteArray componentsText(const QColor &color)
{
    QList<QByteArray> components;
    for (const float component : {color.redF(), color.greenF(), color.blueF(), color.alphaF()})
        components.append(QByteArray::number(double(component), 'g', 9));
    if (color.alphaF() >= 1)
        components.removeLast();
    return components.join(' ') + '\0';
}

} // namespace

QByteArray archivedColor(const QColor &color)
{
    if (!color.isValid())
        return {};
    return archive({{u"NSColorSpace"_s, deviceRgb}, {u"NSRGB"_s, componentsText(color.toRgb())}},
                   u"NSColor"_s);
}

QColor unarchivedColor(const QByteArray &archive)
{
    const Objects objects(archive);
    QVariantMap object = objects.root();
    for (int detour = 0; detour < longestDetour; ++detour) {
        if (objects.className(object) != u"NSColor")
            return {};
        if (const QColor color = colorOf(object); color.isValid())
            return color;
        object = objects.at(object.value(u"NSColor"_s)).toMap();
    }
    return {};
}

QByteArray archivedFont(const QFont &font)
{
    QByteArray description;
    QDataStream stream(&description, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << font;
    return archive({{u"NSName"_s, uid(3)},
                    {u"NSSize"_s, font.pointSizeF()},
                    {u"NSfFlags"_s, 16},
                    {u"QtFont"_s, description}},
                   u"NSFont"_s, font.family());
}

std::optional<QFont> unarchivedFont(const QByteArray &archive)
{
    const Objects objects(archive);
    const QVariantMap &object = objects.root();
    if (objects.className(object) != u"NSFont")
        return std::nullopt;
    QDataStream stream(object.value(u"QtFont"_s).toByteArray());
    stream.setVersion(streamVersion);
    QFont font;
    stream >> font;
    if (stream.status() == QDataStream::Ok)
        return font;
    const QString family = objects.at(object.value(u"NSName"_s)).toString();
    const double size = object.value(u"NSSize"_s).toDouble();
    if (family.isEmpty() || !(size > 0 && size < 10000))
        return std::nullopt;
    QFont foreign(family);
    foreign.setPointSizeF(size);
    return foreign;
}

} // namespace platform::KeyedArchive
