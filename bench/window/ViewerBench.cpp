#include "../Machine.h"
#include "../SamplePhotos.h"
#include "AlbumStart.h"
#include "BenchAlbum.h"
#include "Forms.h"
#include "Guard.h"
#include "Look.h"
#include "MDIForm1.h"
#include "PageCells.h"
#include "PaintWatch.h"
#include "Viewer.h"
#include "Wiring.h"

#include <benchmark/benchmark.h>

#include <QAbstractButton>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

// Turning the pages of an album of photographs of 12 megapixels: to a page that has been decoded
// ahead, until it is painted, beside one frame of a screen at 60 Hz; and to one of which nothing
// is known, beside four scaled decodes by djpeg on two cores.

namespace hearthbook::bench {
namespace {

namespace fs = std::filesystem;

constexpr int photoCount = 12;
constexpr double frameSeconds = 1.0 / 60;
constexpr int decodeAheadMs = 2500;

/// The program with the pages of its Master Album open.
class OpenPages {
public:
  OpenPages() : folder_(photoCount), album_(ApplicationFolder(folder_.path())) {
    writePhotos();
    startAlbum(album_, [] { return false; });
    frame_ = std::make_unique<MDIForm1>(album_, ShellServices());
    wiring_ = std::make_unique<Wiring>(album_, *frame_);
    frame_->open();
    frame_->showNormal(); // no larger screen is there to fill
    frame_->resize(1920, 1080);
    frame_->commands().viewAlbum(0, QStringLiteral("Master Album"));
    viewer_ = &Forms::get<Viewer>();
    next_ = button("Command1");
    first_ = button("Command7");
  }

  double aheadPage() {
    goBackAtTheEnd();
    runLoop(decodeAheadMs);
    return turn();
  }
  /// A photo that has been written again is another one.
  double coldPage() {
    goBackAtTheEnd();
    runLoop(decodeAheadMs);
    for (const fs::path& photo : photos_)
      fs::last_write_time(photo, fs::last_write_time(photo) + std::chrono::seconds(1));
    return turn();
  }
  [[nodiscard]] const std::vector<fs::path>& photos() const { return photos_; }

private:
  void writePhotos() {
    const fs::path folder = folder_.path() / "Photos";
    fs::create_directories(folder);
    int number = 0;
    for (const fs::path& made : writeSamplePhotos(folder, photoCount)) {
      photos_.push_back(folder / (std::to_string(100000 + ++number).substr(1) + ".jpg"));
      fs::rename(made, photos_.back());
    }
  }
  [[nodiscard]] QAbstractButton* button(const char* name) const {
    return viewer_->findChild<QAbstractButton*>(QString::fromLatin1(name));
  }
  void goBackAtTheEnd() {
    if (album_.vars.rsViewer->atEOF())
      first_->click();
  }
  /// Seconds from the click to the painted page.
  double turn() {
    std::array<std::unique_ptr<PaintWatch>, photosOnPage> watches;
    for (int cell = 0; cell < photosOnPage; ++cell)
      watches[cell] = std::make_unique<PaintWatch>(viewer_->cells().at(cell).photo);
    const auto isPainted = [&watches] {
      return std::ranges::all_of(watches, [](const auto& watch) { return watch->painted; });
    };
    QElapsedTimer passed;
    passed.start();
    next_->click();
    while (viewer_->isWaitingForPictures()) // asleep: both cores are for the pictures
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (const auto& watch : watches)
      watch->painted = false; // of the pixels that have come, not of those before
    for (int cell = 0; cell < photosOnPage; ++cell)
      viewer_->cells().at(cell).photo->update();
    while (!isPainted())
      QCoreApplication::processEvents();
    return static_cast<double>(passed.nsecsElapsed()) * 1e-9;
  }

  BenchAlbum folder_;
  Album album_;
  std::vector<fs::path> photos_;
  std::unique_ptr<MDIForm1> frame_;
  std::unique_ptr<Wiring> wiring_;
  Viewer* viewer_ = nullptr;
  QAbstractButton* next_ = nullptr;
  QAbstractButton* first_ = nullptr;
};

OpenPages* pages = nullptr;

void ahead(benchmark::State& state) {
  for (auto _ : state)
    state.SetIterationTime(pages->aheadPage());
}

void oneFrame(benchmark::State& state) {
  for (auto _ : state)
    state.SetIterationTime(frameSeconds);
}

void cold(benchmark::State& state) {
  for (auto _ : state)
    state.SetIterationTime(pages->coldPage());
}

void decodeTwo(std::size_t from) {
  for (std::size_t photo = from; photo < from + 2; ++photo)
    runProgram({"djpeg", "-scale", "1/8", pages->photos()[photo].string()});
}

void fourDecodes(benchmark::State& state) {
  for (auto _ : state) {
    std::thread otherCore(decodeTwo, 2);
    decodeTwo(0);
    otherCore.join();
  }
}

void add(const std::string& name, void (*run)(benchmark::State&), bool timesItself) {
  auto* measurement = benchmark::RegisterBenchmark(name.c_str(), run);
  measurement->Unit(benchmark::kMillisecond)->Iterations(4);
  if (timesItself)
    measurement->UseManualTime();
  else
    measurement->UseRealTime();
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  namespace bench = hearthbook::bench;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  bench::add("next album page, decoded ahead/ours", bench::ahead, true);
  bench::add("next album page, decoded ahead/reference", bench::oneFrame, true);
  bench::add("next album page, cold/ours", bench::cold, true);
  bench::add("next album page, cold/reference", bench::fourDecodes, false);
  benchmark::Initialize(&argc, argv);
  {
    bench::OpenPages opened;
    bench::pages = &opened;
    benchmark::RunSpecifiedBenchmarks();
  }
  return 0;
}
