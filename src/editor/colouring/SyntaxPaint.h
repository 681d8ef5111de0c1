#pragma once

#include "platform/text/TextAttributes.h"
#include <array>

/// What colouring paints text with, in the order of the attributes that the engine keeps.
enum class SyntaxPaint : quint8 {
    None,
    Commands,
    Comments,
    Instructions,
    Keywords,
    Autocomplete,
    Strings,
    Variables,
    Attributes,
    Numbers,
};

inline constexpr size_t syntaxPaintCount = size_t(SyntaxPaint::Numbers) + 1;

/// Colour and group for each paint; the one of `None` is empty.
using SyntaxPaints = std::array<platform::TextAttributes, syntaxPaintCount>;

/// What of a text's attributes is colouring's.
inline constexpr platform::TextAttributeKeys syntaxKeys =
    platform::TextAttribute::ForegroundColor | platform::TextAttribute::Group;
