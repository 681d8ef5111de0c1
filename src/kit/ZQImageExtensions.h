#pragma once

#include "platform/Error.h"
#include <QImage>

namespace zq {

/// The picture in a file, upright, of whatever format its bytes are; null if it is none.
QImage imageAtPath(const QString &path);

/// The image scaled down smoothly, keeping its proportions, so that neither side exceeds `maximum`
/// (pixels); as it is when it fits. A null image stays null.
QImage reducedAndResampledImageOfMaximumSize(const QImage &image, const QSize &maximum);

/// Write the image in one step; the old file stands on failure. A null image cannot be written.
bool writeAsPNGToPath(const QImage &image, const QString &path, platform::Error *error = nullptr);
/// Quality 80 of 100; what is transparent becomes white.
bool writeAsJPEGToPath(const QImage &image, const QString &path, platform::Error *error = nullptr);

} // namespace zq
