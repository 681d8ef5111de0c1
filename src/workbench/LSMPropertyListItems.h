#pragma once

#include <QTreeWidget>
#include <QVariantMap>

/// Fills a tree of two columns, key and value, with a property list's contents, for reading.
void LSMFillWithPropertyList(QTreeWidget *tree, const QVariantMap &values);
