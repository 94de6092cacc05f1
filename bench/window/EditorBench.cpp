#include "AlbumStart.h"
#include "BenchAlbum.h"
#include "DBeditor.h"
#include "Encode.h"
#include "Forms.h"
#include "Guard.h"
#include "Look.h"
#include "MDIForm1.h"
#include "PaintWatch.h"
#include "PictureBox.h"
#include "RecordPicture.h"
#include "StallWatch.h"
#include "Wiring.h"

#include <benchmark/benchmark.h>

#include <QAbstractButton>

#include <fstream>
#include <memory>

// Walking through photographs of 12 megapixels in the record editor: the step to a photo that
// has been decoded ahead, until it is painted, beside one frame of a screen at 60 Hz; and how
// long the window's thread is blocked while one hurries on without waiting for pictures.

namespace hearthbook::bench {
namespace {

constexpr int photoCount = 12;
constexpr double frameSeconds = 1.0 / 60;
constexpr double longestBlockSeconds = 0.050;
constexpr int decodeAheadMs = 1500;

/// Hills and sky with some grain, so that the file has the size of a photograph.
Picture landscape(unsigned seed) {
  Picture picture({4000, 3000});
  std::uint32_t grain = seed * 2654435761U + 1;
  for (int y = 0; y < picture.height(); ++y) {
    std::uint32_t* row = picture.writableRow(y);
    for (int x = 0; x < picture.width(); ++x) {
      grain = grain * 1664525U + 1013904223U;
      const std::uint32_t shade = (static_cast<std::uint32_t>(x * (seed + 3) + y * 7) >> 6U) & 127U;
      const std::uint32_t noise = grain >> 28U;
      row[x] = 0xff000000U | (shade + noise) << 16U | (shade + 40 + noise) << 8U | (120 + noise);
    }
  }
  return picture;
}

void writePhotos(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  for (int number = 1; number <= photoCount; ++number) {
    const std::string stem = std::to_string(100000 + number).substr(1);
    std::ofstream file(folder / (stem + ".jpg"), std::ios::binary);
    writeJpeg(file, landscape(static_cast<unsigned>(number)), 5);
  }
}

/// The program with its editor open on the first photo.
class OpenEditor {
public:
  OpenEditor() : folder_(photoCount), album_(ApplicationFolder(folder_.path())) {
    writePhotos(folder_.path() / "Photos");
    startAlbum(album_, [] { return false; });
    frame_ = std::make_unique<MDIForm1>(album_, ShellServices());
    wiring_ = std::make_unique<Wiring>(album_, *frame_);
    frame_->open();
    frame_->resize(1920, 1080);
    frame_->commands().buildFromStart();
    auto& editor = Forms::get<DBeditor>();
    next_ = editor.findChild<QAbstractButton*>(QStringLiteral("NextPhoto"));
    image_ = editor.findChild<PictureBox*>(QStringLiteral("Image1"));
    picture_ = editor.findChild<RecordPicture*>();
    runLoop(decodeAheadMs);
  }

  /// Seconds from the click to the painted photo.
  double step() {
    backAtTheEnd();
    PaintWatch watch(image_);
    QElapsedTimer passed;
    passed.start();
    next_->click();
    while (picture_->isWaiting() || !watch.painted)
      QCoreApplication::processEvents();
    return static_cast<double>(passed.nsecsElapsed()) * 1e-9;
  }

  /// The longest time in seconds for which the loop did not run while photos went by.
  double hurry() {
    test::StallWatch stalls;
    for (int steps = 0; steps < photoCount; ++steps) {
      backAtTheEnd();
      next_->click();
      runLoop(30);
    }
    runLoop(decodeAheadMs);
    return stalls.longestMs() * 1e-3;
  }

private:
  void backAtTheEnd() {
    Recordset& photos = album_.data.rsPhotoAlbum;
    if (photos.AbsolutePosition() < photos.RecordCount())
      return;
    photos.MoveFirst();
    Forms::get<DBeditor>().ComposeRecord();
    runLoop(decodeAheadMs);
  }

  BenchAlbum folder_;
  Album album_;
  std::unique_ptr<MDIForm1> frame_;
  std::unique_ptr<Wiring> wiring_;
  QAbstractButton* next_ = nullptr;
  PictureBox* image_ = nullptr;
  RecordPicture* picture_ = nullptr;
};

OpenEditor* editor = nullptr;

void step(benchmark::State& state) {
  for (auto _ : state) {
    runLoop(decodeAheadMs);
    state.SetIterationTime(editor->step());
  }
}

void hurry(benchmark::State& state) {
  for (auto _ : state)
    state.SetIterationTime(editor->hurry());
}

void standing(benchmark::State& state, double seconds) {
  for (auto _ : state)
    state.SetIterationTime(seconds);
}

void add(const std::string& name, void (*ours)(benchmark::State&), int iterations,
         double reference) {
  benchmark::RegisterBenchmark((name + "/ours").c_str(), ours)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(iterations);
  benchmark::RegisterBenchmark((name + "/reference").c_str(),
                               [reference](benchmark::State& state) { standing(state, reference); })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1);
}

} // namespace
} // namespace hearthbook::bench

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  hearthbook::GuardedApplication application(argc, argv);
  hearthbook::applyLook(application);
  hearthbook::bench::add("step to a photo decoded ahead", hearthbook::bench::step, 8,
                         hearthbook::bench::frameSeconds);
  hearthbook::bench::add("longest block of the window", hearthbook::bench::hurry, 1,
                         hearthbook::bench::longestBlockSeconds);
  benchmark::Initialize(&argc, argv);
  {
    hearthbook::bench::OpenEditor opened;
    hearthbook::bench::editor = &opened;
    benchmark::RunSpecifiedBenchmarks();
  }
  return 0;
}
