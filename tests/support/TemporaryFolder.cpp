#include "TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace hearthbook::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "hearthbook-XXXXXX").string();
  if (!mkdtemp(pattern.data()))
    throw std::runtime_error("cannot make a temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
  std::filesystem::remove_all(path_, ignored);
}

} // namespace hearthbook::test
