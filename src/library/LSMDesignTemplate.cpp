#include "library/LSMDesignTemplate.h"

#include "kit/ZQImageExtensions.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLayouts.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/FileIO.h"
#include "platform/Log.h"
#include "platform/TextEncoding.h"

#include <cerrno>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QThread>

using namespace LSMDesignKeys;
using platform::ObservableDictionary;
using platform::PropertyList;

namespace {

QStringList strings(const QVariant &list)
{
    QStringList result;
    for (const QVariant &entry : list.toList()) {
        if (entry.typeId() == QMetaType::QString)
            result.append(entry.toString());
    }
    return result;
}

QVariantList list(const QStringList &strings)
{
    return {strings.begin(), strings.end()};
}

QString dateText(const QDateTime &date)
{
    const QLocale locale;
    QString time = locale.timeFormat(QLocale::ShortFormat);
    if (!time.contains(u's'))
        time.replace(QStringLiteral("mm"), QStringLiteral("mm:ss"));
    return locale.toString(date.date(), QLocale::LongFormat) + QStringLiteral(", ") +
           locale.toString(date.time(), time);
}

} // namespace

LSMDesignTemplate::LSMDesignTemplate(const QString &title, const QString &path, const QString &type,
                                     Version version)
    : m_title(title), m_templatePath(path), m_type(type), m_version(version)
{
    PLATFORM_ASSERT(!title.isNull(), "Invalid parameter not satisfying: %@", "inTitle");
    setDictionary(defaultTemplateDictionaryWithTitle(title));
    readTemplateImage();
    platform::Error error;
    readHtmlSourceCode(&error);
}

std::shared_ptr<LSMDesignTemplate> LSMDesignTemplate::templateWithTitle(const QString &title,
                                                                        const QString &path,
                                                                        const QString &type,
                                                                        Version version)
{
    std::shared_ptr<LSMDesignTemplate> design(new LSMDesignTemplate(title, path, type, version));
    design->settleOnMainThread();
    return design;
}

std::shared_ptr<LSMDesignTemplate>
LSMDesignTemplate::templateWithDict(const QVariantMap &dictionary, const QString &path,
                                    const QString &type, PropertyList::Format format)
{
    const QVariant name = dictionary.value(LSMDesignKeys::name);
    const QString title =
        name.typeId() == QMetaType::QString ? name.toString() : QFileInfo(path).completeBaseName();
    std::shared_ptr<LSMDesignTemplate> design(
        new LSMDesignTemplate(title, path, type, Version::Bundle));
    design->setDictionary(dictionary);
    design->m_infoFormat = format;
    design->m_paid = dictionary.contains(store);
    design->settleOnMainThread();
    return design;
}

QVariantMap LSMDesignTemplate::defaultTemplateDictionaryWithTitle(const QString &title)
{
    return {{infoDictionaryVersion, QStringLiteral("6.0")}, {LSMDesignKeys::name, title}};
}

std::shared_ptr<LSMDesignTemplate> LSMDesignTemplate::copy() const
{
    if (m_templatePath.isNull())
        return nullptr;
    if (isOldVersion())
        return copyOfOldVersion();
    const auto info = PropertyList::read(m_templatePath + u'/' + infoFile);
    if (!info || info->root.typeId() != QMetaType::QVariantMap)
        return nullptr;
    auto result = templateWithDict(info->root.toMap(), m_templatePath, m_type, info->format);
    // Read while the source's files are surely there.
    (void)result->templateImage();
    (void)result->htmlSourceCode();
    result->m_templatePath = QString();
    return result;
}

std::shared_ptr<LSMDesignTemplate> LSMDesignTemplate::copyOfOldVersion() const
{
    auto result = templateWithTitle(m_title, m_templatePath, m_type, Version::Old);
    (void)result->htmlSourceCode();
    result->m_version = Version::Bundle;
    result->m_templatePath = QString();
    return result;
}

void LSMDesignTemplate::settleOnMainThread()
{
    if (!QCoreApplication::instance() || QThread::currentThread() != thread())
        return;
    m_dictionary->moveToThread(QCoreApplication::instance()->thread());
    moveToThread(QCoreApplication::instance()->thread());
}

void LSMDesignTemplate::setDictionary(const QVariantMap &values)
{
    if (m_dictionary)
        m_dictionary->disconnect(this);
    m_dictionary = std::make_shared<ObservableDictionary>(values);
    connect(m_dictionary.get(), &ObservableDictionary::valueChanged, this,
            [this](const QString &key) {
                if (key == LSMDesignKeys::name)
                    Q_EMIT templateNameDidChange();
            });
    Q_EMIT templateDictionaryDidChange();
    Q_EMIT templateNameDidChange();
}

bool LSMDesignTemplate::isBuiltInDesignTemplate() const
{
    return m_type == builtinType;
}

QString LSMDesignTemplate::bodyPath() const
{
    if (m_templatePath.isNull() || isOldVersion())
        return m_templatePath;
    return m_templatePath + u'/' + bodyFile;
}

bool LSMDesignTemplate::bodyDiffersOnDisk() const
{
    const auto bytes = m_templatePath.isNull() ? std::nullopt : platform::readFile(bodyPath());
    return bytes && qHash(*bytes) != m_bodyOnDisk;
}

QString LSMDesignTemplate::htmlSourceCode() const
{
    if (!m_htmlBytes.isNull())
        m_html = platform::decodeText(std::exchange(m_htmlBytes, QByteArray())).text;
    if (m_readHtml)
        m_html = std::exchange(m_readHtml, nullptr)();
    return m_html;
}

void LSMDesignTemplate::setHtmlSourceCode(const QString &html)
{
    if (htmlSourceCode() == html)
        return;
    m_html = html;
    Q_EMIT htmlSourceCodeDidChange();
}

void LSMDesignTemplate::setHtmlSourceCodeFrom(std::function<QString()> read)
{
    m_htmlBytes = QByteArray();
    m_readHtml = std::move(read);
    Q_EMIT htmlSourceCodeDidChange();
}

bool LSMDesignTemplate::readHtmlSourceCode(platform::Error *outError)
{
    PLATFORM_ASSERT(outError, "Invalid parameter not satisfying: %@", "outError");
    m_html = QStringLiteral("");
    m_htmlBytes = QByteArray();
    m_readHtml = nullptr;
    const QString path = bodyPath();
    if (!path.isNull()) {
        if (const auto bytes = platform::readFile(path, outError))
            m_htmlBytes = *bytes;
        else if (outError->code != ENOENT || QFileInfo(path).isSymLink())
            platform::log("error reading file: %@\n%@", path, outError->description);
    }
    noteBodyOnDisk(m_htmlBytes);
    Q_EMIT htmlSourceCodeDidChange();
    return true;
}

void LSMDesignTemplate::setTemplateShouldBeSaved(bool shouldBeSaved)
{
    if (std::exchange(m_shouldBeSaved, shouldBeSaved) != shouldBeSaved)
        Q_EMIT templateShouldBeSavedDidChange();
}

void LSMDesignTemplate::readTemplateImage()
{
    m_image.reset();
    m_templateImagePath.reset();
}

QString LSMDesignTemplate::templateImagePath() const
{
    if (!m_templateImagePath)
        m_templateImagePath = pathOfPicture();
    return *m_templateImagePath;
}

QString LSMDesignTemplate::pathOfPicture() const
{
    if (m_templatePath.isNull() || isOldVersion())
        return {};
    for (const auto &file : {pngThumbnail, jpegThumbnail}) {
        const QString path = m_templatePath + u'/' + file;
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

QImage LSMDesignTemplate::templateImage() const
{
    if (!m_image)
        m_image = zq::imageAtPath(templateImagePath());
    return *m_image;
}

void LSMDesignTemplate::setTemplateImage(const QImage &image)
{
    m_image = image;
    Q_EMIT templateImageDidChange();
}

void LSMDesignTemplate::setPaidTemplate(bool paid)
{
    const bool changed = std::exchange(m_paid, paid) != paid;
    if (paid && !m_dictionary->contains(store)) {
        const auto now = platform::PropertyListDate::fromDateTime(QDateTime::currentDateTimeUtc());
        const auto seconds = platform::PropertyListDate{std::floor(now.secondsSince2001)};
        m_dictionary->setValue(store, QVariantMap{{releaseDate, QVariant::fromValue(seconds)}});
    }
    if (changed)
        Q_EMIT paidTemplateDidChange();
}

QString LSMDesignTemplate::templateName() const
{
    const QString name = m_dictionary->stringValue(LSMDesignKeys::name);
    return name.isNull() ? m_title : name;
}

QString LSMDesignTemplate::templateIdentifier() const
{
    return m_dictionary->stringValue(LSMDesignKeys::identifier);
}

QStringList LSMDesignTemplate::keywords() const
{
    return strings(m_dictionary->value(LSMDesignKeys::keywords));
}

void LSMDesignTemplate::setKeywords(const QStringList &keywords)
{
    QVariantList entries = m_dictionary->value(LSMDesignKeys::keywords).toList();
    entries.removeIf([](const QVariant &entry) { return entry.typeId() == QMetaType::QString; });
    m_dictionary->setValue(LSMDesignKeys::keywords, list(keywords) + entries);
}

QStringList LSMDesignTemplate::remoteResources() const
{
    return strings(m_dictionary->value(LSMDesignKeys::remoteResources));
}

void LSMDesignTemplate::setRemoteResources(const QStringList &urls)
{
    m_dictionary->setValue(LSMDesignKeys::remoteResources, list(urls));
}

QStringList LSMDesignTemplate::layoutNames() const
{
    return LSMDesignLayouts::layoutNames(htmlSourceCode());
}

QString LSMDesignTemplate::defaultLayoutName() const
{
    return LSMDesignLayouts::defaultLayoutName(htmlSourceCode());
}

QString LSMDesignTemplate::layoutPreviewGenerationDateString()
{
    if (!m_generationDateString.isNull())
        return m_generationDateString;
    const QString layout = defaultLayoutName();
    if (layout.isNull() || m_templatePath.isNull())
        return {};
    const QFileInfo sample(m_templatePath + u'/' + layoutSamplesFolder + u'/' +
                           LSMDesignLayouts::sampleFileName(layout));
    if (!sample.exists())
        return {};
    m_generationDateString = platform::format(platform::localized("Previews generated: %@"),
                                              dateText(sample.lastModified()));
    return m_generationDateString;
}

void LSMDesignTemplate::setLayoutPreviewGenerationDateString(const QString &text)
{
    m_generationDateString = text;
}

QFont LSMDesignTemplate::outlineViewTextFont() const
{
    QFont font;
    font.setBold(m_shouldBeSaved);
    return font;
}

QColor LSMDesignTemplate::outlineViewTextColor() const
{
    return m_paid ? QColor(177, 0, 0) : QColor();
}

void LSMDesignTemplate::revertToSaved()
{
    if (m_type != customType || m_templatePath.isNull())
        return;
    const auto info = PropertyList::read(m_templatePath + u'/' + infoFile);
    if (info && info->root.typeId() == QMetaType::QVariantMap) {
        setDictionary(info->root.toMap());
        m_infoFormat = info->format;
    }
    platform::Error error;
    readHtmlSourceCode(&error);
    setTemplateShouldBeSaved(false);
}
