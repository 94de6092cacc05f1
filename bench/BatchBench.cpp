#include "BatchUpdate.h"
#include "Connection.h"
#include "LargeAlbum.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr int many = 100'000;
constexpr int chosen = 5'000;

/// A result of the whole album, in which every second photo of the first pages is selected.
class SearchedAlbum {
public:
  SearchedAlbum() : file_(largeAlbum(many).string() + "-batch") {
    std::filesystem::copy_file(largeAlbum(many), file_);
    connection.Open(file_);
    result.Open("SELECT * FROM PhotoAlbum  ORDER BY Year, PictureID");
    for (int number = 0; number < chosen; ++number)
      positions.push_back(2 * number + 1);
  }
  ~SearchedAlbum() {
    connection.Close();
    std::filesystem::remove(file_);
  }
  SearchedAlbum(const SearchedAlbum&) = delete;
  SearchedAlbum& operator=(const SearchedAlbum&) = delete;

  Connection connection;
  Recordset result{connection};
  std::vector<std::int64_t> positions;

private:
  std::filesystem::path file_;
};

void updateOurs(benchmark::State& state) {
  SearchedAlbum album;
  int year = 1900;
  for (auto _ : state) {
    const BatchReport run =
        updatePhotos(album.result, album.positions,
                     {3, 5, ++year, "We were at the lake with everybody.", {7, 12, 150}});
    if (run.ids.size() != chosen)
      state.SkipWithError("not all photos were changed");
  }
}

/// What is known beforehand of a photo, so that only the writing is measured.
struct KnownPhoto {
  std::string id;
  std::string names;
};

std::vector<KnownPhoto> knownPhotos(SearchedAlbum& album) {
  std::vector<KnownPhoto> photos;
  for (const std::int64_t position : album.positions) {
    album.result.Move(position - 1, Recordset::Start::First);
    photos.push_back({album.result.Collect("PictureID").toText(),
                      withPeople(album.result.Collect("NamesInPhoto"), {7, 12, 150}).toText()});
  }
  return photos;
}

void bindText(sqlite3_stmt* statement, int place, const std::string& text) {
  sqlite3_bind_text(statement, place, text.c_str(), -1, SQLITE_STATIC);
}

void updateAll(sqlite3* database, const std::vector<KnownPhoto>& photos, int year) {
  sqlite3_stmt* update = nullptr;
  sqlite3_prepare_v2(database,
                     "UPDATE PhotoAlbum SET PlaceID = 3, EventID = 5, Year = ?1, Description = "
                     "'We were at the lake with everybody.', NamesInPhoto = ?2 "
                     "WHERE PictureID = ?3",
                     -1, &update, nullptr);
  sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  for (const KnownPhoto& photo : photos) {
    sqlite3_bind_int(update, 1, year);
    bindText(update, 2, photo.names);
    bindText(update, 3, photo.id);
    sqlite3_step(update);
    sqlite3_reset(update);
  }
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_finalize(update);
}

/// The same connection and settings.
void updateReference(benchmark::State& state) {
  SearchedAlbum album;
  const auto photos = knownPhotos(album);
  int year = 1900;
  for (auto _ : state)
    updateAll(album.connection.handle(), photos, ++year);
}

BENCHMARK(updateOurs)
    ->Name("batch update of 5,000 photos/ours")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseRealTime();
BENCHMARK(updateReference)
    ->Name("batch update of 5,000 photos/reference")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseRealTime();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
