#pragma once

#include <QIcon>

namespace zq {

/// The line drawing ":/layoutsmith/images/NAME.svg" in the colour of button texts, disabled ones
/// too. It follows the application's palette as that turns light or dark, and is drawn sharp at any
/// size. A missing image is a programming fault. Main thread.
QIcon tintedIcon(const QString &name);

/// The SVG drawing at the path in its own colours, the same in light and dark, drawn sharp at any
/// size. A missing file is a programming fault. Main thread.
QIcon drawnIcon(const QString &path);

} // namespace zq
