#include "MUUEncode.h"
#include "Machine.h"
#include "ReducedPhoto.h"
#include "SamplePhotos.h"
#include "WorkPool.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <future>
#include <string>
#include <vector>

// What a mail of photographs costs: the text of its attachments, against `uuencode`, and the
// reducing of four photographs, against `djpeg -scale 1/8` and `cjpeg`.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t million = 1'000'000;
constexpr int photosOfAPage = 4;

const WorkFolder& workFolder() {
  static const WorkFolder folder;
  return folder;
}

/// So many bytes with no pattern in them; made once.
fs::path fileOf(std::size_t bytes) {
  fs::path file = workFolder().path() / (std::to_string(bytes) + ".bin");
  if (fs::exists(file))
    return file;
  std::string noise(bytes, '\0');
  unsigned state = 1;
  for (char& byte : noise) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24);
  }
  std::ofstream(file, std::ios::binary) << noise;
  return file;
}

void encode(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ofstream out("/dev/null", std::ios::binary);
  MUUEncode(in, fs::file_size(file), "photo.jpg", out);
}

void encodeOurs(benchmark::State& state) {
  const fs::path file = fileOf(10 * million);
  for (auto _ : state)
    encode(file);
}

void encodeReference(benchmark::State& state) {
  const fs::path file = fileOf(10 * million);
  for (auto _ : state)
    runProgram({"uuencode", file.string(), "photo.jpg"});
}

void encodeLargeOurs(benchmark::State& state) {
  const fs::path file = fileOf(100 * million);
  for (auto _ : state)
    encode(file);
}

/// The same number of bytes, a tenth at a time.
void encodeLargeReference(benchmark::State& state) {
  const fs::path file = fileOf(10 * million);
  for (auto _ : state)
    for (int tenth = 0; tenth < 10; ++tenth)
      encode(file);
}

const std::vector<fs::path>& cameraPhotos() {
  static const std::vector<fs::path> photos = writeSamplePhotos(workFolder().path(), photosOfAPage);
  return photos;
}

/// As the composer does it: on all cores at once.
void reduceOurs(benchmark::State& state) {
  WorkPool pool;
  for (auto _ : state) {
    std::vector<std::future<std::string>> reduced;
    for (const fs::path& photo : cameraPhotos())
      reduced.push_back(pool.run([&photo] { return reducedForMail(photo); }));
    for (auto& jpeg : reduced)
      benchmark::DoNotOptimize(jpeg.get());
  }
}

void reduceOneByOne(benchmark::State& state) {
  const OnOneCore oneCore;
  for (auto _ : state)
    for (const fs::path& photo : cameraPhotos())
      benchmark::DoNotOptimize(reducedForMail(photo));
}

void reduceWithPrograms() {
  const std::string pixels = (workFolder().path() / "small.ppm").string();
  const std::string jpeg = (workFolder().path() / "small.jpg").string();
  for (const fs::path& photo : cameraPhotos()) {
    runProgram({"djpeg", "-scale", "1/8", "-outfile", pixels, photo.string()});
    runProgram({"cjpeg", "-quality", "90", "-outfile", jpeg, pixels});
  }
}

void reduceReference(benchmark::State& state) {
  for (auto _ : state)
    reduceWithPrograms();
}

void reduceOneByOneReference(benchmark::State& state) {
  const OnOneCore oneCore;
  for (auto _ : state)
    reduceWithPrograms();
}

void measure(const char* name, void (*run)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->UseRealTime();
}

const bool registered = [] {
  measure("mail encode 10 MB/ours", encodeOurs);
  measure("mail encode 10 MB/reference", encodeReference);
  measure("mail encode 100 MB, to ten times 10 MB/ours", encodeLargeOurs);
  measure("mail encode 100 MB, to ten times 10 MB/reference", encodeLargeReference);
  measure("mail reduce four photos/ours", reduceOurs);
  measure("mail reduce four photos/reference", reduceReference);
  measure("mail reduce four photos, one core/ours", reduceOneByOne);
  measure("mail reduce four photos, one core/reference", reduceOneByOneReference);
  return true;
}();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
