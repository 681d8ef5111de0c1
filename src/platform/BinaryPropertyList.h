#pragma once

#include "platform/PropertyList.h"

namespace platform::BinaryPropertyList {

/// The binary form, "bplist00": objects by number, a table of their offsets, a trailer of 32 bytes.
/// Called by PropertyList alone, whose promises these functions keep. Any thread.

/// Whether the bytes claim to be of this form.
bool recognizes(const QByteArray &bytes);

/// An object that several others refer to is decoded once and shared. A list that would be absurdly
/// large with its shared objects counted out is refused, since whoever walks it would never end.
std::optional<QVariant> parse(const QByteArray &bytes, Error *error);

/// Equal strings are stored once.
std::optional<QByteArray> serialize(const QVariant &root, Error *error);

constexpr QByteArrayView magic("bplist00");

// The high half of an object's first byte; the low half is its size or count.
enum Marker : quint8 {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Uid = 0x8,
    Array = 0xA,
    Dictionary = 0xD,
};
constexpr quint8 False = 0x08;
constexpr quint8 True = 0x09;
constexpr quint8 CountFollows = 0x0F;

} // namespace platform::BinaryPropertyList
