#pragma once

#include <QString>

/// The names of the notifications by which the window's controllers hear of each other.
inline const QString LSMSelectedDesignDidChange = QStringLiteral("LSMSelectedDesignDidChange");
inline const QString LSMDesignTitleDidChange = QStringLiteral("LSMDesignTitleDidChange");
inline const QString LSMDesignPropertyDidChange = QStringLiteral("LSMDesignPropertyDidChange");
inline const QString LSMImageViewImageDropped = QStringLiteral("LSMImageViewImageDropped");
