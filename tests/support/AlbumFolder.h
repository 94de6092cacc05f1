#pragma once

#include "Album.h"
#include "FakeDrives.h"
#include "ScopedVariable.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace hearthbook::test {

/// A real application folder in a temporary place, as an installation leaves it: both databases
/// (the album with the photo HD00001), the program's pictures and the folders of an album. The
/// desktop's trash is in `trash()`, and no drive of this machine is seen.
class AlbumFolder {
public:
  using Fields = std::map<std::string, Value>;

  AlbumFolder();

  /// The album of this folder; its record sets are open after open().
  [[nodiscard]] Album& album() { return *album_; }
  void open();
  void close(); ///< writes, closes, and gives a new album, as a next start would

  [[nodiscard]] const std::filesystem::path& root() const { return root_; }
  /// "Photos/00012.jpg" below the folder.
  [[nodiscard]] std::filesystem::path at(const std::string& relative) const;
  [[nodiscard]] std::filesystem::path trash() const;
  [[nodiscard]] FakeDrives& drives() { return drives_; }

  /// Adds a row and, for "HD" ids, a photo and a thumbnail; reads the photos again if open.
  void addPhoto(const std::string& id, const Fields& fields = {});
  void addRow(const std::string& table, const Fields& fields);
  std::int64_t addPlace(const std::string& name);
  std::int64_t addEvent(const std::string& name);
  std::int64_t addPerson(const std::string& name, std::int64_t relationId = 0);

private:
  std::int64_t addNamed(const std::string& table, const std::string& key, const Fields& fields,
                        Recordset& shared);

  TemporaryFolder folder_;
  ScopedVariable dataHome_;
  FakeDrives drives_;
  std::filesystem::path root_;
  std::unique_ptr<Album> album_;
};

/// A JPEG of one colour, for where only its being a picture counts.
void writeJpeg(const std::filesystem::path& file, int width = 64, int height = 48,
               unsigned colour = 0x8090A0);

} // namespace hearthbook::test
