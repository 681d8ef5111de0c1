#pragma once

#include "library/LSMDesignTemplateGroup.h"

/// Reads a template directory. The entries are read side by side on all cores, since a directory of
/// several thousand designs must open as easily as a dozen; the call returns when all are there.
namespace LSMDesignLoader {

/// The designs directly inside `directory`, in no order. An entry that is no design is ignored, one
/// that cannot be read is left out with a line in the log, which is added to `leftOut` too; a
/// directory that cannot be read is empty.
LSMDesignTemplateGroup::Designs load(const QString &directory, const QString &type,
                                     QStringList *leftOut = nullptr);

/// The paths of the entries that are designs by their names.
QStringList candidates(const QString &directory);

/// Is there something at the path, be it a link that leads nowhere? A name that is no UTF-8 on disk
/// is another one as a string, so what has one cannot be reached.
bool isReachable(const QString &path);

} // namespace LSMDesignLoader
