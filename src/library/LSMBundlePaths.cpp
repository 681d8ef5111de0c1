#include "library/LSMBundlePaths.h"

#include <QTextBoundaryFinder>

namespace LSMBundlePaths {

namespace {

// 255 bytes are what file systems take; the rest is for " 99999" and ".designTemplate".
constexpr qsizetype longestName = 255 - 15 - 6;

QString shortened(const QString &name)
{
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, name);
    qsizetype end = name.size();
    graphemes.setPosition(end);
    while (end > 0 && QStringView(name).left(end).toUtf8().size() > longestName)
        end = graphemes.toPreviousBoundary();
    return name.left(end);
}

} // namespace

QString folderNameForTitle(const QString &title)
{
    QString name = title;
    name.replace(u'/', u'-').replace(QChar(u'\0'), u'-');
    if (name.isEmpty())
        return QStringLiteral("Untitled");
    // A very long name is cut roughly first, so that the exact cut takes few steps.
    return shortened(name.left(longestName));
}

QString withExtension(const QString &name, const QString &extension)
{
    return name + u'.' + extension;
}

} // namespace LSMBundlePaths
