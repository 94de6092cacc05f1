#include "PhotosToMail.h"

#include "ApplicationFolder.h"
#include "ReducedPhoto.h"
#include "UserActs.h"

#include <chrono>

namespace hearthbook {

namespace {

/// Ends a wait of the window's thread, which then looks whether what it waits for has come.
void wakeWindow() {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
}

bool isReady(const std::future<std::string>& jpeg) {
  return jpeg.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

} // namespace

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
