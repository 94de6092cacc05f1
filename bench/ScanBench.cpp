#include "Encode.h"
#include "ImageEdit.h"
#include "Machine.h"
#include "PhotoSaving.h"
#include "SamplePhotos.h"
#include "WorkPool.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

// A print of three megapixels saved from a scanned page of twelve, with its thumbnail, against
// `jpegtran -crop` and `djpeg | cjpeg`. Both flush what they write.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr PixelRect print{704, 608, 2000, 1500};

void saveOurs(benchmark::State& state) {
  const WorkFolder folder;
  const PhotoPlaces places{folder.path() / "photo.jpg", folder.path() / "small.jpg", folder.path()};
  WorkPool pool;
  ImageEdit page;
  page.show(samplePhoto(twelveMegapixels, 1));
  page.selection().set(print);
  for (auto _ : state) {
    writePhoto(ImageEdit::asSeen(page.cutOut(), &pool), places);
    state.PauseTiming();
    fs::remove(places.photo); // a new photo replaces none
    state.ResumeTiming();
  }
}

void saveReference(benchmark::State& state) {
  const WorkFolder folder;
  std::ofstream(folder.path() / "page.jpg", std::ios::binary)
      << jpegBytes(samplePhoto(twelveMegapixels, 1), photoFactor);
  const std::string work =
      "cd '" + folder.path().string() +
      "' && jpegtran -copy none -crop 2000x1500+704+608 page.jpg > photo.jpg"
      " && djpeg -scale 1/8 photo.jpg | cjpeg -quality 80 > small.jpg && sync photo.jpg small.jpg";
  for (auto _ : state)
    runProgram({"sh", "-c", work});
}

const bool registered = [] {
  const auto measure = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond)->UseRealTime();
  };
  measure("save a part of a page/ours", saveOurs);
  measure("save a part of a page/reference", saveReference);
  return true;
}();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
