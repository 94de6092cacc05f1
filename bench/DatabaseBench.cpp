#include "BareLoop.h"
#include "Connection.h"
#include "DatabaseMemory.h"
#include "LargeAlbum.h"
#include "Recordset.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cctype>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr const char* wholeAlbum = "SELECT * FROM PhotoAlbum ORDER BY PictureID";
constexpr int many = 100'000;

// Opening

void openOurs(benchmark::State& state) {
  Connection connection;
  connection.Open(largeAlbum(static_cast<int>(state.range(0))));
  Recordset photos(connection);
  for (auto _ : state) {
    photos.Open(wholeAlbum);
    benchmark::DoNotOptimize(photos.RecordCount());
  }
}

/// The same connection and settings.
void openReference(benchmark::State& state) {
  Connection connection;
  connection.Open(largeAlbum(static_cast<int>(state.range(0))));
  for (auto _ : state)
    readAll(connection, wholeAlbum);
}

BENCHMARK(openOurs)->Name("database open 10,000/ours")->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(openReference)
    ->Name("database open 10,000/reference")
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(openOurs)->Name("database open 100,000/ours")->Arg(many)->Unit(benchmark::kMillisecond);
BENCHMARK(openReference)
    ->Name("database open 100,000/reference")
    ->Arg(many)
    ->Unit(benchmark::kMillisecond);

// Opening the chosen photos of a search

constexpr int chosen = 5'000;

std::string idOf(int number) { return "'HD" + std::to_string(100'000 + number).substr(1) + "'"; }

void openChosenOurs(benchmark::State& state) {
  std::string select = "SELECT * From PhotoAlbum Where PictureID = Null";
  for (int i = 1; i <= chosen; ++i)
    select += " OR PictureID = " + idOf(i * 7);
  Connection connection;
  connection.Open(largeAlbum(many));
  Recordset photos(connection);
  for (auto _ : state) {
    photos.Open(select);
    benchmark::DoNotOptimize(photos.RecordCount());
  }
}

/// As one would word it for this database.
void openChosenReference(benchmark::State& state) {
  std::string select = "SELECT * FROM PhotoAlbum WHERE PictureID IN (''";
  for (int i = 1; i <= chosen; ++i)
    select += "," + idOf(i * 7);
  Connection connection;
  connection.Open(largeAlbum(many));
  for (auto _ : state)
    readAll(connection, select + ") ORDER BY PictureID");
}

BENCHMARK(openChosenOurs)->Name("database open 5,000 chosen/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(openChosenReference)
    ->Name("database open 5,000 chosen/reference")
    ->Unit(benchmark::kMillisecond);

// Find and Filter

class Opened {
public:
  Opened() : photos(connection) {
    connection.Open(largeAlbum(many));
    photos.Open(wholeAlbum);
  }

  Connection connection;
  Recordset photos;
};

void findOurs(benchmark::State& state, const char* criterion) {
  Opened opened;
  for (auto _ : state) {
    opened.photos.Find(criterion, Recordset::Start::First);
    benchmark::DoNotOptimize(opened.photos.AbsolutePosition());
  }
}

void filterOurs(benchmark::State& state, const char* criterion) {
  Opened opened;
  for (auto _ : state) {
    opened.photos.Filter(criterion);
    benchmark::DoNotOptimize(opened.photos.RecordCount());
  }
}

template <typename Holds> void findReference(benchmark::State& state, Holds holds) {
  const std::vector<Photo> photos = manyPhotos(many);
  for (auto _ : state) {
    std::size_t at = 0;
    while (at < photos.size() && !holds(photos[at]))
      ++at;
    benchmark::DoNotOptimize(at);
  }
}

template <typename Holds> void filterReference(benchmark::State& state, Holds holds) {
  const std::vector<Photo> photos = manyPhotos(many);
  for (auto _ : state) {
    std::vector<std::size_t> found;
    for (std::size_t at = 0; at < photos.size(); ++at)
      if (holds(photos[at]))
        found.push_back(at);
    benchmark::DoNotOptimize(found.data());
  }
}

bool sameIgnoringCase(std::string_view left, std::string_view right) {
  if (left.size() != right.size())
    return false;
  for (std::size_t i = 0; i < left.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(left[i])) !=
        std::tolower(static_cast<unsigned char>(right[i])))
      return false;
  return true;
}

bool containsIgnoringCase(const std::string& text, const char* part) {
  return strcasestr(text.c_str(), part) != nullptr;
}

bool isLastPhoto(const Photo& photo) { return sameIgnoringCase(photo.PictureID, "hd100000"); }
bool isOfNoYear(const Photo& photo) { return photo.Year == 1849; }
bool isOf1990(const Photo& photo) { return photo.Year == 1990; }
bool isWithoutPlace(const Photo& photo) { return !photo.PlaceID; }
bool isWithPerson(const Photo& photo) {
  return photo.NamesInPhoto && containsIgnoringCase(*photo.NamesInPhoto, "007");
}
bool isOfLake(const Photo& photo) {
  return photo.Description && containsIgnoringCase(*photo.Description, "LAKE with ém");
}

#define PAIR(name, kind, criterion, holds)                                                         \
  BENCHMARK_CAPTURE(kind##Ours, holds, criterion)                                                  \
      ->Name("database " name "/ours")                                                             \
      ->Unit(benchmark::kMicrosecond);                                                             \
  BENCHMARK_CAPTURE(kind##Reference, holds, holds)                                                 \
      ->Name("database " name "/reference")                                                        \
      ->Unit(benchmark::kMicrosecond)

PAIR("find the last photo", find, "PictureID = 'hd100000'", isLastPhoto);
PAIR("find a year that is not there", find, "Year = 1849", isOfNoYear);
PAIR("filter by a quoted year", filter, " Year = '1990'", isOf1990);
PAIR("filter by no place", filter, "PlaceID = Null", isWithoutPlace);
PAIR("filter by a person", filter, "NamesInPhoto LIKE '%007%'", isWithPerson);
PAIR("filter by words", filter, "Description LIKE '%LAKE with ém%'", isOfLake);

// Memory

/// What an album of many photos takes more than an empty one.
void memoryOurs(benchmark::State& state) {
  for (auto _ : state) {
    const auto more = residentWithOpened(largeAlbum(many)) - residentWithOpened(largeAlbum(0));
    state.counters["bytes"] = static_cast<double>(more);
  }
}

void memoryReference(benchmark::State& state) {
  const std::size_t bytes = bytesOf(manyPhotos(many));
  for (auto _ : state)
    state.counters["bytes"] = static_cast<double>(bytes);
}

BENCHMARK(memoryOurs)->Name("database memory 100,000/ours")->Iterations(1);
BENCHMARK(memoryReference)->Name("database memory 100,000/reference")->Iterations(1);

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--resident") == 0)
    return hearthbook::bench::openAndTell(argv[2]);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
