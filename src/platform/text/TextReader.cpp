#include "platform/text/TextReader.h"

namespace platform {

QStringView TextReader::chunk(qsizetype index)
{
    if (!isInPiece(index))
        load(index);
    if (m_piece.wide)
        return {m_piece.wide, m_piece.length};
    if (m_widened.isEmpty())
        m_widened =
            QString::fromLatin1(reinterpret_cast<const char *>(m_piece.narrow), m_piece.length);
    return m_widened;
}

void TextReader::load(qsizetype index)
{
    m_piece = m_storage->piece(index);
    m_revision = m_storage->revision();
    m_widened.clear();
}

} // namespace platform
