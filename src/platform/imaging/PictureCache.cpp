#include "PictureCache.h"

#include <iterator>

namespace hearthbook {

namespace {

std::size_t bytesOf(const Decoded& decoded) {
  return static_cast<std::size_t>(decoded.picture.width()) *
         static_cast<std::size_t>(decoded.picture.height()) * sizeof(std::uint32_t);
}

} // namespace

const Decoded* PictureCache::find(const PictureWish& wish, const FileStamp& stamp) {
  const auto found = index_.find(wish);
  if (found == index_.end())
    return nullptr;
  if (found->second->stamp != stamp) {
    erase(found->second);
    return nullptr;
  }
  entries_.splice(entries_.begin(), entries_, found->second);
  return &entries_.front().decoded;
}

void PictureCache::insert(const PictureWish& wish, const FileStamp& stamp, const Decoded& decoded) {
  const std::size_t bytes = bytesOf(decoded);
  if (const auto old = index_.find(wish); old != index_.end())
    erase(old->second);
  if (bytes > room_)
    return;
  while (used_ + bytes > room_)
    erase(std::prev(entries_.end()));
  entries_.push_front({wish, stamp, decoded});
  index_[wish] = entries_.begin();
  used_ += bytes;
}

void PictureCache::erase(Entries::iterator entry) {
  used_ -= bytesOf(entry->decoded);
  index_.erase(entry->wish);
  entries_.erase(entry);
}

} // namespace hearthbook
