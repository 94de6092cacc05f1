#pragma once

#include "Album.h"

#include <QLockFile>

#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <string>

namespace hearthbook {

/// What of a start needs no window: taking the album's folder for this process, checking and
/// reading the album, reading the machine's list of fonts. To be made before the QApplication:
/// while the toolkit gets ready, other threads are at work.
///
/// Nothing is told to the user here. The album belongs to another thread until the answer of
/// takeOpening() has been fetched.
class EarlyStart {
public:
  /// In the album folder of a program file, as ApplicationFolder::forProgram() finds it.
  EarlyStart(const std::filesystem::path& programFile, const std::filesystem::path& userFolder);
  explicit EarlyStart(const ApplicationFolder& folder) { begin(folder); }

  /// Why there is no album folder; empty where there is one. Without one nothing was begun.
  [[nodiscard]] const std::string& failure() const { return failure_; }

  [[nodiscard]] Album& album() { return *album_; }
  /// Locked where this process has the album.
  std::unique_ptr<QLockFile> takeLock() { return std::move(lock_); }
  /// The outcome of openAlbumThatIsThere(); not valid where another process has the album.
  std::future<bool> takeOpening() { return std::move(opening_); }
  /// Before the first text is laid out, which would else read the fonts a second time.
  void awaitFonts() { fonts_.wait(); }

private:
  void begin(const ApplicationFolder& folder);

  std::string failure_;
  std::optional<Album> album_;
  std::unique_ptr<QLockFile> lock_;
  std::future<bool> opening_; ///< behind the album: it waits as it goes
  std::future<void> fonts_;
};

} // namespace hearthbook
