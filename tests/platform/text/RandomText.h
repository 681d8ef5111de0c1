#pragma once

#include "platform/text/TextRange.h"
#include <QString>
#include <random>
#include <vector>

namespace support {

/// Seeded chance, and texts full of what goes wrong.
class RandomText
{
public:
    explicit RandomText(unsigned seed) : m_engine(seed) {}

    /// From 0 up to and without `bound`.
    qsizetype below(qsizetype bound) { return qsizetype(m_engine() % unsigned(bound)); }

    platform::TextRange range(qsizetype length, qsizetype longest)
    {
        const qsizetype location = below(length + 1);
        return {location, below(std::min(length - location, longest) + 1)};
    }

    QString text(qsizetype longest)
    {
        QString text;
        for (qsizetype left = below(longest + 1); left > 0; --left)
            text += parts[size_t(below(qsizetype(parts.size())))];
        return text;
    }

private:
    // Line ends, halves of pairs, pairs, NUL, letters with case in one byte, in two and in four.
    const std::vector<QString> parts = {
        "\r",
        "\n",
        "\r",
        "\n",
        "\r\n",
        "a",
        "A",
        "aab",
        "-->",
        " ",
        QString(QChar(0)),
        QString(QChar(0x85)),
        QString(QChar(0x2028)),
        QString(QChar(0x2029)),
        QString(QChar(0xD801)),
        QString(QChar(0xDC00)),
        QStringLiteral("\U00010400"),
        QStringLiteral("\U00010428"),
        QStringLiteral("é"),
        QStringLiteral("É"),
        QStringLiteral("ж"),
        QStringLiteral("Ж"),
        QStringLiteral("\u212A"),
        "k",
        QStringLiteral("😀"),
    };
    std::mt19937 m_engine;
};

} // namespace support
