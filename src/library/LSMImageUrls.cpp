#include "library/LSMImageUrls.h"

#include <QSet>

namespace {

constexpr qsizetype extensionLength = 4;

qsizetype lastExtension(QStringView run)
{
    for (qsizetype dot = run.lastIndexOf(u'.'); dot > 0; dot = run.left(dot).lastIndexOf(u'.')) {
        const QStringView extension = run.mid(dot, extensionLength);
        for (const QStringView known : {u".png", u".jpg", u".gif"}) {
            if (extension.compare(known, Qt::CaseInsensitive) == 0)
                return dot;
        }
    }
    return -1;
}

// Where the first "http://" or "https://" starts, and where what follows it starts.
std::pair<qsizetype, qsizetype> firstScheme(QStringView run)
{
    for (qsizetype end = run.indexOf(u"://"); end >= 0; end = run.indexOf(u"://", end + 1)) {
        for (const QStringView scheme : {u"http", u"https"}) {
            if (run.left(end).endsWith(scheme, Qt::CaseInsensitive))
                return {end - scheme.size(), end + 3};
        }
    }
    return {-1, -1};
}

QStringView imageUrl(QStringView run)
{
    const auto [start, address] = firstScheme(run);
    if (start < 0)
        return {};
    const qsizetype dot = lastExtension(run);
    return dot > address ? run.mid(start, dot + extensionLength - start) : QStringView();
}

} // namespace

QStringList LSMImageUrlsInString(const QString &text)
{
    QStringList urls;
    QSet<QString> known;
    const QStringView view(text);
    for (qsizetype start = 0, end = 0; start < view.size(); start = end + 1) {
        for (end = start; end < view.size() && !view[end].isSpace();)
            ++end;
        const QStringView url = imageUrl(view.mid(start, end - start));
        if ((url.startsWith(u"http:") || url.startsWith(u"https:")) &&
            !known.contains(url.toString()))
            urls.append(*known.insert(url.toString()));
    }
    return urls;
}
