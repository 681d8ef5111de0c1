#pragma once

#include "platform/PropertyList.h"

namespace platform {

/// What the two codecs of property lists share. Nothing else includes this.

/// What a value is in a property list; `None` for one that has no place there (null, a font ...).
enum class PropertyListKind {
    None,
    Dictionary,
    Array,
    String,
    Data,
    Boolean,
    Integer,
    Real,
    Date,
    Uid
};

PropertyListKind kindOfPropertyListValue(const QVariant &value);

/// Containers within containers, read or written; deeper ones are refused.
constexpr int PropertyListDepthLimit = 512;

/// The error of anything that is wrong with a property list itself.
bool failPropertyList(Error *error, const QString &description);

/// The same for a value that cannot be written; `path` leads to it, outermost step first.
bool failPropertyListValue(Error *error, const QStringList &path, const QString &reason);

} // namespace platform
