#include "library/LibraryTestSupport.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMLotbookConfig.h"

#include <QDirIterator>

using namespace LSMDesignKeys;

LibraryTest::LibraryTest()
    : custom(home(QStringLiteral("Library/Containers/com.quillbyte.lotbook9/Data/Library/"
                                 "Application Support/Lotbook/DesignTemplates"))),
      builtin(home(QStringLiteral("Applications/Lotbook 9.app/Contents/Resources/DesignTemplates")))
{
    QDir().mkpath(home(QStringLiteral("Library/Containers/com.quillbyte.lotbook9/Data")));
    LSMLotbookConfig::registerDefaults();
    PropertyList::write(QVariantMap{{identifier, QStringLiteral("com.quillbyte.lotbook9")}},
                        PropertyList::Format::Xml,
                        (QDir().mkpath(builtin),
                         home(QStringLiteral("Applications/Lotbook 9.app/Contents/")) + infoFile));
}

QString LibraryTest::bundle(const QString &name) const
{
    return custom + u'/' + name + u'.' + bundleExtension;
}

QString LibraryTest::writeBundle(const QString &folder, const QString &name,
                                 const QVariantMap &info, const QByteArray &body,
                                 PropertyList::Format format)
{
    const QString path = folder + u'/' + name + u'.' + bundleExtension;
    support::writeFile(path + u'/' + bodyFile, body);
    EXPECT_TRUE(PropertyList::write(info, format, path + u'/' + infoFile));
    return path;
}

QVariantMap LibraryTest::infoOf(const QString &bundlePath)
{
    const auto info = PropertyList::read(bundlePath + u'/' + infoFile);
    return info ? info->root.toMap() : QVariantMap();
}

QByteArray LibraryTest::bodyOf(const QString &bundlePath)
{
    return support::readFile(bundlePath + u'/' + bodyFile);
}

QVariantMap LibraryTest::titled(const QString &title, QVariantMap more)
{
    more.insert(name, title);
    return more;
}

void LibraryTest::writePicture(const QString &path, Qt::GlobalColor color)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(color);
    EXPECT_TRUE(image.save(path)) << path.toStdString();
}

DesignPointer LibraryTest::newDesign(LSMDesignTemplateManager &manager, const QString &title,
                                     const QString &html)
{
    DesignPointer design = LSMDesignTemplate::templateWithTitle(title, {}, customType);
    design->setHtmlSourceCode(html);
    design->setTemplateShouldBeSaved(true);
    manager.addCustomDesign(design);
    return design;
}

LSMDesignTemplate *LibraryTest::designNamed(const LSMDesignTemplateManager &manager,
                                            const QString &title)
{
    LSMDesignTemplate *found = nullptr;
    manager.enumerateDesignsUsingBlock([&](LSMDesignTemplate *design, bool &stop) {
        stop = design->templateName() == title;
        if (stop)
            found = design;
    });
    return found;
}

QStringList LibraryTest::titles(const LSMDesignTemplateManager &manager)
{
    QStringList result;
    manager.enumerateDesignsUsingBlock(
        [&](LSMDesignTemplate *design, bool &) { result.append(design->templateName()); });
    return result;
}

QMap<QString, QByteArray> LibraryTest::snapshot(const QString &folder)
{
    QMap<QString, QByteArray> result;
    QDirIterator entry(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString path = entry.next();
        result.insert(path.mid(folder.size() + 1), support::readFile(path));
    }
    return result;
}
