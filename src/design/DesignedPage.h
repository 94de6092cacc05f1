#pragma once

#include "ApplicationFolder.h"
#include "Picture.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// A page as somebody has designed it.
struct DesignedPage {
  struct Text {
    std::string tag;
    std::string text;
  };
  struct Photo {
    std::string tag;
    Picture picture; ///< the region that was marked
    PixelSize size;  ///< of its box
  };

  std::string design;                         ///< its name
  std::vector<Text> texts;                    ///< of all its boxes, empty ones too
  std::vector<Photo> photos;                  ///< of those boxes that were given one
  std::filesystem::path background;           ///< tiles the page; none where it is empty
  std::optional<std::filesystem::path> music; ///< welcomes the visitor
};

/// The files of a design: "\export\templates\Wedding".
std::filesystem::path designFolder(const ApplicationFolder& folder, std::string_view design);

/// The picture with which the paper of pages is tiled: "\media\WaterMark2.gif".
std::filesystem::path paperPicture(const ApplicationFolder& folder);

/// The page that was made last, if one was: "\export\testing1\index.htm".
std::filesystem::path designedPageFile(const ApplicationFolder& folder);

/// The texts that a browser takes for markup, in part: they go into the page as they are.
std::vector<std::string> textsWithMarkup(const DesignedPage& page);

/// Makes the page in the folder "\export\testing1" and tells its file: the design's folder is
/// copied, the tokens of the page's text become what was written, photos are saved by their tags. A
/// box without a photo keeps the design's own picture. What an earlier page of another design has
/// left there goes; files of nobody's design stay. Throws RunTimeError, and then the page before is
/// whole.
std::filesystem::path writeDesignedPage(const ApplicationFolder& folder, const DesignedPage& page);

} // namespace hearthbook
