#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

/// The sounds of a folder by their owners' names ("00012", "A7"). The folder is read once, since
/// an album may ask for thousands.
class SoundShelf {
public:
  /// Empty where there is no such folder, or where it cannot be read.
  explicit SoundShelf(std::filesystem::path folder);

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
  [[nodiscard]] bool isUnreadable() const { return isUnreadable_; }

  /// Of several sounds of one owner the first by name.
  [[nodiscard]] std::optional<std::filesystem::path> find(std::string_view name) const;

private:
  std::filesystem::path folder_;
  bool isUnreadable_ = false;
  std::map<std::string, std::filesystem::path, std::less<>> sounds_;
};

} // namespace hearthbook
