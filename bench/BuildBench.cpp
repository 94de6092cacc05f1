#include "Connection.h"
#include "LargeAlbum.h"
#include "NameList.h"
#include "Recordset.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr int many = 100'000;
constexpr int half = many / 2;

/// An album in which every second photo is of the place 1, "Lake".
class LakeAlbum {
public:
  LakeAlbum() : file_(largeAlbum(many).string() + "-lake") {
    std::filesystem::copy_file(largeAlbum(many), file_);
    connection.Open(file_);
    connection.execute("CREATE TABLE Places (PlaceID INTEGER PRIMARY KEY, PlaceName TEXT)");
    connection.execute("UPDATE PhotoAlbum SET PlaceID = 2");
  }
  ~LakeAlbum() {
    connection.Close();
    std::filesystem::remove(file_);
  }
  LakeAlbum(const LakeAlbum&) = delete;
  LakeAlbum& operator=(const LakeAlbum&) = delete;

  void holdLake() {
    connection.transaction([this] {
      connection.execute("INSERT INTO Places VALUES (1, 'Lake')");
      connection.execute("UPDATE PhotoAlbum SET PlaceID = 1 WHERE RowKey % 2 = 0");
    });
  }

  Connection connection;

private:
  std::filesystem::path file_;
};

void deletePlaceOurs(benchmark::State& state) {
  LakeAlbum album;
  Recordset photos(album.connection);
  Recordset places(album.connection);
  for (auto _ : state) {
    state.PauseTiming();
    album.holdLake();
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    places.Open("Select * From Places Order By PlaceName");
    photos.Move(half);
    state.ResumeTiming();
    removeListName(photos, places, placeWords, "Lake", 1);
  }
}

/// The same connection and settings: one statement, one transaction, on the disk.
void deletePlaceReference(benchmark::State& state) {
  LakeAlbum album;
  for (auto _ : state) {
    state.PauseTiming();
    album.holdLake();
    state.ResumeTiming();
    sqlite3_exec(album.connection.handle(),
                 "UPDATE PhotoAlbum SET PlaceID = NULL WHERE PlaceID = 1", nullptr, nullptr,
                 nullptr);
    state.PauseTiming();
    album.connection.execute("DELETE FROM Places");
    state.ResumeTiming();
  }
}

BENCHMARK(deletePlaceOurs)
    ->Name("build delete a place of 50,000 photos/ours")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseRealTime();
BENCHMARK(deletePlaceReference)
    ->Name("build delete a place of 50,000 photos/reference")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseRealTime();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
