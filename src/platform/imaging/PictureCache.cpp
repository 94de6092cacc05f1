#include "PictureCache.h"

#include <iterator>

namespace hearthbook {

namespace {

std::size_t bytesOf(const Decoded& decoded) { return decodedBytes(decoded.picture.size()); }

} // namespace

std::size_t decodedBytes(PixelSize size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
         sizeof(std::uint32_t);
}

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
  if (bytes > room_.bytes || room_.pictures == 0)
    return;
  while (used_ + bytes > room_.bytes || entries_.size() >= room_.pictures)
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
