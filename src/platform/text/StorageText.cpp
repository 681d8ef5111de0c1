#include "platform/text/StorageText.h"

#include "platform/text/TextReader.h"

namespace platform {

namespace {

TextReader *readerOf(const UText *text)
{
    return static_cast<TextReader *>(const_cast<void *>(text->context));
}

int64_t nativeLength(UText *text)
{
    return readerOf(text)->length();
}

// The unit behind `index`, or going backward that before it, comes into the chunk if it exists.
UBool access(UText *text, int64_t index, UBool forward)
{
    TextReader *reader = readerOf(text);
    const int64_t length = reader->length();
    index = qBound(int64_t(0), index, length);
    const bool exists = forward ? index < length : index > 0;
    const int64_t wanted = (bool(forward) == exists) ? index : index - 1;
    const QStringView chunk = length > 0 ? reader->chunk(wanted) : QStringView(u"", qsizetype(0));
    text->chunkContents = reinterpret_cast<const UChar *>(chunk.utf16());
    text->chunkLength = int32_t(chunk.size());
    text->nativeIndexingLimit = text->chunkLength;
    text->chunkNativeStart = length > 0 ? reader->chunkLocation() : 0;
    text->chunkNativeLimit = text->chunkNativeStart + chunk.size();
    text->chunkOffset = int32_t(index - text->chunkNativeStart);
    return exists;
}

int32_t extract(UText *text, int64_t start, int64_t limit, UChar *out, int32_t capacity,
                UErrorCode *status)
{
    if (U_FAILURE(*status))
        return 0;
    const int64_t length = nativeLength(text);
    const int64_t first = qBound(int64_t(0), start, length);
    const QString part = readerOf(text)->storage().substring(
        TextRange::between(first, qBound(first, limit, length)));
    std::copy_n(part.utf16(), qMin(part.size(), qsizetype(capacity)),
                reinterpret_cast<ushort *>(out));
    access(text, first + part.size(), true);
    if (part.size() < capacity)
        out[part.size()] = 0;
    else
        *status =
            part.size() > capacity ? U_BUFFER_OVERFLOW_ERROR : U_STRING_NOT_TERMINATED_WARNING;
    return int32_t(part.size());
}

UText *open(UText *text, const TextStorage &storage, UErrorCode *status);

UText *clone(UText *to, const UText *from, UBool deep, UErrorCode *status)
{
    if (deep)
        *status = U_UNSUPPORTED_ERROR;
    UText *made = open(to, readerOf(from)->storage(), status);
    if (U_SUCCESS(*status))
        access(made, from->chunkNativeStart + from->chunkOffset, true);
    return made;
}

void close(UText *text)
{
    delete readerOf(text);
    text->context = nullptr;
}

constexpr UTextFuncs functions = {sizeof(UTextFuncs),
                                  0,
                                  0,
                                  0,
                                  clone,
                                  nativeLength,
                                  access,
                                  extract,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  close,
                                  nullptr,
                                  nullptr,
                                  nullptr};

UText *open(UText *text, const TextStorage &storage, UErrorCode *status)
{
    UText *made = utext_setup(text, 0, status);
    if (U_FAILURE(*status))
        return made;
    made->pFuncs = &functions;
    made->context = new TextReader(storage);
    access(made, 0, true);
    return made;
}

} // namespace

StorageText::StorageText(const TextStorage &storage)
{
    UErrorCode status = U_ZERO_ERROR;
    open(&m_text, storage, &status);
}

} // namespace platform
