#pragma once

#include "Decode.h"
#include "FileStamp.h"
#include "PictureWish.h"

#include <cstddef>
#include <list>
#include <map>

namespace hearthbook {

/// What a picture of this size takes when it is decoded.
std::size_t decodedBytes(PixelSize size);

/// The decoded pictures used last, as many as there is room for. Not thread-safe.
class PictureCache {
public:
  /// What is held at most. The bytes are for large pictures; small ones would go on filling them
  /// with what nobody comes back to.
  struct Room {
    std::size_t bytes = std::size_t{256} << 20;
    std::size_t pictures = 1000;
  };

  explicit PictureCache(Room room) : room_(room) {}

  /// The picture, if it is here and its file is still the one it was made from.
  const Decoded* find(const PictureWish& wish, const FileStamp& stamp);
  void insert(const PictureWish& wish, const FileStamp& stamp, const Decoded& decoded);

private:
  struct Entry {
    PictureWish wish;
    FileStamp stamp;
    Decoded decoded;
  };
  using Entries = std::list<Entry>; // the one used last in front

  void erase(Entries::iterator entry);

  Room room_;
  std::size_t used_ = 0;
  Entries entries_;
  std::map<PictureWish, Entries::iterator> index_;
};

} // namespace hearthbook
