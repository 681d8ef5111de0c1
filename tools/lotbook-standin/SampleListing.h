#pragma once

#include <QHash>
#include <QString>

/// What a listing says, by placeholder: "LBTitle", "LBProperty_Metal".
using ListingValues = QHash<QString, QString>;

/// A listing with sample texts and pictures in all of its fields.
ListingValues sampleListing(const QString &title);
