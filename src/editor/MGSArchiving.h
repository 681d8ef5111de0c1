#pragma once

#include <QVariant>

/// Colours and fonts as data, for dictionaries of settings that hold nothing but plain values.

/// A colour or font archived; any other value as it is.
QVariant mgs_archivedValue(const QVariant &value);

/// The reverse: data that holds a colour or font becomes it again; any other value stays.
QVariant mgs_unarchivedValue(const QVariant &value);
