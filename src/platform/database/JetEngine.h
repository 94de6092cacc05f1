#pragma once

#include <filesystem>

namespace hearthbook {

/// Compacts database files.
class JetEngine {
public:
  /// Writes a compacted copy of `source` to `destination`, which must not exist yet.
  ///
  /// The copy is made under a temporary name in the destination's folder, checked (quick
  /// check), flushed to the disk and only then renamed, so that the destination is either
  /// whole or absent. The source must not be open. Throws RunTimeError.
  void CompactDatabase(const std::filesystem::path& source,
                       const std::filesystem::path& destination) const;
};

} // namespace hearthbook
