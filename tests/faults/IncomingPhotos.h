#pragma once

#include "AddPhotos.h"

#include <filesystem>
#include <map>
#include <string>

namespace hearthbook::test {

/// Photos that wait in a folder of the album's own disk to be added: one that the album keeps
/// byte for byte, one that it has to convert, and one that it has to reduce.
class IncomingPhotos {
public:
  /// Puts them into `root`/incoming.
  explicit IncomingPhotos(const std::filesystem::path& root);

  /// Adds them to the album in `root`; returns how many failures were told.
  int add(const std::filesystem::path& root, bool move) const;

  /// Each photo's bytes are still where they came from, or in the album or the trash.
  void expectNoneLost(const std::filesystem::path& root, const std::filesystem::path& trash) const;

  /// No picture in the album's folders is half there.
  static void expectWholePictures(const std::filesystem::path& root);

private:
  struct Incoming {
    std::string bytes;
    bool keptAsItIs = false; ///< the album holds these very bytes
  };

  std::map<std::string, Incoming> photos_; // by file name
};

} // namespace hearthbook::test
