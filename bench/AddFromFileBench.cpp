#include "AddPhotos.h"
#include "Album.h"
#include "DatabaseMaker.h"
#include "Machine.h"
#include "SamplePhotos.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <stdexcept>

#include <unistd.h>

// Sixty photographs from a camera, added to an album; `djpeg -scale 1/8` and `cp` go through the
// same files one after the other.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr int photoCount = 60;

/// What the window's event loop is to the program: sleeps until something may have happened.
class Bell {
public:
  void ring() {
    const std::lock_guard lock(mutex_);
    rung_.notify_all();
  }
  void waitFor(const std::function<bool()>& done) {
    std::unique_lock lock(mutex_);
    while (!done())
      rung_.wait_for(lock, std::chrono::milliseconds(10));
  }

private:
  std::mutex mutex_;
  std::condition_variable rung_;
};

/// Made once, kept for the whole run.
const std::vector<fs::path>& cameraPhotos() {
  static const WorkFolder folder;
  static const std::vector<fs::path> photos = writeSamplePhotos(folder.path(), photoCount);
  return photos;
}

void makeAlbum(const fs::path& root) {
  for (const char* folder : {"Data", "Photos", "Thumbnails", "Backup"})
    fs::create_directories(root / folder);
  makeAlbumDatabase(root / "Data" / "Photo_Album.mdb", HEARTHBOOK_SCHEMA);
}

void addAll(const std::vector<fs::path>& photos, const fs::path& root) {
  Album album{ApplicationFolder(root)};
  album.data.AlbumDB.Open(root / "Data" / "Photo_Album.mdb");
  album.data.openRecordsets();
  Bell bell;
  WorkPool pool;
  AddPhotosRequest request;
  request.list = photos;
  request.selected.assign(photos.size(), true);
  AddPhotosListener listener;
  listener.wait = [&](const std::function<bool()>& done) { bell.waitFor(done); };
  listener.wake = [&] { bell.ring(); };
  listener.failed = [](const fs::path& source, const std::exception& cause) {
    throw std::runtime_error(source.string() + ": " + cause.what());
  };
  addPhotos(album, pool, request, listener);
}

void decodeAndCopyAll(const std::vector<fs::path>& photos, const fs::path& folder) {
  for (const fs::path& photo : photos) {
    runProgram({"djpeg", "-scale", "1/8", photo.string()});
    runProgram({"cp", photo.string(), (folder / photo.filename()).string()});
  }
}

enum class Cores { All, One };

template <class Work> void eachRun(benchmark::State& state, Cores cores, Work work) {
  const auto& photos = cameraPhotos();
  std::optional<OnOneCore> one;
  if (cores == Cores::One)
    one.emplace();
  const WorkFolder folder;
  makeAlbum(folder.path());
  sync();              // what the run before has left to write is not this one's
  for (auto _ : state) // once
    work(photos, folder.path());
}

void addOurs(benchmark::State& state, Cores cores) { eachRun(state, cores, addAll); }
void addReference(benchmark::State& state, Cores cores) { eachRun(state, cores, decodeAndCopyAll); }

void registerPair(const std::string& what, Cores cores) {
  const auto measure = [](const std::string& name, auto function, Cores on) {
    benchmark::RegisterBenchmark(name.c_str(), function, on)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->UseRealTime();
  };
  measure(what + "/ours", addOurs, cores);
  measure(what + "/reference", addReference, cores);
}

const bool registered = [] {
  registerPair("add 60 photos, all cores", Cores::All);
  registerPair("add 60 photos, one core", Cores::One);
  return true;
}();

} // namespace
} // namespace hearthbook::bench

BENCHMARK_MAIN();
