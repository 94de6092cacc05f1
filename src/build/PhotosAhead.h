#pragma once

#include "EarlyCopy.h"
#include "PreparedPhoto.h"
#include "WorkPool.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>

namespace hearthbook {

/// Prepares the sources to come, a few at a time, and hands them out in their order: what is to
/// be decoded on the pool, what is to be copied on the disk's own threads.
class PhotosAhead {
public:
  struct Photo {
    std::future<PreparedPhoto> prepared;
    std::future<std::shared_ptr<EarlyCopy>> copy; ///< not valid for a source that is encoded
  };

  /// `folder` is that of the photos; `wake` is called when one of the answers is there.
  PhotosAhead(WorkPool& pool, WorkPool& disk, std::filesystem::path folder,
              std::deque<std::filesystem::path> sources, bool reduce, std::function<void()> wake);

  Photo next();

private:
  void fill();
  [[nodiscard]] Photo begin(const std::filesystem::path& source);

  WorkPool& pool_;
  WorkPool& disk_;
  std::filesystem::path folder_;
  std::deque<std::filesystem::path> sources_; ///< not begun
  bool reduce_;
  std::function<void()> wake_;
  std::deque<Photo> ahead_;
};

} // namespace hearthbook
