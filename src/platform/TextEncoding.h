#pragma once

#include "platform/Error.h"
#include <optional>
#include <QByteArray>
#include <QString>

namespace platform {

struct DecodedText
{
    QString text;
    QString encodingName; ///< IANA name: "UTF-8", "UTF-16LE", "windows-1252" ...
};

/// Text of unknown encoding: a byte order mark decides; else strict UTF-8; else ICU's best guess,
/// else windows-1252, which takes every byte. Never fails. A UTF-8 mark stays in the text as
/// U+FEFF, so that writing the text back gives the same bytes; the marks of UTF-16 and UTF-32 are
/// dropped, since the text is written back as UTF-8. Stateless; any thread.
DecodedText decodeText(const QByteArray &bytes);

/// Strict UTF-8: nullopt for ill-formed bytes.
std::optional<QString> decodeUtf8(const QByteArray &bytes);

/// Nullopt, with the UTF-16 index in the error, for text that UTF-8 cannot hold (a lone surrogate):
/// nothing is replaced.
std::optional<QByteArray> encodeUtf8(const QString &text, Error *error = nullptr);

} // namespace platform
