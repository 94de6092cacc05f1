#pragma once

#include <filesystem>
#include <functional>
#include <optional>

namespace hearthbook {

/// What the designer asks the desktop for; tests answer in its place.
struct DesignFiles {
  using Chooser = std::function<std::optional<std::filesystem::path>()>;

  Chooser chooseBackground;                                   ///< a picture; nothing: cancelled
  Chooser chooseMusic;                                        ///< a sound; nothing: cancelled
  std::function<bool(const std::filesystem::path&)> openPage; ///< in the browser
};

/// The two questions by the toolkit's file dialog.
DesignFiles designFileDialogs();

} // namespace hearthbook
