#include "CoverPicture.h"

#include "Guard.h"
#include "PictureImage.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace hearthbook {

namespace {

const QColor wall{0x9a, 0x48, 0x36}; // of the picture, while that is on its way

} // namespace

CoverPicture::CoverPicture(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

// A start screen without its picture is still a start screen.
void CoverPicture::showPicture(PictureLoader& loader, std::filesystem::path file) {
  loader_ = &loader;
  file_ = std::move(file);
  passOver([this] { fileSize_ = readPictureInfo(file_).size; });
  update();
}

PixelSize CoverPicture::coveringSize() const {
  const QSizeF room = QSizeF(size()) * devicePixelRatioF();
  const double scale = std::max(room.width() / fileSize_.width, room.height() / fileSize_.height);
  return {static_cast<int>(std::ceil(fileSize_.width * scale)),
          static_cast<int>(std::ceil(fileSize_.height * scale))};
}

// Asked for when it is painted, so that no picture is made for a size that is never seen.
void CoverPicture::ask() {
  if (!loader_ || fileSize_.width == 0 || size().isEmpty())
    return;
  const PixelSize wanted = coveringSize();
  if (wanted == asked_)
    return;
  asked_ = wanted;
  ticket_ = loader_->load(file_, wanted, [this](const PictureLoader::Loaded& loaded) {
    if (loaded.error.empty())
      picture_ = loaded.decoded.picture;
    update();
  });
}

void CoverPicture::paintEvent(QPaintEvent* /*event*/) {
  ask();
  QPainter painter(this);
  if (picture_.isNull()) {
    painter.fillRect(rect(), wall);
    return;
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QImage image = toImage(picture_);
  QRectF target(QPointF(), QSizeF(image.size().scaled(size(), Qt::KeepAspectRatioByExpanding)));
  target.moveCenter(QRectF(rect()).center());
  painter.drawImage(target, image);
}

} // namespace hearthbook
