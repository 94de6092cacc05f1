#pragma once

#include "ExportPages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace hearthbook {

/// What the scripts of the exported pages know of the photos: their sounds, and what the side pages
/// tell, for the print. From a disk a browser lets no page read another, but every page may load
/// a script.
class PhotoScript {
public:
  /// The page's texts as they are shown; its sound only where the file went along.
  void add(const SidePage& page, const NameOfPerson& nameOf);

  /// The whole script. `music` is the album's own sound in the folder audio; empty without one.
  [[nodiscard]] std::string text(std::string_view music) const;

private:
  std::string photos_;
};

/// The text as JavaScript writes it, between quotation marks.
std::string scriptText(std::string_view text);

} // namespace hearthbook
