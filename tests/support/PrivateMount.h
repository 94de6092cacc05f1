#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace hearthbook::test {

/// True if this process may mount file systems that only it and its children see. Ask first,
/// and skip the test where the machine does not allow it.
bool canMountPrivately();

/// A folder that cannot be written to, not even by root, while this lives.
class ReadOnlyMount {
public:
  explicit ReadOnlyMount(const std::filesystem::path& folder);
  ~ReadOnlyMount();
  ReadOnlyMount(const ReadOnlyMount&) = delete;
  ReadOnlyMount& operator=(const ReadOnlyMount&) = delete;

private:
  std::filesystem::path folder_;
};

/// An empty file system of its own, of so many bytes, on a folder.
class SmallDisk {
public:
  SmallDisk(const std::filesystem::path& folder, std::size_t bytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// Fills what is left but for about so many bytes.
  void fillUpTo(std::size_t bytesLeft) const;
  void makeRoom() const;

private:
  std::filesystem::path folder_;
};

} // namespace hearthbook::test
