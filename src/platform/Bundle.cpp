#include "platform/Bundle.h"
#include "platform/PropertyList.h"

#include <QCoreApplication>
#include <QFile>

namespace platform {

Bundle::Bundle(const QString &root) : m_root(root)
{
    QFile file(root + QStringLiteral("/Info.plist"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    if (const auto document = PropertyList::parse(file.readAll()))
        m_info = document->root.toMap();
}

const Bundle &Bundle::mainBundle()
{
    static const Bundle bundle(QStringLiteral(":/layoutsmith"));
    return bundle;
}

QString Bundle::pathForResource(const QString &name, const QString &type) const
{
    const QString path = m_root + u'/' + name + (type.isEmpty() ? type : QString(u'.') + type);
    return QFile::exists(path) ? path : QString();
}

QString Bundle::stringForResource(const QString &name, const QString &type) const
{
    QFile file(pathForResource(name, type));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString Bundle::localizedString(const QString &key, const QString &value,
                                const QString &table) const
{
    const QString context = table.isEmpty() ? QStringLiteral("Localizable") : table;
    const QString text =
        QCoreApplication::translate(context.toUtf8().constData(), key.toUtf8().constData());
    return text == key && !value.isEmpty() ? value : text;
}

QString Bundle::bundleIdentifier() const
{
    return m_info.value(QStringLiteral("CFBundleIdentifier")).toString();
}

QString Bundle::bundleName() const
{
    return m_info.value(QStringLiteral("CFBundleName")).toString();
}

QString localized(const char *key)
{
    return Bundle::mainBundle().localizedString(QString::fromUtf8(key));
}

} // namespace platform
