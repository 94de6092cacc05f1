#pragma once

#include "Picture.h"

#include <filesystem>
#include <optional>
#include <string>

namespace hearthbook {

/// The size in which a photo is mailed: 320 pixels wide, or 240 high where it is a sliver. The
/// limits of 320 and 240 are held against twips, 15 to a pixel, so that all but the tiniest photos
/// come out 320 wide, upright ones and small ones too. Nothing: a photo so tiny stays as it is.
std::optional<PixelSize> mailedSize(PixelSize photo);

/// The photo as a JPEG of that size, so long that no line of it as an attachment begins with a dot.
/// Throws RunTimeError.
std::string reducedForMail(const std::filesystem::path& photo);

} // namespace hearthbook
