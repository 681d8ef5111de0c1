#pragma once

#include "platform/text/TextStorage.h"

namespace platform {

/// Reads a storage unit by unit or stretch by stretch, from any place in any direction, without
/// copying: what a scanner walks with. Keeps the piece it stands in, so a step costs a comparison
/// or two. Any number of readers may stand in one storage, and go on reading after edits. Borrows
/// the storage, which outlives it.
class TextReader
{
public:
    explicit TextReader(const TextStorage &storage) : m_storage(&storage) {}

    const TextStorage &storage() const { return *m_storage; }
    qsizetype length() const { return m_storage->length(); }

    /// The unit at the index, which lies in the text.
    char16_t at(qsizetype index)
    {
        if (!isInPiece(index))
            load(index);
        return m_piece.at(index);
    }

    /// The piece around the index in UTF-16, widened if need be; it begins at `chunkLocation()`.
    /// Valid until the reader is asked again or the storage is edited.
    QStringView chunk(qsizetype index);
    qsizetype chunkLocation() const { return m_piece.location; }

private:
    bool isInPiece(qsizetype index) const
    {
        return m_piece.range().contains(index) && m_revision == m_storage->revision();
    }
    void load(qsizetype index);

    const TextStorage *m_storage;
    TextPiece m_piece;
    quint64 m_revision = 0;
    QString m_widened; ///< The piece in UTF-16, or empty: not widened yet.
};

} // namespace platform
