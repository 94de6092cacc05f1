#include "Resample.h"

#include "AxisWeights.h"
#include "Bands.h"
#include "Numbers.h"
#include "PixelRect.h"
#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace hearthbook {

namespace {

constexpr std::size_t channels = 4;
constexpr int tileSide = 32;

/// Adds a row of bytes with a weight; the channels lie side by side, so that the compiler can
/// work on many at once.
void addWeighted(float* sums, const std::uint32_t* row, std::size_t width, float weight) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(row);
  for (std::size_t i = 0; i < width * channels; ++i)
    sums[i] += weight * static_cast<float>(bytes[i]);
}

void averageRows(const Picture& picture, const AxisWeights& rows, int newRow,
                 std::vector<float>& sums) {
  std::fill(sums.begin(), sums.end(), 0.0F);
  const auto& share = rows.share(newRow);
  for (int i = 0; i < share.count; ++i)
    addWeighted(sums.data(), picture.row(share.first + i),
                static_cast<std::size_t>(picture.width()), rows.weights(share)[i]);
}

void averageColumns(const std::vector<float>& sums, const AxisWeights& columns, Picture& result,
                    int newRow) {
  auto* bytes = reinterpret_cast<std::uint8_t*>(result.writableRow(newRow));
  for (int x = 0; x < result.width(); ++x) {
    const auto& share = columns.share(x);
    const float* weights = columns.weights(share);
    const float* from = sums.data() + static_cast<std::size_t>(share.first) * channels;
    std::array<float, channels> pixel{};
    for (int i = 0; i < share.count; ++i)
      for (std::size_t c = 0; c < channels; ++c)
        pixel[c] += weights[i] * from[static_cast<std::size_t>(i) * channels + c];
    for (std::size_t c = 0; c < channels; ++c)
      *bytes++ = static_cast<std::uint8_t>(std::min(pixel[c] + 0.5F, 255.0F));
  }
}

/// Where an upright picture finds its pixels in the stored one.
struct Turn {
  bool swapsSides;
  bool fromRight;  ///< the stored columns run backwards
  bool fromBottom; ///< the stored rows run backwards
};

constexpr std::array<Turn, 9> turns{{
    {false, false, false}, // there is no orientation 0
    {false, false, false},
    {false, true, false},
    {false, true, true},
    {false, false, true},
    {true, false, false},
    {true, false, true},
    {true, true, true},
    {true, true, false},
}};

/// How an upright picture goes through the stored pixels.
struct Walk {
  Walk(const Picture& stored, const Turn& turn) {
    const std::ptrdiff_t column = turn.fromRight ? -1 : 1;
    const std::ptrdiff_t line = turn.fromBottom ? -stored.width() : stored.width();
    start = stored.row(turn.fromBottom ? stored.height() - 1 : 0) +
            (turn.fromRight ? stored.width() - 1 : 0);
    right = turn.swapsSides ? line : column;
    down = turn.swapsSides ? column : line;
  }

  [[nodiscard]] const std::uint32_t* at(int x, int y) const { return start + x * right + y * down; }

  const std::uint32_t* start;
  std::ptrdiff_t right; ///< from a pixel to its right neighbour
  std::ptrdiff_t down;  ///< and to the one below
};

/// A row of the tile; neighbours mostly lie side by side, and then the compiler takes many at once.
void turnRow(const std::uint32_t* from, std::ptrdiff_t right, std::uint32_t* to, int count) {
  if (right == 1)
    std::copy_n(from, count, to);
  else if (right == -1)
    std::reverse_copy(from - count + 1, from + 1, to);
  else
    for (int x = 0; x < count; ++x)
      to[x] = from[x * right];
}

void turnTile(const Walk& walk, const PixelRect& tile, std::uint32_t* rows, int width) {
  for (int y = tile.top; y < tile.top + tile.height; ++y)
    turnRow(walk.at(tile.left, y), walk.right, rows + std::ptrdiff_t{y} * width + tile.left,
            tile.width);
}

} // namespace

Picture resample(const Picture& picture, PixelSize size) {
  if (picture.isNull())
    throw RunTimeError("There is no picture to change in size.");
  if (size == picture.size())
    return picture;
  Picture result(size);
  const AxisWeights rows(picture.height(), size.height);
  const AxisWeights columns(picture.width(), size.width);
  std::vector<float> sums(static_cast<std::size_t>(picture.width()) * channels);
  for (int y = 0; y < size.height; ++y) {
    averageRows(picture, rows, y, sums);
    averageColumns(sums, columns, result, y);
  }
  return result;
}

PixelSize sizeWithin(PixelSize full, int longerSide) {
  const bool landscape = full.width > full.height;
  const double longer = landscape ? full.width : full.height;
  const double shorter = landscape ? full.height : full.width;
  const auto other =
      static_cast<int>(std::max<std::int64_t>(1, roundHalfEven(longerSide / longer * shorter)));
  return landscape ? PixelSize{longerSide, other} : PixelSize{other, longerSide};
}

PixelSize sizeOfAtMost(double pixels, PixelSize wanted) {
  const double own = static_cast<double>(wanted.width) * wanted.height;
  if (own <= pixels)
    return wanted;
  const double part = std::sqrt(pixels / own);
  return {std::max(1, static_cast<int>(wanted.width * part)),
          std::max(1, static_cast<int>(wanted.height * part))};
}

PixelSize uprightSize(PixelSize stored, int orientation) {
  return orientation >= 5 && orientation <= 8 ? PixelSize{stored.height, stored.width} : stored;
}

Picture uprighted(const Picture& picture, int orientation, WorkPool* pool) {
  if (orientation < 2 || orientation > 8)
    return picture;
  const PixelSize size = uprightSize(picture.size(), orientation);
  Picture upright = Picture::unpainted(size);
  const Turn& turn = turns[static_cast<std::size_t>(orientation)];
  const Walk walk(picture, turn);
  const int tileWidth = turn.swapsSides ? tileSide : size.width;
  std::uint32_t* rows = upright.writableRow(0);
  inBands(pool, size.height, tileSide, [&](int top, int bottom) {
    for (int left = 0; left < size.width; left += tileWidth)
      turnTile(walk, {left, top, std::min(tileWidth, size.width - left), bottom - top}, rows,
               size.width);
  });
  return upright;
}

} // namespace hearthbook
