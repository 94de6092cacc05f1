#pragma once

#include "WorkPool.h"

#include <filesystem>
#include <functional>
#include <future>
#include <string>
#include <vector>

namespace hearthbook {

/// The photos of a mail. They are reduced beside the window's thread, all at once, and handed over
/// in their order as they become ready.
class PhotosToMail {
public:
  using Then = std::function<void(const std::filesystem::path& photo, const std::string& jpeg)>;

  /// Begins to reduce. Among several photos those that are not there are left out; a single one is
  /// taken as it is told.
  PhotosToMail(WorkPool& pool, const std::vector<std::filesystem::path>& photos);

  /// Calls `then` for each, while the user may act, for as long as `isWanted` holds. True where all
  /// were handed over. Throws what a photo's reducing threw.
  bool handOver(const Then& then, const std::function<bool()>& isWanted);

private:
  struct Photo {
    std::filesystem::path file;
    std::future<std::string> jpeg; ///< empty where the photo is left out
  };

  std::vector<Photo> photos_;
};

} // namespace hearthbook
