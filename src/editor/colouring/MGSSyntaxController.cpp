#include "editor/colouring/MGSSyntaxController.h"

#include "editor/colouring/MGSSyntaxDefinition.h"
#include "kit/ZQBundleExtensions.h"
#include "platform/Assert.h"
#include "platform/Log.h"
#include "platform/PropertyList.h"

#include <QFile>

namespace {

using namespace Qt::StringLiterals;

const QString KMGSSyntaxDefinitions = QStringLiteral("SyntaxDefinitions");
const QString KMGSSyntaxDefinitionsExt = QStringLiteral("plist");
const QString kMGSSyntaxDefinitionsFile = QStringLiteral("SyntaxDefinitions.plist");
const QString KMGSSyntaxDictionaryExt = QStringLiteral("plist");
const QString KMGSSyntaxDefinitionsFolder = QStringLiteral("Syntax Definitions");

const QString nameKey = QStringLiteral("name");
const QString fileKey = QStringLiteral("file");
const QString extensionsKey = QStringLiteral("extensions");

// Resources are no files of the system.
std::optional<platform::PropertyList::Document> readList(const QString &path,
                                                         platform::Error *error)
{
    if (!path.startsWith(u':'))
        return platform::PropertyList::read(path, error);
    QFile resource(path);
    resource.open(QIODevice::ReadOnly);
    return platform::PropertyList::parse(resource.readAll(), error);
}

// Nullopt, silently, for a file that is not there; with a log for one that holds something else.
template <class Value>
std::optional<Value> readRoot(const QString &path)
{
    if (!QFile::exists(path))
        return std::nullopt;
    platform::Error error;
    const auto document = readList(path, &error);
    if (document && document->root.typeId() == qMetaTypeId<Value>())
        return document->root.value<Value>();
    platform::log("The syntax definitions in %@ are left out: %@", path,
                  document ? QStringLiteral("the list has another shape") : error.description);
    return std::nullopt;
}

QVariantMap builtIn(const QString &name)
{
    return {{nameKey, name}, {fileKey, name.toLower()}, {extensionsKey, QString()}};
}

} // namespace

MGSSyntaxController::Places MGSSyntaxController::Places::standard()
{
    const QString main = QStringLiteral(":/layoutsmith");
    return {main + QStringLiteral("/ZQFragariaResources.bundle"), main,
            zq::applicationSupportFolder(platform::Bundle::mainBundle())};
}

MGSSyntaxController &MGSSyntaxController::sharedInstance()
{
    static MGSSyntaxController controller(Places::standard());
    return controller;
}

MGSSyntaxController::MGSSyntaxController(const Places &places) : m_places(places)
{
    const auto own =
        readRoot<QVariantList>(places.resourceBundle + u'/' + kMGSSyntaxDefinitionsFile);
    PLATFORM_ASSERT(own, "framework syntax definitions not found");
    add({builtIn(standardSyntaxDefinitionName()), builtIn(QStringLiteral("None"))});
    add(*own);
    const QString users =
        places.applicationSupport + u'/' + KMGSSyntaxDefinitions + u'.' + KMGSSyntaxDefinitionsExt;
    add(readRoot<QVariantList>(users).value_or(QVariantList()));
}

void MGSSyntaxController::add(const QVariantList &entries)
{
    for (const QVariant &entry : entries) {
        if (entry.toMap().value(extensionsKey).typeId() != QMetaType::QVariantList)
            add(entry.toMap());
    }
}

void MGSSyntaxController::add(const QVariantMap &listed)
{
    const Entry entry = {listed.value(nameKey).toString(), listed.value(fileKey).toString(),
                         listed.value(extensionsKey).toString(), m_names.size()};
    if (entry.name.isEmpty() || entry.file.isEmpty()) {
        platform::log("A syntax definition without a name or file is left out: \"%@\", \"%@\"",
                      entry.name, entry.file);
        return;
    }
    m_definitions.insert(entry.name.toLower(), entry);
    m_names.append(entry.name);
}

QString MGSSyntaxController::standardSyntaxDefinitionName()
{
    return QStringLiteral("Standard");
}

const MGSSyntaxController::Entry &MGSSyntaxController::standardSyntaxDefinition() const
{
    const auto found = m_definitions.constFind(standardSyntaxDefinitionName().toLower());
    PLATFORM_ASSERT(found != m_definitions.cend(), "standard syntax definition not found");
    return *found;
}

const MGSSyntaxController::Entry &
MGSSyntaxController::syntaxDefinitionWithName(const QString &name) const
{
    const auto found = m_definitions.constFind(name.toLower());
    return found == m_definitions.cend() ? standardSyntaxDefinition() : *found;
}

const MGSSyntaxController::Entry *
MGSSyntaxController::syntaxDefinitionWithExtension(const QString &extension) const
{
    const QString wanted = extension.toLower();
    for (const Entry &entry : m_definitions) {
        QString listed = entry.extensions;
        if (!listed.isEmpty() && listed.remove(u'.').split(u' ').contains(wanted))
            return &entry;
    }
    return nullptr;
}

QString MGSSyntaxController::syntaxDefinitionNameWithExtension(const QString &extension) const
{
    const Entry *entry = syntaxDefinitionWithExtension(extension);
    return entry ? entry->name : QString();
}

QString MGSSyntaxController::guessSyntaxDefinitionExtensionFromFirstLine(const QString &line)
{
    static constexpr std::pair<QLatin1StringView, QLatin1StringView> marks[] = {
        {"perl"_L1, "pl"_L1},   {"wish"_L1, "tcl"_L1}, {"sh"_L1, "sh"_L1},   {"php"_L1, "php"_L1},
        {"python"_L1, "py"_L1}, {"awk"_L1, "awk"_L1},  {"xml"_L1, "xml"_L1}, {"ruby"_L1, "rb"_L1},
        {"%!ps"_L1, "ps"_L1},   {"%pdf"_L1, "pdf"_L1},
    };
    for (const auto &[word, extension] : marks) {
        if (line.contains(word, Qt::CaseInsensitive))
            return extension;
    }
    return {};
}

std::optional<QVariantMap> MGSSyntaxController::syntaxDictionaryWithName(const QString &name) const
{
    const auto dictionary = dictionaryOfFile(syntaxDefinitionWithName(name).file);
    return dictionary ? dictionary : dictionaryOfFile(standardSyntaxDefinition().file);
}

std::shared_ptr<const MGSSyntaxDefinition>
MGSSyntaxController::loadDefinition(const QString &name) const
{
    for (const QString &language : {name, standardSyntaxDefinitionName()}) {
        try {
            const auto dictionary = syntaxDictionaryWithName(language);
            return std::make_shared<MGSSyntaxDefinition>(dictionary.value_or(QVariantMap()), name);
        } catch (const platform::AssertionFailure &failure) {
            platform::log("The syntax definition %@ is left out: %@", language, failure.text());
        }
    }
    return std::make_shared<MGSSyntaxDefinition>(QVariantMap(), name);
}

std::optional<QVariantMap> MGSSyntaxController::dictionaryOfFile(const QString &file) const
{
    const QString named = u'/' + file + u'.' + KMGSSyntaxDictionaryExt;
    const QString inFolder = u'/' + KMGSSyntaxDefinitionsFolder + named;
    for (const QString &path : {m_places.resourceBundle + inFolder, m_places.mainBundle + inFolder,
                                m_places.applicationSupport + named}) {
        if (auto dictionary = readRoot<QVariantMap>(path))
            return dictionary;
    }
    return std::nullopt;
}
