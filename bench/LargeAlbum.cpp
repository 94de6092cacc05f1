#include "LargeAlbum.h"

#include "Connection.h"
#include "Recordset.h"
#include "TextFunctions.h"

#include <sqlite3.h>

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <stdexcept>

namespace hearthbook::bench {

namespace {

namespace fs = std::filesystem;

class Maker {
public:
  Photo photo(int number) {
    Photo made;
    made.PictureID = numbered("HD%05d", number);
    made.Year = maybe(90, 1950 + below(75));
    made.PlaceID = maybe(80, 1 + below(120));
    made.EventID = maybe(60, 1 + below(40));
    addPeople(made);
    if (below(100) < 50)
      made.Description = description();
    return made;
  }

private:
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  std::optional<std::int64_t> maybe(int percent, int number) {
    return below(100) < percent ? std::optional<std::int64_t>(number) : std::nullopt;
  }

  static std::string numbered(const char* format, int number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
  }

  void addPeople(Photo& photo) {
    std::string names;
    std::string places;
    for (int people = below(6); people > 0; --people) {
      const std::string id = numbered("%03d", 1 + below(200));
      names += id + ",";
      places += id + "-" + numbered("%04d", below(5760)) + "X" + numbered("%04d,", below(5760));
    }
    if (!names.empty()) {
      photo.NamesInPhoto = names;
      photo.NamesCords = places;
    }
  }

  std::string description() {
    static constexpr std::array words{"Birthday", "by",    "the",     "lake",   "with",
                                      "Émile",    "and",   "grandma", "summer", "garden,",
                                      "first",    "snow.", "Our",     "house",  "am See"};
    std::string text;
    for (int count = 6 + below(20); count > 0; --count)
      text += std::string(words[static_cast<std::size_t>(below(words.size()))]) + " ";
    return text;
  }

  std::mt19937 random_{1};
};

struct Folder {
  Folder() {
    std::string pattern = (fs::temp_directory_path() / "hearthbook-bench-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
      throw std::runtime_error("cannot make a temporary folder");
    path = pattern;
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  fs::path path;
};

void makeTables(const fs::path& file) {
  sqlite3* database = nullptr;
  sqlite3_open(file.c_str(), &database);
  registerTextFunctions(database);
  sqlite3_exec(database,
               "CREATE TABLE PhotoAlbum(RowKey INTEGER PRIMARY KEY, PictureID TEXT NOT NULL UNIQUE "
               "COLLATE NOCASE, Year INTEGER, PlaceID INTEGER, EventID INTEGER, NamesInPhoto TEXT, "
               "NamesCords TEXT, Description TEXT COLLATE HEARTHBOOK_TEXT)",
               nullptr, nullptr, nullptr);
  sqlite3_close(database);
}

template <typename Field> Value valueOf(const std::optional<Field>& field) {
  return field ? Value(*field) : Value();
}

void fill(Recordset& rows, const std::vector<Photo>& photos) {
  for (const Photo& photo : photos)
    rows.AddNew(
        {"PictureID", "Year", "PlaceID", "EventID", "NamesInPhoto", "NamesCords", "Description"},
        {photo.PictureID, valueOf(photo.Year), valueOf(photo.PlaceID), valueOf(photo.EventID),
         valueOf(photo.NamesInPhoto), valueOf(photo.NamesCords), valueOf(photo.Description)});
}

fs::path make(const fs::path& folder, int count) {
  fs::path file = folder / (std::to_string(count) + ".mdb");
  makeTables(file);
  Connection connection;
  connection.Open(file);
  Recordset rows(connection);
  rows.Open("PhotoAlbum");
  connection.transaction([&] { fill(rows, manyPhotos(count)); });
  return file;
}

} // namespace

std::vector<Photo> manyPhotos(int count) {
  Maker maker;
  std::vector<Photo> photos;
  for (int number = 1; number <= count; ++number)
    photos.push_back(maker.photo(number));
  return photos;
}

std::size_t bytesOf(const std::vector<Photo>& photos) {
  std::size_t bytes = 0;
  for (const Photo& photo : photos) {
    bytes += photo.PictureID.size();
    for (const auto& number : {photo.Year, photo.PlaceID, photo.EventID})
      bytes += number ? sizeof *number : 0;
    for (const auto& text : {photo.NamesInPhoto, photo.NamesCords, photo.Description})
      bytes += text ? text->size() : 0;
  }
  return bytes;
}

const fs::path& largeAlbum(int count) {
  static const Folder folder;
  static std::map<int, fs::path> albums;
  auto& album = albums[count];
  if (album.empty())
    album = make(folder.path, count);
  return album;
}

} // namespace hearthbook::bench
