#include "PictureFile.h"

#include "Paper.h"
#include "PictureHeads.h"

#include <QBuffer>
#include <QColor>
#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QImageReader>

#include <cstring>
#include <mutex>

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

class QtFile : public PictureFile {
public:
  QtFile(InputFile file, FileFormat format);
  [[nodiscard]] Head head() const override { return head_; }
  Pixels read(PixelSize atLeast) override;

private:
  void chooseIcon();
  [[nodiscard]] bool isShort() const;

  InputFile file_;
  Head head_;
  QFile device_;
  QImageReader reader_;
};

QtFile::QtFile(InputFile file, FileFormat format) : file_(std::move(file)) {
  raiseAllocationLimit();
  head_.format = format;
  device_.open(file_.descriptor(), QIODevice::ReadOnly);
  reader_.setDevice(&device_);
  reader_.setAutoDetectImageFormat(false); // only the reader for what the content was seen to be
  reader_.setFormat(QByteArray::fromStdString(formatName(format)));
  head_.orientation = orientationOf(reader_.transformation());
  const QSize size = reader_.size();
  head_.size = {size.width(), size.height()};
  if (format == FileFormat::Ico)
    chooseIcon();
}

void QtFile::chooseIcon() {
  const auto icon = largestIcon(file_);
  head_.size = icon ? icon->size : PixelSize{};
  if (icon)
    reader_.jumpToImage(icon->index);
}

/// Qt's reader of BMP files does not tell that rows are missing.
bool QtFile::isShort() const {
  if (head_.format != FileFormat::Bmp)
    return false;
  const auto needed = bmpLength(file_.bytesAt(0, headBytes));
  return needed && file_.size() < *needed;
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
