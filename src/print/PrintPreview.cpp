#include "PrintPreview.h"

#include "Look.h"
#include "PictureImage.h"
#include "PrintPixels.h"
#include "SheetPainter.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace hearthbook {

namespace {

constexpr double edge = 14;
constexpr double shadow = 4;

std::vector<QImage> imagesAtHand(const PrintSheet& sheet, ColorMode colorMode) {
  std::vector<QImage> images;
  for (const PaintOperation& operation : sheet.operations)
    if (const auto* picture = std::get_if<SheetPicture>(&operation)) {
      const bool grey = colorMode == ColorMode::Monochrome && !picture->atHand.isNull();
      images.push_back(toImage(grey ? greyed(picture->atHand) : picture->atHand));
    }
  return images;
}

/// Of a picture that is much larger than its place, painting would take single pixels.
QImage asSmallAs(const QImage& image, const TwipsRect& place, double scale) {
  const QSize size(static_cast<int>(std::lround(place.width * scale)),
                   static_cast<int>(std::lround(place.height * scale)));
  if (size.isEmpty() || (size.width() >= image.width() && size.height() >= image.height()))
    return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

PrintPreview::PrintPreview(QWidget* parent) : QWidget(parent) {}

void PrintPreview::showSheet(PrintSheet sheet, ColorMode colorMode) {
  sheet_ = std::move(sheet);
  images_ = imagesAtHand(sheet_, colorMode);
  shownScale_ = 0;
  update();
}

/// `scale`: device pixels to the twip.
void PrintPreview::shrinkImages(double scale) {
  if (scale == shownScale_)
    return;
  shownScale_ = scale;
  shown_.clear();
  for (const PaintOperation& operation : sheet_.operations)
    if (const auto* picture = std::get_if<SheetPicture>(&operation))
      shown_.push_back(asSmallAs(images_.at(shown_.size()), picture->place, scale));
}

QRectF PrintPreview::sheetRect() const {
  const QRectF room = QRectF(rect()).adjusted(edge, edge, -edge, -edge);
  const QSizeF size =
      QSizeF(sheet_.paper.width, sheet_.paper.height).scaled(room.size(), Qt::KeepAspectRatio);
  return {room.center() - QPointF(size.width(), size.height()) / 2, size};
}

void PrintPreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::desk);
  painter.drawRoundedRect(rect(), edge / 2, edge / 2);
  if (sheet_.paper.width <= 0)
    return;
  const QRectF paper = sheetRect();
  painter.fillRect(paper.translated(shadow, shadow), look::edge);
  painter.fillRect(paper, Qt::white);
  const double scale = paper.width() / sheet_.paper.width;
  shrinkImages(scale * devicePixelRatioF());
  painter.setClipRect(paper);
  painter.translate(paper.topLeft());
  painter.scale(scale, scale);
  paintSheet(painter, sheet_, [this](std::size_t picture) { return shown_.at(picture); });
}

} // namespace hearthbook
