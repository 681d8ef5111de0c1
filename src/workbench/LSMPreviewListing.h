#pragma once

#include "library/LSMPlaceholders.h"

class LSMDesignTemplate;

/// What stands for the listing in the preview: none, so that placeholders show as they are written,
/// a usual one, or one that puts a design to the test. The numbers are stored.
enum class LSMPreviewListing {
    None = 0,
    Usual = 1,
    Empty = 2,
    Long = 3,
    RightToLeft = 4,
    WithoutPictures = 5
};

/// The values of that listing in the design's default layout (any layout in one that has none),
/// with the design's own properties as they are set at first. Copies what it needs of the design.
LSMPlaceholders::Values LSMValuesOfListing(LSMPreviewListing listing,
                                           const LSMDesignTemplate &design);
