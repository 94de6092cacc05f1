#include "EarlyCopy.h"

namespace hearthbook {

namespace fs = std::filesystem;

std::shared_ptr<EarlyCopy> EarlyCopy::make(const fs::path& source, const fs::path& folder,
                                           std::uintmax_t roomToLeave) noexcept {
  try {
    if (fs::space(folder).available < fs::file_size(source) + roomToLeave)
      return nullptr;
    return std::make_shared<EarlyCopy>(source, folder);
  } catch (...) {
    return nullptr;
  }
}

EarlyCopy::EarlyCopy(const fs::path& source, const fs::path& folder)
    : stamp_(stampOf(source)), copy_(source, folder) {}

bool EarlyCopy::place(const fs::path& source, const fs::path& target) {
  if (!stamp_ || stampOf(source) != stamp_)
    return false;
  copy_.place(target);
  return true;
}

} // namespace hearthbook
