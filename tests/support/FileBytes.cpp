#include "FileBytes.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace hearthbook::test {
namespace fs = std::filesystem;

std::string readBytes(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

void writeBytes(const fs::path& file, std::string_view bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush())
    throw std::runtime_error("cannot write " + file.string());
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

} // namespace hearthbook::test
