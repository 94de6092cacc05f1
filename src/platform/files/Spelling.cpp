#include "Spelling.h"

#include "Words.h"

#include <system_error>

namespace hearthbook {

std::string spellingIn(const std::filesystem::path& folder, std::string_view name) {
  std::error_code error;
  if (name.empty() || std::filesystem::exists(folder / name, error))
    return std::string(name);
  std::string found;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string spelling = entry->path().filename().string();
    if (sameIgnoringCase(spelling, name) && (found.empty() || spelling < found))
      found = spelling;
  }
  return found.empty() ? std::string(name) : found;
}

} // namespace hearthbook
