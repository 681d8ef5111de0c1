#include "editor/MGSColourScheme.h"

#include "editor/MGSArchiving.h"
#include "editor/MGSColourToPlainTextTransformer.h"
#include "editor/MGSFragariaView.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/PropertyList.h"

#include <QColor>
#include <QDir>
#include <QFile>

using platform::PropertyList;
using Transformer = MGSColourToPlainTextTransformer;

namespace {

const QString displayNameKey = QStringLiteral("displayName");

// Resources are no files of the system.
std::optional<PropertyList::Document> readList(const QString &path)
{
    if (!path.startsWith(u':'))
        return PropertyList::read(path);
    QFile resource(path);
    resource.open(QIODevice::ReadOnly);
    return PropertyList::parse(resource.readAll());
}

} // namespace

MGSColourScheme::MGSColourScheme()
{
    const QVariantMap defaults = MGSFragariaView::defaultsDictionary();
    for (const QString &property : propertiesOfScheme())
        m_values.insert(property, mgs_unarchivedValue(defaults.value(property)));
    m_values.insert(displayNameKey, platform::localized("Custom Settings"));
}

MGSColourScheme MGSColourScheme::schemeWithDictionary(const QVariantMap &values)
{
    MGSColourScheme scheme;
    scheme.setDictionaryRepresentation(values);
    return scheme;
}

MGSColourScheme MGSColourScheme::schemeWithFile(const QString &path)
{
    MGSColourScheme scheme;
    scheme.propertiesLoadFromFile(path);
    return scheme;
}

void MGSColourScheme::setValue(const QString &property, const QVariant &value)
{
    if (m_values.contains(property))
        m_values.insert(property, value);
}

QString MGSColourScheme::displayName() const
{
    return value(displayNameKey).toString();
}

void MGSColourScheme::setDisplayName(const QString &name)
{
    setValue(displayNameKey, name);
}

void MGSColourScheme::setDictionaryRepresentation(const QVariantMap &values)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        setValue(it.key(), *it);
}

QVariantMap MGSColourScheme::propertyListRepresentation() const
{
    QVariantMap list = m_values;
    for (const QString &property : propertiesOfTypeColor())
        list.insert(property, Transformer::text(value(property)));
    return list;
}

void MGSColourScheme::setPropertyListRepresentation(const QVariantMap &values)
{
    for (const QString &property : propertiesOfTypeColor()) {
        if (values.value(property).typeId() == QMetaType::QString)
            setValue(property, Transformer::colour(values.value(property).toString()));
    }
    for (const QString &property : propertiesOfTypeBool()) {
        if (platform::isNumber(values.value(property)))
            setValue(property, values.value(property).toBool());
    }
    if (values.value(displayNameKey).typeId() == QMetaType::QString)
        setDisplayName(values.value(displayNameKey).toString());
}

void MGSColourScheme::propertiesLoadFromFile(const QString &path)
{
    const QString file = QDir::cleanPath(path);
    PLATFORM_ASSERT(QFile::exists(file), "File %@ not found!", file);
    const auto document = readList(file);
    PLATFORM_ASSERT(document && document->root.typeId() == QMetaType::QVariantMap,
                    "Error reading file %@", file);
    setPropertyListRepresentation(document->root.toMap());
    m_sourceFile = file;
}

bool MGSColourScheme::propertiesSaveToFile(const QString &path, platform::Error *error) const
{
    return PropertyList::write(propertyListRepresentation(), PropertyList::Format::Xml, path,
                               error);
}

bool MGSColourScheme::isEqualToScheme(const MGSColourScheme &scheme) const
{
    const auto isSame = [this, &scheme](const QString &property) {
        return value(property) == scheme.value(property);
    };
    const auto looksSame = [this, &scheme](const QString &property) {
        return Transformer::text(value(property)) == Transformer::text(scheme.value(property));
    };
    return std::ranges::all_of(propertiesOfTypeBool(), isSame) &&
           std::ranges::all_of(propertiesOfTypeColor(), looksSame);
}

QSet<QString> MGSColourScheme::propertiesOfTypeBool()
{
    return MGSFragariaView::propertyGroupSyntaxHighlightingBools();
}

QSet<QString> MGSColourScheme::propertiesOfTypeColor()
{
    return MGSFragariaView::propertyGroupEditorColours() +
           MGSFragariaView::propertyGroupSyntaxHighlightingColours();
}

QSet<QString> MGSColourScheme::propertiesOfTypeString()
{
    return {displayNameKey};
}

QSet<QString> MGSColourScheme::propertiesAll()
{
    return MGSFragariaView::propertyGroupTheme() + propertiesOfTypeString();
}

QStringList MGSColourScheme::propertiesOfScheme()
{
    return MGSFragariaView::propertyGroupTheme().values();
}
