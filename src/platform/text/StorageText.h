#pragma once

#include "platform/text/TextStorage.h"
#include <unicode/utext.h>

namespace platform {

/// A storage as ICU reads texts: piece by piece, in UTF-16 units, without a copy of the whole.
/// Borrows the storage; it and ICU's clones of it are good until the storage is edited.
class StorageText
{
public:
    explicit StorageText(const TextStorage &storage);
    ~StorageText() { utext_close(&m_text); }
    Q_DISABLE_COPY_MOVE(StorageText)

    UText *get() const { return const_cast<UText *>(&m_text); }

private:
    UText m_text = UTEXT_INITIALIZER;
};

} // namespace platform
