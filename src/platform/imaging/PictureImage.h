#pragma once

#include "Picture.h"

#include <QImage>

#include <algorithm>
#include <cstdint>

namespace hearthbook {

/// The picture as Qt shows it, without a copy of its pixels. For forms only.
inline QImage toImage(const Picture& picture) {
  if (picture.isNull())
    return {};
  auto* keeper = new std::shared_ptr<const std::uint32_t[]>(picture.share());
  return {reinterpret_cast<const uchar*>(keeper->get()),
          picture.width(),
          picture.height(),
          static_cast<qsizetype>(picture.width()) * 4,
          QImage::Format_RGB32,
          [](void* kept) { delete static_cast<std::shared_ptr<const std::uint32_t[]>*>(kept); },
          keeper};
}

/// What Qt has painted, as a picture.
inline Picture paintedPicture(const QImage& painted) {
  const QImage image = painted.convertToFormat(QImage::Format_RGB32);
  Picture picture({image.width(), image.height()});
  for (int y = 0; y < image.height(); ++y) {
    const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    std::copy_n(line, image.width(), picture.writableRow(y));
  }
  return picture;
}

} // namespace hearthbook
