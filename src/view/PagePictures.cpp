#include "PagePictures.h"

#include "ImgRatio.h"
#include "PagePhoto.h"
#include "Stage.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

constexpr int patienceMs = 250;

} // namespace

PagePictures::PagePictures(Stage& stage, const Photos& photos, PictureLoader& loader,
                           WorkPool& pool, std::filesystem::path notFound, QObject* parent)
    : QObject(parent), stage_(stage), photos_(photos),
      pictures_(loader, pool, std::move(notFound)) {
  patience_.setSingleShot(true);
  patience_.setInterval(patienceMs);
  connect(&patience_, &QTimer::timeout, this, &PagePictures::clearLate);
  connect(&stage_, &Stage::scaled, this, &PagePictures::showAgain);
}

void PagePictures::show(int cell, const std::filesystem::path& file) {
  Slot& slot = slots_[cell];
  slot.wanted = file;
  slot.ticket = pictures_.load(file, fitInto(cell),
                               [this, cell](const auto& loaded) { arrived(cell, loaded); });
  if (slot.wanted)
    patience_.start();
}

void PagePictures::clear(int cell) {
  slots_[cell] = {};
  photos_[cell]->clear();
  beginAhead();
}

FittedPictures::Fit PagePictures::fitInto(int cell) const {
  return [this, cell](PixelSize picture) {
    const TwipsRect fitted =
        FitImage(stage_.rect(photos_[cell]), picture.width, picture.height, photoSide, photoSide);
    const QSize pixels = stage_.toDevicePixels(fitted);
    return PixelSize{pixels.width(), pixels.height()};
  };
}

void PagePictures::arrived(int cell, const FittedPictures::Loaded& loaded) {
  slots_[cell].wanted.reset();
  if (!loaded.picture.isNull())
    place(cell, loaded);
  else
    photos_[cell]->clear();
  beginAhead();
}

void PagePictures::place(int cell, const FittedPictures::Loaded& loaded) {
  slots_[cell].shown = loaded.file;
  stage_.setRect(photos_[cell], FitImage(stage_.rect(photos_[cell]), loaded.fullSize.width,
                                         loaded.fullSize.height, photoSide, photoSide));
  photos_[cell]->setPicture(loaded.picture);
  Q_EMIT placed(cell);
}

void PagePictures::showAgain() {
  aheadIsDue_ = true;
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (const auto file = slots_[cell].wanted ? slots_[cell].wanted : slots_[cell].shown)
      show(cell, *file);
  beginAhead();
}

/// A photo of the last page must not be taken for this one's.
void PagePictures::clearLate() {
  for (int cell = 0; cell < photosOnPage; ++cell)
    if (slots_[cell].wanted && slots_[cell].wanted != slots_[cell].shown)
      photos_[cell]->clear();
}

bool PagePictures::isWaiting() const {
  return std::ranges::any_of(slots_, [](const Slot& slot) { return slot.wanted.has_value(); });
}

void PagePictures::decodeAhead(std::vector<Neighbour> neighbours) {
  ahead_ = std::move(neighbours);
  aheadIsDue_ = true;
  beginAhead();
}

/// Boxes of one size in twips differ by a pixel on most screens.
void PagePictures::beginAhead() {
  if (!aheadIsDue_ || isWaiting())
    return;
  aheadIsDue_ = false;
  std::vector<FittedPictures::Wish> wishes;
  wishes.reserve(ahead_.size());
  for (const Neighbour& neighbour : ahead_)
    wishes.push_back({neighbour.file, fitInto(neighbour.cell)});
  pictures_.decodeAhead(std::move(wishes));
}

} // namespace hearthbook
