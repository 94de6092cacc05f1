#pragma once

#include <QByteArray>

namespace hearthbook {

/// What a camera would have written into a photograph.
struct CameraData {
  int orientation = 1; ///< as cameras tell it: 1 upright, 6 and 8 held sideways, 3 upside down
  QByteArray taken;    ///< "1998:06:14 15:02:11", or empty
};

/// The JPEG file `jpeg` with a segment that holds `data`.
QByteArray withCameraData(const QByteArray& jpeg, const CameraData& data);

} // namespace hearthbook
