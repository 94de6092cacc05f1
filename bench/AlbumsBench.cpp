#include "Connection.h"
#include "LargeAlbum.h"
#include "PhotoOrder.h"
#include "SubAlbums.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr int inAlbum = 10'000;
constexpr int inMembers = 10'000;
constexpr int added = 5'000;

/// An album with a sub-album of its first photos.
class ArrangedAlbum {
public:
  explicit ArrangedAlbum(int members) : file_(largeAlbum(inAlbum).string() + "-albums") {
    std::filesystem::copy_file(largeAlbum(inAlbum), file_,
                               std::filesystem::copy_options::overwrite_existing);
    connection.Open(file_);
    connection.execute("CREATE TABLE SubAlbumPhotos (RowKey INTEGER PRIMARY KEY, AlbumID INTEGER "
                       "NOT NULL, PhotoID TEXT NOT NULL COLLATE NOCASE, [Index] INTEGER)");
    connection.execute("CREATE INDEX SubAlbumPhotosByPhoto ON SubAlbumPhotos (PhotoID)");
    connection.execute("CREATE INDEX SubAlbumPhotosByAlbum ON SubAlbumPhotos (AlbumID)");
    connection.execute("CREATE TABLE IF NOT EXISTS Places (PlaceID INTEGER PRIMARY KEY, PlaceName "
                       "TEXT COLLATE HEARTHBOOK_TEXT)");
    connection.execute("CREATE TABLE IF NOT EXISTS Events (EventID INTEGER PRIMARY KEY, EventName "
                       "TEXT COLLATE HEARTHBOOK_TEXT)");
    Recordset photos(connection);
    photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
    for (; !photos.atEOF(); photos.MoveNext())
      ids.push_back(photos.Collect("PictureID").toText());
    connection.transaction([&] {
      for (int index = 0; index < members; ++index)
        connection.execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (1, '" +
                           ids.at(static_cast<std::size_t>(index)) + "', " + std::to_string(index) +
                           ")");
    });
    rows.Open(stripQuery("1"));
  }
  ~ArrangedAlbum() {
    connection.Close();
    std::filesystem::remove(file_);
  }
  ArrangedAlbum(const ArrangedAlbum&) = delete;
  ArrangedAlbum& operator=(const ArrangedAlbum&) = delete;

  Connection connection;
  Recordset rows{connection};
  std::vector<std::string> ids;

private:
  std::filesystem::path file_;
};

void run(sqlite3* database, const char* statement) {
  sqlite3_exec(database, statement, nullptr, nullptr, nullptr);
}

/// One prepared statement for all ids in one transaction: the id first, its number second.
void runForAll(benchmark::State& state, ArrangedAlbum& album, const char* text, int count,
               bool backwards) {
  sqlite3* database = album.connection.handle();
  run(database, "BEGIN");
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, text, -1, &statement, nullptr) != SQLITE_OK)
    state.SkipWithError(sqlite3_errmsg(database));
  for (int index = 0; index < count; ++index) {
    const auto at = static_cast<std::size_t>(backwards ? count - 1 - index : index);
    const std::string& id = album.ids.at(at);
    sqlite3_bind_text(statement, 1, id.c_str(), static_cast<int>(id.size()), SQLITE_STATIC);
    sqlite3_bind_int(statement, 2, index);
    sqlite3_step(statement);
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
  run(database, "COMMIT");
}

void writeOrderOurs(benchmark::State& state) {
  ArrangedAlbum album(inMembers);
  PhotoOrder order;
  order.read(album.rows);
  for (auto _ : state) {
    order.move(0, inMembers - 1);
    order.writeBack(album.rows);
  }
}

void writeOrderReference(benchmark::State& state) {
  ArrangedAlbum album(inMembers);
  bool backwards = false;
  for (auto _ : state)
    runForAll(state, album, "UPDATE SubAlbumPhotos SET [Index] = ?2 WHERE PhotoID = ?1", inMembers,
              backwards = !backwards);
}

void addOurs(benchmark::State& state) {
  ArrangedAlbum album(0);
  const std::vector<std::string> ids(album.ids.begin(), album.ids.begin() + added);
  for (auto _ : state) {
    state.PauseTiming();
    album.connection.execute("DELETE FROM SubAlbumPhotos");
    album.rows.Requery();
    state.ResumeTiming();
    addMembers(album.rows, "1", ids);
  }
}

void addReference(benchmark::State& state) {
  ArrangedAlbum album(0);
  for (auto _ : state) {
    state.PauseTiming();
    album.connection.execute("DELETE FROM SubAlbumPhotos");
    state.ResumeTiming();
    runForAll(state, album,
              "INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (1, ?1, ?2)", added,
              false);
  }
}

void openStrip(benchmark::State& state) {
  ArrangedAlbum album(inMembers);
  PhotoOrder order;
  for (auto _ : state) {
    album.rows.Open(stripQuery("1"));
    order.read(album.rows);
  }
}

void pairUp() {
  const auto unit = benchmark::kMillisecond;
  benchmark::RegisterBenchmark("order of 10,000 written/ours", writeOrderOurs)
      ->Unit(unit)
      ->UseRealTime();
  benchmark::RegisterBenchmark("order of 10,000 written/reference", writeOrderReference)
      ->Unit(unit)
      ->UseRealTime();
  benchmark::RegisterBenchmark("add 5,000 to a sub-album/ours", addOurs)->Unit(unit)->UseRealTime();
  benchmark::RegisterBenchmark("add 5,000 to a sub-album/reference", addReference)
      ->Unit(unit)
      ->UseRealTime();
  benchmark::RegisterBenchmark("order of 10,000 read", openStrip)->Unit(unit)->UseRealTime();
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  hearthbook::bench::pairUp();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
