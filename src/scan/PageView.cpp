#include "PageView.h"

#include "Beside.h"
#include "Look.h"
#include "PagePlaces.h"
#include "PictureImage.h"
#include "Resample.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::int64_t largestCopy = 32'000'000; // pixels; beyond, little of it is in sight
constexpr int smoothlyPainted = 1'000'000;       // pixels that are stretched well within a frame

bool isSamePicture(const Picture& a, const Picture& b) { return a.share() == b.share(); }

} // namespace

PageView::PageView(QWidget* parent) : QWidget(parent) {}

void PageView::setPage(const ImageEdit& edit, WorkPool& pool) {
  edit_ = &edit;
  pool_ = &pool;
}

void PageView::showChanged() {
  if (!edit_)
    return;
  const PagePlaces places(*edit_, *this);
  std::vector<Layer> layers;
  if (!edit_->isEmpty() && places.perPixel() > 0) {
    const PixelSize page = edit_->picture().size();
    layers.push_back(layerFor(edit_->picture(), {{0, 0, page.width, page.height}, true}, places));
    for (const EditElement& element : edit_->elements())
      layers.push_back(layerFor(element.shown, {element.place}, places));
  }
  layers_ = std::move(layers);
  for (const Layer& layer : layers_)
    makeSmallIfMissing(layer);
  update();
}

PixelSize PageView::wantedSize(PixelSize full, const PagePlaces& places) const {
  const double scale = places.perPixel() * devicePixelRatioF();
  const PixelSize size{std::max(1, static_cast<int>(std::lround(full.width * scale))),
                       std::max(1, static_cast<int>(std::lround(full.height * scale)))};
  return scale >= 1 || std::int64_t{size.width} * size.height > largestCopy ? PixelSize() : size;
}

/// What was made for the last state of a place stands in for it until its own copy is there.
PageView::Layer PageView::layerFor(const Picture& full, const Place& place,
                                   const PagePlaces& places) const {
  Layer layer{full, place, {}, wantedSize(full.size(), places), false};
  const auto before = std::ranges::find(layers_, place, &Layer::place);
  if (before == layers_.end() || before->wanted != layer.wanted)
    return layer;
  layer.small = before->small;
  layer.isSmallOfFull = before->isSmallOfFull && isSamePicture(before->full, full);
  return layer;
}

/// Only one at a time for each place, however often the page is scrolled meanwhile: what waits for
/// the pool behind them is an edit, or a photo that is saved.
void PageView::makeSmallIfMissing(const Layer& layer) {
  const bool isMissing = layer.wanted != PixelSize() && !layer.isSmallOfFull;
  if (isMissing && std::ranges::find(inMaking_, layer.place) == inMaking_.end())
    makeSmall(layer);
}

void PageView::makeSmall(const Layer& layer) {
  inMaking_.push_back(layer.place);
  runBeside(
      *pool_, this,
      [made = Made{layer.place, layer.full, layer.wanted, {}}]() mutable {
        try {
          made.small = resample(made.full, made.wanted);
        } catch (const std::exception&) { // memory is short: it is painted from the picture
        }
        return std::move(made);
      },
      [this](const Made& made) { smallArrived(made); }, true);
}

/// The page may have changed meanwhile: then another copy is made.
void PageView::smallArrived(const Made& made) {
  std::erase(inMaking_, made.place);
  const auto layer = std::ranges::find(layers_, made.place, &Layer::place);
  if (layer == layers_.end())
    return;
  if (isSamePicture(layer->full, made.full) && layer->wanted == made.wanted) {
    layer->small = made.small;
    layer->isSmallOfFull = true;
  }
  makeSmallIfMissing(*layer);
  update();
}

Picture PageView::smallPage() const {
  return layers_.empty() || !layers_.front().isSmallOfFull ? Picture() : layers_.front().small;
}

void PageView::showPreview(const Picture& smallPage) {
  if (layers_.empty() || layers_.front().wanted != smallPage.size())
    return;
  layers_.front().small = smallPage;
  layers_.front().isSmallOfFull = false; // whatever comes next brings the page's own copy back
  update();
}

bool PageView::isSharp() const {
  return std::ranges::all_of(layers_, [](const Layer& layer) {
    return layer.wanted == PixelSize() || layer.isSmallOfFull;
  });
}

void PageView::paint(QPainter& painter, const Layer& layer, QRectF target, const QRect& seen) {
  const bool isSmall = !layer.small.isNull();
  const QImage image = toImage(isSmall ? layer.small : layer.full);
  const QRectF part = target.intersected(QRectF(seen));
  if (part.isEmpty())
    return;
  const double across = image.width() / target.width();
  const double down = image.height() / target.height();
  const QRectF source((part.left() - target.left()) * across, (part.top() - target.top()) * down,
                      part.width() * across, part.height() * down);
  painter.setRenderHint(QPainter::SmoothPixmapTransform,
                        !isSmall && part.width() * part.height() <= smoothlyPainted);
  painter.drawImage(part, image, source);
}

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (!edit_)
    return;
  const PagePlaces places(*edit_, *this);
  for (const Layer& layer : layers_)
    paint(painter, layer, places.toWidget(layer.place.rect), event->rect());
}

void PageView::resizeEvent(QResizeEvent*) { showChanged(); }

} // namespace hearthbook
