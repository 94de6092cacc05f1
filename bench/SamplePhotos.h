#pragma once

#include "Picture.h"

#include <filesystem>
#include <vector>

namespace hearthbook::bench {

/// Something like a photograph: slow changes of colour with grain, no two alike.
Picture samplePhoto(PixelSize size, unsigned seed);

/// Writes so many JPEGs of 12 megapixels, about 4 MB each, as a camera would.
std::vector<std::filesystem::path> writeSamplePhotos(const std::filesystem::path& folder,
                                                     int count);

inline constexpr PixelSize twelveMegapixels{4000, 3000};

} // namespace hearthbook::bench
