#pragma once

#include <QByteArray>

class QImage;

namespace hearthbook {

/// `image` as a GIF of up to 256 colours, clear where it is transparent. Qt reads GIF files but
/// cannot write them.
QByteArray toGif(const QImage& image);

} // namespace hearthbook
