#include "library/LSMDesignLayouts.h"
#include "library/LSMDesignKeys.h"

#include <QSet>

namespace LSMDesignLayouts {

namespace {

// Walks from marker to marker. White space before the place where a search starts does not count as
// text, so a marker that has nothing else before it ends the walk, as the host's own reader has it.
class MarkerScan
{
public:
    explicit MarkerScan(const QString &html) : m_html(html) {}

    bool toNextMarker()
    {
        qsizetype start = m_position;
        while (start < m_html.size() && m_html[start].isSpace())
            ++start;
        const qsizetype marker =
            m_html.indexOf(LSMDesignKeys::layoutMarker, start, Qt::CaseInsensitive);
        const qsizetype end = marker < 0 ? m_html.size() : marker;
        if (end == start)
            return false;
        m_position = end;
        return true;
    }

    /// The text behind the marker up to `end`, which is left standing.
    QStringView take(qsizetype end)
    {
        const qsizetype start = std::exchange(m_position, end < 0 ? m_html.size() : end);
        const qsizetype name = start + LSMDesignKeys::layoutMarker.size();
        return QStringView(m_html).mid(qMin(name, m_position), qMax(0, m_position - name));
    }

    qsizetype position() const { return m_position; }
    bool atEnd() const { return m_position >= m_html.size(); }

private:
    const QString &m_html;
    qsizetype m_position = 0;
};

QString withBlanks(QStringView name)
{
    return name.toString().replace(u'_', u' ');
}

qsizetype endOfName(const QString &html, qsizetype from)
{
    while (from < html.size() && html[from] != u' ' && html[from] != u']')
        ++from;
    return from;
}

} // namespace

QStringList layoutNames(const QString &html)
{
    QStringList names;
    QSet<QString> known;
    for (MarkerScan scan(html); scan.toNextMarker() && !scan.atEnd();) {
        const QString name = withBlanks(scan.take(endOfName(html, scan.position())));
        if (!known.contains(name))
            names.append(*known.insert(name));
    }
    return names;
}

QString defaultLayoutName(const QString &html)
{
    for (MarkerScan scan(html); scan.toNextMarker() && !scan.atEnd();) {
        const QStringView rest = scan.take(html.indexOf(u"]]", scan.position()));
        if (rest.endsWith(LSMDesignKeys::defaultLayoutSuffix))
            return withBlanks(rest.chopped(LSMDesignKeys::defaultLayoutSuffix.size()));
    }
    return {};
}

QString markerOfLayout(const QString &layoutName)
{
    return LSMDesignKeys::layoutMarker + QString(layoutName).replace(u' ', u'_');
}

QString sampleFileName(const QString &layoutName)
{
    QString name = layoutName;
    name.replace(u' ', u'_')
        .replace(u'/', QStringLiteral("%2F"))
        .replace(QChar(u'\0'), QStringLiteral("%00"));
    if (name.startsWith(u'.'))
        name.replace(0, 1, QStringLiteral("%2E"));
    return name + u'.' + LSMDesignKeys::oldVersionExtension;
}

} // namespace LSMDesignLayouts
