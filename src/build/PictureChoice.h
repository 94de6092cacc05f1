#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace hearthbook {

/// The files that can be added to the album.
inline constexpr std::string_view picturePattern = "*.jpg;*.bmp;*.tif;*.ico;*.png;*.pcx;*.tga";

/// What the command to add reads for a number of selected files; nothing changes it for none.
constexpr std::optional<std::string_view> insertCaption(std::size_t selected) {
  if (selected == 0)
    return std::nullopt;
  return selected == 1 ? "Insert Single" : "Insert Multiple";
}

} // namespace hearthbook
