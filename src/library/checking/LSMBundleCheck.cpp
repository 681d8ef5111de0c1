#include "library/checking/LSMBundleCheck.h"

#include "library/LSMBundlePaths.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLoader.h"
#include "platform/Bundle.h"
#include "platform/FileIO.h"
#include "platform/Format.h"
#include "platform/PropertyList.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <span>

using namespace LSMDesignKeys;
using platform::localizable;
using platform::localized;
using enum LSMFinding::Level;

namespace {

enum class Kind { String, StringArray, DictionaryArray, Dictionary, Date };

struct KnownKey
{
    QLatin1StringView key;
    Kind kind;
};

constexpr KnownKey infoKeys[] = {
    {infoDictionaryVersion, Kind::String},
    {name, Kind::String},
    {identifier, Kind::String},
    {version, Kind::String},
    {keywords, Kind::StringArray},
    {remoteResources, Kind::StringArray},
    {remoteDirectory, Kind::String},
    {properties, Kind::DictionaryArray},
    {minimumVersion, Kind::String},
    {imageInclusion, Kind::String},
    {store, Kind::Dictionary},
};

constexpr KnownKey storeKeys[] = {
    {releaseDate, Kind::Date},         {layoutNames, Kind::StringArray},
    {defaultLayoutName, Kind::String}, {storeTitle, Kind::String},
    {storeDescription, Kind::String},  {storePrice, Kind::String},
    {storeCurrency, Kind::String},     {storeCategory, Kind::String},
    {storeSupportUrl, Kind::String},
};

constexpr KnownKey propertyKeys[] = {
    {propertyName, Kind::String},
    {propertyType, Kind::String},
    {propertyAllowedValues, Kind::StringArray},
};

bool isArrayOf(const QVariant &value, int type)
{
    return value.typeId() == QMetaType::QVariantList &&
           std::ranges::all_of(value.toList(),
                               [type](const QVariant &entry) { return entry.typeId() == type; });
}

bool isKind(const QVariant &value, Kind kind)
{
    switch (kind) {
    case Kind::String:
        return value.typeId() == QMetaType::QString;
    case Kind::StringArray:
        return isArrayOf(value, QMetaType::QString);
    case Kind::DictionaryArray:
        return isArrayOf(value, QMetaType::QVariantMap);
    case Kind::Dictionary:
        return value.typeId() == QMetaType::QVariantMap;
    case Kind::Date:
        return value.typeId() == qMetaTypeId<platform::PropertyListDate>();
    }
    return false;
}

QString kindName(Kind kind)
{
    static constexpr const char *names[] = {localizable("a string"),
                                            localizable("an array of strings"),
                                            localizable("an array of dictionaries"),
                                            localizable("a dictionary"), localizable("a date")};
    return localized(names[int(kind)]);
}

// The host's old format and the workbench both need a name that can be a folder.
bool isPlainFolderName(const QString &title)
{
    return LSMBundlePaths::folderNameForTitle(title) == title && !title.startsWith(u'.');
}

// A finding names its path already.
QString withoutPath(const platform::Error &reason, const QString &path)
{
    const QString start = path + QStringLiteral(": ");
    return reason.description.sliced(reason.description.startsWith(start) ? start.size() : 0);
}

} // namespace

void LSMBundleCheck::add(const QString &path, LSMFinding::Level level, const QString &text)
{
    m_findings.push_back({path, level, text, 0, 0, 0});
}

bool LSMBundleCheck::isNew(const QString &path)
{
    const qsizetype before = m_paths.size();
    m_paths.insert(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    return m_paths.size() > before;
}

void LSMBundleCheck::addPath(const QString &givenPath)
{
    const QString path = QDir::cleanPath(givenPath); // without a slash at its end
    const QFileInfo info(path);
    if (!info.exists())
        return add(path, Error, localized("There is nothing at this path."));
    if (info.fileName().endsWith(u'.' + QString(bundleExtension)))
        return addBundle(path);
    if (info.isFile())
        return addOldFile(path);
    if (!info.isReadable())
        return add(path, Error, localized("The folder cannot be read."));
    checkDeletions(path);
    for (const QString &entry : LSMDesignLoader::candidates(path)) {
        if (!LSMDesignLoader::isReachable(entry))
            add(entry, Error, localized("The name is not UTF-8. Rename it, and the design loads."));
        else
            entry.endsWith(u'.' + QString(bundleExtension)) ? addBundle(entry) : addOldFile(entry);
    }
}

void LSMBundleCheck::addOldFile(const QString &path)
{
    if (!isNew(path))
        return;
    const QString title = QFileInfo(path).completeBaseName();
    if (QFileInfo(path).suffix() != oldVersionExtension)
        return add(path, Error, localized("This is not a design."));
    if (!QFileInfo(path).isFile())
        return add(path, Error, localized("An old design must be a file, and this is none."));
    checkText(path, {});
    const QString bundle = LSMBundlePaths::withExtension(title, bundleExtension);
    if (QFileInfo(QFileInfo(path).dir(), bundle).isDir())
        add(path, Warning,
            platform::format(localized("%@ stands beside it: its conversion was cut short, or "
                                       "these are two designs. The old file still loads."),
                             bundle));
    m_designs.push_back({path, title, {}});
}

void LSMBundleCheck::addBundle(const QString &path)
{
    if (!isNew(path))
        return;
    if (!QFileInfo(path).isDir())
        return add(path, Error, localized("A design must be a folder, and this is none."));
    const QVariantMap info = checkInfo(path);
    checkBody(path + u'/' + bodyFile, LSMHtmlCheck::Context::of(info));
    checkPictures(path);
    checkLeftovers(path);
}

QVariantMap LSMBundleCheck::checkInfo(const QString &path)
{
    const QString file = path + u'/' + infoFile;
    platform::Error reason;
    const auto info = platform::PropertyList::read(file, &reason);
    if (!info || info->root.typeId() != QMetaType::QVariantMap) {
        add(file, Error,
            platform::format(localized("The design does not load: %@"),
                             info ? localized("this is not a dictionary.")
                                  : withoutPath(reason, file)));
        return {};
    }

    // `place` is what they are the values of, where they stand within another.
    const auto checkTypes = [&](const QVariantMap &values, std::span<const KnownKey> keys,
                                const QString &place = {}) {
        for (const auto &[key, kind] : keys) {
            if (values.contains(key) && !isKind(values.value(key), kind))
                add(file, Error,
                    platform::format(localized("%@ must be %@."), place + key, kindName(kind)));
        }
    };
    const QVariantMap values = info->root.toMap();
    checkTypes(values, infoKeys);
    checkTypes(values.value(store).toMap(), storeKeys, store + u'.');
    const QVariantList records = values.value(properties).toList();
    for (qsizetype i = 0; i < records.size(); ++i)
        checkTypes(records[i].toMap(), propertyKeys,
                   platform::format(QStringLiteral("%@[%ld]."), QString(properties), i));

    const auto text = [&values](QLatin1StringView key) {
        const QVariant value = values.value(key);
        return isKind(value, Kind::String) ? value.toString() : QString();
    };
    if (!values.contains(name))
        add(file, Error, localized("CFBundleName is missing; the folder's name stands in."));
    else if (isKind(values.value(name), Kind::String))
        checkTitle(file, text(name));
    if (text(identifier).isEmpty())
        add(file, Warning, localized("The template identifier must not be empty"));
    const QString title =
        isKind(values.value(name), Kind::String) ? text(name) : QFileInfo(path).completeBaseName();
    m_designs.push_back({path, title, text(identifier)});
    return values;
}

void LSMBundleCheck::checkTitle(const QString &path, const QString &title)
{
    if (title.isEmpty())
        add(path, Warning, localized("The title is empty."));
    else if (!isPlainFolderName(title))
        add(path, Note,
            platform::format(localized("The title cannot be the name of a visible folder; a new "
                                       "design with it is saved as \"%@\"."),
                             LSMBundlePaths::folderNameForTitle(title)));
}

void LSMBundleCheck::checkBody(const QString &file, const LSMHtmlCheck::Context &context)
{
    const QFileInfo info(file);
    if (info.exists())
        checkText(file, context);
    else
        add(file, Warning,
            info.isSymLink() ? localized("The link leads nowhere; the design has no HTML.")
                             : localized("The file is missing; the design has no HTML."));
}

void LSMBundleCheck::checkText(const QString &file, const LSMHtmlCheck::Context &context)
{
    platform::Error reason;
    const auto bytes = platform::readFile(file, &reason);
    if (!bytes)
        return add(file, Error,
                   platform::format(localized("The HTML cannot be read and counts as empty: %@"),
                                    withoutPath(reason, file)));
    const platform::DecodedText decoded = platform::decodeText(*bytes);
    if (decoded.encodingName != u"UTF-8")
        add(file, Note,
            platform::format(localized("The text is read as %@; saving the design writes UTF-8."),
                             decoded.encodingName));
    for (LSMFinding &finding : LSMHtmlCheck::findings(decoded.text, context)) {
        finding.path = file;
        m_findings.push_back(std::move(finding));
    }
}

void LSMBundleCheck::checkPictures(const QString &path)
{
    for (const auto &file : {pngThumbnail, jpegThumbnail}) {
        const QString picture = path + u'/' + file;
        if (!QFileInfo::exists(picture))
            continue;
        QImageReader reader(picture);
        reader.setDecideFormatFromContent(true);
        if (!QFileInfo(picture).isFile() || reader.read().isNull())
            add(picture, Error, localized("This is not a picture that can be read."));
    }
}

// A deletion moves the design aside first; what comes back is put together there.
void LSMBundleCheck::checkDeletions(const QString &folder)
{
    for (const QString &name :
         QDir(folder).entryList({QStringLiteral(".deleted-??????")}, QDir::Dirs | QDir::Hidden))
        add(folder + u'/' + name, Note,
            localized(
                "A deletion, or its undoing, that was cut short has left this folder; nothing "
                "uses it."));
}

// A save writes beside the file and then puts the new one in its place.
void LSMBundleCheck::checkLeftovers(const QString &path)
{
    for (const auto &file : {bodyFile, infoFile, pngThumbnail, jpegThumbnail}) {
        const QString pattern = QString(file) + QStringLiteral(".??????");
        for (const QString &name : QDir(path).entryList({pattern}, QDir::Files | QDir::Hidden))
            add(path + u'/' + name, Note,
                localized("A save that was cut short has left this file; nothing uses it."));
    }
}

void LSMBundleCheck::addClashes(LSMFindings &findings) const
{
    struct Rule
    {
        QString Design::*field;
        const char *text;
    };
    static constexpr const char *sameName = localizable("A template with the same name exists: %@");
    static constexpr const char *sameIdentifier =
        localizable("A template with the same identifier exists: %@");
    for (const auto &[field, text] :
         {Rule{&Design::title, sameName}, Rule{&Design::identifier, sameIdentifier}}) {
        QHash<QString, QString> first; // by the value in one case
        for (const Design &design : m_designs) {
            const QString key = (design.*field).toCaseFolded();
            if (key.isEmpty())
                continue;
            const auto found = first.constFind(key);
            if (found == first.constEnd())
                first.insert(key, design.path);
            else
                findings.push_back(
                    {design.path, Warning, platform::format(localized(text), *found), 0, 0, 0});
        }
    }
}

LSMFindings LSMBundleCheck::findings() const
{
    LSMFindings result = m_findings;
    addClashes(result);
    std::ranges::stable_sort(result, {}, &LSMFinding::path);
    return result;
}
