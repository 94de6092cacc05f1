#include "PictureFile.h"

#include "ColourProfile.h"
#include "Exif.h"
#include "JpegErrors.h"
#include "JpegSource.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace hearthbook {

namespace {

constexpr int exifMarker = JPEG_APP0 + 1;
constexpr int profileMarker = JPEG_APP0 + 2;
constexpr unsigned wholeSegment = 0xffff;
constexpr std::uint32_t greyPixel = 0xff808080;

/// A file of some kilobytes can ask for thousands of passes over a huge picture.
constexpr int mostPasses = 200;

constexpr J_COLOR_SPACE pixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;

void stopEndlessPasses(j_common_ptr codec) {
  const auto* decoder = reinterpret_cast<j_decompress_ptr>(codec);
  if (decoder->input_scan_number > mostPasses)
    codec->err->error_exit(codec);
}

/// Inks as Adobe's programs write them: 255 is no ink.
std::uint32_t pixelOfInks(const JSAMPLE* inks) {
  const auto channel = [&](int i) { return (inks[i] * inks[3] + 127U) / 255U; };
  return 0xff000000U | channel(0) << 16 | channel(1) << 8 | channel(2);
}

class JpegFile : public PictureFile {
public:
  explicit JpegFile(InputFile file);
  ~JpegFile() override { release(); }
  JpegFile(const JpegFile&) = delete;
  JpegFile& operator=(const JpegFile&) = delete;

  [[nodiscard]] Head head() const override { return head_; }
  Pixels read(PixelSize atLeast) override;

private:
  [[noreturn]] void fail() const;
  void release();
  void readHead();
  void chooseScale(PixelSize atLeast);
  [[nodiscard]] int orientation() const;
  bool start();
  int readRows(Picture& picture);
  void readRow(std::uint32_t* row);
  [[nodiscard]] bool hasInks() const { return decoder_.out_color_space == JCS_CMYK; }

  InputFile file_;
  Head head_;
  JpegErrors errors_;
  JpegSource source_;
  jpeg_progress_mgr progress_{};
  jpeg_decompress_struct decoder_{};
  JOCTET* profile_ = nullptr; ///< malloc'ed by libjpeg
  unsigned profileLength_ = 0;
  std::vector<JSAMPLE> inks_; ///< one row of a picture for the press
};

JpegFile::JpegFile(InputFile file) : file_(std::move(file)), source_(file_) {
  decoder_.err = &errors_;
  try {
    readHead();
  } catch (...) {
    release();
    throw;
  }
  head_ = {{static_cast<int>(decoder_.image_width), static_cast<int>(decoder_.image_height)},
           orientation(),
           FileFormat::Jpeg};
}

void JpegFile::release() {
  jpeg_destroy_decompress(&decoder_);
  std::free(profile_);
}

void JpegFile::fail() const {
  if (source_.ranOut())
    cannotReadPicture(file_.path(), "the file ends before its picture begins");
  cannotReadPicture(file_.path(), std::string("the JPEG is damaged (") + errors_.text + ")");
}

void JpegFile::readHead() {
  if (setjmp(errors_.jump)) // libjpeg knows no other way
    fail();
  jpeg_create_decompress(&decoder_);
  decoder_.src = &source_;
  progress_.progress_monitor = stopEndlessPasses;
  decoder_.progress = &progress_;
  jpeg_save_markers(&decoder_, exifMarker, wholeSegment);
  jpeg_save_markers(&decoder_, profileMarker, wholeSegment);
  jpeg_read_header(&decoder_, TRUE);
  jpeg_read_icc_profile(&decoder_, &profile_, &profileLength_);
}

int JpegFile::orientation() const {
  for (auto* marker = decoder_.marker_list; marker; marker = marker->next) {
    const int found =
        marker->marker == exifMarker ? exifOrientation({marker->data, marker->data_length}) : 1;
    if (found != 1)
      return found;
  }
  return 1;
}

void JpegFile::chooseScale(PixelSize atLeast) {
  const auto scaled = [&](int side, int eighths) { return (side * eighths + 7) / 8; };
  int eighths = 1;
  while (eighths < 8 && (scaled(head_.size.width, eighths) < atLeast.width ||
                         scaled(head_.size.height, eighths) < atLeast.height))
    ++eighths;
  decoder_.scale_num = static_cast<unsigned>(eighths);
  decoder_.scale_denom = 8;
}

PictureFile::Pixels JpegFile::read(PixelSize atLeast) {
  chooseScale(atLeast);
  const bool press = decoder_.jpeg_color_space == JCS_CMYK || decoder_.jpeg_color_space == JCS_YCCK;
  decoder_.out_color_space = press ? JCS_CMYK : pixelOrder;
  if (!start())
    fail();
  Pixels result;
  result.picture =
      Picture({static_cast<int>(decoder_.output_width), static_cast<int>(decoder_.output_height)});
  if (press)
    inks_.resize(std::size_t{decoder_.output_width} * 4);
  const int rows = readRows(result.picture);
  if (rows == 0)
    fail();
  for (int y = rows; y < result.picture.height(); ++y)
    std::fill_n(result.picture.writableRow(y), result.picture.width(), greyPixel);
  result.cut = rows < result.picture.height() || source_.ranOut();
  if (profile_ && !press)
    convertToSrgb(result.picture, {profile_, profileLength_});
  return result;
}

bool JpegFile::start() {
  if (setjmp(errors_.jump))
    return false;
  jpeg_start_decompress(&decoder_);
  return true;
}

/// How many rows there were.
int JpegFile::readRows(Picture& picture) {
  if (setjmp(errors_.jump))
    return static_cast<int>(decoder_.output_scanline);
  while (decoder_.output_scanline < decoder_.output_height)
    readRow(picture.writableRow(static_cast<int>(decoder_.output_scanline)));
  jpeg_finish_decompress(&decoder_);
  return picture.height();
}

void JpegFile::readRow(std::uint32_t* row) {
  JSAMPROW target = hasInks() ? inks_.data() : reinterpret_cast<JSAMPROW>(row);
  jpeg_read_scanlines(&decoder_, &target, 1);
  if (!hasInks())
    return;
  if (!decoder_.saw_Adobe_marker)
    for (JSAMPLE& ink : inks_)
      ink = static_cast<JSAMPLE>(255 - ink);
  for (std::size_t x = 0; x < decoder_.output_width; ++x)
    row[x] = pixelOfInks(&inks_[x * 4]);
}

} // namespace

std::unique_ptr<PictureFile> openJpeg(InputFile file) {
  return std::make_unique<JpegFile>(std::move(file));
}

} // namespace hearthbook
