#include "EarlyCopy.h"

namespace hearthbook {

std::shared_ptr<EarlyCopy> EarlyCopy::make(const std::filesystem::path& source,
                                           const std::filesystem::path& folder) noexcept {
  try {
    return std::make_shared<EarlyCopy>(source, folder);
  } catch (...) {
    return nullptr;
  }
}

EarlyCopy::EarlyCopy(const std::filesystem::path& source, const std::filesystem::path& folder)
    : stamp_(stampOf(source)), copy_(source, folder) {}

bool EarlyCopy::place(const std::filesystem::path& source, const std::filesystem::path& target) {
  if (!stamp_ || stampOf(source) != stamp_)
    return false;
  copy_.place(target);
  return true;
}

} // namespace hearthbook
