#include "workbench/LSMPreviewDocument.h"

#include "platform/Format.h"

QByteArray LSMPreviewDocument(const QString &html)
{
    return platform::format(QStringLiteral("<html>\n<head></head>\n<body>\n%@\n</body>\n</html>"),
                            html)
        .toUtf8();
}
