#pragma once

#include "Picture.h"
#include "Twips.h"

#include <optional>
#include <span>

namespace hearthbook {

/// One box of a design: a frame with a line of text, mostly below a photo.
struct DesignBox {
  const char* caption;
  const char* tag; ///< the token of its text, and what its photo's file is called
  TwipsRect frame; ///< on the design surface
  bool hasPhoto;

  bool operator==(const DesignBox&) const = default;
};

/// A design of a page. Its files lie in a folder of its name.
struct PageDesign {
  const char* name;
  std::span<const DesignBox> boxes;
};

/// In the order in which they are offered.
std::span<const PageDesign> pageDesigns();

inline constexpr TwipsSize designSurface{16200, 13500};

/// The frame with the title, and the decorations to both sides of it: alike in all designs.
inline constexpr TwipsRect designTitle{3900, 300, 8400, 1500};
inline constexpr TwipsRect designLeft{300, 300, 3000, 3450};
inline constexpr TwipsRect designRight{12900, 300, 3000, 3450};
inline constexpr const char* titleTag = "Title";

/// Where in a frame of that size its photo and its text stand.
TwipsRect photoInFrame(TwipsSize frame);
TwipsRect textInFrame(TwipsSize frame, bool hasPhoto);

/// How many pixels a photo has on the finished page.
PixelSize photoPixels(const DesignBox& box);

} // namespace hearthbook
