#pragma once

/// The opening and the closing one of the pair that the character belongs to, or null.
const char16_t *mgs_bracePair(char16_t brace);
