#include "../Machine.h"
#include "../SamplePhotos.h"
#include "Guard.h"
#include "Look.h"
#include "PrintLayout.h"
#include "PrintRun.h"
#include "PrinterThread.h"
#include "SheetText.h"
#include "WorkPool.h"

#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

// An album page of four photographs of 12 megapixels goes into a PDF, with 300 dots to the inch;
// the reference decodes the same four, at the smallest part of their size that has as many dots.

namespace hearthbook::bench {
namespace {

enum class Cores { All, One };

const WorkFolder& workFolder() {
  static const WorkFolder folder;
  return folder;
}

const std::vector<std::filesystem::path>& photos() {
  static const std::vector<std::filesystem::path> files = writeSamplePhotos(workFolder().path(), 4);
  return files;
}

/// As the album pages show four photos that lie across.
AlbumPrint albumPage() {
  AlbumPrint page;
  for (int place = 0; place < 4; ++place) {
    AlbumPrintCell cell;
    cell.place = place;
    cell.photo = {{place % 2 == 0 ? 2400.0 : 8280.0, place < 2 ? 422.0 : 3902.0, 3375, 2531},
                  photos().at(static_cast<std::size_t>(place)),
                  {}};
    cell.infoWidth = 2175;
    cell.gridSize = {2175, 1740};
    cell.grid = Picture({453, 363});
    cell.caption = "1987, Wedding in Lake";
    page.cells.push_back(std::move(cell));
  }
  return page;
}

PrintOrder order() {
  const PrintPage page = albumPage();
  const PrintChoices choices;
  PrintOrder made;
  made.sheet = layOut(page, choices, paperFor(page, choices, std::nullopt),
                      {sheetWidthOf, sheetLineHeight()});
  made.title = "Album page";
  made.file = workFolder().path() / "page.pdf";
  return made;
}

void printOurs(benchmark::State& state, Cores cores) {
  std::optional<OnOneCore> one;
  if (cores == Cores::One)
    one.emplace();
  const PrintOrder page = order();
  WorkPool pool(cores == Cores::One ? 1 : 0);
  PrinterThread printer;
  for (auto _ : state)
    runPrint(pool, printer, page, {[](PrintStep, std::size_t) {}, [] { return true; }});
}

void decode(std::size_t first, std::size_t count) {
  for (std::size_t photo = first; photo < first + count; ++photo)
    runProgram({"djpeg", "-scale", "3/8", photos().at(photo).string()});
}

void decodeReference(benchmark::State& state, Cores cores) {
  photos();
  std::optional<OnOneCore> one;
  if (cores == Cores::One)
    one.emplace();
  for (auto _ : state) {
    std::thread other(decode, 2, 2);
    decode(0, 2);
    other.join();
  }
}

void registerPair(const std::string& what, Cores cores) {
  const auto measure = [](const std::string& name, auto function, Cores on) {
    benchmark::RegisterBenchmark(name.c_str(), function, on)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(4)
        ->UseRealTime();
  };
  measure(what + "/ours", printOurs, cores);
  measure(what + "/reference", decodeReference, cores);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  namespace bench = hearthbook::bench;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  bench::registerPair("print an album page, all cores", bench::Cores::All);
  bench::registerPair("print an album page, one core", bench::Cores::One);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
