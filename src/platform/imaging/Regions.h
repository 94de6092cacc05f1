#pragma once

#include "Picture.h"
#include "PixelRect.h"

#include <cstdint>
#include <vector>

namespace hearthbook {

class WorkPool;

// Regions of pictures. What lies outside of a picture is cut off. With a pool, its free threads
// help.

/// The region as a picture of its own. Throws RunTimeError where nothing of it lies in the
/// picture.
Picture cropped(const Picture& picture, const PixelRect& region, WorkPool* pool = nullptr);

/// Lays `piece` over the picture, its upper left corner at that pixel, which may lie outside.
void paste(Picture& picture, const Picture& piece, int left, int top, WorkPool* pool = nullptr);

/// What lies above a picture until it is flattened: a piece of picture at its place ...
struct PictureElement {
  Picture picture;
  int left = 0;
  int top = 0;
};

/// ... and the outline of a rectangle, drawn inwards from its edges: for a mark that is to be seen
/// in the picture for ever. The marks of a scanned page lie above it and are never part of a photo.
struct OutlineElement {
  PixelRect rectangle;
  std::uint32_t colour = 0xffff0000; ///< 0xffRRGGBB
  int thickness = 1;
};

/// The picture with the pieces, in their order, and above them the outlines as pixels of its own.
Picture flattened(Picture picture, const std::vector<PictureElement>& pieces,
                  const std::vector<OutlineElement>& outlines = {}, WorkPool* pool = nullptr);

} // namespace hearthbook
