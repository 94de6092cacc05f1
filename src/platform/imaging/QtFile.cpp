#include "PictureFile.h"

#include "Paper.h"
#include "PictureHeads.h"

#include <QBuffer>
#include <QColor>
#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>

namespace hearthbook {

namespace {

/// What stands where a cut file has no more pixels.
const QColor unreadColour(128, 128, 128);

/// Qt's own limit counts bytes and would refuse what maxPixels admits.
void raiseAllocationLimit() {
  static std::once_flag raised;
  std::call_once(raised, [] {
    constexpr std::int64_t mostBytesPerPixel = 8;
    QImageReader::setAllocationLimit(static_cast<int>((maxPixels * mostBytesPerPixel >> 20) + 1));
  });
}

int orientationOf(QImageIOHandler::Transformations transformation) {
  switch (int(transformation)) {
  case QImageIOHandler::TransformationMirror:
    return 2;
  case QImageIOHandler::TransformationRotate180:
    return 3;
  case QImageIOHandler::TransformationFlip:
    return 4;
  case QImageIOHandler::TransformationFlipAndRotate90:
    return 5;
  case QImageIOHandler::TransformationRotate90:
    return 6;
  case QImageIOHandler::TransformationMirrorAndRotate90:
    return 7;
  case QImageIOHandler::TransformationRotate270:
    return 8;
  default:
    return 1;
  }
}

Picture toPicture(QImage image) {
  const bool clear = image.hasAlphaChannel();
  if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb)) {
    if (image.colorCount() > 0)
      image.convertTo(clear ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
  }
  image.convertTo(clear ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  Picture picture({image.width(), image.height()});
  for (int y = 0; y < image.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    std::uint32_t* to = picture.writableRow(y);
    for (int x = 0; x < image.width(); ++x)
      to[x] = clear ? onWhitePaper(from[x]) : from[x] | 0xff000000U;
  }
  return picture;
}

/// A picture of one colour, for later comparison; null where the format is not known ahead.
QImage ground(PixelSize size, QImage::Format format) {
  QImage image(size.width, size.height, format);
  if (!image.isNull())
    image.fill(unreadColour);
  return image;
}

bool isAllLike(const QImage& image, const QByteArray& row) {
  for (int y = 0; y < image.height(); ++y)
    if (std::memcmp(image.constScanLine(y), row.constData(),
                    static_cast<std::size_t>(row.size())) != 0)
      return false;
  return true;
}

/// 16 bits of red, green and blue without the fourth that Qt wants, spread over their row.
void spreadSamples(QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<quint16*>(image.scanLine(y));
    for (std::ptrdiff_t x = image.width() - 1; x >= 0; --x) {
      std::memmove(row + 4 * x, row + 3 * x, 3 * sizeof(quint16));
      row[4 * x + 3] = 0xffff;
    }
  }
}

/// Qt's reader of TIFF files leaves a cut picture as the library gave it, before its own last
/// step. That step is done here, so that the rows that are there have their colours.
void finishCutTiff(QImage& image) {
  switch (image.format()) {
  case QImage::Format_RGB32:
  case QImage::Format_ARGB32:
  case QImage::Format_ARGB32_Premultiplied:
    return image.rgbSwap();
  case QImage::Format_RGBX64:
    return spreadSamples(image);
  case QImage::Format_Grayscale8:
  case QImage::Format_Grayscale16:
  case QImage::Format_RGBA64:
  case QImage::Format_RGBA64_Premultiplied:
    return;
  default:
    image = QImage();
  }
}

/// What the reader of an icon is to see: a PNG in it alone, a bitmap with the whole icon. A cut
/// bitmap ends in zeros, since nothing is read of one that is not all there.
QByteArray iconBytes(const InputFile& file, const IconChoice& icon) {
  constexpr std::uint64_t mostBytes = std::uint64_t{64} << 20;
  const auto from = icon.isPng ? icon.offset : 0;
  const auto bytes = file.bytesAt(from, std::min<std::uintmax_t>(file.size() - from, mostBytes));
  QByteArray result(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
  const auto whole = icon.offset + icon.length;
  if (!icon.isPng && whole > bytes.size() && whole <= mostBytes)
    result.append(static_cast<int>(whole - bytes.size()), '\0');
  return result;
}

class QtFile : public PictureFile {
public:
  QtFile(InputFile file, FileFormat format);
  [[nodiscard]] Head head() const override { return head_; }
  Pixels read(PixelSize atLeast) override;

private:
  void openFile();
  void openIcon();
  [[nodiscard]] bool isShort() const;

  InputFile file_;
  Head head_;
  std::optional<IconChoice> icon_;
  std::unique_ptr<QIODevice> device_;
  QImageReader reader_;
};

QtFile::QtFile(InputFile file, FileFormat format) : file_(std::move(file)) {
  raiseAllocationLimit();
  head_.format = format;
  reader_.setAutoDetectImageFormat(false); // only the reader for what the content was seen to be
  if (format == FileFormat::Ico)
    openIcon();
  else
    openFile();
}

void QtFile::openFile() {
  auto device = std::make_unique<QFile>();
  device->open(file_.descriptor(), QIODevice::ReadOnly);
  device_ = std::move(device);
  reader_.setDevice(device_.get());
  reader_.setFormat(QByteArray::fromStdString(formatName(head_.format)));
  head_.orientation = orientationOf(reader_.transformation());
  const QSize size = reader_.size();
  head_.size = {size.width(), size.height()};
}

void QtFile::openIcon() {
  icon_ = largestIcon(file_);
  if (!icon_)
    return;
  head_.size = icon_->size;
  auto device = std::make_unique<QBuffer>();
  device->setData(iconBytes(file_, *icon_));
  device->open(QIODevice::ReadOnly);
  device_ = std::move(device);
  reader_.setDevice(device_.get());
  reader_.setFormat(icon_->isPng ? "png" : "ico");
  if (!icon_->isPng)
    reader_.jumpToImage(icon_->index);
}

/// Qt's readers of these do not tell that something is missing.
bool QtFile::isShort() const {
  switch (head_.format) {
  case FileFormat::Bmp:
    return file_.size() < bmpLength(file_.bytesAt(0, headBytes)).value_or(0);
  case FileFormat::Gif:
    return !isWholeGif(file_);
  case FileFormat::Ico:
    return icon_ && file_.size() < icon_->offset + icon_->length;
  default:
    return false;
  }
}

PictureFile::Pixels QtFile::read(PixelSize) {
  // A reader that finds an image of the right kind fills it in place, so that of a cut file the
  // rows read so far stay, on a ground of our choice instead of on whatever lay in memory.
  QImage image = ground(head_.size, reader_.imageFormat());
  const QByteArray unreadRow =
      image.isNull()
          ? QByteArray()
          : QByteArray(reinterpret_cast<const char*>(image.constScanLine(0)), image.bytesPerLine());
  const bool whole = reader_.read(&image);
  if (!whole && head_.format == FileFormat::Tiff)
    finishCutTiff(image);
  if (image.isNull() || (!whole && isAllLike(image, unreadRow)))
    cannotReadPicture(file_.path(), "the picture in it is damaged");
  head_.size = {image.width(), image.height()}; // an icon's head and its picture may differ
  return {toPicture(std::move(image)), !whole || isShort()};
}

} // namespace

std::unique_ptr<PictureFile> openThroughQt(InputFile file, FileFormat format) {
  return std::make_unique<QtFile>(std::move(file), format);
}

} // namespace hearthbook
