#pragma once

#include "Decode.h"
#include "FileStamp.h"
#include "PictureWish.h"

#include <cstddef>
#include <list>
#include <map>

namespace hearthbook {

/// The decoded pictures used last, as many as fit into a number of bytes. Not thread-safe.
class PictureCache {
public:
  explicit PictureCache(std::size_t bytes) : room_(bytes) {}

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

  std::size_t room_;
  std::size_t used_ = 0;
  Entries entries_;
  std::map<PictureWish, Entries::iterator> index_;
};

} // namespace hearthbook
