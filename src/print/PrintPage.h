#pragma once

#include "Picture.h"
#include "Twips.h"

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace hearthbook {

// What a form shows now, for the printer: pictures, their present places on its stage, texts.

struct PagePicture {
  TwipsRect place;
  std::filesystem::path file; ///< the picture on the screen; its pixels are printed anew
  Picture shown;              ///< as it is on the screen
};

/// One photo, from the record editor or the zoom view.
struct SinglePrint {
  enum class From { Editor, Zoom };
  From from = From::Editor;
  std::string heading; ///< empty where the form shows no record
  std::optional<PagePicture> photo;
  std::vector<std::string> names;
};

/// One filled place of an album page.
struct AlbumPrintCell {
  int place = 0; ///< 0 to 3
  PagePicture photo;
  double infoWidth = 0; ///< of the panel beside the photo
  TwipsSize gridSize;   ///< of the grid of names
  Picture grid;
  bool hasMoreNames = false; ///< than the grid shows at once
  std::string caption;
};

/// A page of four photos with what is known of them.
struct AlbumPrint {
  std::vector<AlbumPrintCell> cells;
};

/// A page of thumbnails.
struct ContactPrint {
  struct Cell {
    int place = 0; ///< 0 to 23
    PagePicture thumbnail;
  };
  std::vector<Cell> cells;
};

using PrintPage = std::variant<SinglePrint, AlbumPrint, ContactPrint>;

/// "1987, Wedding in Lake": what stands over a single photo.
inline std::string printHeading(const std::string& year, const std::string& eventAndPlace) {
  return year + ", " + eventAndPlace;
}

} // namespace hearthbook
