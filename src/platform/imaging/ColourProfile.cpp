#include "ColourProfile.h"

#include <QColorSpace>
#include <QImage>

#include <cstring>

namespace hearthbook {

void convertToSrgb(Picture& picture, std::span<const std::uint8_t> profile) {
  const auto colours = QColorSpace::fromIccProfile(QByteArray(
      reinterpret_cast<const char*>(profile.data()), static_cast<qsizetype>(profile.size())));
  if (!colours.isValid() || colours == QColorSpace(QColorSpace::SRgb))
    return;
  const qsizetype rowBytes = qsizetype{picture.width()} * 4;
  QImage image(reinterpret_cast<const uchar*>(picture.row(0)), picture.width(), picture.height(),
               rowBytes, QImage::Format_RGB32);
  image.setColorSpace(colours);
  const QImage converted = image.convertedToColorSpace(QColorSpace(QColorSpace::SRgb))
                               .convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < converted.height(); ++y)
    std::memcpy(picture.writableRow(y), converted.constScanLine(y),
                static_cast<std::size_t>(rowBytes));
}

} // namespace hearthbook
