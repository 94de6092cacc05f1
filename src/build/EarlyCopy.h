#pragma once

#include "FileStamp.h"
#include "SafeFile.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace hearthbook {

/// The copy of a source, made and flushed before its turn comes, so that the turn does not wait
/// for the disk.
class EarlyCopy {
public:
  /// On a disk with less room than that, the photo whose turn it is comes first.
  static constexpr std::uintmax_t plentyOfRoom = std::uintmax_t{512} << 20;

  /// None where it cannot be made now; the copy at its turn will tell why. None either where
  /// less than `roomToLeave` would be left on the disk.
  static std::shared_ptr<EarlyCopy> make(const std::filesystem::path& source,
                                         const std::filesystem::path& folder,
                                         std::uintmax_t roomToLeave = plentyOfRoom) noexcept;

  EarlyCopy(const std::filesystem::path& source, const std::filesystem::path& folder);

  /// Takes its place. False if the source is no longer what was copied.
  bool place(const std::filesystem::path& source, const std::filesystem::path& target);

private:
  std::optional<FileStamp> stamp_; ///< of the source, before it was read
  StagedCopy copy_;
};

} // namespace hearthbook
