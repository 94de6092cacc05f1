#pragma once

#include "Picture.h"

#include <QImage>

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

} // namespace hearthbook
