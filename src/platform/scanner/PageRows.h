#pragma once

#include "Picture.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace hearthbook {

/// How a scanner sends a page, or one of the three colours of it.
struct PageFormat {
  enum class Frame { Grey, Colours, Red, Green, Blue };

  Frame frame = Frame::Colours;
  int depth = 8;        ///< bits of a colour: 1, 8 or 16
  int width = 0;        ///< pixels
  int lines = -1;       ///< below 0: as many as come
  int bytesPerLine = 0; ///< some scanners send more than the pixels need
};

/// Puts a page together from the bytes of a scanner, as they come, in pieces of any length.
class PageRows {
public:
  /// Begins a frame: the page, or its next colour. Throws ScanFailure where its bytes make no
  /// sense or a colour does not fit the ones before, RunTimeError where memory is short.
  void begin(const PageFormat& format);
  void add(const std::uint8_t* bytes, std::size_t count);

  /// How much of the page is here, 0 to 1, `frames` of them expected; below 0 where its length is
  /// not known.
  [[nodiscard]] double share(int frames) const;

  /// The page as far as it came. Throws ScanFailure if not one line did.
  [[nodiscard]] Picture finish();

private:
  void addLine(const std::uint8_t* line);
  [[nodiscard]] std::uint32_t* nextRow();

  PageFormat format_;
  std::vector<Picture> pieces_; ///< one, or ever more of them for a page of unknown length
  int pieceHeight_ = 0;
  int line_ = 0;      ///< of the frame
  int pageLines_ = 0; ///< of the frame before
  int framesDone_ = 0;
  std::vector<std::uint8_t> part_; ///< a line that has not all come yet
};

} // namespace hearthbook
