#pragma once

#include "Album.h"

namespace hearthbook {

// The two ways into the record editor. They differ on purpose: the menu seeks the first photo
// without a year and misspells the caption, the start screen does neither.

inline constexpr const char* menuBuildCaption = "Builing Master Album";
inline constexpr const char* startBuildCaption = "Building Master Album";

/// The whole album, on the first photo without a year, or on the first photo where every one
/// has its year.
void buildFromFirstUndatedPhoto(Album& album);

/// The whole album without a filter, on the first photo.
void buildFromFirstPhoto(Album& album);

} // namespace hearthbook
