#pragma once

#include <QVariant>

/// A value of a property list as a line of text, whatever it is: strings as they are, dates by the
/// user's locale, data by its length, lists and dictionaries by their number of entries. Null for
/// an invalid value.
QString LSMPropertyListText(const QVariant &value);
