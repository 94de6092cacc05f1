#pragma once

#include "ExportPages.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hearthbook {

/// What the scripts know of the album itself.
struct ScriptedAlbum {
  std::int64_t id = 0;
  std::int64_t photos = 0; ///< how many, those without a page too
  std::string music;       ///< its own sound in the folder audio; empty without one
};

/// The number of the album for which a script was written; nothing where it does not tell.
std::optional<std::int64_t> albumOfScript(std::string_view script);

/// What the scripts of the exported pages know of the photos: their sounds, and what the side pages
/// tell, for the print. From a disk a browser lets no page read another, but every page may load
/// a script.
class PhotoScript {
public:
  /// The page's texts as they are shown; its sound only where the file went along.
  void add(const SidePage& page, const NameOfPerson& nameOf);

  /// The whole script.
  [[nodiscard]] std::string text(const ScriptedAlbum& album) const;

private:
  std::string photos_;
};

/// The text as JavaScript writes it, between quotation marks.
std::string scriptText(std::string_view text);

} // namespace hearthbook
