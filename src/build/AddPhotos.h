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
  Picture preview; ///< what the preview shows at the start; stands in for a file that fails
};

/// How the form follows the work; all but `wake` called on the album's thread.
struct AddPhotosListener {
  std::function<void(int index)> atIndex;      ///< bar value
  std::function<void(const Picture&)> showing; ///< preview follows
  std::function<void(const std::filesystem::path& source, const std::exception& cause)> failed;
  /// A file of the album that had to be written over, and where its bytes are kept.
  std::function<void(const std::filesystem::path& original, const std::filesystem::path& keptAs)>
      kept;
  std::function<void(const std::function<bool()>& done)> wait; ///< until done() holds
  /// From another thread: done() may hold now. May come at any time, even behind the end.
  std::function<void()> wake;
};

/// Adds the selected files to the album, one after the other: row, thumbnail, photo,
/// reduction, removal of the source. A failed step is told and the next step follows, on the
/// picture of the file before. Pictures are decoded ahead on `pool`. Returns the number of files
/// gone through.
///
/// A source ending in "jpg" or "JPG" is copied byte for byte, any other is encoded. A moved
/// source is deleted only when its bytes are in the album and on the disk; where the album holds
/// its picture in other bytes it goes to the trash; where it holds neither, or the source is
/// itself a file of the album, it stays. A file of the album that is in the way of a new one is
/// first copied into Backup.
int addPhotos(Album& album, WorkPool& pool, const AddPhotosRequest& request,
              const AddPhotosListener& listener);

} // namespace hearthbook
