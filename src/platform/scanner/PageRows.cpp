#include "PageRows.h"

#include "Regions.h"
#include "ScanFailure.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace hearthbook {

namespace {

using Frame = PageFormat::Frame;

constexpr std::uint32_t noColour = 0xff000000;
constexpr int growth = 1024; // lines
constexpr std::size_t highByte = std::endian::native == std::endian::little ? 1 : 0;

int samplesOf(Frame frame) { return frame == Frame::Colours ? 3 : 1; }

bool makesSense(const PageFormat& format) {
  const std::int64_t bits = std::int64_t{format.width} * samplesOf(format.frame) * format.depth;
  return (format.depth == 1 || format.depth == 8 || format.depth == 16) && format.width > 0 &&
         format.lines != 0 && format.bytesPerLine >= (bits + 7) / 8;
}

/// The samples of a line in 8 bits each.
class Samples {
public:
  Samples(const PageFormat& format, const std::uint8_t* line)
      : line_(line), depth_(format.depth),
        colours_(static_cast<std::size_t>(samplesOf(format.frame))),
        setMeansInk_(format.frame == Frame::Grey) {}

  [[nodiscard]] std::uint32_t at(int x, std::size_t colour) const {
    const auto pixel = static_cast<std::size_t>(x);
    if (depth_ == 8)
      return line_[pixel * colours_ + colour];
    if (depth_ == 16)
      return line_[2 * (pixel * colours_ + colour) + highByte];
    // A byte holds eight pixels of one colour; the colours take turns.
    const bool isSet = (line_[pixel / 8 * colours_ + colour] >> (7 - pixel % 8) & 1) != 0;
    return isSet != setMeansInk_ ? 255 : 0;
  }

private:
  const std::uint8_t* line_;
  int depth_;
  std::size_t colours_;
  bool setMeansInk_;
};

void putColours(const Samples& samples, std::uint32_t* row, int width) {
  for (int x = 0; x < width; ++x)
    row[x] = noColour | samples.at(x, 0) << 16 | samples.at(x, 1) << 8 | samples.at(x, 2);
}

void putGrey(const Samples& samples, std::uint32_t* row, int width) {
  for (int x = 0; x < width; ++x)
    row[x] = noColour | samples.at(x, 0) * 0x010101U;
}

void putOne(const Samples& samples, int shift, std::uint32_t* row, int width) {
  for (int x = 0; x < width; ++x)
    row[x] = (row[x] & ~(0xffU << shift)) | samples.at(x, 0) << shift;
}

} // namespace

void PageRows::begin(const PageFormat& format) {
  const bool first = pieces_.empty();
  if (!makesSense(format) || (!first && format.width != format_.width))
    throw ScanFailure(ScanStatus::Failed, "it sends a page of an unknown kind");
  if (!first) {
    ++framesDone_;
    pageLines_ = line_;
  }
  format_ = format;
  line_ = 0;
  part_.clear();
  if (first) {
    pieceHeight_ = format.lines > 0 ? format.lines : growth;
    pieces_.emplace_back(PixelSize{format.width, pieceHeight_});
  }
}

void PageRows::add(const std::uint8_t* bytes, std::size_t count) {
  const auto lineLength = static_cast<std::size_t>(format_.bytesPerLine);
  while (count > 0) {
    if (part_.empty() && count >= lineLength) {
      addLine(bytes);
      bytes += lineLength;
      count -= lineLength;
      continue;
    }
    const std::size_t taken = std::min(count, lineLength - part_.size());
    part_.insert(part_.end(), bytes, bytes + taken);
    bytes += taken;
    count -= taken;
    if (part_.size() == lineLength) {
      addLine(part_.data());
      part_.clear();
    }
  }
}

/// Lines behind the end that was told are dropped.
void PageRows::addLine(const std::uint8_t* line) {
  std::uint32_t* row = nextRow();
  if (!row)
    return;
  const Samples samples(format_, line);
  switch (format_.frame) {
  case Frame::Grey:
    return putGrey(samples, row, format_.width);
  case Frame::Colours:
    return putColours(samples, row, format_.width);
  case Frame::Red:
    return putOne(samples, 16, row, format_.width);
  case Frame::Green:
    return putOne(samples, 8, row, format_.width);
  case Frame::Blue:
    return putOne(samples, 0, row, format_.width);
  }
}

std::uint32_t* PageRows::nextRow() {
  const auto piece = static_cast<std::size_t>(line_ / pieceHeight_);
  if (piece == pieces_.size()) {
    if (format_.lines > 0 || framesDone_ > 0)
      return nullptr;
    pieces_.emplace_back(PixelSize{format_.width, pieceHeight_});
  }
  return pieces_[piece].writableRow(line_++ % pieceHeight_);
}

double PageRows::share(int frames) const {
  const int lines = framesDone_ > 0 ? pageLines_ : format_.lines;
  return lines > 0 ? std::min(1.0, (framesDone_ + double(line_) / lines) / frames) : -1;
}

Picture PageRows::finish() {
  const int lines = framesDone_ > 0 ? std::min(line_, pageLines_) : line_;
  if (lines == 0)
    throw ScanFailure(ScanStatus::Failed, "the page is empty");
  if (pieces_.size() == 1)
    return cropped(std::exchange(pieces_, {}).front(), {0, 0, format_.width, lines});
  Picture page = Picture::unpainted({format_.width, lines});
  int top = 0;
  for (Picture& piece : pieces_) {
    paste(page, std::exchange(piece, {}), 0, top);
    top += pieceHeight_;
  }
  pieces_.clear();
  return page;
}

} // namespace hearthbook
