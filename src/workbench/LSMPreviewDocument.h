#pragma once

#include <QByteArray>
#include <QString>

/// The page that the preview shows for a design's HTML, in UTF-8.
QByteArray LSMPreviewDocument(const QString &html);
