#pragma once

#include "Album.h"
#include "Picture.h"
#include "WorkPool.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// Which sub-album goes out, where to and how.
struct ExportRequest {
  std::int64_t albumId = 0;
  std::string albumName;        ///< as the list shows it
  std::filesystem::path base;   ///< the folder in which the album's own folder is made
  std::size_t optimization = 0; ///< of optimizations()
  int previewSide = 0;          ///< show photos that are only copied this large; 0: not at all
};

/// How the one who asked follows the work; all but `wake` called on the album's thread.
struct ExportListener {
  std::function<void(std::int64_t number, std::int64_t count, const std::string& file)> atPhoto;
  std::function<void(const Picture&)> showing;
  /// What lies in the folder is no export of this album, and goes. Without an answer it stays.
  std::function<bool(const std::filesystem::path& folder, const std::vector<std::string>& names)>
      mayDelete;
  std::function<void(const std::function<bool()>& done)> wait; ///< until done() holds
  std::function<void()> wake; ///< from another thread: done() may hold now
};

/// What came of it.
struct ExportOutcome {
  struct Trouble {
    std::string file; ///< "00012.jpg", "A7.wav"
    std::string what; ///< "is missing"
    bool operator==(const Trouble&) const = default;
  };
  std::string name;                ///< of the exported album
  std::filesystem::path folder;    ///< that it lies in
  std::filesystem::path startPage; ///< to be opened in a browser
  std::vector<Trouble> troubles;   ///< the album's sound, then by photo
  std::int64_t markups = 0;        ///< photos with text that looks like markup
};

inline constexpr const char* noExportSource =
    "Sorry, can not export albums, export source not found!";

/// Writes a sub-album as a folder of pages, pictures and sounds, replacing what an earlier export
/// left there. Photos are decoded, reduced and encoded on `pool`. Nothing where what lies in the
/// folder was not to be deleted. A broken photo is told in the outcome; a target that cannot be
/// written to throws RunTimeError and leaves what is written by then.
std::optional<ExportOutcome> exportSubAlbum(const Album& album, WorkPool& pool,
                                            const ExportRequest& request,
                                            const ExportListener& listener = {});

} // namespace hearthbook
