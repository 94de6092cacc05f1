#include "Gif.h"

#include <QImage>

#include <gtest/gtest.h>

namespace hearthbook {

namespace {

QImage roundTrip(const QImage& image) {
  return QImage::fromData(toGif(image), "gif").convertToFormat(QImage::Format_RGB32);
}

TEST(Gif, ComesBackPixelForPixel) {
  QImage image(7, 5, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      image.setPixel(x, y, qRgb(x * 30, y * 40, 128));
  EXPECT_EQ(roundTrip(image), image);
}

TEST(Gif, ComesBackWhenTheCodesRunOut) {
  QImage image(300, 300, QImage::Format_RGB32);
  unsigned noise = 1;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      noise = noise * 1664525 + 1013904223;
      const int grey = static_cast<int>(noise >> 28) * 16;
      image.setPixel(x, y, qRgb(grey, grey, grey));
    }
  EXPECT_EQ(roundTrip(image), image);
}

} // namespace

} // namespace hearthbook
