#include "kit/FBKVOController.h"

#include "kit/FBKVOSharedController.h"
#include "platform/Assert.h"

#include <algorithm>

namespace {

constexpr const char *associationKey = "NSObjectKVOControllerKey";
constexpr const char *nonRetainingAssociationKey = "NSObjectKVOControllerNonRetainingKey";

std::shared_ptr<FBKVOController> associated(QObject *object, const char *key,
                                            FBKVOController::Retain observed)
{
    auto controller = object->property(key).value<std::shared_ptr<FBKVOController>>();
    if (!controller) {
        controller = FBKVOController::controllerWithObserver(object, observed);
        object->setProperty(key, QVariant::fromValue(controller));
    }
    return controller;
}

} // namespace

std::shared_ptr<FBKVOController> FBKVOController::controllerWithObserver(QObject *observer,
                                                                         Retain observed)
{
    return std::shared_ptr<FBKVOController>(new FBKVOController(observer, observed));
}

FBKVOController::FBKVOController(QObject *observer, Retain observed)
    : m_observer(observer), m_retain(observed)
{
}

FBKVOController::~FBKVOController()
{
    unobserveAll();
}

void FBKVOController::observe(const FBKVOObject &object, const QString &keyPath, unsigned options,
                              const Block &block)
{
    PLATFORM_ASSERT(!keyPath.isEmpty() && block,
                    "missing required parameters observe:%@ keyPath:%@ block:%p",
                    static_cast<const QObject *>(object.get()), keyPath,
                    static_cast<const void *>(block ? &block : nullptr));
    observe(object, std::make_shared<FBKVOInfo>(keyPath, options, block));
}

void FBKVOController::observe(const FBKVOObject &object, const QStringList &keyPaths,
                              unsigned options, const Block &block)
{
    PLATFORM_ASSERT(!keyPaths.isEmpty() && block,
                    "missing required parameters observe:%@ keyPath:%@ block:%p",
                    static_cast<const QObject *>(object.get()), keyPaths,
                    static_cast<const void *>(block ? &block : nullptr));
    for (const QString &keyPath : keyPaths)
        observe(object, keyPath, options, block);
}

void FBKVOController::observeAction(const FBKVOObject &object, const QString &keyPath,
                                    unsigned options, const QByteArray &action)
{
    PLATFORM_ASSERT(!keyPath.isEmpty() && !action.isEmpty(),
                    "missing required parameters observe:%@ keyPath:%@ action:%@",
                    static_cast<const QObject *>(object.get()), keyPath, action.constData());
    observe(object, std::make_shared<FBKVOInfo>(keyPath, options, action));
}

void FBKVOController::observeAction(const FBKVOObject &object, const QStringList &keyPaths,
                                    unsigned options, const QByteArray &action)
{
    PLATFORM_ASSERT(!keyPaths.isEmpty() && !action.isEmpty(),
                    "missing required parameters observe:%@ keyPath:%@ action:%@",
                    static_cast<const QObject *>(object.get()), keyPaths, action.constData());
    for (const QString &keyPath : keyPaths)
        observeAction(object, keyPath, options, action);
}

void FBKVOController::observeContext(const FBKVOObject &object, const QString &keyPath,
                                     unsigned options, void *context)
{
    PLATFORM_ASSERT(
        !keyPath.isEmpty(), "missing required parameters observe:%@ keyPath:%@ context:%p",
        static_cast<const QObject *>(object.get()), keyPath, static_cast<const void *>(context));
    observe(object, std::make_shared<FBKVOInfo>(keyPath, options, context));
}

void FBKVOController::observeContext(const FBKVOObject &object, const QStringList &keyPaths,
                                     unsigned options, void *context)
{
    PLATFORM_ASSERT(
        !keyPaths.isEmpty(), "missing required parameters observe:%@ keyPath:%@ context:%p",
        static_cast<const QObject *>(object.get()), keyPaths, static_cast<const void *>(context));
    for (const QString &keyPath : keyPaths)
        observeContext(object, keyPath, options, context);
}

void FBKVOController::observe(const FBKVOObject &object, const std::shared_ptr<FBKVOInfo> &info)
{
    if (!object.get())
        return;
    info->bindTo(weak_from_this(), object, m_retain == Retain::Yes);
    Infos gone; // of an object that stood at the same place
    {
        const std::lock_guard lock(m_mutex);
        Infos &infos = m_infos[object.get()];
        if (!infos.empty() && !infos.front()->object())
            gone = std::exchange(infos, {});
        if (std::ranges::find(infos, info->keyPath(), &FBKVOInfo::keyPath) != infos.end())
            return;
        infos.push_back(info);
    }
    FBKVOSharedController::sharedController().observe(info);
    for (const auto &each : gone)
        FBKVOSharedController::sharedController().unobserve(each);
}

void FBKVOController::unobserve(QObject *object, const QString &keyPath)
{
    Infos removed;
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_infos.find(object);
        if (found == m_infos.end())
            return;
        const auto info = std::ranges::find(found->second, keyPath, &FBKVOInfo::keyPath);
        if (info == found->second.end())
            return;
        removed.push_back(*info);
        found->second.erase(info);
        if (found->second.empty())
            m_infos.erase(found);
    }
    FBKVOSharedController::sharedController().unobserve(removed.front());
}

void FBKVOController::unobserve(QObject *object)
{
    Infos removed;
    {
        const std::lock_guard lock(m_mutex);
        if (auto node = m_infos.extract(object))
            removed = std::move(node.mapped());
    }
    for (const auto &info : removed)
        FBKVOSharedController::sharedController().unobserve(info);
}

void FBKVOController::unobserveAll()
{
    std::unordered_map<const QObject *, Infos> removed;
    {
        const std::lock_guard lock(m_mutex);
        removed.swap(m_infos);
    }
    for (const auto &[object, infos] : removed) {
        for (const auto &info : infos)
            FBKVOSharedController::sharedController().unobserve(info);
    }
}

std::shared_ptr<FBKVOController> KVOController(QObject *object)
{
    return associated(object, associationKey, FBKVOController::Retain::Yes);
}

std::shared_ptr<FBKVOController> KVOControllerNonRetaining(QObject *object)
{
    return associated(object, nonRetainingAssociationKey, FBKVOController::Retain::No);
}
