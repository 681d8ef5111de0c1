#pragma once

#include <cstdio>
#include <QByteArray>
#include <QString>

/// What commands write: their output as it is, complaints with the program's name before them.
namespace LSMCommandOutput {

inline void print(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
}

inline void printLine(const QString &line)
{
    print(line.toUtf8() + '\n');
}

/// Gives the status, to return it.
inline int complain(const QString &line, int status)
{
    std::fputs((QStringLiteral("layoutsmith: ") + line + u'\n').toUtf8().constData(), stderr);
    return status;
}

} // namespace LSMCommandOutput
