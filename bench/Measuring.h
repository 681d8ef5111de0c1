#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <malloc.h>
#include <QColor>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QJsonObject>
#include <QSet>
#include <unistd.h>

/// What the benchmarks of whole windows measure with.

/// That the work takes.
inline double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

/// Of this process, with what the allocator holds back given up.
inline double residentMegabytes()
{
    ::malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * double(::sysconf(_SC_PAGESIZE)) /
           1048576;
}

inline double peakMegabytes()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024;
    }
    return 0;
}

inline int differentPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += (a.pixel(x, y) & 0xFFFFFF) != (b.pixel(x, y) & 0xFFFFFF);
    }
    return count;
}

/// Clearly different ones.
inline int hues(const QImage &image)
{
    QSet<int> found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color(image.pixel(x, y));
            if (color.saturation() > 180 && color.value() > 90)
                found.insert(color.hue() / 20);
        }
    }
    return int(found.size());
}

/// Of one figure.
class Samples
{
public:
    void add(double value) { m_values.push_back(value); }
    void dropLast() { m_values.pop_back(); }
    bool isEmpty() const { return m_values.empty(); }
    int count() const { return int(m_values.size()); }

    void write(QJsonObject &result, const QString &name)
    {
        std::ranges::sort(m_values);
        result[name + QStringLiteral("_n")] = count();
        result[name + QStringLiteral("_median")] = quantile(0.5);
        result[name + QStringLiteral("_p99")] = quantile(0.99);
        result[name + QStringLiteral("_max")] = quantile(1);
    }

private:
    QJsonValue quantile(double part) const
    {
        if (m_values.empty())
            return {};
        const auto rank = size_t(std::ceil(part * double(m_values.size())));
        return m_values[std::clamp<size_t>(rank, 1, m_values.size()) - 1];
    }

    std::vector<double> m_values;
};
