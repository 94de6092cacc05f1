// Puts a family's photographs into an album and exports it as the program does:
//     export_family FAMILY SAMPLES FOLDER
// The album "Our Family" has music, "Quiet" has none, "Empty" has nothing at all, and one has a
// name that is hard to write in an address.
#include "AlbumExport.h"
#include "AlbumFolder.h"
#include "Decode.h"
#include "Encode.h"
#include "FileBytes.h"
#include "NamesCords.h"
#include "NamesInPhoto.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace hearthbook::test {

namespace {

namespace fs = std::filesystem;

constexpr double markedSide = 5760;

std::vector<std::string> split(const std::string& text, char at) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, at);)
    parts.push_back(part);
  return parts;
}

/// A tone so long that it still plays when a slow browser is asked whether it does.
std::string tone() {
  constexpr int rate = 8000;
  constexpr int samples = 300 * rate;
  std::string wave("RIFF");
  const auto put = [&wave](unsigned value, int bytes) {
    for (int i = 0; i < bytes; ++i)
      wave += static_cast<char>(value >> 8 * i & 0xff);
  };
  put(36 + samples, 4);
  wave += "WAVEfmt ";
  put(16, 4);
  put(1, 2);
  put(1, 2);
  put(rate, 4);
  put(rate, 4);
  put(1, 2);
  put(8, 2);
  wave += "data";
  put(samples, 4);
  for (int i = 0; i < samples; ++i)
    wave += static_cast<char>(i / 10 % 2 ? 140 : 116);
  return wave;
}

class Family {
public:
  explicit Family(fs::path samples) : samples_(std::move(samples)) { folder_.open(); }

  void addPhoto(const std::string& line) {
    std::vector<std::string> told = split(line, '|');
    told.resize(7);
    std::ostringstream id;
    id << "HD0" << 1000 + photos_.size();
    photos_.push_back(id.str());
    AlbumFolder::Fields fields{{"EventID", number(events_, told[2], &AlbumFolder::addEvent)},
                               {"PlaceID", number(places_, told[3], &AlbumFolder::addPlace)}};
    if (!told[1].empty())
      fields["Year"] = std::stoi(told[1]);
    if (!told[6].empty())
      fields["Description"] = told[6];
    name(fields, told[0], split(told[4], ','));
    folder_.addRow("PhotoAlbum", fields);
    writeFiles(told[0], told[5]);
  }

  void exportAlbum(const char* name, std::size_t count, bool music, const fs::path& base) {
    folder_.addRow("SubAlbums", {{"albumName", name}});
    const std::int64_t albumId = newest("SubAlbums", "AlbumID");
    for (std::size_t i = 0; i < count; ++i)
      folder_.addRow(
          "SubAlbumPhotos",
          {{"AlbumID", albumId}, {"PhotoID", photos_[i]}, {"Index", static_cast<int>(i)}});
    if (music)
      writeBytes(folder_.at("Audio/A" + std::to_string(albumId) + ".wav"), tone());
    ExportRequest request;
    request.albumId = albumId;
    request.albumName = name;
    request.base = base;
    WorkPool pool;
    if (!exportSubAlbum(folder_.album(), pool, request))
      throw std::runtime_error("nothing was exported");
  }

  void takeTemplate(const fs::path& staged) {
    fs::create_directories(folder_.at("export"));
    fs::copy(staged / "export/template", folder_.at("export/template"),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  }

private:
  using Add = std::int64_t (AlbumFolder::*)(const std::string&);

  std::int64_t number(std::map<std::string, std::int64_t>& known, const std::string& text,
                      Add add) {
    const auto found = known.find(text);
    if (found != known.end())
      return found->second;
    return known[text] = (folder_.*add)(text);
  }

  std::int64_t personOf(const std::string& name) {
    const auto found = people_.find(name);
    if (found != people_.end())
      return found->second;
    // As in an album that has seen a thousand people.
    folder_.addRow("Appearances", {{"AppearancesID", 996 + static_cast<int>(people_.size())},
                                   {"AppearancesNames", name}});
    return people_[name] = newest("Appearances", "AppearancesID");
  }

  /// The persons, and a marker for each in the middle of the face.
  void name(AlbumFolder::Fields& fields, const std::string& file,
            const std::vector<std::string>& names) {
    fields["PictureID"] = photos_.back();
    std::string inPhoto;
    std::string cords;
    for (const std::string& name : names) {
      const std::int64_t id = personOf(name);
      inPhoto += personKey(id) + ",";
      cords = withMarker(cords, id, faceOf(file, name));
    }
    if (inPhoto.empty())
      return;
    fields["NamesInPhoto"] = inPhoto;
    fields["NamesCords"] = cords;
  }

  [[nodiscard]] TwipsPoint faceOf(const std::string& file, const std::string& name) const {
    const PixelSize size = readPictureInfo(samples_ / file).size;
    const double scale = markedSide / std::max(size.width, size.height);
    std::ifstream faces(HEARTHBOOK_FACES);
    for (std::string line; std::getline(faces, line);) {
      std::istringstream words(line);
      std::string ofFile;
      std::string ofName;
      TwipsPoint place;
      if (words >> ofFile >> ofName >> place.x >> place.y && ofFile == file && ofName == name)
        return {place.x * scale, place.y * scale};
    }
    throw std::runtime_error("no face of " + name + " in " + file);
  }

  void writeFiles(const std::string& file, const std::string& soundExtension) {
    const std::string stem = photos_.back().substr(2);
    if (fs::exists(samples_ / file)) {
      fs::copy_file(samples_ / file, folder_.at("Photos/" + stem + ".jpg"));
      std::ofstream out(folder_.at("Thumbnails/" + stem + ".jpg"), std::ios::binary);
      hearthbook::writeJpeg(out, decodePictureWithin(samples_ / file, 73).picture, thumbnailFactor);
    }
    if (!soundExtension.empty())
      writeBytes(folder_.at("Audio/" + stem + soundExtension),
                 soundExtension == ".MID" ? "MThd" : tone());
  }

  std::int64_t newest(const std::string& table, const std::string& key) {
    Recordset rows(folder_.album().data.AlbumDB);
    rows.Open("SELECT * FROM " + table + " ORDER BY " + key);
    rows.MoveLast();
    return rows.Collect(key).toInteger();
  }

  AlbumFolder folder_;
  fs::path samples_;
  std::vector<std::string> photos_;
  std::map<std::string, std::int64_t> events_;
  std::map<std::string, std::int64_t> places_;
  std::map<std::string, std::int64_t> people_;
};

void exportFamily(const fs::path& description, const fs::path& samples, const fs::path& target) {
  Family family(samples);
  family.takeTemplate(samples.parent_path() / "application");
  std::size_t count = 0;
  std::ifstream lines(description);
  for (std::string line; std::getline(lines, line);)
    if (!line.empty() && line[0] != '#') {
      family.addPhoto(line);
      ++count;
    }
  fs::remove_all(target);
  fs::create_directories(target);
  family.exportAlbum("Our Family", count, true, target);
  family.exportAlbum("Quiet", 1, false, target);
  family.exportAlbum("Empty", 0, false, target);
  family.exportAlbum("Été à Évian: #1 & 'mehr'", 4, true, target);
}

} // namespace

} // namespace hearthbook::test

int main(int argc, char** argv) {
  if (argc != 4)
    return 2;
  try {
    hearthbook::test::exportFamily(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
