#include "AlbumExport.h"
#include "Connection.h"
#include "DatabaseMaker.h"
#include "Encode.h"
#include "Machine.h"
#include "SamplePhotos.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

// A sub-album of photographs from a camera goes out: reduced for a small screen, where
// `vipsthumbnail` makes the same sizes of the same files in a process for each core, and as it is,
// where `cp` copies the same files.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr int photoCount = 200;
constexpr int differentPhotos = 40; ///< each stands in the album five times
constexpr std::size_t reduced = 0;
constexpr std::size_t asTheyAre = 3;

std::string stemOf(int number) {
  std::string digits = std::to_string(number);
  return std::string(5 - digits.size(), '0') + digits;
}

void makePages(const fs::path& exportTemplate) {
  fs::create_directories(exportTemplate / "html");
  std::ofstream(exportTemplate / "master.htm") << "^^varTitle^^ ^^varThumbs^^ ^^audio^^";
  std::ofstream(exportTemplate / "html" / "rightctrl.htm") << "^^numPage^^";
}

/// An album with one sub-album of all photos, which are links to the given files.
void makeAlbum(const fs::path& root, const std::vector<fs::path>& photos, int count) {
  for (const char* folder : {"Data", "Photos", "Thumbnails", "Audio"})
    fs::create_directories(root / folder);
  makePages(root / "export" / "template");
  makeAlbumDatabase(root / "Data" / "Photo_Album.mdb", HEARTHBOOK_SCHEMA);
  Connection connection;
  connection.Open(root / "Data" / "Photo_Album.mdb");
  connection.transaction([&] {
    connection.execute("INSERT INTO SubAlbums (AlbumID, albumName) VALUES (1, 'Trip')");
    connection.execute("DELETE FROM PhotoAlbum");
    for (int i = 1; i <= count; ++i) {
      const std::string id = "'HD" + stemOf(i) + "'";
      connection.execute("INSERT INTO PhotoAlbum (PictureID) VALUES (" + id + ")");
      connection.execute("INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (1, " + id +
                         ", " + std::to_string(i) + ")");
    }
  });
  for (int i = 1; i <= count; ++i)
    fs::create_hard_link(photos[static_cast<std::size_t>(i) % photos.size()],
                         root / "Photos" / (stemOf(i) + ".jpg"));
}

/// Made once, kept for the whole run.
struct CameraAlbum {
  CameraAlbum() {
    fs::create_directories(folder.path() / "camera");
    makeAlbum(folder.path(), writeSamplePhotos(folder.path() / "camera", differentPhotos),
              photoCount);
    for (int i = 1; i <= photoCount; ++i)
      photos.push_back((folder.path() / "Photos" / (stemOf(i) + ".jpg")).string());
  }
  WorkFolder folder;
  std::vector<std::string> photos;
};

const CameraAlbum& cameraAlbum() {
  static const CameraAlbum album;
  return album;
}

void exportAlbum(const fs::path& root, const fs::path& base, std::size_t optimization) {
  const Album album{ApplicationFolder(root)};
  WorkPool pool;
  ExportRequest request;
  request.albumId = 1;
  request.albumName = "Trip";
  request.base = base;
  request.optimization = optimization;
  exportSubAlbum(album, pool, request);
}

void shrinkWithVips(const std::vector<std::string>& photos, const fs::path& base) {
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::future<void>> running;
  for (unsigned core = 0; core < cores; ++core) {
    std::vector<std::string> words{"vipsthumbnail", "--size", "620x465", "-o",
                                   (base / "%s.jpg[Q=95]").string()};
    for (std::size_t i = core; i < photos.size(); i += cores)
      words.push_back(photos[i]);
    running.push_back(std::async(std::launch::async, [words] { runProgram(words); }));
  }
  for (auto& one : running)
    one.get();
}

void copyAll(const std::vector<std::string>& photos, const fs::path& base) {
  std::vector<std::string> words{"cp"};
  words.insert(words.end(), photos.begin(), photos.end());
  words.push_back(base.string());
  runProgram(words);
}

template <class Work> void measure(const std::string& name, Work work) {
  const auto run = [work](benchmark::State& state) {
    const CameraAlbum& album = cameraAlbum();
    const WorkFolder base;
    sync();              // what the run before has left to write is not this one's
    for (auto _ : state) // once
      work(album, base.path());
  };
  benchmark::RegisterBenchmark(name.c_str(), run)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1)
      ->UseRealTime();
}

/// The most memory that a process of its own had while it exported so many photos.
std::int64_t mostMemory(int photos) {
  const auto self = fs::read_symlink("/proc/self/exe");
  const std::string command = self.string() + " --most-memory " + std::to_string(photos);
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  long long kilobytes = 0;
  if (!output || std::fscanf(output.get(), "%lld", &kilobytes) != 1)
    throw std::runtime_error("cannot measure memory");
  return kilobytes * 1024;
}

int exportAndTell(int photos) {
  const WorkFolder folder;
  fs::create_directories(folder.path() / "camera");
  const auto small = folder.path() / "camera" / "small.jpg";
  {
    std::ofstream stream(small, std::ios::binary);
    writeJpeg(stream, samplePhoto({800, 600}, 1), 15);
  }
  makeAlbum(folder.path(), {small}, photos);
  const WorkFolder base; // not below the album, which would be refused
  exportAlbum(folder.path(), base.path(), reduced);
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (word == "VmHWM:") {
      status >> word;
      std::puts(word.c_str());
    }
  return 0;
}

void moreMemory(benchmark::State& state) {
  for (auto _ : state)
    state.counters["bytes"] =
        static_cast<double>(std::max<std::int64_t>(0, mostMemory(5000) - mostMemory(50)));
}

void allowedMemory(benchmark::State& state) {
  for (auto _ : state)
    state.counters["bytes"] = 20e6;
}

void registerAll() {
  measure("export 200 photos, reduced/ours", [](const CameraAlbum& album, const fs::path& base) {
    exportAlbum(album.folder.path(), base, reduced);
  });
  measure(
      "export 200 photos, reduced/reference",
      [](const CameraAlbum& album, const fs::path& base) { shrinkWithVips(album.photos, base); });
  measure("export 200 photos as they are/ours", [](const CameraAlbum& album, const fs::path& base) {
    exportAlbum(album.folder.path(), base, asTheyAre);
  });
  measure("export 200 photos as they are/reference",
          [](const CameraAlbum& album, const fs::path& base) { copyAll(album.photos, base); });
  benchmark::RegisterBenchmark("memory for 5,000 exported, not 50/ours", moreMemory)->Iterations(1);
  benchmark::RegisterBenchmark("memory for 5,000 exported, not 50/reference", allowedMemory)
      ->Iterations(1);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--most-memory") == 0)
    return hearthbook::bench::exportAndTell(std::atoi(argv[2]));
  hearthbook::bench::registerAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
