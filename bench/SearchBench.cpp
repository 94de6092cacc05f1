#include "BareLoop.h"
#include "Connection.h"
#include "JetSql.h"
#include "LargeAlbum.h"
#include "Recordset.h"
#include "SearchQuery.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

// From the criteria of a search until every row of its result can be read, beside a bare loop
// over the same statement.

namespace hearthbook::bench {
namespace {

struct Search {
  const char* name;
  SearchCriteria criteria;
};

SearchCriteria personAndYears() {
  SearchCriteria criteria;
  criteria.people = {{"Ann", 7}};
  criteria.fromYear = "1985";
  criteria.toYear = "1999";
  return criteria;
}

SearchCriteria placesAndEvents() {
  SearchCriteria criteria;
  criteria.places = {{"Home", 3}, {"Lake", 5}, {"Rome", 8}};
  criteria.events = {{"Wedding", 2}, {"School", 4}};
  criteria.sort = "Place";
  return criteria;
}

SearchCriteria words() {
  SearchCriteria criteria;
  criteria.description = "summer";
  return criteria;
}

SearchCriteria everything() {
  SearchCriteria criteria = personAndYears();
  for (int id = 1; id <= 60; ++id) {
    criteria.places.push_back({"Place", id});
    criteria.events.push_back({"Event", id});
  }
  criteria.description = "the";
  return criteria;
}

const std::array searches{Search{"all photos", {}}, Search{"a person and years", personAndYears()},
                          Search{"places and events", placesAndEvents()}, Search{"words", words()},
                          Search{"all criteria", everything()}};

void ours(benchmark::State& state, const SearchCriteria& criteria, int photos) {
  Connection connection;
  connection.Open(largeAlbum(photos));
  Recordset result(connection);
  for (auto _ : state) {
    result.Open(BuildSearchQuery(criteria).sql);
    benchmark::DoNotOptimize(result.RecordCount());
  }
}

void reference(benchmark::State& state, const SearchCriteria& criteria, int photos) {
  Connection connection;
  connection.Open(largeAlbum(photos));
  const std::string select = toSqlite(BuildSearchQuery(criteria).sql);
  for (auto _ : state)
    readAll(connection, select);
}

void add(const Search& search, int photos, const std::string& size) {
  const std::string name = "search " + size + ", " + search.name;
  const SearchCriteria& criteria = search.criteria;
  benchmark::RegisterBenchmark((name + "/ours").c_str(),
                               [&criteria, photos](auto& state) { ours(state, criteria, photos); })
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.05);
  benchmark::RegisterBenchmark(
      (name + "/reference").c_str(),
      [&criteria, photos](auto& state) { reference(state, criteria, photos); })
      ->Unit(benchmark::kMillisecond)
      ->MinTime(0.05);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  using namespace hearthbook::bench;
  for (const auto& [photos, size] :
       {std::pair(10'000, "10,000"), std::pair(100'000, "100,000"), std::pair(200'000, "200,000")})
    for (const auto& search : searches)
      add(search, photos, size);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
