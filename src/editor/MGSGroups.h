#pragma once

#include "platform/DispatchQueue.h"

#include <map>
#include <memory>
#include <mutex>
#include <QList>
#include <QString>

/// The one object of each group of settings. Any thread may look one up; it is made on the main
/// thread, which another thread waits for, and stays for the life of the process.
template <class Object>
class MGSGroups
{
public:
    using Make = std::unique_ptr<Object> (*)(const QString &group);

    explicit MGSGroups(Make make) : m_make(make) {}

    Object &of(const QString &group)
    {
        if (Object *object = find(group))
            return *object;
        platform::DispatchQueue::mainQueue().sync([&] { makeIfMissing(group); });
        return *find(group);
    }

    QList<Object *> all()
    {
        const std::lock_guard lock(m_mutex);
        QList<Object *> objects;
        for (const auto &[group, object] : m_objects)
            objects << object.get();
        return objects;
    }

private:
    Object *find(const QString &group)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_objects.find(group);
        return found == m_objects.end() ? nullptr : found->second.get();
    }

    void makeIfMissing(const QString &group)
    {
        if (find(group))
            return; // another thread was first
        auto made = m_make(group);
        const std::lock_guard lock(m_mutex);
        m_objects.emplace(group, std::move(made));
    }

    const Make m_make;
    std::mutex m_mutex;
    std::map<QString, std::unique_ptr<Object>> m_objects;
};
