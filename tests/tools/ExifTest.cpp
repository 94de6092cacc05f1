#include "Exif.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

#include <gtest/gtest.h>

namespace hearthbook {

namespace {

QByteArray plainJpeg() {
  QImage image(16, 8, QImage::Format_RGB32);
  image.fill(Qt::darkRed);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "jpg");
  return bytes;
}

QImageIOHandler::Transformations turnOf(QByteArray jpeg) {
  QBuffer buffer(&jpeg);
  buffer.open(QIODevice::ReadOnly);
  return QImageReader(&buffer, "jpg").transformation();
}

TEST(Exif, AReaderFindsHowTheCameraWasHeld) {
  EXPECT_EQ(turnOf(withCameraData(plainJpeg(), {6, ""})), QImageIOHandler::TransformationRotate90);
  EXPECT_EQ(turnOf(withCameraData(plainJpeg(), {8, ""})), QImageIOHandler::TransformationRotate270);
  EXPECT_EQ(turnOf(withCameraData(plainJpeg(), {3, ""})), QImageIOHandler::TransformationRotate180);
}

TEST(Exif, ThePictureItselfStaysAsItWas) {
  const QByteArray marked = withCameraData(plainJpeg(), {1, "1998:06:14 15:02:11"});
  EXPECT_EQ(QImage::fromData(marked), QImage::fromData(plainJpeg()));
  EXPECT_TRUE(marked.contains("1998:06:14 15:02:11"));
}

} // namespace

} // namespace hearthbook
