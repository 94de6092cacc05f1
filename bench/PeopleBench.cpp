#include "Connection.h"
#include "LargeAlbum.h"
#include "NamesInPhoto.h"
#include "Numbers.h"
#include "Recordset.h"
#include "YearTable.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

// Pairs `X/ours` and `X/reference`, which bench/compare sets against each other.

namespace hearthbook::bench {
namespace {

constexpr int many = 100'000;
constexpr int manyPeople = 2'000;
constexpr int manyNames = 50;

/// The large album once more, with every photo at the same place.
const std::filesystem::path& albumOfOnePlace() {
  static const std::filesystem::path file = [] {
    auto copy = largeAlbum(many).parent_path() / "one-place.mdb";
    std::filesystem::copy_file(largeAlbum(many), copy);
    Connection connection;
    connection.Open(copy);
    connection.execute("UPDATE PhotoAlbum SET PlaceID = 1");
    return copy;
  }();
  return file;
}

const std::filesystem::path& albumOfPeople() {
  static const std::filesystem::path file = [] {
    auto made = largeAlbum(1).parent_path() / "people.mdb";
    std::filesystem::copy_file(largeAlbum(1), made);
    Connection connection;
    connection.Open(made);
    connection.execute("CREATE TABLE Appearances (AppearancesID INTEGER PRIMARY KEY, "
                       "AppearancesNames TEXT NOT NULL COLLATE HEARTHBOOK_TEXT, AFirstName TEXT, "
                       "ALastName TEXT, BirthDate TEXT, BirthYear INTEGER, relationID INTEGER)");
    connection.transaction([&] {
      for (int person = 1; person <= manyPeople; ++person)
        connection.execute("INSERT INTO Appearances VALUES (" + std::to_string(person) +
                           ", 'Person " + std::to_string(person * 7919 % manyPeople) +
                           "', 'Anna', 'Hill', '12/31', 1977, 0)");
    });
    return made;
  }();
  return file;
}

void readAll(sqlite3* database, const char* statementText) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, statementText, -1, &statement, nullptr);
  const int columns = sqlite3_column_count(statement);
  while (sqlite3_step(statement) == SQLITE_ROW)
    for (int column = 0; column < columns; ++column)
      benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
  sqlite3_finalize(statement);
}

// The years of a person of 90

void years(benchmark::State& state, const std::filesystem::path& album) {
  Connection connection;
  connection.Open(album);
  for (auto _ : state)
    benchmark::DoNotOptimize(yearTable(connection, {1, 1, 1, 1936, 2026}));
}

void yearsReference(benchmark::State& state, const std::filesystem::path& album) {
  Connection connection;
  connection.Open(album);
  for (auto _ : state)
    readAll(connection.handle(), "SELECT Year, PlaceID, EventID, NamesInPhoto FROM PhotoAlbum");
}

void yearsOurs(benchmark::State& state) { years(state, largeAlbum(many)); }
void yearsBare(benchmark::State& state) { yearsReference(state, largeAlbum(many)); }
void yearsOfOnePlace(benchmark::State& state) { years(state, albumOfOnePlace()); }
void yearsOfOnePlaceBare(benchmark::State& state) { yearsReference(state, albumOfOnePlace()); }

BENCHMARK(yearsOurs)->Name("people years/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(yearsBare)->Name("people years/reference")->Unit(benchmark::kMillisecond);
BENCHMARK(yearsOfOnePlace)
    ->Name("people years, all at one place/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(yearsOfOnePlaceBare)
    ->Name("people years, all at one place/reference")
    ->Unit(benchmark::kMillisecond);

// The names of a photo

void namesOurs(benchmark::State& state) {
  Connection connection;
  connection.Open(albumOfPeople());
  Recordset people(connection);
  std::string names;
  for (int person = 1; person <= manyNames; ++person)
    names += padded(std::int64_t{person} * (manyPeople / manyNames), 3) + ",";
  for (auto _ : state)
    benchmark::DoNotOptimize(PopList(people, names, ""));
}

void namesReference(benchmark::State& state) {
  Connection connection;
  connection.Open(albumOfPeople());
  for (auto _ : state)
    readAll(connection.handle(), "Select * From Appearances Order By AppearancesNames");
}

BENCHMARK(namesOurs)->Name("people 50 names of 2,000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(namesReference)
    ->Name("people 50 names of 2,000/reference")
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
