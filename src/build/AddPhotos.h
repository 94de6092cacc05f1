#pragma once

#include "Album.h"
#include "Picture.h"
#include "WorkPool.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace hearthbook {

/// What Add From File is asked to do.
struct AddPhotosRequest {
  std::vector<std::filesystem::path> list; ///< every file of the list shown, in its order
  std::vector<bool> selected;              ///< which of them to add
  bool move = false;                       ///< remove each source once its copy is on the disk
  bool reduce = false;                     ///< re-encode photos over 300000 bytes
};

/// How the form follows the work; all called on the album's thread.
struct AddPhotosListener {
  std::function<void(int index)> atIndex;      ///< bar value
  std::function<void(const Picture&)> showing; ///< preview follows
  std::function<void(const std::filesystem::path& source, const std::exception& cause)> failed;
  std::function<void(const std::function<bool()>& done)> wait; ///< until done() holds
};

/// Adds the selected files to the album, one after the other: row, thumbnail, photo,
/// reduction, removal of the source. A failed step is told and the next step follows.
/// Pictures are decoded ahead on `pool`. Returns the number of files gone through.
int addPhotos(Album& album, WorkPool& pool, const AddPhotosRequest& request,
              const AddPhotosListener& listener);

} // namespace hearthbook
