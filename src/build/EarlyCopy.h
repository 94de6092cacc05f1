#pragma once

#include "FileStamp.h"
#include "SafeFile.h"

#include <filesystem>
#include <memory>

namespace hearthbook {

/// The copy of a source, made and flushed before its turn comes, so that the turn does not wait
/// for the disk.
class EarlyCopy {
public:
  /// None where it cannot be made now; the copy at its turn will tell why.
  static std::shared_ptr<EarlyCopy> make(const std::filesystem::path& source,
                                         const std::filesystem::path& folder) noexcept;

  EarlyCopy(const std::filesystem::path& source, const std::filesystem::path& folder);

  /// Takes its place. False if the source is no longer what was copied.
  bool place(const std::filesystem::path& source, const std::filesystem::path& target);

private:
  std::optional<FileStamp> stamp_; ///< of the source, before it was read
  StagedCopy copy_;
};

} // namespace hearthbook
