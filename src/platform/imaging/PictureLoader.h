#pragma once

#include "Decode.h"
#include "PictureCache.h"
#include "PictureWish.h"
#include "WorkPool.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace hearthbook {

/// Decodes pictures beside the album's thread and keeps the latest ones.
///
/// Finished pictures are handed over on the album's thread, through the `deliver` function
/// given at construction, and only while their Ticket lives. A file that was replaced since
/// (size or time differ) is decoded again.
class PictureLoader {
public:
  struct Loaded {
    Decoded decoded;   ///< no picture where `error` is not empty
    std::string error; ///< what went wrong, naming the file
  };
  using Callback = std::function<void(const Loaded&)>;
  using Deliver = std::function<void(std::function<void()>)>;

  /// Destroying it forgets the request.
  class Ticket {
  public:
    Ticket() = default;

  private:
    friend class PictureLoader;
    std::shared_ptr<void> alive_;
  };

  PictureLoader(WorkPool& pool, Deliver deliver, PictureCache::Room room = {});
  ~PictureLoader();

  /// Asks for the picture at exactly `size` pixels, before all that is only decoded ahead. If
  /// it is ready the callback runs before load() returns.
  [[nodiscard]] Ticket load(const std::filesystem::path& file, PixelSize size, Callback callback);

  /// Decodes ahead what will probably be asked for next, the likeliest first, as many as can be
  /// kept beside each other. Newer wishes replace older ones that have not begun.
  void decodeAhead(const std::vector<PictureWish>& wishes);

private:
  struct Impl;
  std::shared_ptr<Impl> impl_;
};

} // namespace hearthbook
