#include "StripPictures.h"

#include "Stage.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

namespace {

/// As large as it is at 15 twips to the pixel, unless that is too large for a cell.
TwipsSize sizeInCell(PixelSize picture) {
  const TwipsSize own{static_cast<double>(picture.width) * twipsPerPixel,
                      static_cast<double>(picture.height) * twipsPerPixel};
  const double longer = std::max(own.width, own.height);
  const double ratio = longer > stripCellSide ? stripCellSide / longer : 1;
  return {own.width * ratio, own.height * ratio};
}

std::size_t placeBehindMove(std::size_t place, std::size_t from, std::size_t to) {
  if (place == from)
    return to;
  if (from < place && place <= to)
    return place - 1;
  return to <= place && place < from ? place + 1 : place;
}

} // namespace

struct StripPictures::Held {
  std::filesystem::path file;
  Picture picture{};
  TwipsSize size{};
  bool waits = false;
  FittedPictures::Ticket ticket{};
};

StripPictures::StripPictures(const Stage& stage, Source source,
                             std::function<void(std::size_t)> arrived)
    : stage_(stage), source_(std::move(source)), arrived_(std::move(arrived)),
      pictures_(source_.loader, source_.pool, source_.notFound) {}

StripPictures::~StripPictures() = default;

void StripPictures::load(std::size_t position, const std::string& photoId) {
  auto& held = held_[position];
  held = std::make_unique<Held>(Held{source_.fileOf(photoId).value_or(source_.notFound)});
  request(*held);
}

void StripPictures::request(Held& held) {
  held.waits = true;
  held.ticket = pictures_.load(
      held.file,
      [this](PixelSize picture) {
        const TwipsSize size = sizeInCell(picture);
        const QSize pixels = stage_.toDevicePixels({0, 0, size.width, size.height});
        return PixelSize{pixels.width(), pixels.height()};
      },
      [this, &held](const FittedPictures::Loaded& loaded) { arrived(held, loaded); });
}

void StripPictures::arrived(Held& held, const FittedPictures::Loaded& loaded) {
  held.waits = false;
  if (loaded.picture.isNull())
    return;
  held.picture = loaded.picture;
  held.size = sizeInCell(loaded.fullSize);
  const auto found =
      std::ranges::find_if(held_, [&](const auto& entry) { return entry.second.get() == &held; });
  if (found != held_.end())
    arrived_(found->first);
}

void StripPictures::blank(StripRange range) {
  held_.erase(held_.lower_bound(range.first), held_.lower_bound(range.end));
}

void StripPictures::clear() { held_.clear(); }

void StripPictures::loadAgain() {
  for (const auto& [position, held] : held_)
    request(*held);
}

void StripPictures::move(std::size_t from, std::size_t to) {
  std::map<std::size_t, std::unique_ptr<Held>> behind;
  for (auto& [position, held] : held_)
    behind[placeBehindMove(position, from, to)] = std::move(held);
  held_ = std::move(behind);
}

void StripPictures::keepOnly(StripRange range) {
  std::erase_if(held_, [range](const auto& entry) {
    return entry.first < range.first || entry.first >= range.end;
  });
}

bool StripPictures::isWaiting() const {
  return std::ranges::any_of(held_, [](const auto& entry) { return entry.second->waits; });
}

std::optional<StripPictures::Shown> StripPictures::at(std::size_t position) const {
  const auto found = held_.find(position);
  if (found == held_.end() || found->second->picture.isNull())
    return std::nullopt;
  return Shown{found->second->picture, found->second->size};
}

} // namespace hearthbook
