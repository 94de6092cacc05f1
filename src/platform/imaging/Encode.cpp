#include "Encode.h"

#include "JpegErrors.h"
#include "RunTimeError.h"

#include <algorithm>
#include <array>
#include <bit>
#include <ostream>
#include <sstream>
#include <utility>

namespace hearthbook {

namespace {

constexpr int qualityOfFactorZero = 95;
constexpr J_COLOR_SPACE encodedPixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;

/// Hands libjpeg's bytes to a stream, whose exceptions must not pass through libjpeg's frames.
class JpegTarget : public jpeg_destination_mgr {
public:
  explicit JpegTarget(std::ostream& out) : jpeg_destination_mgr(), out_(&out) {
    init_destination = begin;
    empty_output_buffer = passOn;
    term_destination = finish;
  }

private:
  static void begin(j_compress_ptr codec) { static_cast<JpegTarget*>(codec->dest)->rewind(); }
  static boolean passOn(j_compress_ptr codec) {
    auto* target = static_cast<JpegTarget*>(codec->dest);
    target->write(codec, target->buffer_.size());
    target->rewind();
    return TRUE;
  }
  static void finish(j_compress_ptr codec) {
    auto* target = static_cast<JpegTarget*>(codec->dest);
    target->write(codec, target->buffer_.size() - target->free_in_buffer);
  }

  void rewind() {
    next_output_byte = buffer_.data();
    free_in_buffer = buffer_.size();
  }
  void write(j_compress_ptr codec, std::size_t count) {
    if (!writeQuietly(count))
      codec->err->error_exit(reinterpret_cast<j_common_ptr>(codec));
  }
  bool writeQuietly(std::size_t count) {
    try {
      out_->write(reinterpret_cast<const char*>(buffer_.data()),
                  static_cast<std::streamsize>(count));
      return !out_->fail();
    } catch (...) {
      return false;
    }
  }

  std::ostream* out_;
  std::array<JOCTET, 65536> buffer_;
};

class JpegEncoder {
public:
  explicit JpegEncoder(std::ostream& out) : target_(out) { codec_.err = &errors_; }
  ~JpegEncoder() { jpeg_destroy_compress(&codec_); }
  JpegEncoder(const JpegEncoder&) = delete;
  JpegEncoder& operator=(const JpegEncoder&) = delete;

  bool write(const Picture& picture, int factor);

private:
  void configure(PixelSize size, int factor);

  JpegErrors errors_;
  JpegTarget target_;
  jpeg_compress_struct codec_{};
};

bool JpegEncoder::write(const Picture& picture, int factor) {
  if (setjmp(errors_.jump)) // libjpeg knows no other way
    return false;
  jpeg_create_compress(&codec_);
  codec_.dest = &target_;
  configure(picture.size(), factor);
  jpeg_start_compress(&codec_, TRUE);
  while (codec_.next_scanline < codec_.image_height) {
    const auto* row = picture.row(static_cast<int>(codec_.next_scanline));
    auto* samples = reinterpret_cast<JSAMPROW>(const_cast<std::uint32_t*>(row));
    jpeg_write_scanlines(&codec_, &samples, 1);
  }
  jpeg_finish_compress(&codec_);
  return true;
}

void JpegEncoder::configure(PixelSize size, int factor) {
  codec_.image_width = static_cast<JDIMENSION>(size.width);
  codec_.image_height = static_cast<JDIMENSION>(size.height);
  codec_.input_components = 4;
  codec_.in_color_space = encodedPixelOrder;
  jpeg_set_defaults(&codec_);
  jpeg_set_quality(&codec_, std::clamp(qualityOfFactorZero - factor, 1, 100), TRUE);
  if (factor == 0) {
    codec_.comp_info[0].h_samp_factor = 1;
    codec_.comp_info[0].v_samp_factor = 1;
  }
}

} // namespace

void writeJpeg(std::ostream& out, const Picture& picture, int factor) {
  if (picture.isNull())
    throw RunTimeError("There is no picture to save.");
  if (std::max(picture.width(), picture.height()) > JPEG_MAX_DIMENSION)
    throw RunTimeError("A JPEG cannot have more than " + std::to_string(JPEG_MAX_DIMENSION) +
                       " pixels on a side.");
  if (!JpegEncoder(out).write(picture, factor))
    throw RunTimeError("The picture could not be written.");
}

std::string jpegBytes(const Picture& picture, int factor) {
  std::ostringstream stream;
  writeJpeg(stream, picture, factor);
  return std::move(stream).str();
}

} // namespace hearthbook
