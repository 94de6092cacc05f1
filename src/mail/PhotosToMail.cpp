#include "PhotosToMail.h"

#include "ApplicationFolder.h"
#include "Awaited.h"
#include "ReducedPhoto.h"
#include "UserActs.h"

namespace hearthbook {

PhotosToMail::PhotosToMail(WorkPool& pool, const std::vector<std::filesystem::path>& photos) {
  for (const auto& file : photos)
    photos_.push_back({file, pool.run(
                                 [file, isAlone = photos.size() == 1] {
                                   const bool isThere = isAlone || fileExists(file);
                                   return isThere ? reducedForMail(file) : std::string();
                                 },
                                 wakeWindow, true)});
}

bool PhotosToMail::handOver(const Then& then, const std::function<bool()>& isWanted) {
  for (Photo& photo : photos_) {
    letUserActUntil([&] { return !isWanted() || isReady(photo.jpeg); });
    if (!isWanted())
      return false;
    if (const std::string jpeg = photo.jpeg.get(); !jpeg.empty())
      then(photo.file, jpeg);
    if (!isWanted())
      return false;
  }
  return true;
}

} // namespace hearthbook
