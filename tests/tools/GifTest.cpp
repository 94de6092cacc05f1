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

TEST(Gif, WhatIsNotDrawnLetsTheGroundThrough) {
  QImage image(2, 1, QImage::Format_ARGB32);
  image.setPixel(0, 0, qRgba(0, 0, 0, 0));
  image.setPixel(1, 0, qRgb(110, 0, 0));
  const QImage back = QImage::fromData(toGif(image), "gif").convertToFormat(QImage::Format_ARGB32);
  EXPECT_EQ(qAlpha(back.pixel(0, 0)), 0);
  EXPECT_EQ(back.pixel(1, 0), qRgb(110, 0, 0));
}

TEST(Gif, OfMoreColoursThanItHoldsTheFrequentOnesStay) {
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(qRgb(110, 0, 0));
  for (int i = 0; i < 400; ++i)
    image.setPixel(i % 40, i / 40, qRgb(i / 2, 255 - i / 2, i % 2));
  const QImage back = roundTrip(image);
  EXPECT_EQ(back.pixel(39, 39), qRgb(110, 0, 0));
  for (int i = 0; i < 400; ++i)
    EXPECT_NEAR(qRed(back.pixel(i % 40, i / 40)), i / 2, 80) << i;
}

} // namespace

} // namespace hearthbook
