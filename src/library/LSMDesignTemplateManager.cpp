#include "library/LSMDesignTemplateManager.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignLoader.h"
#include "library/LSMImageUrls.h"
#include "library/LSMLotbookConfig.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "watching/CDEvents.h"

#include <algorithm>
#include <QDir>
#include <QSet>

using namespace LSMDesignKeys;

namespace {

bool holds(const LSMDesignTemplate *design, const QString &value, const QString &key)
{
    const QVariant held = design->templateDictionary()->value(key);
    return !value.isNull() && held.typeId() == QMetaType::QString && held.toString() == value;
}

QString withTildeExpanded(const QString &path)
{
    const bool tilde = path == u"~" || path.startsWith(u"~/");
    return QDir::cleanPath(tilde ? QDir::homePath() + path.mid(1) : path);
}

QString builtinTemplatesOfLotbook()
{
    const QString application = platform::Workspace::sharedWorkspace().pathForApplication(
        LSMLotbookConfig::lotbookApplicationIdentifier());
    return application.isNull()
               ? QString()
               : application + QStringLiteral("/Contents/Resources/DesignTemplates");
}

QString customTemplatesOfLotbook()
{
    const QString chosen = platform::UserDefaults::standardUserDefaults().string(
        QStringLiteral("customTemplatesPath"));
    return QDir::isRelativePath(withTildeExpanded(chosen))
               ? LSMLotbookConfig::lotbookDesignTemplatesPath()
               : withTildeExpanded(chosen);
}

} // namespace

LSMDesignTemplateManager::LSMDesignTemplateManager(Watching watching)
    : m_watching(watching), m_pathForBuiltinTemplates(builtinTemplatesOfLotbook()),
      m_pathForCustomTemplates(customTemplatesOfLotbook())
{
    auto builtin = LSMDesignLoader::load(m_pathForBuiltinTemplates, builtinType, &m_leftOut);
    auto custom = LSMDesignLoader::load(m_pathForCustomTemplates, customType, &m_leftOut);
    m_groups.push_back(std::make_unique<LSMDesignTemplateGroup>(
        platform::localized("Custom Designs"), customType, std::move(custom)));
    m_groups.push_back(std::make_unique<LSMDesignTemplateGroup>(
        platform::localized("Built-In Designs"), builtinType, std::move(builtin)));
    extractKeywordsFromDesignTemplates();
    for (const auto &design : designTemplateGroupForType(customType)->designTemplates()) {
        if (!design->isOldVersion())
            startWatchingFileAtPath(design->bodyPath());
    }
}

LSMDesignTemplateManager::~LSMDesignTemplateManager() = default;

LSMDesignTemplateGroup *
LSMDesignTemplateManager::designTemplateGroupForType(const QString &type) const
{
    const auto found = std::ranges::find_if(
        m_groups, [&type](const auto &group) { return group->type() == type; });
    return found == m_groups.end() ? nullptr : found->get();
}

LSMDesignTemplateGroup::Designs
LSMDesignTemplateManager::loadDesignTemplatesFromDir(const QString &directory,
                                                     const QString &forType)
{
    return LSMDesignLoader::load(directory, forType);
}

QStringList LSMDesignTemplateManager::extractImageUrlsFromString(const QString &text)
{
    return LSMImageUrlsInString(text);
}

void LSMDesignTemplateManager::enumerateDesignsUsingBlock(
    const std::function<void(LSMDesignTemplate *, bool &)> &block) const
{
    bool stop = false;
    for (const auto &group : m_groups) {
        for (const auto &design : group->designTemplates()) {
            block(design.get(), stop);
            if (stop)
                return;
        }
    }
}

LSMDesignTemplate *LSMDesignTemplateManager::firstDesign(
    const std::function<bool(const LSMDesignTemplate &)> &predicate) const
{
    for (const auto &group : m_groups) {
        for (const auto &design : group->designTemplates()) {
            if (predicate(*design))
                return design.get();
        }
    }
    return nullptr;
}

bool LSMDesignTemplateManager::hasDesignWithValue(const QString &value,
                                                  const QString &forDictionaryKey) const
{
    return hasDesignNotEqualToDesign(nullptr, value, forDictionaryKey);
}

bool LSMDesignTemplateManager::hasDesignNotEqualToDesign(const LSMDesignTemplate *design,
                                                         const QString &withEqualValue,
                                                         const QString &forDictionaryKey) const
{
    PLATFORM_ASSERT(!forDictionaryKey.isEmpty(), "Invalid parameter not satisfying: %@",
                    "0 < [inKey length]");
    return firstDesign([&](const LSMDesignTemplate &other) {
        return &other != design && holds(&other, withEqualValue, forDictionaryKey);
    });
}

LSMDesignTemplate *LSMDesignTemplateManager::templateWithPath(const QString &path) const
{
    if (path.isNull())
        return nullptr;
    return firstDesign(
        [&path](const LSMDesignTemplate &design) { return design.templatePath() == path; });
}

bool LSMDesignTemplateManager::hasUnsavedDesigns() const
{
    return std::ranges::any_of(designTemplateGroupForType(customType)->designTemplates(),
                               [](const auto &design) { return design->templateShouldBeSaved(); });
}

void LSMDesignTemplateManager::addCustomDesign(std::shared_ptr<LSMDesignTemplate> design)
{
    designTemplateGroupForType(customType)->addDesign(std::move(design));
}

QString LSMDesignTemplateManager::uniquifyValue(const QString &value,
                                                const QString &forDictionaryKey,
                                                const QString &withSeparator) const
{
    if (!hasDesignWithValue(value, forDictionaryKey))
        return value;
    for (qint64 counter = 1;; ++counter) {
        const QString numbered =
            platform::format(QStringLiteral("%@%@%ld"), value, withSeparator, counter);
        if (!hasDesignWithValue(numbered, forDictionaryKey))
            return numbered;
    }
}

QString LSMDesignTemplateManager::uniquifyDesignTitle(const QString &title) const
{
    return uniquifyValue(title, name, QStringLiteral(" "));
}

QString LSMDesignTemplateManager::uniquifyDesignIdentifier(const QString &identifier) const
{
    return uniquifyValue(identifier, LSMDesignKeys::identifier, QStringLiteral("-"));
}

void LSMDesignTemplateManager::extractKeywordsFromDesignTemplates()
{
    QSet<QString> keywords;
    enumerateDesignsUsingBlock([&keywords](const LSMDesignTemplate *design, bool &) {
        for (const QString &keyword : design->keywords())
            keywords.insert(keyword);
    });
    m_keywords = {keywords.begin(), keywords.end()};
    m_keywords.sort(Qt::CaseSensitive); // settles the order of those that differ in case alone
    std::ranges::stable_sort(m_keywords, [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
}
