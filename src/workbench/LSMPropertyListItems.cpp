#include "workbench/LSMPropertyListItems.h"

#include "kit/ui/ZQViewExtensions.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/PropertyList.h"

namespace {

QString valueText(const QVariant &value)
{
    if (value.typeId() == QMetaType::QVariantMap || value.typeId() == QMetaType::QVariantList)
        return {};
    if (value.typeId() == QMetaType::QByteArray)
        return platform::format(platform::localized("%ld bytes"), value.toByteArray().size());
    if (value.canConvert<platform::PropertyListDate>())
        return QLocale().toString(
            value.value<platform::PropertyListDate>().toDateTime().toLocalTime(),
            QLocale::ShortFormat);
    return value.toString();
}

void addItem(QTreeWidgetItem *parent, const QString &key, const QVariant &value)
{
    auto *item = new QTreeWidgetItem(parent, {key, valueText(value)});
    item->setToolTip(1, zq::plainToolTip(item->text(1)));
    const QVariantMap map = value.toMap();
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        addItem(item, entry.key(), entry.value());
    if (value.typeId() != QMetaType::QVariantList)
        return;
    const QVariantList list = value.toList();
    for (qsizetype index = 0; index < list.size(); ++index)
        addItem(item, QString::number(index + 1), list[index]);
}

} // namespace

void LSMFillWithPropertyList(QTreeWidget *tree, const QVariantMap &values)
{
    tree->clear();
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        addItem(tree->invisibleRootItem(), entry.key(), entry.value());
    tree->expandToDepth(0);
    tree->setColumnWidth(0, 240);
}
