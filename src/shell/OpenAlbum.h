#pragma once

#include "Album.h"

#include <functional>
#include <optional>
#include <string>

namespace hearthbook {

/// What the album pages need to know of the album that was opened.
struct OpenedAlbum {
  std::string caption;     ///< "Viewing Album: Lake"
  std::string tag;         ///< the album's id as text, "0" for the Master Album
  bool isSubAlbum = false; ///< may be edited as a sub-album

  bool operator==(const OpenedAlbum&) const = default;
};

/// Opens rsViewer on the photos of an album, 0 being the Master Album, whose name is not used.
/// `bar` follows with the values of the progress bar, 0 to 100. Nothing for a sub-album
/// without photos: no form is to be shown for that.
std::optional<OpenedAlbum> openAlbum(Album& album, int albumId, const std::string& name,
                                     const std::function<void(int)>& bar);

/// What the pages of a sub-album are called.
std::string captionOfPages(const std::string& albumName);

} // namespace hearthbook
