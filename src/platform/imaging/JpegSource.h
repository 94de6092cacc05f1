#pragma once

#include "InputFile.h"
#include "JpegErrors.h"

#include <array>

namespace hearthbook {

/// Feeds libjpeg from a file, and ends the picture in order where the file ends early.
class JpegSource : public jpeg_source_mgr {
public:
  explicit JpegSource(InputFile& file);
  [[nodiscard]] bool ranOut() const { return ranOut_; }

private:
  static void begin(j_decompress_ptr) {}
  static boolean fill(j_decompress_ptr codec);
  static void skip(j_decompress_ptr codec, long count);

  InputFile* file_;
  bool ranOut_ = false;
  std::array<std::uint8_t, 65536> buffer_;
};

} // namespace hearthbook
