#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include "Exif.h"

namespace hearthbook {

/// One picture to make. A line of a manifest reads
///     OUTPUT SOURCE WIDTHxHEIGHT [quality=N] [orientation=N] [taken=1998:06:14T15:02:11] [clear]
///     [mirrored]
/// %20 is a blank in the name of the output. A GIF that is `clear` shows what lies behind it where
/// nothing is drawn; what is `mirrored` has left and right exchanged. The size is that of the
/// upright picture; SOURCE may be an SVG drawn for any size.
struct Drawing {
  QString output;
  QString source;
  QSize size;
  int quality = 92;
  bool clear = false;
  bool mirrored = false;
  CameraData camera;
};

/// The drawings of the manifest `file`. Throws std::runtime_error naming a line it cannot read.
QList<Drawing> readManifest(const QString& file);

} // namespace hearthbook
