#include "PhotosAhead.h"

#include <utility>

namespace hearthbook {

PhotosAhead::PhotosAhead(WorkPool& pool, WorkPool& disk, std::filesystem::path folder,
                         std::deque<std::filesystem::path> sources, bool reduce,
                         std::function<void()> wake)
    : pool_(pool), disk_(disk), folder_(std::move(folder)), sources_(std::move(sources)),
      reduce_(reduce), wake_(std::move(wake)) {}

PhotosAhead::Photo PhotosAhead::next() {
  fill();
  Photo first = std::move(ahead_.front());
  ahead_.pop_front();
  fill();
  return first;
}

void PhotosAhead::fill() {
  constexpr std::size_t inFlightForEachThread = 2;
  const auto window = static_cast<std::size_t>(pool_.threads()) * inFlightForEachThread;
  for (; !sources_.empty() && ahead_.size() < window; sources_.pop_front())
    ahead_.push_back(begin(sources_.front()));
}

PhotosAhead::Photo PhotosAhead::begin(const std::filesystem::path& source) {
  Photo photo;
  photo.prepared =
      pool_.run([source, reduce = reduce_] { return preparePhoto(source, reduce); }, wake_);
  if (isStoredAsItIs(source))
    photo.copy =
        disk_.run([source, folder = folder_] { return EarlyCopy::make(source, folder); }, wake_);
  return photo;
}

} // namespace hearthbook
