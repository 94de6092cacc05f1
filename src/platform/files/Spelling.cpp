#include "Spelling.h"

#include <algorithm>
#include <system_error>

namespace hearthbook {

bool sameIgnoringCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

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
