#include "Regions.h"

#include "Bands.h"
#include "RunTimeError.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace hearthbook {

namespace {

/// Where a line of `length` from `start` lies between 0 and `end`, as {first, behind the last}.
std::pair<int, int> overlap(int start, int length, int end) {
  const std::int64_t behind = std::int64_t{start} + std::max(0, length);
  return {std::clamp(start, 0, end), static_cast<int>(std::clamp<std::int64_t>(behind, 0, end))};
}

Picture copied(const Picture& picture, const PixelRect& inside, WorkPool* pool) {
  Picture piece = Picture::unpainted(inside.size());
  std::uint32_t* rows = piece.writableRow(0);
  inBands(pool, inside.height, rowsOfBand(inside.width), [&](int first, int end) {
    for (int y = first; y < end; ++y)
      std::copy_n(picture.row(inside.top + y) + inside.left, inside.width,
                  rows + std::ptrdiff_t{y} * inside.width);
  });
  return piece;
}

void fill(Picture& picture, const PixelRect& region, std::uint32_t colour) {
  const PixelRect inside = cutTo(region, picture.size());
  for (int y = inside.top; y < inside.top + inside.height; ++y)
    std::fill_n(picture.writableRow(y) + inside.left, inside.width, colour);
}

void draw(Picture& picture, const OutlineElement& outline) {
  const auto& [left, top, width, height] = outline.rectangle;
  const int thick = std::min({outline.thickness, width, height});
  fill(picture, {left, top, width, thick}, outline.colour);
  fill(picture, {left, top + height - thick, width, thick}, outline.colour);
  fill(picture, {left, top, thick, height}, outline.colour);
  fill(picture, {left + width - thick, top, thick, height}, outline.colour);
}

/// Gives the picture pixels of its own; to do so at its first writable row takes one thread alone.
void own(Picture& picture, WorkPool* pool) {
  constexpr long itsOwnAndThisOne = 2;
  if (picture.share().use_count() > itsOwnAndThisOne)
    picture = copied(picture, {0, 0, picture.width(), picture.height()}, pool);
}

} // namespace

PixelRect cutTo(const PixelRect& region, PixelSize size) {
  const auto [left, right] = overlap(region.left, region.width, size.width);
  const auto [top, bottom] = overlap(region.top, region.height, size.height);
  const PixelRect inside{left, top, right - left, bottom - top};
  return inside.isEmpty() ? PixelRect() : inside;
}

Picture cropped(const Picture& picture, const PixelRect& region, WorkPool* pool) {
  const PixelRect inside = cutTo(region, picture.size());
  if (inside.isEmpty())
    throw RunTimeError("Nothing of the picture lies in the selection.");
  if (inside.size() == picture.size())
    return picture;
  return copied(picture, inside, pool);
}

void paste(Picture& picture, const Picture& piece, int left, int top, WorkPool* pool) {
  const PixelRect inside = cutTo({left, top, piece.width(), piece.height()}, picture.size());
  if (inside.isEmpty())
    return;
  own(picture, pool);
  std::uint32_t* rows = picture.writableRow(0);
  inBands(pool, inside.height, rowsOfBand(inside.width), [&](int first, int end) {
    for (int y = inside.top + first; y < inside.top + end; ++y)
      std::copy_n(piece.row(y - top) + (inside.left - left), inside.width,
                  rows + std::ptrdiff_t{y} * picture.width() + inside.left);
  });
}

Picture flattened(Picture picture, const std::vector<PictureElement>& pieces,
                  const std::vector<OutlineElement>& outlines, WorkPool* pool) {
  for (const PictureElement& piece : pieces)
    paste(picture, piece.picture, piece.left, piece.top, pool);
  if (!outlines.empty())
    own(picture, pool);
  for (const OutlineElement& outline : outlines)
    draw(picture, outline);
  return picture;
}

} // namespace hearthbook
