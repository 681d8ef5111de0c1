#pragma once

#include "platform/text/TextStorage.h"
#include <optional>

/// A tag and the one that closes or opens it: the ranges of "<name" and "</name".
struct MGSTagPair
{
    platform::TextRange tag; ///< The one that was asked for.
    platform::TextRange partner;
    bool operator==(const MGSTagPair &) const = default;
};

/// The tag that the index lies in or at the edges of, with its partner. Nullopt outside of tags and
/// comments, for elements that have no end, and where the partner is further away than
/// `MGSTagPartnerReach` units either way: so it costs no more in a long text.
std::optional<MGSTagPair> MGSTagPartner(const platform::TextStorage &text, qsizetype index);

inline constexpr qsizetype MGSTagPartnerReach = 200'000;
