#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>

namespace hearthbook {

/// Writes a file so that at any instant the disk holds either the old file or the new one,
/// whole: a temporary name in the same folder, flush, rename, flush of the folder. If `write`
/// throws or the disk is full the old file stays and no temporary file is left.
/// `beforePlacing` runs when only the renaming is left to do: it may put the old file away.
/// Throws RunTimeError, with the file and the cause in its text.
void replaceFile(const std::filesystem::path& target,
                 const std::function<void(std::ostream&)>& write,
                 const std::function<void()>& beforePlacing = {});

/// Copies the bytes of `source` to `target` in the same manner.
void copyFileSafely(const std::filesystem::path& source, const std::filesystem::path& target);

class PartFile;

/// A copy made ahead in the folder where it will stand, flushed, under a temporary name. It is
/// gone with this object unless it has taken its place.
class StagedCopy {
public:
  StagedCopy(const std::filesystem::path& source, const std::filesystem::path& folder);
  ~StagedCopy();
  StagedCopy(const StagedCopy&) = delete;
  StagedCopy& operator=(const StagedCopy&) = delete;

  /// Takes its place, which is in the folder, or throws RunTimeError.
  void place(const std::filesystem::path& target);

private:
  std::unique_ptr<PartFile> part_;
};

/// The folder in which the file lies, the present one for a bare name.
std::filesystem::path folderOf(const std::filesystem::path& file);

/// Deletes the file; flushes the folder. Throws if it is there and cannot be deleted.
void deleteFile(const std::filesystem::path& file);

/// Flushes a file, or a folder's entries, to the disk.
void flushToDisk(const std::filesystem::path& fileOrFolder);

/// Removes what writes cut short by a kill have left in the folder.
void removeLeftovers(const std::filesystem::path& folder);

} // namespace hearthbook
