#pragma once

#include "AlbumExport.h"
#include "AlbumFixture.h"
#include "Decode.h"
#include "ExportPages.h"
#include "FileBytes.h"
#include "TestPictures.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook::test {

/// The least that a template must hold; the program's own has more, and looks better.
inline void writeTemplate(const std::filesystem::path& folder) {
  writeBytes(folder / "master.htm", "<html><head><title>^^varTitle^^</title></head><body>\r\n"
                                    "<h1>^^varTitle^^</h1><table>^^varThumbs^^</table>"
                                    "<bgsound src=\"audio/^^audio^^\"></body></html>\r\n");
  writeBytes(folder / "frameset.htm", "<html><frameset></frameset></html>");
  writeBytes(folder / "Autorun.exe", "MZ");
  writeBytes(folder / "html/rightctrl.htm", "<script>var pages=^^numPage^^;</script>^^numPage^^");
  writeBytes(folder / "html/leftctrl.htm", "<html></html>");
  for (const char* picture : {"marker.gif", "watermark2.gif", "paperline.gif", "paper.jpg"})
    writeBytes(folder / "html" / picture, "GIF89a");
}

/// An album with sub-albums, a template, and a folder to export to.
class ExportFixture : public AlbumFixture {
protected:
  ExportFixture() {
    std::filesystem::remove_all(at("export"));
    writeTemplate(at("export/template"));
    std::filesystem::create_directories(base_);
    request_.base = base_;
  }

  std::int64_t addSubAlbum(const std::string& name, const std::vector<std::string>& photos = {}) {
    folder_.addRow("SubAlbums", {{"albumName", name}});
    data().rsSubAlbums.Requery();
    Recordset last(data().AlbumDB);
    last.Open("SELECT * FROM SubAlbums ORDER BY AlbumID");
    last.MoveLast();
    request_.albumId = last.Collect("AlbumID").toInteger();
    request_.albumName = name;
    int index = 0;
    for (const auto& photo : photos)
      folder_.addRow("SubAlbumPhotos",
                     {{"AlbumID", request_.albumId}, {"PhotoID", photo}, {"Index", index++}});
    return request_.albumId;
  }

  /// A sub-album of so many photos, HD00002 and on.
  void addTrip(int photos, const std::string& name = "Trip") {
    std::vector<std::string> ids;
    for (int i = 0; i < photos; ++i) {
      ids.push_back("HD" + std::string(i < 8 ? "0000" : "000") + std::to_string(i + 2));
      folder_.addPhoto(ids.back());
    }
    addSubAlbum(name, ids);
  }

  ExportOutcome exportAlbum() {
    auto outcome = exportSubAlbum(album(), pool_, request_, listener_);
    EXPECT_TRUE(outcome.has_value());
    return outcome.value_or(ExportOutcome{});
  }

  void copyTemplateTo(const std::string& relative) {
    std::filesystem::copy(at("export/template"), out(relative),
                          std::filesystem::copy_options::recursive);
  }

  [[nodiscard]] std::filesystem::path out(const std::string& relative) const {
    return base_ / relative;
  }
  [[nodiscard]] std::string page(const std::string& relative) const {
    return readBytes(out(relative));
  }
  [[nodiscard]] bool isThere(const std::string& relative) const {
    return std::filesystem::exists(out(relative));
  }
  [[nodiscard]] PixelSize sizeOf(const std::string& relative) const {
    return readPictureInfo(out(relative)).size;
  }

  std::filesystem::path base_ = folder_.root().parent_path() / "stick";
  WorkPool pool_{2};
  ExportRequest request_;
  ExportListener listener_;
};

} // namespace hearthbook::test
